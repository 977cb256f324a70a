// W7: a SetIPv4Address request and its answer, from the client's call to its callback, in one process.

#ifndef GORVANET_BENCHMARKS_TRIP_H
#define GORVANET_BENCHMARKS_TRIP_H

#include "gorvanet.h"

// The outcome that reached the callback: the field3 of the address that reached the handler.
uint32_t run_trip(const ipv4_address &address);

#endif
