// Failures that a test has ordered.

#ifndef GORVANET_HOSTS_FAILURES_H
#define GORVANET_HOSTS_FAILURES_H

#include <cstdint>
#include <optional>

namespace host {

struct Message;

// The hosts' headers say what each means; their failures have these numbers.
enum class Failure {
    register_interface,
    release_interface,
    hook_loop,
    attach_user,
    detach_user,
    accept_method,
    send,
    lose_request,
    lose_response,
    damage_request,
    damage_response,
    leave_unhandled
};

// `after`: how often it goes well before.
void order_failure(Failure failure, uint32_t after, int32_t result);

// Asked wherever one may have been ordered. Result: what the caller is to fail with; none: it goes well.
std::optional<int32_t> ordered_failure(Failure failure);

// Does to a message that is about to travel what was ordered for its kind. Result: whether it has ended.
bool fails(Message &message);

// Result: how many there were.
uint32_t drop_failures();

} // namespace host

#endif
