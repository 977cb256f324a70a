// Any bytes at all, for any decoder: the first two choose method and direction, the rest is the encoded body.

#include "check.h"
#include "input.h"

#include <cstdlib>

namespace {

// The bodies of this direction of this method: one or, of a one-way command's response and of an unknown type, none.
const model::Body *find_body(const gorvaNet_method &row, uint32_t type)
{
    for (const model::Body &body : model::bodies())
        if (&body.row() == &row && body.direction == type)
            return &body;
    return nullptr;
}

const gorvaNet_method &row(uint32_t choice)
{
    choice %= GORVANET_COUNT_CMD + GORVANET_COUNT_NTFY;
    return choice < GORVANET_COUNT_CMD ? gorvaNet_base.cmdMethods[choice] : gorvaNet_base.ntfyMethods[0];
}

// Without such a body nothing is read.
void check_unknown(const gorvaNet_method &method, uint32_t type)
{
    void *decoded = nullptr;
    uint32_t size = 0;
    require(method.unserializeBody(type, nullptr, &decoded, &size) == 1, "an unknown type is refused", method.name);
    require(!decoded && !size, "an unknown type gives nothing", method.name);
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Input input({data, size});
    const gorvaNet_method &method = row(input.byte());
    uint32_t type = input.byte() % 3;
    auto bytes = input.rest();
    if (const model::Body *body = find_body(method, type)) {
        check_guarded(*body, bytes);
        check_direct(*body, bytes);
    } else {
        check_unknown(method, type);
    }
    return 0;
}
