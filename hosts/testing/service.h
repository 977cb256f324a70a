// The scripted services.

#ifndef GORVANET_TESTING_SERVICE_H
#define GORVANET_TESTING_SERVICE_H

#include <cstdint>

namespace testing_bench {

// Forgets all services. Result: how many scripted answers no request has asked for.
uint32_t drop_services();

} // namespace testing_bench

#endif
