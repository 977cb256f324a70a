// The service of ../cpp as a process of its own, over D-Bus. It ends with SIGTERM.

#include "gorvanet_dbus.h"
#include "parts.h"

#include <iostream>

int main()
{
    std::cout << std::unitbuf; // both processes may write to the same place
    Service service(gorvanet_dbus_add_user("ip-service"));

    if (gorvanet_initialize() || service.start()) {
        std::cerr << "the service could not start\n";
        return 1;
    }
    gorvanet_dbus_run();
    gorvanet_dbus_tear_down(); // event 0: the library returns its interfaces to the bus
    return 0;
}
