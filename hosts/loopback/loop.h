// The event loop: a queue of turns.

#ifndef GORVANET_HOSTS_LOOPBACK_LOOP_H
#define GORVANET_HOSTS_LOOPBACK_LOOP_H

#include <cstdint>

namespace loopback {

// Queues the next step of a message.
void queue_message(uint32_t message);

void drop_turns();

// The next step of a message, on its turn.
void advance_message(uint32_t number);

} // namespace loopback

#endif
