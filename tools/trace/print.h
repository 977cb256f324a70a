// A message in words, and as a line of JSON.

#ifndef GORVANET_TRACE_PRINT_H
#define GORVANET_TRACE_PRINT_H

#include "message.h"
#include "output.h"

namespace trace {

void print_text(Output &out, const Message &message, bool is_coloured);
void print_json(Output &out, const Message &message);

} // namespace trace

#endif
