// The bus, watched: what the demo shows of each message on its way, and what it counts for the end.

#ifndef GORVANET_DEMO_WATCH_H
#define GORVANET_DEMO_WATCH_H

#include "gorvanet_loopback.h"

#include <string>
#include <vector>

namespace demo {

// One method as it went over the bus.
struct Travelled {
    std::string method;
    uint32_t request_size = 0;
    uint32_t response_size = 0; // 0: none came
    unsigned damaged = 0;       // rows in which the annotator found a problem
};

struct Watch {
    bool shows_bytes = true;
    std::vector<Travelled> travelled = {}; // in the order in which they were sent
    unsigned undeliverable = 0;
    unsigned unhandled = 0; // answered with status 20
    unsigned other_failures = 0;
};

// Observes the loopback host for as long as `watch` lives or until another observer is set.
void observe(Watch &watch);

// The table of what has travelled.
void show_summary(const Watch &watch);

} // namespace demo

#endif
