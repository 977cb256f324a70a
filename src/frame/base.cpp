// The interface descriptor with its method tables: the only place that names every method.

#include "gorvanet.h"

#include <cstddef>

// The rows of an interface follow its block directly, and the middleware reads them there.
static_assert(offsetof(gorvaNet_descriptor, cmdMethods) ==
              offsetof(gorvaNet_descriptor, cmd) + sizeof(gorvaNet_interface));
static_assert(offsetof(gorvaNet_descriptor, ntfyMethods) ==
              offsetof(gorvaNet_descriptor, ntfy) + sizeof(gorvaNet_interface));

// The layout in a 32-bit process.
static_assert(sizeof(void *) != 4 || sizeof(gorvaNet_interface) == 16);
static_assert(sizeof(void *) != 4 || offsetof(gorvaNet_interface, num) == 12);
static_assert(sizeof(void *) != 4 || sizeof(gorvaNet_method) == 32);
static_assert(sizeof(void *) != 4 || offsetof(gorvaNet_descriptor, cmd) == 8);
static_assert(sizeof(void *) != 4 || offsetof(gorvaNet_descriptor, ntfy) == 408);
static_assert(sizeof(void *) != 4 || offsetof(gorvaNet_descriptor, debug) == 456);
static_assert(sizeof(void *) != 4 || offsetof(gorvaNet_descriptor, state) == 460);
static_assert(sizeof(void *) != 4 || offsetof(gorvaNet_descriptor, flags) == 461);
static_assert(sizeof(void *) != 4 || sizeof(gorvaNet_descriptor) == 464);

gorvaNet_descriptor gorvaNet_base = {
    .magic = GORVANET_MAGIC_BASE,
    .name = "GorvaNet",
    .cmd =
        {
            .magic = GORVANET_MAGIC_CMD,
            .name = "GorvaNetCmd",
            .unreg = gorvaNet_cbEvtMsgMngt_unreg_msgCmd,
            .num = GORVANET_NUM_NONE,
            .count = GORVANET_COUNT_CMD,
        },
    .cmdMethods =
        {
            {
                .recvReq = gorvaNet_recvReq_setOsIfc,
                .reserved = 0,
                .name = "SetOsIfc",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setOsIfc,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setOsIfc,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setOsIfc,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setOsIfc,
                .index = 0,
            },
            {.recvReq = nullptr,
             .reserved = 0,
             .name = "SetDhcp",
             .freeBody = nullptr,
             .serializeBody = nullptr,
             .unserializeBody = nullptr,
             .logBody = nullptr,
             .index = 1},
        },
    .ntfy =
        {
            .magic = GORVANET_MAGIC_NTFY,
            .name = "GorvaNetNtfy",
            .unreg = gorvaNet_cbEvtMsgMngt_unreg_msgNtfy,
            .num = GORVANET_NUM_NONE,
            .count = GORVANET_COUNT_NTFY,
        },
    .ntfyMethods = {},
    .debug = 0,
    .state = GORVANET_STATE_BASE_WAIT_INIT,
    .flags = 0,
};
