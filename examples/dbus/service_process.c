/* The service of ../c as a process of its own, over D-Bus. It ends with SIGTERM. */

#include "gorvanet.h"
#include "gorvanet_dbus.h"
#include "parts.h"

#include <stdio.h>

int main(void)
{
    setvbuf(stdout, NULL, _IOLBF, 0); /* both processes may write to the same place */
    void *user = gorvanet_dbus_add_user("ip-service");

    if (!user || gorvanet_initialize() || service_start(user)) {
        fprintf(stderr, "the service could not start\n");
        return 1;
    }
    gorvanet_dbus_run();
    gorvanet_dbus_tear_down(); /* event 0: the library returns its interfaces to the bus */
    return 0;
}
