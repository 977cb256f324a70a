/* A client: sets the MTU, asks for the IPv4 properties, and listens for the status of IPv6 prefixes. */

#include "gorvanet.h"
#include "parts.h"

#include <stdio.h>

static int received;

/* What a callback is given belongs to the bus: use it before returning. */
static void on_mtu_set(void *context, void *user_data, uint32_t result)
{
    (void)context;
    printf("client:  %s set, result %u\n", (const char *)user_data, result);
    received++;
}

static void on_ipv4_props(void *context, void *user_data, const struct ipv4_properties *properties, uint32_t result)
{
    (void)context;
    (void)user_data;
    printf("client:  %s has %s and MTU %u, result %u\n", properties->field4, properties->field7, properties->field6,
           result);
    received++;
}

static void on_prefix_status(void *message, void *data, const char *name, const struct ipv6_prefixes *prefixes)
{
    (void)message;
    (void)data;
    /* The count comes as it was sent: bound it before use. */
    for (uint32_t i = 0; i < prefixes->field3 && i < 10; i++)
        printf("client:  %s has prefix %s/%u\n", name, prefixes->prefixes[i].field3, prefixes->prefixes[i].field4);
    received++;
}

int client_start(void *user, const char *service)
{
    static char what[] = "MTU"; /* user data: lives until the callback */
    uint32_t error = gorvaNet_regUser_msgMngt(user, NULL, NULL, GORVANET_SELECT_BOTH);
    if (!error)
        error = gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(user, on_prefix_status, NULL, NULL, "bus", service);
    if (error)
        return (int)error;
    gorvaNet_sendReq_setMtu(user, on_mtu_set, NULL, what, service, 1400);
    gorvaNet_sendReq_getIPv4Props(user, on_ipv4_props, NULL, NULL, service);
    return 0;
}

int client_received(void)
{
    return received;
}
