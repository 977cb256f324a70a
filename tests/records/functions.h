// The five functions of each record, found by its type.

#ifndef GORVANET_TESTS_RECORDS_FUNCTIONS_H
#define GORVANET_TESTS_RECORDS_FUNCTIONS_H

#include "gorvanet.h"

template <typename Record> struct Functions;

template <> struct Functions<state_info> {
    static constexpr const char *serialize_name = "gorvaNet_state_info_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_state_info_unserialize";
    static constexpr auto copy = gorvaNet_state_info_copy;
    static constexpr auto clean = gorvaNet_state_info_clean;
    static constexpr auto serialize_lg = gorvaNet_state_info_serialize_lg;
    static constexpr auto serialize = gorvaNet_state_info_serialize;
    static constexpr auto unserialize = gorvaNet_state_info_unserialize;
};

template <> struct Functions<ipv4_address_return> {
    static constexpr const char *serialize_name = "gorvaNet_ipv4_address_return_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv4_address_return_unserialize";
    static constexpr auto copy = gorvaNet_ipv4_address_return_copy;
    static constexpr auto clean = gorvaNet_ipv4_address_return_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv4_address_return_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv4_address_return_serialize;
    static constexpr auto unserialize = gorvaNet_ipv4_address_return_unserialize;
};

template <> struct Functions<intfConf> {
    static constexpr const char *serialize_name = "gorvaNet_intfConf_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_intfConf_unserialize";
    static constexpr auto copy = gorvaNet_intfConf_copy;
    static constexpr auto clean = gorvaNet_intfConf_clean;
    static constexpr auto serialize_lg = gorvaNet_intfConf_serialize_lg;
    static constexpr auto serialize = gorvaNet_intfConf_serialize;
    static constexpr auto unserialize = gorvaNet_intfConf_unserialize;
};

template <> struct Functions<ipv6_prefix> {
    static constexpr const char *serialize_name = "gorvaNet_ipv6_prefix_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv6_prefix_unserialize";
    static constexpr auto copy = gorvaNet_ipv6_prefix_copy;
    static constexpr auto clean = gorvaNet_ipv6_prefix_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv6_prefix_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv6_prefix_serialize;
    static constexpr auto unserialize = gorvaNet_ipv6_prefix_unserialize;
};

template <> struct Functions<ipv6_prefix_config> {
    static constexpr const char *serialize_name = "gorvaNet_ipv6_prefix_config_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv6_prefix_config_unserialize";
    static constexpr auto copy = gorvaNet_ipv6_prefix_config_copy;
    static constexpr auto clean = gorvaNet_ipv6_prefix_config_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv6_prefix_config_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv6_prefix_config_serialize;
    static constexpr auto unserialize = gorvaNet_ipv6_prefix_config_unserialize;
};

template <> struct Functions<ipv6_prefixes> {
    static constexpr const char *serialize_name = "gorvaNet_ipv6_prefixes_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv6_prefixes_unserialize";
    static constexpr auto copy = gorvaNet_ipv6_prefixes_copy;
    static constexpr auto clean = gorvaNet_ipv6_prefixes_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv6_prefixes_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv6_prefixes_serialize;
    static constexpr auto unserialize = gorvaNet_ipv6_prefixes_unserialize;
};

template <> struct Functions<ipv6_address> {
    static constexpr const char *serialize_name = "gorvaNet_ipv6_address_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv6_address_unserialize";
    static constexpr auto copy = gorvaNet_ipv6_address_copy;
    static constexpr auto clean = gorvaNet_ipv6_address_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv6_address_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv6_address_serialize;
    static constexpr auto unserialize = gorvaNet_ipv6_address_unserialize;
};

template <> struct Functions<ipv6_prefix_addr_conf> {
    static constexpr const char *serialize_name = "gorvaNet_ipv6_prefix_addr_conf_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv6_prefix_addr_conf_unserialize";
    static constexpr auto copy = gorvaNet_ipv6_prefix_addr_conf_copy;
    static constexpr auto clean = gorvaNet_ipv6_prefix_addr_conf_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv6_prefix_addr_conf_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv6_prefix_addr_conf_serialize;
    static constexpr auto unserialize = gorvaNet_ipv6_prefix_addr_conf_unserialize;
};

template <> struct Functions<ipv6_prefix_addr_conf_list> {
    static constexpr const char *serialize_name = "gorvaNet_ipv6_prefix_addr_conf_list_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv6_prefix_addr_conf_list_unserialize";
    static constexpr auto copy = gorvaNet_ipv6_prefix_addr_conf_list_copy;
    static constexpr auto clean = gorvaNet_ipv6_prefix_addr_conf_list_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv6_prefix_addr_conf_list_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv6_prefix_addr_conf_list_serialize;
    static constexpr auto unserialize = gorvaNet_ipv6_prefix_addr_conf_list_unserialize;
};

template <> struct Functions<ipv6_properties> {
    static constexpr const char *serialize_name = "gorvaNet_ipv6_properties_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv6_properties_unserialize";
    static constexpr auto copy = gorvaNet_ipv6_properties_copy;
    static constexpr auto clean = gorvaNet_ipv6_properties_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv6_properties_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv6_properties_serialize;
    static constexpr auto unserialize = gorvaNet_ipv6_properties_unserialize;
};

template <> struct Functions<ipv4_info> {
    static constexpr const char *serialize_name = "gorvaNet_ipv4_info_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv4_info_unserialize";
    static constexpr auto copy = gorvaNet_ipv4_info_copy;
    static constexpr auto clean = gorvaNet_ipv4_info_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv4_info_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv4_info_serialize;
    static constexpr auto unserialize = gorvaNet_ipv4_info_unserialize;
};

template <> struct Functions<ipv4_properties> {
    static constexpr const char *serialize_name = "gorvaNet_ipv4_properties_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv4_properties_unserialize";
    static constexpr auto copy = gorvaNet_ipv4_properties_copy;
    static constexpr auto clean = gorvaNet_ipv4_properties_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv4_properties_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv4_properties_serialize;
    static constexpr auto unserialize = gorvaNet_ipv4_properties_unserialize;
};

template <> struct Functions<ipv4_address> {
    static constexpr const char *serialize_name = "gorvaNet_ipv4_address_serialize";
    static constexpr const char *unserialize_name = "gorvaNet_ipv4_address_unserialize";
    static constexpr auto copy = gorvaNet_ipv4_address_copy;
    static constexpr auto clean = gorvaNet_ipv4_address_clean;
    static constexpr auto serialize_lg = gorvaNet_ipv4_address_serialize_lg;
    static constexpr auto serialize = gorvaNet_ipv4_address_serialize;
    static constexpr auto unserialize = gorvaNet_ipv4_address_unserialize;
};

#endif
