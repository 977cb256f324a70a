/* Runs service and client in one process, on the loopback bus. */

#include "gorvanet.h"
#include "gorvanet_loopback.h"
#include "parts.h"

#include <stdio.h>

int main(void)
{
    void *service = gorvanet_loopback_add_user("ip-service");
    void *client = gorvanet_loopback_add_user("ip-client");

    if (gorvanet_initialize() || service_start(service) || client_start(client, "ip-service")) {
        fprintf(stderr, "could not start\n");
        return 1;
    }
    gorvanet_loopback_run();
    gorvanet_loopback_tear_down(); /* event 0: the library returns its interfaces to the bus */
    return client_received() == 3 ? 0 : 1;
}
