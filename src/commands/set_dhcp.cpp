// SetDhcp, command 1: sets the DHCP setting of a network interface; the service answers without a value.
// Shares both magics with SetOsIfc, so that a magic check cannot tell their bodies apart: kept for compatibility.
//
//   request   tag 3  ifName
//             tag 4  dhcp
//   response  no field

#include "method.h"

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    char ifName[50];
    uint32_t dhcp;
};

struct Response {
    uint32_t magic;
    uint16_t flag;
};

static_assert(sizeof(Request) == 60 && offsetof(Request, ifName) == 6);
static_assert(sizeof(Response) == 8);

uint32_t length_request(const Request &body)
{
    return text_item(body.ifName) + number_item;
}

void put_request(Writer &out, const Request &body)
{
    put_text(out, 3, body.ifName);
    put_u32(out, 4, body.dhcp);
}

void get_request(Reader &in, Request &body)
{
    get_text(in, 3, body.ifName);
    get_u32(in, 4, body.dhcp);
}

constexpr Method set_dhcp = {
    .index = 1,
    .magic = GORVANET_MAGIC_MSGCMD_SETDHCP,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETDHCP",
    .accept_magic = 0x39132012,
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_setDhcp", "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setDhcp",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_setDhcp"),
    .response = body_kind<Response>("gorvaNet_cbEvtMsgMngt_freeBody_msgCmdRes_setDhcp",
                                    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_setDhcp",
                                    "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdRes_setDhcp"),
};

void gorvaNet_recvRes_setDhcp(void *, RequestContext *context, void *body)
{
    auto *response = received_response<Response>(set_dhcp, context, body);
    if (!response)
        return;
    auto *callback = reinterpret_cast<gorvaNet_setDhcp_response *>(context->callback);
    callback(context, context->user_data);
}

} // namespace

// Client

uint32_t gorvaNet_sendReq_setDhcp(void *user, gorvaNet_setDhcp_response *callback, void *pass1, void *pass2,
                                  const char *server, const char *ifName, uint32_t dhcp)
{
    auto *body = new_request<Request>(set_dhcp, user, server);
    if (!body)
        return 0;
    copy_text(body->ifName, ifName);
    body->dhcp = dhcp;
    return send_request(set_dhcp, user, body, gorvaNet_recvRes_setDhcp, plain(callback), pass1, pass2, server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_setDhcp(void *user, gorvaNet_setDhcp_handler *handler, void *data, void *value3)
{
    return accept(set_dhcp, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_setDhcp(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(set_dhcp, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_setDhcp_handler *>(handler);
    serve(message, data, request->ifName, request->dhcp);
}

void gorvaNet_sendRes_setDhcp(void *message)
{
    auto *body = new_response<Response>(set_dhcp, message);
    if (!body)
        return;
    send_response(message, body);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setDhcp(uint32_t type, void *body)
{
    free_body(set_dhcp, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setDhcp(uint32_t type, const void *body, void **buffer,
                                                            uint32_t *size)
{
    return serialize_body(set_dhcp, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setDhcp(uint32_t type, const void *buffer, void **body,
                                                             uint32_t *size)
{
    return unserialize_body(set_dhcp, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setDhcp(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
