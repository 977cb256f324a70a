#include "workloads.h"

#include <cstddef>
#include <cstring>

namespace {

template <size_t Capacity> void set(char (&field)[Capacity], const char *text)
{
    strncpy(field, text, Capacity - 1);
}

// The longest text that the array holds.
template <size_t Capacity> void fill(char (&field)[Capacity])
{
    memset(field, 'x', Capacity - 1);
}

template <typename Record, size_t Capacity> void fill(Record (&records)[Capacity], const Record &record)
{
    for (Record &each : records)
        each = record;
}

ipv6_address an_address(const char *text)
{
    ipv6_address address = {};
    set(address.field3, text);
    address.field5 = 64;
    address.field6 = 1;
    address.field7 = 86400;
    address.field8 = 14400;
    return address;
}

ipv6_prefix a_prefix(const char *text)
{
    ipv6_prefix prefix = {};
    set(prefix.field3, text);
    prefix.field4 = 64;
    prefix.field5 = 1;
    prefix.field6 = 2;
    prefix.field7 = 86400;
    prefix.field8 = 14400;
    prefix.field9 = 0xffffffff;
    prefix.field10 = 3;
    set(prefix.field11, "announced by fe80::1");
    prefix.field12 = 1;
    return prefix;
}

ipv6_address full(ipv6_address address)
{
    fill(address.field3);
    return address;
}

ipv6_prefix full(ipv6_prefix prefix)
{
    fill(prefix.field3);
    fill(prefix.field11);
    return prefix;
}

} // namespace

state_info W1::record()
{
    state_info info = {};
    info.state = 3;
    set(info.info, "eth0: carrier is up.");
    return info;
}

ipv4_address W2::record()
{
    ipv4_address address = {};
    address.field3 = 1;
    address.field4 = 2;
    address.field5 = 3;
    set(address.field6, "192.168.101.12");
    set(address.field7, "192.168.101.12");
    set(address.field8, "255.255.255.0");
    set(address.field9, "192.168.101.1");
    set(address.field10, "192.168.101.53");
    return address;
}

ipv4_properties W3::record()
{
    ipv4_properties properties = {};
    properties.field3 = 1;
    set(properties.field4, "eth0");
    set(properties.field5, "static");
    properties.field6 = 1500;
    set(properties.field7, "192.168.101.12");
    set(properties.field8, "255.255.255.0");
    set(properties.field9, "192.168.101.1");
    set(properties.field10, "192.168.101.255");
    set(properties.field11, "192.168.101.53 192.168.102.53");
    properties.infoCount = 3;
    for (uint32_t i = 0; i < properties.infoCount; i++) {
        set(properties.infos[i].field3, "192.168.101.12");
        set(properties.infos[i].field4, "lease from 192.168.101.2");
    }
    return properties;
}

ipv6_properties W4::record()
{
    ipv6_properties properties = {};
    properties.field3 = 1;
    properties.field4 = 1;
    properties.field5 = 0;
    properties.field6 = -1;
    set(properties.field7, "eth0");
    set(properties.field8, "static");
    set(properties.field9, "autonomous");
    properties.field10 = 1;
    properties.field11[0] = an_address("ff02::1:ff4e:66a1");
    properties.field12 = 1;
    properties.field13[0] = an_address("ff05::1:3");
    properties.field14 = 3;
    properties.field15[0] = an_address("fe80::a00:27ff:fe4e:66a1");
    properties.field15[1] = an_address("2001:db8:1::a00:27ff:fe4e:66a1");
    properties.field15[2] = an_address("2001:db8:2::17");
    set(properties.field16, "fe80::1");
    properties.field17 = 2;
    properties.field18[0] = a_prefix("2001:db8:1::");
    properties.field18[1] = a_prefix("2001:db8:2::");
    set(properties.field19, "2001:db8:1::53 2001:db8:2::53");
    return properties;
}

ipv6_properties W5::record()
{
    ipv6_properties properties = W4::record();
    fill(properties.field7);
    fill(properties.field8);
    fill(properties.field9);
    fill(properties.field16);
    fill(properties.field19);
    properties.field10 = 2;
    properties.field12 = 2;
    properties.field14 = 10;
    properties.field17 = 10;
    fill(properties.field11, full(properties.field11[0]));
    fill(properties.field13, full(properties.field13[0]));
    fill(properties.field15, full(properties.field15[0]));
    fill(properties.field18, full(properties.field18[0]));
    return properties;
}

ipv6_prefix_addr_conf_list W6::record()
{
    ipv6_prefix_addr_conf_list list = {};
    list.field3 = 5;
    for (ipv6_prefix_addr_conf &conf : list.confs) {
        set(conf.config.field3, "eth0");
        set(conf.config.field4, "static");
        conf.config.prefix = a_prefix("2001:db8:1::");
        conf.address = an_address("2001:db8:1::17");
    }
    return list;
}
