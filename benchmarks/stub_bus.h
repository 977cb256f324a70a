// The thinnest bus there can be: what the library hands over is kept for whoever drives the trip, nothing is queued.

#ifndef GORVANET_BENCHMARKS_STUB_BUS_H
#define GORVANET_BENCHMARKS_STUB_BUS_H

#include "../src/frame/middleware.h"

// The last request and its answer, as the library handed them over.
struct StubBus {
    void *request;
    Receiver *receiver;
    RequestContext context;
    void *response;
};

extern StubBus stub_bus;

#endif
