// GetIPv6Props, command 4: asks for the IPv6 properties; the service answers with them and a result.
//
//   request   no field
//   response         properties
//             tag 4  result

#include "method.h"

#include <syslog.h>

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
};

struct Response {
    uint32_t magic;
    uint16_t flag;
    ipv6_properties properties;
    uint32_t result;
};

static_assert(sizeof(Request) == 8);
static_assert(sizeof(Response) == 3664 && offsetof(Response, properties) == 8);

uint32_t length_response(const Response &body)
{
    return gorvaNet_ipv6_properties_serialize_lg(&body.properties) + number_item;
}

void put_response(Writer &out, const Response &body)
{
    put_record(out, body.properties, gorvaNet_ipv6_properties_serialize);
    put_u32(out, 4, body.result);
}

void get_response(Reader &in, Response &body)
{
    get_record(in, body.properties, gorvaNet_ipv6_properties_unserialize);
    get_u32(in, 4, body.result);
}

void clean_response(Response &body)
{
    gorvaNet_ipv6_properties_clean(&body.properties);
}

constexpr Method get_ipv6_props = {
    .index = 4,
    .magic = GORVANET_MAGIC_MSGCMD_GETIPV6PROPS,
    .magic_name = "GORVANET_MAGIC_MSGCMD_GETIPV6PROPS",
    .accept_magic = 0x24331111,
    .version = 1,
    .request = body_kind<Request>("gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_getIPv6Props",
                                  "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_getIPv6Props",
                                  "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_getIPv6Props"),
    .response = body_kind<Response, length_response, put_response, get_response, clean_response>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdRes_getIPv6Props",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_getIPv6Props",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdRes_getIPv6Props"),
};

void gorvaNet_recvRes_getIPv6Props(void *, RequestContext *context, void *body)
{
    auto *response = received_response<Response>(get_ipv6_props, context, body);
    if (!response)
        return;
    auto *callback = reinterpret_cast<gorvaNet_getIPv6Props_response *>(context->callback);
    callback(context, context->user_data, &response->properties, response->result);
}

} // namespace

// Client

uint32_t gorvaNet_sendReq_getIPv6Props(void *user, gorvaNet_getIPv6Props_response *callback, void *pass1, void *pass2,
                                       const char *server)
{
    auto *body = new_request<Request>(get_ipv6_props, user, server);
    if (!body)
        return 0;
    return send_request(get_ipv6_props, user, body, gorvaNet_recvRes_getIPv6Props, plain(callback), pass1, pass2,
                        server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_getIPv6Props(void *user, gorvaNet_getIPv6Props_handler *handler, void *data,
                                             void *value3)
{
    return accept(get_ipv6_props, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_getIPv6Props(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(get_ipv6_props, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_getIPv6Props_handler *>(handler);
    serve(message, data);
}

void gorvaNet_sendRes_getIPv6Props(void *message, const struct ipv6_properties *properties, uint32_t result)
{
    auto *body = new_response<Response>(get_ipv6_props, message);
    if (!body)
        return;
    if (gorvaNet_ipv6_properties_copy(&body->properties, properties))
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_properties failed\n", __func__, __LINE__);
    body->result = result;
    send_response(message, body);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_getIPv6Props(uint32_t type, void *body)
{
    free_body(get_ipv6_props, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv6Props(uint32_t type, const void *body, void **buffer,
                                                                 uint32_t *size)
{
    return serialize_body(get_ipv6_props, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_getIPv6Props(uint32_t type, const void *buffer, void **body,
                                                                  uint32_t *size)
{
    return unserialize_body(get_ipv6_props, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_getIPv6Props(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
