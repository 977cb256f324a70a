// SetIPv6PrefixAndAddress, command 7: sets IPv6 prefixes with their addresses; the service answers with a
// result.
//
//   request   list
//   response  tag 3  result

#include "method.h"

#include <syslog.h>

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    ipv6_prefix_addr_conf_list list;
};

struct Response {
    uint32_t magic;
    uint16_t flag;
    uint32_t result;
};

static_assert(sizeof(Request) == 2272 && offsetof(Request, list) == 8);
static_assert(sizeof(Response) == 12);

uint32_t length_request(const Request &body)
{
    return gorvaNet_ipv6_prefix_addr_conf_list_serialize_lg(&body.list);
}

void put_request(Writer &out, const Request &body)
{
    put_record(out, body.list, gorvaNet_ipv6_prefix_addr_conf_list_serialize);
}

void get_request(Reader &in, Request &body)
{
    get_record(in, body.list, gorvaNet_ipv6_prefix_addr_conf_list_unserialize);
}

void clean_request(Request &body)
{
    gorvaNet_ipv6_prefix_addr_conf_list_clean(&body.list);
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

constexpr Method set_ipv6_prefix_and_address = {
    .index = 7,
    .magic = GORVANET_MAGIC_MSGCMD_SETIPV6PREFIXANDADDRESS,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETIPV6PREFIXANDADDRESS",
    .accept_magic = 0x24331321,
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request, clean_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_setIPv6PrefixAndAddress",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setIPv6PrefixAndAddress",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_setIPv6PrefixAndAddress"),
    .response = body_kind<Response, length_response, put_response, get_response>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdRes_setIPv6PrefixAndAddress",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_setIPv6PrefixAndAddress",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdRes_setIPv6PrefixAndAddress"),
};

void gorvaNet_recvRes_setIPv6PrefixAndAddress(void *, RequestContext *context, void *body)
{
    auto *response = received_response<Response>(set_ipv6_prefix_and_address, context, body);
    if (!response)
        return;
    auto *callback = reinterpret_cast<gorvaNet_setIPv6PrefixAndAddress_response *>(context->callback);
    callback(context, context->user_data, response->result);
}

} // namespace

// Client

uint32_t gorvaNet_sendReq_setIPv6PrefixAndAddress(void *user, gorvaNet_setIPv6PrefixAndAddress_response *callback,
                                                  void *pass1, void *pass2, const char *server,
                                                  const struct ipv6_prefix_addr_conf_list *list)
{
    auto *body = new_request<Request>(set_ipv6_prefix_and_address, user, server);
    if (!body)
        return 0;
    if (gorvaNet_ipv6_prefix_addr_conf_list_copy(&body->list, list))
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_prefix_addr_conf_list failed\n", __func__, __LINE__);
    return send_request(set_ipv6_prefix_and_address, user, body, gorvaNet_recvRes_setIPv6PrefixAndAddress,
                        plain(callback), pass1, pass2, server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_setIPv6PrefixAndAddress(void *user, gorvaNet_setIPv6PrefixAndAddress_handler *handler,
                                                        void *data, void *value3)
{
    return accept(set_ipv6_prefix_and_address, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_setIPv6PrefixAndAddress(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(set_ipv6_prefix_and_address, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_setIPv6PrefixAndAddress_handler *>(handler);
    serve(message, data, &request->list);
}

void gorvaNet_sendRes_setIPv6PrefixAndAddress(void *message, uint32_t result)
{
    auto *body = new_response<Response>(set_ipv6_prefix_and_address, message);
    if (!body)
        return;
    body->result = result;
    send_response(message, body);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setIPv6PrefixAndAddress(uint32_t type, void *body)
{
    free_body(set_ipv6_prefix_and_address, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setIPv6PrefixAndAddress(uint32_t type, const void *body,
                                                                            void **buffer, uint32_t *size)
{
    return serialize_body(set_ipv6_prefix_and_address, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setIPv6PrefixAndAddress(uint32_t type, const void *buffer,
                                                                             void **body, uint32_t *size)
{
    return unserialize_body(set_ipv6_prefix_and_address, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setIPv6PrefixAndAddress(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
