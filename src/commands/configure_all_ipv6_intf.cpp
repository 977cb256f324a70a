// ConfigureAllIPv6Intf, command 11: hands a value for all IPv6 interfaces to the service; no answer.
//
//   request   tag 3  value

#include "method.h"

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    uint32_t value;
};

static_assert(sizeof(Request) == 12);

uint32_t length_request(const Request &)
{
    return number_item;
}

void put_request(Writer &out, const Request &body)
{
    put_u32(out, 3, body.value);
}

void get_request(Reader &in, Request &body)
{
    get_u32(in, 3, body.value);
}

constexpr Method configure_all_ipv6_intf = {
    .index = 11,
    .magic = GORVANET_MAGIC_MSGCMD_CONFIGUREALLIPV6INTF,
    .magic_name = "GORVANET_MAGIC_MSGCMD_CONFIGUREALLIPV6INTF",
    .accept_magic = 0x20161210, // not the body magic plus one
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_configureAllIPv6Intf",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_configureAllIPv6Intf",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_configureAllIPv6Intf"),
    .response = {},
};

} // namespace

// Client

uint32_t gorvaNet_sendReq_configureAllIPv6Intf(void *user, void *pass, const char *server, uint32_t value)
{
    auto *body = new_request<Request>(configure_all_ipv6_intf, user, server);
    if (!body)
        return 0;
    body->value = value;
    return send_one_way(configure_all_ipv6_intf, user, body, pass, server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_configureAllIPv6Intf(void *user, gorvaNet_configureAllIPv6Intf_handler *handler,
                                                     void *data, void *value3)
{
    return accept(configure_all_ipv6_intf, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_configureAllIPv6Intf(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(configure_all_ipv6_intf, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_configureAllIPv6Intf_handler *>(handler);
    serve(message, data, request->value);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_configureAllIPv6Intf(uint32_t type, void *body)
{
    free_body(configure_all_ipv6_intf, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_configureAllIPv6Intf(uint32_t type, const void *body, void **buffer,
                                                                         uint32_t *size)
{
    return serialize_body(configure_all_ipv6_intf, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configureAllIPv6Intf(uint32_t type, const void *buffer,
                                                                          void **body, uint32_t *size)
{
    return unserialize_body(configure_all_ipv6_intf, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_configureAllIPv6Intf(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
