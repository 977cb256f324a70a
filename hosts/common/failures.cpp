#include "failures.h"

#include "message.h"

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

// Changes the first byte, which is in the tag of the magic.
void damage(const Bytes &bytes)
{
    auto *first = static_cast<uint8_t *>(bytes.data.get());
    *first = static_cast<uint8_t>(~*first); // GCC 12 drops `*first ^= 0xff` when it checks for null
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

bool fails(Message &message)
{
    bool forth = message.stage != Stage::answered;
    if (ordered_failure(forth ? Failure::lose_request : Failure::lose_response)) {
        end_undeliverable(message, forth ? GORVANET_BODY_REQUEST : GORVANET_BODY_RESPONSE, message.bytes,
                          "lost, as ordered");
        return true;
    }
    if (ordered_failure(forth ? Failure::damage_request : Failure::damage_response))
        damage(message.bytes);
    if (forth && !message.is_notification && ordered_failure(Failure::leave_unhandled)) {
        report_status(message, answer_unhandled_message, "nobody handles the message, as ordered");
        end_message(message.number);
        return true;
    }
    return false;
}

uint32_t drop_failures()
{
    auto count = static_cast<uint32_t>(all_ordered().size());
    all_ordered().clear();
    return count;
}

} // namespace host
