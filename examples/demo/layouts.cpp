// The bodies of the interface, one row for each direction of a method. A new method is a list of its fields and a row.

#include "annotate.h"

namespace demo {

namespace {

constexpr Field result[] = {number(3, "result")};
constexpr Field set_os_ifc[] = {text(3, "ifName", 50)};

constexpr Layout layouts[] = {
    {"SetOsIfc", request, 0x39132011, 0, set_os_ifc},
    {"SetOsIfc", response, 0x39132011, 0, result},
};

} // namespace

const Layout *find_layout(std::string_view method, uint32_t direction)
{
    for (const Layout &layout : layouts)
        if (layout.method == method && layout.direction == direction)
            return &layout;
    return nullptr;
}

} // namespace demo
