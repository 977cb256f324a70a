#include "parts.h"

#include <algorithm>
#include <iostream>
#include <iterator>

// What a callback is given belongs to the bus: use it before returning. The user data is the second value passed on
// with the request: here, the object it belongs to.
void Client::on_mtu_set(void *, void *user_data, uint32_t result)
{
    std::cout << "client:  MTU set, result " << result << "\n";
    static_cast<Client *>(user_data)->received++;
}

void Client::on_ipv4_props(void *, void *user_data, const ipv4_properties *properties, uint32_t result)
{
    std::cout << "client:  " << properties->field4 << " has " << properties->field7 << " and MTU " << properties->field6
              << ", result " << result << "\n";
    static_cast<Client *>(user_data)->received++;
}

void Client::on_prefix_status(void *, void *data, const char *name, const ipv6_prefixes *prefixes)
{
    // The count comes as it was sent: bound it before use.
    auto count = std::min<size_t>(prefixes->field3, std::size(prefixes->prefixes));
    for (size_t i = 0; i < count; i++)
        std::cout << "client:  " << name << " has prefix " << prefixes->prefixes[i].field3 << "/"
                  << prefixes->prefixes[i].field4 << "\n";
    static_cast<Client *>(data)->received++;
}

int Client::start()
{
    if (auto error = gorvaNet_regUser_msgMngt(user, nullptr, nullptr, GORVANET_SELECT_BOTH))
        return static_cast<int>(error);
    if (auto error =
            gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(user, on_prefix_status, this, nullptr, "bus", service))
        return static_cast<int>(error);
    gorvaNet_sendReq_setMtu(user, on_mtu_set, nullptr, this, service, 1400);
    gorvaNet_sendReq_getIPv4Props(user, on_ipv4_props, nullptr, this, service);
    return 0;
}
