// AskStateRenotification, command 8: asks the service to report a state again; no answer.
// Shares both magics with Configure; only the version tells their bodies apart: kept for compatibility.
//
//   request   info

#include "method.h"

#include <syslog.h>

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    state_info info;
};

static_assert(sizeof(Request) == 56 && offsetof(Request, info) == 6);

uint32_t length_request(const Request &body)
{
    return gorvaNet_state_info_serialize_lg(&body.info);
}

void put_request(Writer &out, const Request &body)
{
    put_record(out, body.info, gorvaNet_state_info_serialize);
}

void get_request(Reader &in, Request &body)
{
    get_record(in, body.info, gorvaNet_state_info_unserialize);
}

void clean_request(Request &body)
{
    gorvaNet_state_info_clean(&body.info);
}

constexpr Method ask_state_renotification = {
    .index = 8,
    .magic = GORVANET_MAGIC_MSGCMD_ASKSTATERENOTIFICATION,
    .magic_name = "GORVANET_MAGIC_MSGCMD_ASKSTATERENOTIFICATION",
    .accept_magic = 0x13235327,
    .version = 0,
    .request = body_kind<Request, length_request, put_request, get_request, clean_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_askStateRenotification",
        "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_askStateRenotification",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_askStateRenotification"),
    .response = {},
};

} // namespace

// Client

uint32_t gorvaNet_sendReq_askStateRenotification(void *user, void *pass, const char *server,
                                                 const struct state_info *info)
{
    auto *body = new_request<Request>(ask_state_renotification, user, server);
    if (!body)
        return 0;
    if (gorvaNet_state_info_copy(&body->info, info))
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy state_info failed\n", __func__, __LINE__);
    return send_one_way(ask_state_renotification, user, body, pass, server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_askStateRenotification(void *user, gorvaNet_askStateRenotification_handler *handler,
                                                       void *data, void *value3)
{
    return accept(ask_state_renotification, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_askStateRenotification(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(ask_state_renotification, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_askStateRenotification_handler *>(handler);
    serve(message, data, &request->info);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_askStateRenotification(uint32_t type, void *body)
{
    free_body(ask_state_renotification, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_askStateRenotification(uint32_t type, const void *body,
                                                                           void **buffer, uint32_t *size)
{
    return serialize_body(ask_state_renotification, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_askStateRenotification(uint32_t type, const void *buffer,
                                                                            void **body, uint32_t *size)
{
    return unserialize_body(ask_state_renotification, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_askStateRenotification(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
