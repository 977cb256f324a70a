// SetRdisc6, command 2: asks for IPv6 router discovery on a network interface; the service answers without a value.
//
//   request   tag 3  ifName
//   response  no field

#include "method.h"

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    char ifName[50];
};

struct Response {
    uint32_t magic;
    uint16_t flag;
};

static_assert(sizeof(Request) == 56 && offsetof(Request, ifName) == 6);
static_assert(sizeof(Response) == 8);

uint32_t length_request(const Request &body)
{
    return text_item(body.ifName);
}

void put_request(Writer &out, const Request &body)
{
    put_text(out, 3, body.ifName);
}

void get_request(Reader &in, Request &body)
{
    get_text(in, 3, body.ifName);
}

constexpr Method set_rdisc6 = {
    .index = 2,
    .magic = GORVANET_MAGIC_MSGCMD_SETRDISC6,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETRDISC6",
    .accept_magic = 0x34132012,
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_setRdisc6", "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setRdisc6",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_setRdisc6"),
    .response = body_kind<Response>("gorvaNet_cbEvtMsgMngt_freeBody_msgCmdRes_setRdisc6",
                                    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_setRdisc6",
                                    "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdRes_setRdisc6"),
};

void gorvaNet_recvRes_setRdisc6(void *, RequestContext *context, void *body)
{
    auto *response = received_response<Response>(set_rdisc6, context, body);
    if (!response)
        return;
    auto *callback = reinterpret_cast<gorvaNet_setRdisc6_response *>(context->callback);
    callback(context, context->user_data);
}

} // namespace

// Client

uint32_t gorvaNet_sendReq_setRdisc6(void *user, gorvaNet_setRdisc6_response *callback, void *pass1, void *pass2,
                                    const char *server, const char *ifName)
{
    auto *body = new_request<Request>(set_rdisc6, user, server);
    if (!body)
        return 0;
    copy_text(body->ifName, ifName);
    return send_request(set_rdisc6, user, body, gorvaNet_recvRes_setRdisc6, plain(callback), pass1, pass2, server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_setRdisc6(void *user, gorvaNet_setRdisc6_handler *handler, void *data, void *value3)
{
    return accept(set_rdisc6, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_setRdisc6(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(set_rdisc6, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_setRdisc6_handler *>(handler);
    serve(message, data, request->ifName);
}

void gorvaNet_sendRes_setRdisc6(void *message)
{
    auto *body = new_response<Response>(set_rdisc6, message);
    if (!body)
        return;
    send_response(message, body);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setRdisc6(uint32_t type, void *body)
{
    free_body(set_rdisc6, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setRdisc6(uint32_t type, const void *body, void **buffer,
                                                              uint32_t *size)
{
    return serialize_body(set_rdisc6, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setRdisc6(uint32_t type, const void *buffer, void **body,
                                                               uint32_t *size)
{
    return unserialize_body(set_rdisc6, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setRdisc6(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
