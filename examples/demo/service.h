// An IP-configuration service that keeps its configuration in memory: all twelve commands and the notification.
//
// What the numbers and texts of the records mean is agreed between a service and its clients; this service makes up a
// meaning where it needs one.

#ifndef GORVANET_DEMO_SERVICE_H
#define GORVANET_DEMO_SERVICE_H

#include "gorvanet.h"

#include <string>
#include <vector>

namespace demo {

struct Service {
    void *user; // on the bus

    // The configuration
    std::string interface = "";
    uint32_t dhcp = 0;
    bool router_discovery = false;
    uint32_t mtu = 1500;
    uint32_t ipv6 = 0;
    ipv4_address address = {};
    intfConf configuration = {};
    std::vector<ipv6_prefix_addr_conf> confs = {};
    uint32_t registrations = 0;
};

// Attaches the service's user to the interface and accepts every command for it. The handlers keep `service`.
bool start(Service &service);

} // namespace demo

#endif
