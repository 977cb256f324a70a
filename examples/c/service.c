/* A service: keeps an MTU, tells it on request, and notifies everybody who wants to know when it was set. */

#include "gorvanet.h"
#include "parts.h"

#include <stdio.h>

static void *self;
static uint32_t current_mtu = 1500;

static void notify_prefix_status(void)
{
    struct ipv6_prefixes prefixes = {.field3 = 1, .prefixes = {{.field3 = "2001:db8::", .field4 = 64}}};
    gorvaNet_sendReq_ntfyPrefixStatus(self, NULL, NULL, "eth0", &prefixes);
}

/* A handler may answer at once, as here, or keep the message and answer later. */
static void serve_set_mtu(void *message, void *data, uint32_t mtu)
{
    uint32_t *stored = data;
    printf("service: MTU %u, was %u\n", mtu, *stored);
    *stored = mtu;
    gorvaNet_sendRes_setMtu(message, 0);
    notify_prefix_status();
}

static void serve_get_ipv4_props(void *message, void *data)
{
    const uint32_t *stored = data;
    struct ipv4_properties properties = {
        .field4 = "eth0",
        .field6 = *stored,
        .field7 = "192.0.2.1",
        .infoCount = 1,
        .infos = {{.field3 = "192.0.2.53", .field4 = "name server"}},
    };
    gorvaNet_sendRes_getIPv4Props(message, &properties, 0);
}

int service_start(void *user)
{
    self = user;
    uint32_t error = gorvaNet_regUser_msgMngt(user, NULL, NULL, GORVANET_SELECT_BOTH);
    if (error)
        return (int)error;
    int32_t refused = gorvaNet_modSrv_recvMsg_setMtu(user, serve_set_mtu, &current_mtu, NULL);
    if (!refused)
        refused = gorvaNet_modSrv_recvMsg_getIPv4Props(user, serve_get_ipv4_props, &current_mtu, NULL);
    return refused;
}
