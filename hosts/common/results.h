// Results of the middleware functions and of a host's own; 0 is success. The hosts' headers say what each means.

#ifndef GORVANET_HOSTS_RESULTS_H
#define GORVANET_HOSTS_RESULTS_H

#include <cstdint>

namespace host {

constexpr int32_t bad_argument = 101;
constexpr int32_t unknown_user = 102;
constexpr int32_t unknown_number = 103;
constexpr int32_t not_attached = 104;
constexpr int32_t unknown_method = 105;
constexpr int32_t wrong_name = 106;
constexpr int32_t busy = 107;
constexpr int32_t bus_failed = 108;

} // namespace host

#endif
