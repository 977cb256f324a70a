#include "check.h"

#include "gorvanet.h"

#include <cstdlib>
#include <syslog.h>

void check_base_magic(Where where)
{
    if (gorvaNet_base.magic == GORVANET_MAGIC_BASE)
        return;
    syslog(LOG_EMERG, "[GORVANET] -> %s(%d): Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n", where.function,
           where.line, "GORVANET_MAGIC_BASE", GORVANET_MAGIC_BASE, static_cast<void *>(&gorvaNet_base),
           gorvaNet_base.magic, "");
    abort();
}

bool check_state(uint8_t state, const char *state_name, Where where)
{
    if (gorvaNet_base.state == state)
        return true;
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]\n", where.function,
           where.line, state_name, unsigned{state}, static_cast<void *>(&gorvaNet_base), unsigned{gorvaNet_base.state},
           "");
    return false;
}

void set_state(uint8_t state, const char *state_name, Where where)
{
    if (gorvaNet_base.state == state)
        syslog(LOG_WARNING, "[GORVANET] -> %s(%d): Set State[%s-%d] in ctx(%p) already set\n", where.function,
               where.line, state_name, int{state}, static_cast<void *>(&gorvaNet_base));
    gorvaNet_base.state = state;
}

void set_flag(uint8_t flag, const char *flag_name, Where where)
{
    if (gorvaNet_base.flags & flag)
        syslog(LOG_WARNING, "[GORVANET] -> %s(%d): Set Flag[%s-%X] in ctx(%p) already set[%X] text[%s]\n",
               where.function, where.line, flag_name, unsigned{flag}, static_cast<void *>(&gorvaNet_base),
               unsigned{gorvaNet_base.flags}, "");
    gorvaNet_base.flags = static_cast<uint8_t>(gorvaNet_base.flags | flag);
}

void unset_flag(uint8_t flag, const char *flag_name, Where where)
{
    if (!(gorvaNet_base.flags & flag))
        syslog(LOG_WARNING, "[GORVANET] -> %s(%d): Unset Flag[%s-%X] in ctx(%p) not set[%X] text[%s]\n", where.function,
               where.line, flag_name, unsigned{flag}, static_cast<void *>(&gorvaNet_base),
               unsigned{gorvaNet_base.flags}, "");
    gorvaNet_base.flags = static_cast<uint8_t>(gorvaNet_base.flags & ~flag);
}

void log_no_body(Where where)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Ctx[NULL] text[%s]\n", where.function, where.line, "");
}

void stop_for_body_magic(Where where, const void *body, uint32_t magic, const char *magic_name)
{
    syslog(LOG_EMERG, "[GORVANET] -> %s(%d): Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n", where.function,
           where.line, magic_name, magic, body, magic_of(body), "");
    abort();
}

void log_no_server(Where where, const void *user)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): user(%p): UserName Null\n", where.function, where.line, user);
}

// Names the function of notification users for servers too: kept for compatibility.
void log_accept_failed(Where where, const void *user, int32_t status)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): user(%p): ModCliNtfyUser failed(%d)\n", where.function, where.line, user,
           status);
}

void log_no_memory_for_body(Where where)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Allocating Memory Ctx[%s]\n", where.function, where.line, "");
}

// The N is part of the text.
void log_no_memory_for_output(Where where)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Allocating Memory N Ctx[%s]\n", where.function, where.line, "");
}

void log_request_not_serialized(Where where, const void *buffer, uint32_t status)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): BodyReq(%p): On serialize failed(%d)\n", where.function, where.line, buffer,
           static_cast<int>(status));
}

// Says "Req" of a response: kept for compatibility.
void log_response_not_serialized(Where where, const void *buffer, uint32_t status)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): pBodyReq(%p): On serialize failed(%d)\n", where.function, where.line, buffer,
           static_cast<int>(status));
}

void log_invalid_parameter(Where where)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Invalid parameter\n", where.function, where.line);
}

void log_type_unknown(Where where, uint32_t type)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Type(%d) unknown\n", where.function, where.line, static_cast<int>(type));
}

// The one text of the library without a line feed: kept for compatibility.
void log_type_unknown_without_line_feed(Where where, uint32_t type)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Type(%d) unknown", where.function, where.line, static_cast<int>(type));
}

void log_no_response_to_free(Where where)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): No free body response process\n", where.function, where.line);
}

void log_no_response_to_serialize(Where where)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): No Serialize response process\n", where.function, where.line);
}

void log_no_response_to_unserialize(Where where)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): No Unserialize response process\n", where.function, where.line);
}
