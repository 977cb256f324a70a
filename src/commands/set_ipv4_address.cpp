// SetIPv4Address, command 5: sets an IPv4 address; the service answers with an outcome record.
//
//   request   address
//   response  outcome

#include "method.h"

#include <syslog.h>

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    ipv4_address address;
};

struct Response {
    uint32_t magic;
    uint16_t flag;
    ipv4_address_return outcome;
};

static_assert(sizeof(Request) == 132 && offsetof(Request, address) == 8);
static_assert(sizeof(Response) == 12 && offsetof(Response, outcome) == 8);

uint32_t length_request(const Request &body)
{
    return gorvaNet_ipv4_address_serialize_lg(&body.address);
}

void put_request(Writer &out, const Request &body)
{
    put_record(out, body.address, gorvaNet_ipv4_address_serialize);
}

void get_request(Reader &in, Request &body)
{
    get_record(in, body.address, gorvaNet_ipv4_address_unserialize);
}

void clean_request(Request &body)
{
    gorvaNet_ipv4_address_clean(&body.address);
}

uint32_t length_response(const Response &body)
{
    return gorvaNet_ipv4_address_return_serialize_lg(&body.outcome);
}

void put_response(Writer &out, const Response &body)
{
    put_record(out, body.outcome, gorvaNet_ipv4_address_return_serialize);
}

void get_response(Reader &in, Response &body)
{
    get_record(in, body.outcome, gorvaNet_ipv4_address_return_unserialize);
}

void clean_response(Response &body)
{
    gorvaNet_ipv4_address_return_clean(&body.outcome);
}

constexpr Method set_ipv4_address = {
    .index = 5,
    .magic = GORVANET_MAGIC_MSGCMD_SETIPV4ADDRESS,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETIPV4ADDRESS",
    .accept_magic = 0x23331321,
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request, clean_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_setIPv4Address",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setIPv4Address",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_setIPv4Address"),
    .response = body_kind<Response, length_response, put_response, get_response, clean_response>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdRes_setIPv4Address",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_setIPv4Address",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdRes_setIPv4Address"),
};

void gorvaNet_recvRes_setIPv4Address(void *, RequestContext *context, void *body)
{
    auto *response = received_response<Response>(set_ipv4_address, context, body);
    if (!response)
        return;
    auto *callback = reinterpret_cast<gorvaNet_setIPv4Address_response *>(context->callback);
    callback(context, context->user_data, &response->outcome);
}

} // namespace

// Client

uint32_t gorvaNet_sendReq_setIPv4Address(void *user, gorvaNet_setIPv4Address_response *callback, void *pass1,
                                         void *pass2, const char *server, const struct ipv4_address *address)
{
    auto *body = new_request<Request>(set_ipv4_address, user, server);
    if (!body)
        return 0;
    if (gorvaNet_ipv4_address_copy(&body->address, address))
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv4_address failed\n", __func__, __LINE__);
    return send_request(set_ipv4_address, user, body, gorvaNet_recvRes_setIPv4Address, plain(callback), pass1, pass2,
                        server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_setIPv4Address(void *user, gorvaNet_setIPv4Address_handler *handler, void *data,
                                               void *value3)
{
    return accept(set_ipv4_address, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_setIPv4Address(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(set_ipv4_address, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_setIPv4Address_handler *>(handler);
    serve(message, data, &request->address);
}

void gorvaNet_sendRes_setIPv4Address(void *message, const struct ipv4_address_return *outcome)
{
    auto *body = new_response<Response>(set_ipv4_address, message);
    if (!body)
        return;
    if (gorvaNet_ipv4_address_return_copy(&body->outcome, outcome))
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv4_address_return failed\n", __func__, __LINE__);
    send_response(message, body);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setIPv4Address(uint32_t type, void *body)
{
    free_body(set_ipv4_address, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setIPv4Address(uint32_t type, const void *body, void **buffer,
                                                                   uint32_t *size)
{
    return serialize_body(set_ipv4_address, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setIPv4Address(uint32_t type, const void *buffer, void **body,
                                                                    uint32_t *size)
{
    return unserialize_body(set_ipv4_address, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setIPv4Address(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
