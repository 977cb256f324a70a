// The library's calls of the records' functions arrive here.

#include "commands/record.h"

#include "gorvanet.h"

RecordProbe state_info_probe("state_info");
RecordProbe intfConf_probe("intfConf");
RecordProbe ipv4_address_return_probe("ipv4_address_return");
RecordProbe ipv4_address_probe("ipv4_address");
RecordProbe ipv6_prefix_addr_conf_list_probe("ipv6_prefix_addr_conf_list");
RecordProbe ipv4_properties_probe("ipv4_properties");
RecordProbe ipv6_properties_probe("ipv6_properties");
RecordProbe ipv6_prefixes_probe("ipv6_prefixes");

uint32_t gorvaNet_state_info_copy(state_info *destination, const state_info *source)
{
    return state_info_probe.copy(destination, source);
}

void gorvaNet_state_info_clean(state_info *record)
{
    state_info_probe.clean(record);
}

uint32_t gorvaNet_state_info_serialize_lg(const state_info *record)
{
    return state_info_probe.serialize_lg(record);
}

uint32_t gorvaNet_state_info_serialize(const state_info *record, uint8_t **cursor)
{
    return state_info_probe.serialize(record, cursor);
}

uint32_t gorvaNet_state_info_unserialize(state_info *record, const uint8_t **cursor)
{
    return state_info_probe.unserialize(record, cursor);
}

uint32_t gorvaNet_intfConf_copy(intfConf *destination, const intfConf *source)
{
    return intfConf_probe.copy(destination, source);
}

void gorvaNet_intfConf_clean(intfConf *record)
{
    intfConf_probe.clean(record);
}

uint32_t gorvaNet_intfConf_serialize_lg(const intfConf *record)
{
    return intfConf_probe.serialize_lg(record);
}

uint32_t gorvaNet_intfConf_serialize(const intfConf *record, uint8_t **cursor)
{
    return intfConf_probe.serialize(record, cursor);
}

uint32_t gorvaNet_intfConf_unserialize(intfConf *record, const uint8_t **cursor)
{
    return intfConf_probe.unserialize(record, cursor);
}

uint32_t gorvaNet_ipv4_address_return_copy(ipv4_address_return *destination, const ipv4_address_return *source)
{
    return ipv4_address_return_probe.copy(destination, source);
}

void gorvaNet_ipv4_address_return_clean(ipv4_address_return *record)
{
    ipv4_address_return_probe.clean(record);
}

uint32_t gorvaNet_ipv4_address_return_serialize_lg(const ipv4_address_return *record)
{
    return ipv4_address_return_probe.serialize_lg(record);
}

uint32_t gorvaNet_ipv4_address_return_serialize(const ipv4_address_return *record, uint8_t **cursor)
{
    return ipv4_address_return_probe.serialize(record, cursor);
}

uint32_t gorvaNet_ipv4_address_return_unserialize(ipv4_address_return *record, const uint8_t **cursor)
{
    return ipv4_address_return_probe.unserialize(record, cursor);
}

uint32_t gorvaNet_ipv4_address_copy(ipv4_address *destination, const ipv4_address *source)
{
    return ipv4_address_probe.copy(destination, source);
}

void gorvaNet_ipv4_address_clean(ipv4_address *record)
{
    ipv4_address_probe.clean(record);
}

uint32_t gorvaNet_ipv4_address_serialize_lg(const ipv4_address *record)
{
    return ipv4_address_probe.serialize_lg(record);
}

uint32_t gorvaNet_ipv4_address_serialize(const ipv4_address *record, uint8_t **cursor)
{
    return ipv4_address_probe.serialize(record, cursor);
}

uint32_t gorvaNet_ipv4_address_unserialize(ipv4_address *record, const uint8_t **cursor)
{
    return ipv4_address_probe.unserialize(record, cursor);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_list_copy(ipv6_prefix_addr_conf_list *destination,
                                                  const ipv6_prefix_addr_conf_list *source)
{
    return ipv6_prefix_addr_conf_list_probe.copy(destination, source);
}

void gorvaNet_ipv6_prefix_addr_conf_list_clean(ipv6_prefix_addr_conf_list *record)
{
    ipv6_prefix_addr_conf_list_probe.clean(record);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_list_serialize_lg(const ipv6_prefix_addr_conf_list *record)
{
    return ipv6_prefix_addr_conf_list_probe.serialize_lg(record);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_list_serialize(const ipv6_prefix_addr_conf_list *record, uint8_t **cursor)
{
    return ipv6_prefix_addr_conf_list_probe.serialize(record, cursor);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_list_unserialize(ipv6_prefix_addr_conf_list *record, const uint8_t **cursor)
{
    return ipv6_prefix_addr_conf_list_probe.unserialize(record, cursor);
}

uint32_t gorvaNet_ipv4_properties_copy(ipv4_properties *destination, const ipv4_properties *source)
{
    return ipv4_properties_probe.copy(destination, source);
}

void gorvaNet_ipv4_properties_clean(ipv4_properties *record)
{
    ipv4_properties_probe.clean(record);
}

uint32_t gorvaNet_ipv4_properties_serialize_lg(const ipv4_properties *record)
{
    return ipv4_properties_probe.serialize_lg(record);
}

uint32_t gorvaNet_ipv4_properties_serialize(const ipv4_properties *record, uint8_t **cursor)
{
    return ipv4_properties_probe.serialize(record, cursor);
}

uint32_t gorvaNet_ipv4_properties_unserialize(ipv4_properties *record, const uint8_t **cursor)
{
    return ipv4_properties_probe.unserialize(record, cursor);
}

uint32_t gorvaNet_ipv6_properties_copy(ipv6_properties *destination, const ipv6_properties *source)
{
    return ipv6_properties_probe.copy(destination, source);
}

void gorvaNet_ipv6_properties_clean(ipv6_properties *record)
{
    ipv6_properties_probe.clean(record);
}

uint32_t gorvaNet_ipv6_properties_serialize_lg(const ipv6_properties *record)
{
    return ipv6_properties_probe.serialize_lg(record);
}

uint32_t gorvaNet_ipv6_properties_serialize(const ipv6_properties *record, uint8_t **cursor)
{
    return ipv6_properties_probe.serialize(record, cursor);
}

uint32_t gorvaNet_ipv6_properties_unserialize(ipv6_properties *record, const uint8_t **cursor)
{
    return ipv6_properties_probe.unserialize(record, cursor);
}

uint32_t gorvaNet_ipv6_prefixes_copy(ipv6_prefixes *destination, const ipv6_prefixes *source)
{
    return ipv6_prefixes_probe.copy(destination, source);
}

void gorvaNet_ipv6_prefixes_clean(ipv6_prefixes *record)
{
    ipv6_prefixes_probe.clean(record);
}

uint32_t gorvaNet_ipv6_prefixes_serialize_lg(const ipv6_prefixes *record)
{
    return ipv6_prefixes_probe.serialize_lg(record);
}

uint32_t gorvaNet_ipv6_prefixes_serialize(const ipv6_prefixes *record, uint8_t **cursor)
{
    return ipv6_prefixes_probe.serialize(record, cursor);
}

uint32_t gorvaNet_ipv6_prefixes_unserialize(ipv6_prefixes *record, const uint8_t **cursor)
{
    return ipv6_prefixes_probe.unserialize(record, cursor);
}
