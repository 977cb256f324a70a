// What the host has to say: to the observer, or, failures only, to stderr.

#ifndef GORVANET_LOOPBACK_REPORT_H
#define GORVANET_LOOPBACK_REPORT_H

#include "gorvanet_loopback.h"

namespace loopback {

using Event = gorvanet_loopback_event;

// Null texts are replaced by empty ones.
void report(Event event);

[[gnu::format(printf, 1, 2)]] void report_misuse(const char *format, ...);

} // namespace loopback

#endif
