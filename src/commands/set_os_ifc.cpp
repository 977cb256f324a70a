// SetOsIfc, command 0: names a network interface to the service; the service answers with a result.
//
//   request   tag 3  ifName
//   response  tag 3  result

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
    uint32_t result;
};

static_assert(sizeof(Request) == 56 && offsetof(Request, ifName) == 6);
static_assert(sizeof(Response) == 12);

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

constexpr Method set_os_ifc = {
    .index = 0,
    .magic = GORVANET_MAGIC_MSGCMD_SETOSIFC,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETOSIFC",
    .accept_magic = 0x39132012,
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_setOsIfc", "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setOsIfc",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_setOsIfc"),
    .response = body_kind<Response, length_response, put_response, get_response>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdRes_setOsIfc", "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_setOsIfc",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdRes_setOsIfc"),
};

void gorvaNet_recvRes_setOsIfc(void *, RequestContext *context, void *body)
{
    auto *response = received_response<Response>(set_os_ifc, context, body);
    if (!response)
        return;
    auto *callback = reinterpret_cast<gorvaNet_setOsIfc_response *>(context->callback);
    callback(context, context->user_data, response->result);
}

} // namespace

// Client

uint32_t gorvaNet_sendReq_setOsIfc(void *user, gorvaNet_setOsIfc_response *callback, void *pass1, void *pass2,
                                   const char *server, const char *ifName)
{
    auto *body = new_request<Request>(set_os_ifc, user, server);
    if (!body)
        return 0;
    copy_text(body->ifName, ifName);
    return send_request(set_os_ifc, user, body, gorvaNet_recvRes_setOsIfc, plain(callback), pass1, pass2, server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_setOsIfc(void *user, gorvaNet_setOsIfc_handler *handler, void *data, void *value3)
{
    return accept(set_os_ifc, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_setOsIfc(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(set_os_ifc, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_setOsIfc_handler *>(handler);
    serve(message, data, request->ifName);
}

void gorvaNet_sendRes_setOsIfc(void *message, uint32_t result)
{
    auto *body = new_response<Response>(set_os_ifc, message);
    if (!body)
        return;
    body->result = result;
    send_response(message, body);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setOsIfc(uint32_t type, void *body)
{
    free_body(set_os_ifc, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setOsIfc(uint32_t type, const void *body, void **buffer,
                                                             uint32_t *size)
{
    return serialize_body(set_os_ifc, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setOsIfc(uint32_t type, const void *buffer, void **body,
                                                              uint32_t *size)
{
    return unserialize_body(set_os_ifc, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setOsIfc(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
