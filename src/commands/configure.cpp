// Configure, command 10: hands an interface configuration to the service; no answer.
// Shares both magics with AskStateRenotification; only the version tells their bodies apart: kept for compatibility.
//
//   request   configuration

#include "method.h"

#include <syslog.h>

namespace {

struct Request {
    uint32_t magic;
    uint16_t flag;
    intfConf configuration;
};

static_assert(sizeof(Request) == 532 && offsetof(Request, configuration) == 8);

uint32_t length_request(const Request &body)
{
    return gorvaNet_intfConf_serialize_lg(&body.configuration);
}

void put_request(Writer &out, const Request &body)
{
    put_record(out, body.configuration, gorvaNet_intfConf_serialize);
}

void get_request(Reader &in, Request &body)
{
    get_record(in, body.configuration, gorvaNet_intfConf_unserialize);
}

void clean_request(Request &body)
{
    gorvaNet_intfConf_clean(&body.configuration);
}

constexpr Method configure = {
    .index = 10,
    .magic = GORVANET_MAGIC_MSGCMD_CONFIGURE,
    .magic_name = "GORVANET_MAGIC_MSGCMD_CONFIGURE",
    .accept_magic = 0x13235327,
    .version = 1,
    .request = body_kind<Request, length_request, put_request, get_request, clean_request>(
        "gorvaNet_cbEvtMsgMngt_freeBody_msgCmdReq_configure", "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_configure",
        "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_configure"),
    .response = {},
};

} // namespace

// Client

uint32_t gorvaNet_sendReq_configure(void *user, void *pass, const char *server, const struct intfConf *configuration)
{
    auto *body = new_request<Request>(configure, user, server);
    if (!body)
        return 0;
    if (gorvaNet_intfConf_copy(&body->configuration, configuration))
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Copy intfConf failed\n", __func__, __LINE__);
    return send_one_way(configure, user, body, pass, server);
}

// Server

int32_t gorvaNet_modSrv_recvMsg_configure(void *user, gorvaNet_configure_handler *handler, void *data, void *value3)
{
    return accept(configure, user, plain(handler), data, value3);
}

void gorvaNet_recvReq_configure(void *message, void *body, gorvaNet_function *handler, void *data)
{
    auto *request = received_request<Request>(configure, message, body, handler);
    if (!request)
        return;
    auto *serve = reinterpret_cast<gorvaNet_configure_handler *>(handler);
    serve(message, data, &request->configuration);
}

// Body callbacks

void gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_configure(uint32_t type, void *body)
{
    free_body(configure, type, body);
}

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_configure(uint32_t type, const void *body, void **buffer,
                                                              uint32_t *size)
{
    return serialize_body(configure, type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configure(uint32_t type, const void *buffer, void **body,
                                                               uint32_t *size)
{
    return unserialize_body(configure, type, buffer, body, size);
}

void gorvaNet_cbEvtMsgMngt_logBody_msgCmd_configure(uint32_t, const void *, uint32_t, char **text)
{
    log_body(text);
}
