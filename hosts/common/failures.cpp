#include "failures.h"

#include <vector>

namespace host {

namespace {

struct Ordered {
    Failure failure;
    uint32_t after;
    int32_t result;
};

// Made on first use and never ended, as the tables of the registry.
std::vector<Ordered> &all_ordered()
{
    static auto &list = *new std::vector<Ordered>;
    return list;
}

} // namespace

void order_failure(Failure failure, uint32_t after, int32_t result)
{
    all_ordered().push_back({failure, after, result});
}

// Each order counts by itself; of those that are due, the earliest is met and the others stay due.
std::optional<int32_t> ordered_failure(Failure failure)
{
    std::vector<Ordered> &list = all_ordered();
    auto due = list.end();
    for (auto ordered = list.begin(); ordered != list.end(); ++ordered) {
        if (ordered->failure != failure)
            continue;
        if (ordered->after)
            ordered->after--;
        else if (due == list.end())
            due = ordered;
    }
    if (due == list.end())
        return std::nullopt;
    int32_t result = due->result;
    list.erase(due);
    return result;
}

uint32_t drop_failures()
{
    auto count = static_cast<uint32_t>(all_ordered().size());
    all_ordered().clear();
    return count;
}

} // namespace host
