// The two functions of the bus that the tracer listens to, for what the bodies do not say: who is asked, and which
// request a response answers.

#ifndef GORVANET_TRACE_BUS_H
#define GORVANET_TRACE_BUS_H

struct link_map;

namespace trace {

// Puts the tracer between a loaded library and the bus. Where that cannot be, messages are recorded without names and
// numbers.
void listen_to_bus(const link_map &library);

} // namespace trace

#endif
