// The checks and log lines that several parts of the library share: one function per text.
//
// A line carries the name and source line of the function that found something wrong, not of the function that writes
// the line: each takes a Where. With a default, that is its caller.

#ifndef GORVANET_FRAME_CHECK_H
#define GORVANET_FRAME_CHECK_H

#include "body.h"
#include "internal.h"

#include <cstdint>

struct Where {
    const char *function;
    int line;
};

inline Where here(const char *function = __builtin_FUNCTION(), int line = __builtin_LINE())
{
    return {function, line};
}

// The descriptor: its magic, its state and its flags.

[[INTERNAL]] void check_base_magic(Where where = here());
[[INTERNAL]] bool check_state(uint8_t state, const char *state_name, Where where = here());
[[INTERNAL]] void set_state(uint8_t state, const char *state_name, Where where = here());
[[INTERNAL]] void set_flag(uint8_t flag, const char *flag_name, Where where = here());
[[INTERNAL]] void unset_flag(uint8_t flag, const char *flag_name, Where where = here());

// What was given to the functions of a method.

[[INTERNAL, gnu::cold]] void log_no_body(Where where);
[[INTERNAL, gnu::cold, noreturn]] void stop_for_body_magic(Where where, const void *body, uint32_t magic,
                                                           const char *magic_name);
[[INTERNAL, gnu::cold]] void log_no_server(Where where, const void *user);
[[INTERNAL, gnu::cold]] void log_accept_failed(Where where, const void *user, int32_t status);
[[INTERNAL, gnu::cold]] void log_no_memory_for_body(Where where);
[[INTERNAL, gnu::cold]] void log_no_memory_for_output(Where where);
[[INTERNAL, gnu::cold]] void log_request_not_serialized(Where where, const void *buffer, uint32_t status);
[[INTERNAL, gnu::cold]] void log_response_not_serialized(Where where, const void *buffer, uint32_t status);
[[INTERNAL, gnu::cold]] void log_invalid_parameter(Where where);
[[INTERNAL, gnu::cold]] void log_type_unknown(Where where, uint32_t type);
[[INTERNAL, gnu::cold]] void log_type_unknown_without_line_feed(Where where, uint32_t type);

// One of these is handed to what looks for the response.
[[HIDDEN, gnu::cold]] void log_no_response_to_free(Where where);
[[HIDDEN, gnu::cold]] void log_no_response_to_serialize(Where where);
[[HIDDEN, gnu::cold]] void log_no_response_to_unserialize(Where where);

[[gnu::always_inline]] inline bool check_body_present(const void *body, Where where)
{
    if (!body)
        log_no_body(where);
    return body;
}

[[gnu::always_inline]] inline void check_body_magic(const void *body, uint32_t magic, const char *magic_name,
                                                    Where where)
{
    if (magic_of(body) != magic)
        stop_for_body_magic(where, body, magic, magic_name);
}

#endif
