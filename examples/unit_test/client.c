#include "client.h"

#include "gorvanet.h"

#include <stddef.h>

static void *self;
static const char *server;
static uint32_t wanted;
static uint32_t set;

static void ask(uint32_t mtu);

static void on_mtu_set(void *context, void *user_data, uint32_t result)
{
    (void)context;
    (void)user_data;
    if (result == 0)
        set = wanted;
    else if (wanted != CLIENT_ORDINARY_MTU)
        ask(CLIENT_ORDINARY_MTU);
}

static void ask(uint32_t mtu)
{
    wanted = mtu;
    gorvaNet_sendReq_setMtu(self, on_mtu_set, NULL, NULL, server, mtu);
}

int client_start(void *user, const char *service)
{
    self = user;
    server = service;
    set = 0;
    uint32_t error = gorvanet_initialize();
    if (!error)
        error = gorvaNet_regUser_msgMngt(user, NULL, NULL, GORVANET_SELECT_BOTH);
    if (error)
        return (int)error;
    ask(CLIENT_JUMBO_MTU);
    return 0;
}

uint32_t client_mtu(void)
{
    return set;
}
