#include "layouts.h"

namespace layouts {

namespace {

// ---- Records --------------------------------------------------------------------------------------------------------

constexpr Field state_info[] = {number(3, "state"), text(4, "info", 46)};

constexpr Field ipv4_address_return[] = {number(3, "result")};

constexpr Field intf_conf[] = {
    number(3, "field3"), number(4, "field4"), number(5, "field5"), text(6, "field6", 256), text(7, "field7", 256),
};

constexpr Field ipv6_prefix[] = {
    text(3, "field3", 46), number(4, "field4"), number(5, "field5"),   number(6, "field6"),      number(7, "field7"),
    number(8, "field8"),   number(9, "field9"), number(10, "field10"), text(11, "field11", 150), number(12, "field12"),
};

constexpr Field ipv6_prefix_config[] = {text(3, "field3", 80), text(4, "field4", 80), record("prefix", ipv6_prefix)};

constexpr Field ipv6_prefixes[] = {list(3, "prefixes", 10, ipv6_prefix)};

// There is no tag 4.
constexpr Field ipv6_address[] = {
    text(3, "field3", 46), number(5, "field5"), number(6, "field6"), number(7, "field7"), number(8, "field8"),
};

constexpr Field ipv6_prefix_addr_conf[] = {record("config", ipv6_prefix_config), record("address", ipv6_address)};

constexpr Field ipv6_prefix_addr_conf_list[] = {list(3, "confs", 5, ipv6_prefix_addr_conf)};

// A list has the tag of its count; the tag behind it is the array's and not on the wire.
constexpr Field ipv6_properties[] = {
    signed_number(3, "field3"),
    signed_number(4, "field4"),
    signed_number(5, "field5"),
    signed_number(6, "field6"),
    text(7, "field7", 50),
    text(8, "field8", 50),
    text(9, "field9", 50),
    list(10, "field11", 2, ipv6_address),
    list(12, "field13", 2, ipv6_address),
    list(14, "field15", 10, ipv6_address),
    text(16, "field16", 46),
    list(17, "field18", 10, ipv6_prefix),
    text(19, "field19", 256),
};

constexpr Field ipv4_info[] = {text(3, "field3", 16), text(4, "field4", 150)};

constexpr Field ipv4_properties[] = {
    signed_number(3, "field3"), text(4, "field4", 50),
    text(5, "field5", 50),      number(6, "field6"),
    text(7, "field7", 16),      text(8, "field8", 16),
    text(9, "field9", 16),      text(10, "field10", 33),
    text(11, "field11", 256),   list(12, "infos", 20, ipv4_info),
};

constexpr Field ipv4_address[] = {
    number(3, "field3"),   number(4, "field4"),   number(5, "field5"),   text(6, "field6", 33),
    text(7, "field7", 16), text(8, "field8", 16), text(9, "field9", 16), text(10, "field10", 33),
};

// ---- Bodies ---------------------------------------------------------------------------------------------------------

constexpr Field if_name[] = {text(3, "ifName", 50)};
constexpr Field result[] = {number(3, "result")};
constexpr Field set_dhcp[] = {text(3, "ifName", 50), number(4, "dhcp")};
constexpr Field ipv4_props[] = {record("properties", ipv4_properties), number(4, "result")};
constexpr Field ipv6_props[] = {record("properties", ipv6_properties), number(4, "result")};
constexpr Field mtu[] = {number(3, "mtu")};
constexpr Field register_prefix_status[] = {number(3, "first"), wide(4, "pointer"), number(5, "last")};
constexpr Field value[] = {number(3, "value")};
constexpr Field prefix_status[] = {text(3, "name", 80), record("prefixes", ipv6_prefixes)};

constexpr auto command = Interface::command;
constexpr auto notification = Interface::notification;

constexpr Layout all_layouts[] = {
    {command, 0, "SetOsIfc", request, 0x39132011, 0, if_name},
    {command, 0, "SetOsIfc", response, 0x39132011, 0, result},
    {command, 1, "SetDhcp", request, 0x39132011, 0, set_dhcp},
    {command, 1, "SetDhcp", response, 0x39132011, 0, {}},
    {command, 2, "SetRdisc6", request, 0x34132011, 0, if_name},
    {command, 2, "SetRdisc6", response, 0x34132011, 0, {}},
    {command, 3, "GetIPv4Props", request, 0x23331110, 1, {}},
    {command, 3, "GetIPv4Props", response, 0x23331110, 1, ipv4_props},
    {command, 4, "GetIPv6Props", request, 0x24331110, 1, {}},
    {command, 4, "GetIPv6Props", response, 0x24331110, 1, ipv6_props},
    {command, 5, "SetIPv4Address", request, 0x23331320, 0, ipv4_address},
    {command, 5, "SetIPv4Address", response, 0x23331320, 0, ipv4_address_return},
    {command, 6, "SetMtu", request, 0x20190222, 0, mtu},
    {command, 6, "SetMtu", response, 0x20190222, 0, result},
    {command, 7, "SetIPv6PrefixAndAddress", request, 0x24331320, 0, ipv6_prefix_addr_conf_list},
    {command, 7, "SetIPv6PrefixAndAddress", response, 0x24331320, 0, result},
    {command, 8, "AskStateRenotification", request, 0x13235326, 0, state_info},
    {command, 9, "RegisterPrefixStatus", request, 0x20150227, 0, register_prefix_status},
    {command, 9, "RegisterPrefixStatus", response, 0x20150227, 0, result},
    {command, 10, "Configure", request, 0x13235326, 1, intf_conf},
    {command, 11, "ConfigureAllIPv6Intf", request, 0x20161209, 0, value},
    {notification, 0, "PrefixStatus", request, 0x20150226, 0, prefix_status},
};

} // namespace

const Layout *find_layout(std::string_view method, uint32_t direction)
{
    for (const Layout &layout : all_layouts)
        if (layout.method == method && layout.direction == direction)
            return &layout;
    return nullptr;
}

const Layout *find_layout(Interface interface, uint32_t index, uint32_t direction)
{
    for (const Layout &layout : all_layouts)
        if (layout.interface == interface && layout.index == index && layout.direction == direction)
            return &layout;
    return nullptr;
}

} // namespace layouts
