// What the host has to say: to the observer, or, failures only, to stderr.

#ifndef GORVANET_LOOPBACK_REPORT_H
#define GORVANET_LOOPBACK_REPORT_H

#include "gorvanet_loopback.h"

namespace loopback {

using Event = gorvanet_loopback_event;

// Null texts are replaced by empty ones. What the observer's own calls lead to goes to stderr: it is not called from
// inside itself.
void report(Event event);

[[gnu::format(printf, 1, 2)]] void report_misuse(const char *format, ...);

// The observer is called in the middle of the host's work, so what changes the bus must not be done from there.
bool in_observer();

// True, after a misuse report on behalf of `caller`, inside the observer.
bool refuse_in_observer(const char *caller = __builtin_FUNCTION());

} // namespace loopback

#endif
