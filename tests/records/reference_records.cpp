#include "reference_records.h"

#include <cstddef>

namespace reference {

using enum Kind;

const Layout &layout_of(const state_info *)
{
    using R = state_info;
    static const Layout layout = {"gorvaNet_state_info",
                                  sizeof(R),
                                  {
                                      {u8, 3, offsetof(R, state)},
                                      {text, 4, offsetof(R, info), 46},
                                  },
                                  {},
                                  {3, 4}};
    return layout;
}

const Layout &layout_of(const ipv4_address_return *)
{
    using R = ipv4_address_return;
    static const Layout layout = {"gorvaNet_ipv4_address_return",
                                  sizeof(R),
                                  {
                                      {u32, 3, offsetof(R, result)},
                                  },
                                  {},
                                  {3}};
    return layout;
}

const Layout &layout_of(const intfConf *)
{
    using R = intfConf;
    static const Layout layout = {"gorvaNet_intfConf",
                                  sizeof(R),
                                  {
                                      {u32, 3, offsetof(R, field3)},
                                      {u32, 4, offsetof(R, field4)},
                                      {u32, 5, offsetof(R, field5)},
                                      {text, 6, offsetof(R, field6), 256},
                                      {text, 7, offsetof(R, field7), 256},
                                  },
                                  {},
                                  {3, 4, 5, 6, 7}};
    return layout;
}

const Layout &layout_of(const ipv6_prefix *)
{
    using R = ipv6_prefix;
    static const Layout layout = {"gorvaNet_ipv6_prefix",
                                  sizeof(R),
                                  {
                                      {text, 3, offsetof(R, field3), 46},
                                      {u32, 4, offsetof(R, field4)},
                                      {u32, 5, offsetof(R, field5)},
                                      {u32, 6, offsetof(R, field6)},
                                      {u32, 7, offsetof(R, field7)},
                                      {u32, 8, offsetof(R, field8)},
                                      {u32, 9, offsetof(R, field9)},
                                      {u32, 10, offsetof(R, field10)},
                                      {text, 11, offsetof(R, field11), 150},
                                      {u8, 12, offsetof(R, field12)},
                                  },
                                  {3, 4, 5, 6, 7, 8, 9, 10, 11, 12},
                                  {3, 4, 5, 6, 7, 8, 9, 10, 11, 12}};
    return layout;
}

const Layout &layout_of(const ipv6_prefix_config *)
{
    using R = ipv6_prefix_config;
    static const Layout layout = {
        "gorvaNet_ipv6_prefix_config",
        sizeof(R),
        {
            {text, 3, offsetof(R, field3), 80},
            {text, 4, offsetof(R, field4), 80},
            {record, 5, offsetof(R, prefix), 0, &layout_of(static_cast<const ipv6_prefix *>(nullptr))},
        },
        {},
        {3, 4}};
    return layout;
}

const Layout &layout_of(const ipv6_prefixes *)
{
    using R = ipv6_prefixes;
    static const Layout layout = {"gorvaNet_ipv6_prefixes",
                                  sizeof(R),
                                  {
                                      {u32, 3, offsetof(R, field3)},
                                      {list, 4, offsetof(R, prefixes), 10,
                                       &layout_of(static_cast<const ipv6_prefix *>(nullptr)), offsetof(R, field3)},
                                  },
                                  {},
                                  {3}};
    return layout;
}

const Layout &layout_of(const ipv6_address *)
{
    using R = ipv6_address;
    static const Layout layout = {"gorvaNet_ipv6_address",
                                  sizeof(R),
                                  {
                                      {text, 3, offsetof(R, field3), 46},
                                      {u32, 5, offsetof(R, field5)},
                                      {u32, 6, offsetof(R, field6)},
                                      {u32, 7, offsetof(R, field7)},
                                      {u32, 8, offsetof(R, field8)},
                                  },
                                  {3, 5, 6, 7, 8},
                                  {3, 5, 6, 7, 8}};
    return layout;
}

const Layout &layout_of(const ipv6_prefix_addr_conf *)
{
    using R = ipv6_prefix_addr_conf;
    static const Layout layout = {
        "gorvaNet_ipv6_prefix_addr_conf",
        sizeof(R),
        {
            {record, 3, offsetof(R, config), 0, &layout_of(static_cast<const ipv6_prefix_config *>(nullptr))},
            {record, 4, offsetof(R, address), 0, &layout_of(static_cast<const ipv6_address *>(nullptr))},
        },
        {},
        {}};
    return layout;
}

const Layout &layout_of(const ipv6_prefix_addr_conf_list *)
{
    using R = ipv6_prefix_addr_conf_list;
    static const Layout layout = {
        "gorvaNet_ipv6_prefix_addr_conf_list",
        sizeof(R),
        {
            {u32, 3, offsetof(R, field3)},
            {list, 4, offsetof(R, confs), 5, &layout_of(static_cast<const ipv6_prefix_addr_conf *>(nullptr)),
             offsetof(R, field3)},
        },
        {},
        {3}};
    return layout;
}

const Layout &layout_of(const ipv6_properties *)
{
    using R = ipv6_properties;
    static const Layout layout = {"gorvaNet_ipv6_properties",
                                  sizeof(R),
                                  {
                                      {s8, 3, offsetof(R, field3)},
                                      {s8, 4, offsetof(R, field4)},
                                      {s8, 5, offsetof(R, field5)},
                                      {s8, 6, offsetof(R, field6)},
                                      {text, 7, offsetof(R, field7), 50},
                                      {text, 8, offsetof(R, field8), 50},
                                      {text, 9, offsetof(R, field9), 50},
                                      {u32, 10, offsetof(R, field10)},
                                      {list, 11, offsetof(R, field11), 2,
                                       &layout_of(static_cast<const ipv6_address *>(nullptr)), offsetof(R, field10)},
                                      {u32, 12, offsetof(R, field12)},
                                      {list, 13, offsetof(R, field13), 2,
                                       &layout_of(static_cast<const ipv6_address *>(nullptr)), offsetof(R, field12)},
                                      {u32, 14, offsetof(R, field14)},
                                      {list, 15, offsetof(R, field15), 10,
                                       &layout_of(static_cast<const ipv6_address *>(nullptr)), offsetof(R, field14)},
                                      {text, 16, offsetof(R, field16), 46},
                                      {u32, 17, offsetof(R, field17)},
                                      {list, 18, offsetof(R, field18), 10,
                                       &layout_of(static_cast<const ipv6_prefix *>(nullptr)), offsetof(R, field17)},
                                      {text, 19, offsetof(R, field19), 256},
                                  },
                                  {10, 12, 14, 17},
                                  {3, 4, 5, 6, 7, 8, 9, 10, 12, 14, 16, 17, 19},
                                  false};
    return layout;
}

const Layout &layout_of(const ipv4_info *)
{
    using R = ipv4_info;
    static const Layout layout = {"gorvaNet_ipv4_info",
                                  sizeof(R),
                                  {
                                      {text, 3, offsetof(R, field3), 16},
                                      {text, 4, offsetof(R, field4), 150},
                                  },
                                  {},
                                  {3, 4}};
    return layout;
}

const Layout &layout_of(const ipv4_properties *)
{
    using R = ipv4_properties;
    static const Layout layout = {"gorvaNet_ipv4_properties",
                                  sizeof(R),
                                  {
                                      {s8, 3, offsetof(R, field3)},
                                      {text, 4, offsetof(R, field4), 50},
                                      {text, 5, offsetof(R, field5), 50},
                                      {u32, 6, offsetof(R, field6)},
                                      {text, 7, offsetof(R, field7), 16},
                                      {text, 8, offsetof(R, field8), 16},
                                      {text, 9, offsetof(R, field9), 16},
                                      {text, 10, offsetof(R, field10), 33},
                                      {text, 11, offsetof(R, field11), 256},
                                      {u32, 12, offsetof(R, infoCount)},
                                      {list, 13, offsetof(R, infos), 20,
                                       &layout_of(static_cast<const ipv4_info *>(nullptr)), offsetof(R, infoCount)},
                                  },
                                  {6, 12},
                                  {3, 4, 5, 6, 7, 8, 9, 10, 11, 12}};
    return layout;
}

const Layout &layout_of(const ipv4_address *)
{
    using R = ipv4_address;
    static const Layout layout = {"gorvaNet_ipv4_address",
                                  sizeof(R),
                                  {
                                      {u32, 3, offsetof(R, field3)},
                                      {u32, 4, offsetof(R, field4)},
                                      {u8, 5, offsetof(R, field5)},
                                      {text, 6, offsetof(R, field6), 33},
                                      {text, 7, offsetof(R, field7), 16},
                                      {text, 8, offsetof(R, field8), 16},
                                      {text, 9, offsetof(R, field9), 16},
                                      {text, 10, offsetof(R, field10), 33},
                                  },
                                  {},
                                  {3, 4, 5, 6, 7, 8, 9, 10}};
    return layout;
}

} // namespace reference
