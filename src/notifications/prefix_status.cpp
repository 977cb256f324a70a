// PrefixStatus, notification 0: the service tells the status of a set of IPv6 prefixes to the users that accepted it.
// The accept magic happens to be the body magic of RegisterPrefixStatus too.
//
//   request   tag 3  name
//                    prefixes

#include "../commands/method.h"

#include <syslog.h>

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    char name[80];
    ipv6_prefixes prefixes;
};

static_assert(sizeof(Request) == 2372 && offsetof(Request, name) == 6 && offsetof(Request, prefixes) == 88);

uint32_t length_request(const Request &body)
{
    return text_item(body.name) + gorvaNet_ipv6_prefixes_serialize_lg(&body.prefixes);
}

void put_request(Writer &out, const Request &body)
{
    put_text(out, 3, body.name);
    put_record(out, body.prefixes, gorvaNet_ipv6_prefixes_serialize);
}

void get_request(Reader &in, Request &body)
{
    get_text(in, 3, body.name);
    get_record(in, body.prefixes, gorvaNet_ipv6_prefixes_unserialize);
}

void clean_request(Request &body)
{
    gorvaNet_ipv6_prefixes_clean(&body.prefixes);
}

constexpr Method prefix_status = {
    .index = 0,
    .magic = GORVANET_MAGIC_MSGNTFY_PREFIXSTATUS,
    .magic_name = "GORVANET_MAGIC_MSGNTFY_PREFIXSTATUS",
    .accept_magic = 0x20150227,
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request, clean_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgNtfyReq_prefixStatus",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgNtfyReq_prefixStatus",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgNtfyReq_prefixStatus"),
    .response = {},
};

} // namespace

// Service

void gorvaNet_sendReq_ntfyPrefixStatus(void *user, void *pass1, void *pass2, const char *name,
                                       const struct ipv6_prefixes *prefixes)
{
    auto *body = new_notification<Request>(prefix_status);
    if (!body)
        return;
    copy_text(body->name, name);
    if (gorvaNet_ipv6_prefixes_copy(&body->prefixes, prefixes))
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy ipv6_prefixes failed\n", __func__, __LINE__);
    zebIntf_sendReq_ntfy(user, body, 0, 0, 0, pass1, pass2, gorvaNet_base.name, gorvaNet_base.ntfy.num, 0, 0, 0,
                         send_options);
}

// Client

// The text does not say "failed", and shows the user name as a pointer: kept for compatibility.
uint32_t gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(void *user, gorvaNet_prefixStatus_handler *handler, void *data,
                                                      void *value3, const char *bus_name, const char *user_name)
{
    int32_t status =
        zebIntf_modCliNtfyUser_mthd(user, plain(handler), data, value3, prefix_status.accept_magic, bus_name, user_name,
                                    gorvaNet_base.name, &gorvaNet_base.cmd, &gorvaNet_base.ntfy, prefix_status.index);
    if (status)
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): user(%p) bus name(%s) user name(%p): ModCliNtfyUser\n", __func__,
               __LINE__, user, bus_name, static_cast<const void *>(user_name));
    return static_cast<uint32_t>(status);
}

void gorvaNet_recvReq_ntfyPrefixStatus(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(prefix_status, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_prefixStatus_handler *>(handler);
    serve(message, data, request->name, &request->prefixes);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgNtfy_prefixStatus(uint32_t type, void *body)
{
    free_notification(prefix_status, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgNtfy_prefixStatus(uint32_t type, const void *body, void **buffer,
                                                                  uint32_t *size)
{
    return serialize_body(prefix_status, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgNtfy_prefixStatus(uint32_t type, const void *buffer, void **body,
                                                                   uint32_t *size)
{
    return unserialize_body(prefix_status, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgNtfy_prefixStatus(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
