// Runs service and client in one process, on the loopback bus.

#include "gorvanet_loopback.h"
#include "parts.h"

#include <iostream>

int main()
{
    Service service(gorvanet_loopback_add_user("ip-service"));
    Client client(gorvanet_loopback_add_user("ip-client"), "ip-service");

    if (gorvanet_initialize() || service.start() || client.start()) {
        std::cerr << "could not start\n";
        return 1;
    }
    gorvanet_loopback_run();
    gorvanet_loopback_tear_down(); // event 0: the library returns its interfaces to the bus
    return client.received == 3 ? 0 : 1;
}
