/* A small client: wants jumbo frames, and puts up with ordinary ones. */
#ifndef EXAMPLE_CLIENT_H
#define EXAMPLE_CLIENT_H

#include <stdint.h>

#define CLIENT_JUMBO_MTU    9000u
#define CLIENT_ORDINARY_MTU 1500u

/* Starts the interface and asks the bus user named `service` for the MTU. Result: 0, or an error code. */
int client_start(void *user, const char *service);

/* The MTU that was set; 0 until the answer has come, and after a refusal of both. */
uint32_t client_mtu(void);

#endif
