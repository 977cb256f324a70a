#include "service.h"

#include "screen.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace demo {

namespace {

// The data that was given with a handler comes back to it.
Service &self(void *data)
{
    return *static_cast<Service *>(data);
}

void tell(const std::string &text)
{
    step("service", text);
}

template <size_t Capacity> void set_text(char (&field)[Capacity], const std::string &text)
{
    strncpy(field, text.c_str(), Capacity - 1);
}

void notify(const Service &service, const char *name)
{
    ipv6_prefixes prefixes = {};
    for (const auto &conf : service.confs)
        if (prefixes.field3 < std::size(prefixes.prefixes))
            prefixes.prefixes[prefixes.field3++] = conf.config.prefix;
    tell("tells everybody who listens about " + std::to_string(prefixes.field3) + " prefixes");
    gorvaNet_sendReq_ntfyPrefixStatus(service.user, nullptr, nullptr, name, &prefixes);
}

// ---- One handler for each command -----------------------------------------------------------------------------------

void set_os_ifc(void *message, void *data, const char *ifName)
{
    self(data).interface = ifName;
    tell("works on interface \"" + self(data).interface + "\" from now on");
    gorvaNet_sendRes_setOsIfc(message, 0);
}

void set_dhcp(void *message, void *data, const char *ifName, uint32_t dhcp)
{
    self(data).dhcp = dhcp;
    tell("DHCP of \"" + std::string(ifName) + "\" is " + std::to_string(dhcp));
    gorvaNet_sendRes_setDhcp(message);
}

void set_rdisc6(void *message, void *data, const char *ifName)
{
    self(data).router_discovery = true;
    tell("looks for IPv6 routers on \"" + std::string(ifName) + "\"");
    gorvaNet_sendRes_setRdisc6(message);
}

void get_ipv4_props(void *message, void *data)
{
    const Service &service = self(data);
    ipv4_properties properties = {};
    properties.field3 = static_cast<int8_t>(service.dhcp);
    set_text(properties.field4, service.interface);
    properties.field6 = service.mtu;
    set_text(properties.field7, service.address.field7);
    set_text(properties.field8, service.address.field8);
    set_text(properties.field9, service.address.field9);
    properties.infoCount = 2;
    set_text(properties.infos[0].field3, "192.0.2.53");
    set_text(properties.infos[0].field4, "name server");
    set_text(properties.infos[1].field3, "192.0.2.123");
    set_text(properties.infos[1].field4, "time server");
    tell("answers with its IPv4 properties");
    gorvaNet_sendRes_getIPv4Props(message, &properties, 0);
}

void get_ipv6_props(void *message, void *data)
{
    const Service &service = self(data);
    ipv6_properties properties = {};
    properties.field3 = service.router_discovery ? 1 : -1;
    set_text(properties.field7, service.interface);
    for (const auto &conf : service.confs) {
        if (properties.field14 < std::size(properties.field15))
            properties.field15[properties.field14++] = conf.address;
        if (properties.field17 < std::size(properties.field18))
            properties.field18[properties.field17++] = conf.config.prefix;
    }
    tell("answers with its IPv6 properties");
    gorvaNet_sendRes_getIPv6Props(message, &properties, 0);
}

void set_ipv4_address(void *message, void *data, const ipv4_address *address)
{
    self(data).address = *address; // the record is the bus's: keep a copy
    tell("has address " + std::string(address->field7) + ", mask " + address->field8 + ", router " + address->field9);
    ipv4_address_return outcome = {.result = 0};
    gorvaNet_sendRes_setIPv4Address(message, &outcome);
}

void set_mtu(void *message, void *data, uint32_t mtu)
{
    tell("MTU " + std::to_string(mtu) + ", was " + std::to_string(self(data).mtu));
    self(data).mtu = mtu;
    gorvaNet_sendRes_setMtu(message, 0);
}

void set_ipv6_prefix_and_address(void *message, void *data, const ipv6_prefix_addr_conf_list *list)
{
    // The count comes as it was sent: bound it before use.
    auto count = std::min<size_t>(list->field3, std::size(list->confs));
    self(data).confs.assign(list->confs, list->confs + count);
    for (const auto &conf : self(data).confs)
        tell("has prefix " + std::string(conf.config.prefix.field3) + "/" + std::to_string(conf.config.prefix.field4) +
             " with address " + conf.address.field3);
    gorvaNet_sendRes_setIPv6PrefixAndAddress(message, static_cast<uint32_t>(count));
}

void ask_state_renotification(void *, void *data, const state_info *info)
{
    tell("is asked for state " + std::to_string(info->state) + " again: \"" + info->info + "\"");
    notify(self(data), info->info);
}

void register_prefix_status(void *message, void *data, uint32_t first, void *pointer, uint32_t last)
{
    self(data).registrations++;
    char text[80];
    snprintf(text, sizeof text, "registers %u, %p, %u", first, pointer, last);
    tell(text);
    gorvaNet_sendRes_registerPrefixStatus(message, self(data).registrations);
}

void configure(void *, void *data, const intfConf *configuration)
{
    self(data).configuration = *configuration;
    tell("is configured: " + std::to_string(configuration->field3) + ", \"" + configuration->field6 + "\"");
}

void configure_all_ipv6_intf(void *, void *data, uint32_t value)
{
    self(data).ipv6 = value;
    tell("IPv6 of all interfaces is " + std::to_string(value));
}

bool accept_all(Service &service)
{
    void *user = service.user;
    return gorvaNet_modSrv_recvMsg_setOsIfc(user, set_os_ifc, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_setDhcp(user, set_dhcp, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_setRdisc6(user, set_rdisc6, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_getIPv4Props(user, get_ipv4_props, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_getIPv6Props(user, get_ipv6_props, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_setIPv4Address(user, set_ipv4_address, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_setMtu(user, set_mtu, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_setIPv6PrefixAndAddress(user, set_ipv6_prefix_and_address, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_askStateRenotification(user, ask_state_renotification, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_registerPrefixStatus(user, register_prefix_status, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_configure(user, configure, &service, nullptr) == 0 &&
           gorvaNet_modSrv_recvMsg_configureAllIPv6Intf(user, configure_all_ipv6_intf, &service, nullptr) == 0;
}

} // namespace

bool start(Service &service)
{
    return gorvaNet_regUser_msgMngt(service.user, nullptr, nullptr, GORVANET_SELECT_BOTH) == 0 && accept_all(service);
}

} // namespace demo
