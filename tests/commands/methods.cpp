// The commands, in the order of their indexes.

#include "commands/method.h"

extern const Method set_os_ifc, set_dhcp, set_rdisc6, get_ipv4_props, get_ipv6_props, set_ipv4_address, set_mtu,
    set_ipv6_prefix_and_address, ask_state_renotification, register_prefix_status, configure, configure_all_ipv6_intf;

std::vector<const Method *> methods()
{
    return {&set_os_ifc,
            &set_dhcp,
            &set_rdisc6,
            &get_ipv4_props,
            &get_ipv6_props,
            &set_ipv4_address,
            &set_mtu,
            &set_ipv6_prefix_and_address,
            &ask_state_renotification,
            &register_prefix_status,
            &configure,
            &configure_all_ipv6_intf};
}
