// The client of ../cpp as a process of its own, over D-Bus.

#include "gorvanet_dbus.h"
#include "parts.h"

#include <iostream>

int main()
{
    Client client(gorvanet_dbus_add_user("ip-client"), "ip-service");

    if (gorvanet_initialize() || client.start()) {
        std::cerr << "the client could not start\n";
        return 1;
    }
    // Answers that do not come are given up by the host, notifications by us.
    while (client.received < 3 && gorvanet_dbus_turn(1000) != GORVANET_DBUS_IDLE)
        continue;
    gorvanet_dbus_tear_down(); // event 0: the library returns its interfaces to the bus
    return client.received == 3 ? 0 : 1;
}
