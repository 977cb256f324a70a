#include "service.h"

#include "gorvanet.h"

#include <stddef.h>
#include <syslog.h>

static uint32_t current_mtu;
static void *waiting_for_lease; /* the request, or null */

static void serve_set_mtu(void *message, void *data, uint32_t mtu)
{
    (void)data;
    if (mtu < SERVICE_SMALLEST_MTU) {
        syslog(LOG_WARNING, "MTU %u is too small", (unsigned)mtu);
        gorvaNet_sendRes_setMtu(message, SERVICE_REFUSED);
        return;
    }
    current_mtu = mtu;
    gorvaNet_sendRes_setMtu(message, 0);
}

static void answer_who_waits(void)
{
    if (waiting_for_lease)
        gorvaNet_sendRes_setDhcp(waiting_for_lease);
    waiting_for_lease = NULL;
}

/* A handler may keep the message and answer later. Here the latest request waits; every one is answered once. */
static void serve_set_dhcp(void *message, void *data, const char *ifName, uint32_t dhcp)
{
    (void)data;
    (void)ifName;
    answer_who_waits();
    if (dhcp)
        waiting_for_lease = message;
    else
        gorvaNet_sendRes_setDhcp(message);
}

int service_start(void *user)
{
    current_mtu = 1500;
    waiting_for_lease = NULL;
    uint32_t error = gorvanet_initialize();
    if (!error)
        error = gorvaNet_regUser_msgMngt(user, NULL, NULL, GORVANET_SELECT_BOTH);
    if (error)
        return (int)error;
    int32_t refused = gorvaNet_modSrv_recvMsg_setMtu(user, serve_set_mtu, NULL, NULL);
    if (!refused)
        refused = gorvaNet_modSrv_recvMsg_setDhcp(user, serve_set_dhcp, NULL, NULL);
    return refused;
}

uint32_t service_mtu(void)
{
    return current_mtu;
}

void service_lease_has_come(void)
{
    answer_who_waits();
}
