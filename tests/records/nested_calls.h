// Calls of the functions of those records that stand inside others: ipv4_info, ipv6_address, ipv6_prefix,
// ipv6_prefix_config and ipv6_prefix_addr_conf. This process defines them itself, notes each call and hands it on to
// the library. A test's own calls of them are noted too.

#ifndef GORVANET_TESTS_RECORDS_NESTED_CALLS_H
#define GORVANET_TESTS_RECORDS_NESTED_CALLS_H

#include "support/bus.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

// The calls since the last take, in order, each with its argument words. Those of serialize and unserialize have the
// cursor's address as second word and where it stood as third.
Calls take_nested_calls();

struct Refusal {
    unsigned nth;      // which call of the function from now on; 1 is the next one
    uint32_t status;   // what it returns instead of calling the library
    ptrdiff_t moves{}; // how far it moves the cursor first
};

void refuse_call(const std::string &function, const Refusal &refusal);

// Runs before each call, after it has been noted.
void watch_calls(std::function<void(const Call &)> watcher);

// No calls, no refusals, no watcher.
void reset_nested_calls();

#endif
