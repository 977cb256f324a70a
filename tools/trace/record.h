// Records messages: printed for people or for programs, and kept in a capture file.
//
// The environment says how, for the process that loads the tracer:
//
//     GORVANET_TRACE         text (the default), json or none
//     GORVANET_TRACE_FILE    what is printed goes to the end of this file; without it, to standard error
//     GORVANET_TRACE_COLOUR  always, never; without it, colours on a terminal that has some
//     GORVANET_TRACE_PCAP    messages go to the end of this capture file

#ifndef GORVANET_TRACE_RECORD_H
#define GORVANET_TRACE_RECORD_H

#include "message.h"

namespace trace {

void record(const Message &message);

} // namespace trace

#endif
