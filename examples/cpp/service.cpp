#include "parts.h"

#include <iostream>

// The data given with a handler comes back to it: here, the object it belongs to.
void Service::set_mtu(void *message, void *data, uint32_t mtu)
{
    auto *self = static_cast<Service *>(data);
    std::cout << "service: MTU " << mtu << ", was " << self->mtu << "\n";
    self->mtu = mtu;
    gorvaNet_sendRes_setMtu(message, 0);
    self->notify_prefix_status();
}

void Service::get_ipv4_props(void *message, void *data)
{
    auto *self = static_cast<Service *>(data);
    ipv4_properties properties = {
        .field4 = "eth0",
        .field6 = self->mtu,
        .field7 = "192.0.2.1",
        .infoCount = 1,
        .infos = {{.field3 = "192.0.2.53", .field4 = "name server"}},
    };
    gorvaNet_sendRes_getIPv4Props(message, &properties, 0);
}

void Service::notify_prefix_status()
{
    ipv6_prefixes prefixes = {.field3 = 1, .prefixes = {{.field3 = "2001:db8::", .field4 = 64}}};
    gorvaNet_sendReq_ntfyPrefixStatus(user, nullptr, nullptr, "eth0", &prefixes);
}

int Service::start()
{
    if (auto error = gorvaNet_regUser_msgMngt(user, nullptr, nullptr, GORVANET_SELECT_BOTH))
        return static_cast<int>(error);
    if (auto error = gorvaNet_modSrv_recvMsg_setMtu(user, set_mtu, this, nullptr))
        return error;
    return gorvaNet_modSrv_recvMsg_getIPv4Props(user, get_ipv4_props, this, nullptr);
}
