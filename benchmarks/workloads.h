// What is measured: W1 to W6 are records, W7 is the whole trip of a command.
//
//     W1  state_info with a text of 20 characters
//     W2  ipv4_address, its texts dotted-decimal addresses
//     W3  ipv4_properties with 3 infos
//     W4  ipv6_properties with 1 + 1 group addresses, 3 list addresses and 2 prefixes
//     W5  ipv6_properties, full: every list and every text as long as it gets
//     W6  ipv6_prefix_addr_conf_list with 5 entries
//     W7  SetIPv4Address from the client's call to its callback, everything released

#ifndef GORVANET_BENCHMARKS_WORKLOADS_H
#define GORVANET_BENCHMARKS_WORKLOADS_H

#include "gorvanet.h"

constexpr uint32_t largest_record = 5176; // encoded

struct W1 {
    using Record = state_info;
    static constexpr auto *serialize_lg = gorvaNet_state_info_serialize_lg;
    static constexpr auto *serialize = gorvaNet_state_info_serialize;
    static constexpr auto *unserialize = gorvaNet_state_info_unserialize;
    static Record record();
};

struct W2 {
    using Record = ipv4_address;
    static constexpr auto *serialize_lg = gorvaNet_ipv4_address_serialize_lg;
    static constexpr auto *serialize = gorvaNet_ipv4_address_serialize;
    static constexpr auto *unserialize = gorvaNet_ipv4_address_unserialize;
    static Record record();
};

struct W3 {
    using Record = ipv4_properties;
    static constexpr auto *serialize_lg = gorvaNet_ipv4_properties_serialize_lg;
    static constexpr auto *serialize = gorvaNet_ipv4_properties_serialize;
    static constexpr auto *unserialize = gorvaNet_ipv4_properties_unserialize;
    static Record record();
};

struct W4 {
    using Record = ipv6_properties;
    static constexpr auto *serialize_lg = gorvaNet_ipv6_properties_serialize_lg;
    static constexpr auto *serialize = gorvaNet_ipv6_properties_serialize;
    static constexpr auto *unserialize = gorvaNet_ipv6_properties_unserialize;
    static Record record();
};

struct W5 : W4 {
    static Record record();
};

struct W6 {
    using Record = ipv6_prefix_addr_conf_list;
    static constexpr auto *serialize_lg = gorvaNet_ipv6_prefix_addr_conf_list_serialize_lg;
    static constexpr auto *serialize = gorvaNet_ipv6_prefix_addr_conf_list_serialize;
    static constexpr auto *unserialize = gorvaNet_ipv6_prefix_addr_conf_list_unserialize;
    static Record record();
};

#endif
