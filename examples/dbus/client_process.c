/* The client of ../c as a process of its own, over D-Bus. */

#include "gorvanet.h"
#include "gorvanet_dbus.h"
#include "parts.h"

#include <stdio.h>

int main(void)
{
    void *user = gorvanet_dbus_add_user("ip-client");

    if (!user || gorvanet_initialize() || client_start(user, "ip-service")) {
        fprintf(stderr, "the client could not start\n");
        return 1;
    }
    /* Answers that do not come are given up by the host, notifications by us. */
    while (client_received() < 3 && gorvanet_dbus_turn(1000) != GORVANET_DBUS_IDLE)
        continue;
    gorvanet_dbus_tear_down(); /* event 0: the library returns its interfaces to the bus */
    return client_received() == 3 ? 0 : 1;
}
