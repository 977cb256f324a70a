/* A small service: keeps an MTU, and answers a DHCP request when the lease has come. */
#ifndef EXAMPLE_SERVICE_H
#define EXAMPLE_SERVICE_H

#include <stdint.h>

#define SERVICE_SMALLEST_MTU 1280u /* what IPv6 needs */
#define SERVICE_REFUSED      22u   /* result of a request that was refused */

/* Starts the interface and makes the user serve. Result: 0, or an error code of the library or the bus. */
int service_start(void *user);

uint32_t service_mtu(void);

/* A lease has come for whoever waits for one. */
void service_lease_has_come(void);

#endif
