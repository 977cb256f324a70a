// The interface descriptor with its method tables: the only source that names every method.

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

constinit gorvaNet_descriptor gorvaNet_base = {
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
            {
                .recvReq = gorvaNet_recvReq_setDhcp,
                .reserved = 0,
                .name = "SetDhcp",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setDhcp,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setDhcp,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setDhcp,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setDhcp,
                .index = 1,
            },
            {
                .recvReq = gorvaNet_recvReq_setRdisc6,
                .reserved = 0,
                .name = "SetRdisc6",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setRdisc6,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setRdisc6,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setRdisc6,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setRdisc6,
                .index = 2,
            },
            {
                .recvReq = gorvaNet_recvReq_getIPv4Props,
                .reserved = 0,
                .name = "GetIPv4Props",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_getIPv4Props,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv4Props,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_getIPv4Props,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_getIPv4Props,
                .index = 3,
            },
            {
                .recvReq = gorvaNet_recvReq_getIPv6Props,
                .reserved = 0,
                .name = "GetIPv6Props",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_getIPv6Props,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv6Props,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_getIPv6Props,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_getIPv6Props,
                .index = 4,
            },
            {
                .recvReq = gorvaNet_recvReq_setIPv4Address,
                .reserved = 0,
                .name = "SetIPv4Address",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setIPv4Address,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setIPv4Address,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setIPv4Address,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setIPv4Address,
                .index = 5,
            },
            {
                .recvReq = gorvaNet_recvReq_setMtu,
                .reserved = 0,
                .name = "SetMtu",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setMtu,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setMtu,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setMtu,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setMtu,
                .index = 6,
            },
            {
                .recvReq = gorvaNet_recvReq_setIPv6PrefixAndAddress,
                .reserved = 0,
                .name = "SetIPv6PrefixAndAddress",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setIPv6PrefixAndAddress,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setIPv6PrefixAndAddress,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setIPv6PrefixAndAddress,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setIPv6PrefixAndAddress,
                .index = 7,
            },
            {
                .recvReq = gorvaNet_recvReq_askStateRenotification,
                .reserved = 0,
                .name = "AskStateRenotification",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_askStateRenotification,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_askStateRenotification,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_askStateRenotification,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_askStateRenotification,
                .index = 8,
            },
            {
                .recvReq = gorvaNet_recvReq_registerPrefixStatus,
                .reserved = 0,
                .name = "RegisterPrefixStatus",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_registerPrefixStatus,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_registerPrefixStatus,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_registerPrefixStatus,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_registerPrefixStatus,
                .index = 9,
            },
            {
                .recvReq = gorvaNet_recvReq_configure,
                .reserved = 0,
                .name = "Configure",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_configure,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_configure,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configure,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_configure,
                .index = 10,
            },
            {
                .recvReq = gorvaNet_recvReq_configureAllIPv6Intf,
                .reserved = 0,
                .name = "ConfigureAllIPv6Intf",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_configureAllIPv6Intf,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_configureAllIPv6Intf,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configureAllIPv6Intf,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_configureAllIPv6Intf,
                .index = 11,
            },
        },
    .ntfy =
        {
            .magic = GORVANET_MAGIC_NTFY,
            .name = "GorvaNetNtfy",
            .unreg = gorvaNet_cbEvtMsgMngt_unreg_msgNtfy,
            .num = GORVANET_NUM_NONE,
            .count = GORVANET_COUNT_NTFY,
        },
    .ntfyMethods =
        {
            {
                .recvReq = gorvaNet_recvReq_ntfyPrefixStatus,
                .reserved = 0,
                .name = "PrefixStatus",
                .freeBody = gorvaNet_cbEvtMsgMngt_freeBody_msgNtfy_prefixStatus,
                .serializeBody = gorvaNet_cbEvtMsgMngt_serializeBody_msgNtfy_prefixStatus,
                .unserializeBody = gorvaNet_cbEvtMsgMngt_unserializeBody_msgNtfy_prefixStatus,
                .logBody = gorvaNet_cbEvtMsgMngt_logBody_msgNtfy_prefixStatus,
                .index = 0,
            },
        },
    .debug = 0,
    .state = GORVANET_STATE_BASE_WAIT_INIT,
    .flags = 0,
};
