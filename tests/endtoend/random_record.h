// Records with random content, zero wherever the content does not reach: behind a text's NUL, in elements beyond a count
// and in padding. A message that carries one delivers the same bytes.

#ifndef GORVANET_TESTS_ENDTOEND_RANDOM_RECORD_H
#define GORVANET_TESTS_ENDTOEND_RANDOM_RECORD_H

#include "gorvanet.h"

#include <cstddef>
#include <random>

class RandomContent {
public:
    explicit RandomContent(uint32_t seed) : engine(seed)
    {
    }

    uint32_t number();
    void text(char *field, size_t capacity);

    state_info make_state_info();
    intfConf make_intf_conf();
    ipv4_address make_ipv4_address();
    ipv4_properties make_ipv4_properties();
    ipv6_prefixes make_ipv6_prefixes();
    ipv6_prefix_addr_conf_list make_ipv6_prefix_addr_conf_list();
    ipv6_properties make_ipv6_properties();

private:
    uint32_t count(uint32_t capacity);
    void fill(ipv6_prefix &record);
    void fill(ipv6_address &record);

    std::mt19937 engine;
};

#endif
