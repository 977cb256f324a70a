// One message as the tracer saw it.

#ifndef GORVANET_TRACE_MESSAGE_H
#define GORVANET_TRACE_MESSAGE_H

#include "items.h"

#include <cstdint>
#include <ctime>

namespace trace {

enum class Direction : uint8_t { request, response, notification };
enum class Side : uint8_t { sent, received };

// Which method: its interface and its index there.
struct Method {
    layouts::Interface interface;
    uint16_t index;
};

// A number is unlike those of other processes; people are shown the rest of its division by this.
constexpr uint32_t numbers_of_a_process = 1000000;

struct Message {
    timespec time;
    Side side;
    Direction direction;
    Method method;
    const char *name; // of the method
    uint32_t number;  // the same for a request and its response; 0: unknown
    const char *user; // the other side's; empty: unknown
    uint32_t status;  // the library's, if it refused the body; else 0
    bool is_handled;  // false: the answer that nobody handles the message, which has no body
    Bytes body;
};

} // namespace trace

#endif
