// The event loop: a queue of turns, and the hooks that are told when everything ends.

#ifndef GORVANET_LOOPBACK_LOOP_H
#define GORVANET_LOOPBACK_LOOP_H

#include <cstdint>

namespace loopback {

using Hook = void(void *context, int32_t event);

// Hooking the same function with the same context again changes nothing.
void add_hook(Hook *hook, void *context);

// Queues the next step of a message.
void queue_message(uint32_t message);

} // namespace loopback

#endif
