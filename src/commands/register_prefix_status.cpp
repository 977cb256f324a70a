// RegisterPrefixStatus, command 9: hands three values to the service, which answers with a result.
// The body magic happens to be the accept magic of the PrefixStatus notification too.
//
//   request   tag 3  first
//             tag 4  pointer, as a wide item
//             tag 5  last
//   response  tag 3  result

#include "method.h"

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    uint32_t first;
    void *pointer;
    uint32_t last;
};

struct Response {
    uint32_t magic;
    uint16_t flag;
    uint32_t result;
};

static_assert(sizeof(void *) != 4 || sizeof(Request) == 20);
static_assert(sizeof(Response) == 12);

uint32_t length_request(const Request &)
{
    return number_item + wide_item + number_item;
}

void put_request(Writer &out, const Request &body)
{
    put_u32(out, 3, body.first);
    put_wide(out, 4, body.pointer);
    put_u32(out, 5, body.last);
}

void get_request(Reader &in, Request &body)
{
    get_u32(in, 3, body.first);
    get_wide(in, 4, body.pointer);
    get_u32(in, 5, body.last);
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

constexpr Method register_prefix_status = {
    .index = 9,
    .magic = GORVANET_MAGIC_MSGCMD_REGISTERPREFIXSTATUS,
    .magic_name = "GORVANET_MAGIC_MSGCMD_REGISTERPREFIXSTATUS",
    .accept_magic = 0x20150228,
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_registerPrefixStatus",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_registerPrefixStatus",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_registerPrefixStatus"),
    .response = body_kind<Response, length_response, put_response, get_response>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdRes_registerPrefixStatus",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_registerPrefixStatus",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdRes_registerPrefixStatus"),
};

void gorvaNet_recvRes_registerPrefixStatus(void *, RequestContext *context, void *body)
{
    auto *response = received_response<Response>(register_prefix_status, context, body);
    if (!response)
        return;
    auto *callback = reinterpret_cast<gorvaNet_registerPrefixStatus_response *>(context->callback);
    callback(context, context->user_data, response->result);
}

} // namespace

// Client

uint32_t gorvaNet_sendReq_registerPrefixStatus(void *user, gorvaNet_registerPrefixStatus_response *callback,
                                               void *pass1, void *pass2, const char *server, uint32_t first,
                                               void *pointer, uint32_t last)
{
    auto *body = new_request<Request>(register_prefix_status, user, server);
    if (!body)
        return 0;
    body->first = first;
    body->pointer = pointer;
    body->last = last;
    return send_request(register_prefix_status, user, body, gorvaNet_recvRes_registerPrefixStatus, plain(callback),
                        pass1, pass2, server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_registerPrefixStatus(void *user, gorvaNet_registerPrefixStatus_handler *handler,
                                                     void *data, void *value3)
{
    return accept(register_prefix_status, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_registerPrefixStatus(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(register_prefix_status, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_registerPrefixStatus_handler *>(handler);
    serve(message, data, request->first, request->pointer, request->last);
}

void gorvaNet_sendRes_registerPrefixStatus(void *message, uint32_t result)
{
    auto *body = new_response<Response>(register_prefix_status, message);
    if (!body)
        return;
    body->result = result;
    send_response(message, body);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_registerPrefixStatus(uint32_t type, void *body)
{
    free_body(register_prefix_status, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_registerPrefixStatus(uint32_t type, const void *body, void **buffer,
                                                                         uint32_t *size)
{
    return serialize_body(register_prefix_status, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_registerPrefixStatus(uint32_t type, const void *buffer,
                                                                          void **body, uint32_t *size)
{
    return unserialize_body(register_prefix_status, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_registerPrefixStatus(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
