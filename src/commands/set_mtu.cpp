// SetMtu, command 6: sets an MTU; the service answers with a result.
//
//   request   tag 3  mtu
//   response  tag 3  result

#include "method.h"

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    uint32_t mtu;
};

struct Response {
    uint32_t magic;
    uint16_t flag;
    uint32_t result;
};

static_assert(sizeof(Request) == 12);
static_assert(sizeof(Response) == 12);

uint32_t length_request(const Request &)
{
    return number_item;
}

void put_request(Writer &out, const Request &body)
{
    put_u32(out, 3, body.mtu);
}

void get_request(Reader &in, Request &body)
{
    get_u32(in, 3, body.mtu);
}

uint32_t length_response(const Response &)
{
    return number_item;
}

void put_response(Writer &out, const Response &body)
{
    put_u32(out, 3, body.result);
}

void get_response(Reader &in, Response &body)
{
    get_u32(in, 3, body.result);
}

constexpr Method set_mtu = {
    .index = 6,
    .magic = GORVANET_MAGIC_MSGCMD_SETMTU,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETMTU",
    .accept_magic = 0x20190223,
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_setMtu", "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setMtu",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_setMtu"),
    .response = body_kind<Response, length_response, put_response, get_response>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdRes_setMtu", "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_setMtu",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdRes_setMtu"),
};

void gorvaNet_recvRes_setMtu(void *, RequestContext *context, void *body)
{
    auto *response = received_response<Response>(set_mtu, context, body);
    if (!response)
        return;
    auto *callback = reinterpret_cast<gorvaNet_setMtu_response *>(context->callback);
    callback(context, context->user_data, response->result);
}

} // namespace

// Client

uint32_t gorvaNet_sendReq_setMtu(void *user, gorvaNet_setMtu_response *callback, void *pass1, void *pass2,
                                 const char *server, uint32_t mtu)
{
    auto *body = new_request<Request>(set_mtu, user, server);
    if (!body)
        return 0;
    body->mtu = mtu;
    return send_request(set_mtu, user, body, gorvaNet_recvRes_setMtu, plain(callback), pass1, pass2, server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_setMtu(void *user, gorvaNet_setMtu_handler *handler, void *data, void *value3)
{
    return accept(set_mtu, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_setMtu(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(set_mtu, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_setMtu_handler *>(handler);
    serve(message, data, request->mtu);
}

void gorvaNet_sendRes_setMtu(void *message, uint32_t result)
{
    auto *body = new_response<Response>(set_mtu, message);
    if (!body)
        return;
    body->result = result;
    send_response(message, body);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setMtu(uint32_t type, void *body)
{
    free_body(set_mtu, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setMtu(uint32_t type, const void *body, void **buffer,
                                                           uint32_t *size)
{
    return serialize_body(set_mtu, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setMtu(uint32_t type, const void *buffer, void **body,
                                                            uint32_t *size)
{
    return unserialize_body(set_mtu, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setMtu(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
