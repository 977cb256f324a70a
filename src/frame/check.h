// The checks and log lines that several parts of the library share: one function per text.
//
// A line carries the name and source line of the function that found something wrong, not of the function that writes
// the line: each check takes a Where, which defaults to its caller.

#ifndef GORVANET_FRAME_CHECK_H
#define GORVANET_FRAME_CHECK_H

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

void check_base_magic(Where where = here());
bool check_state(uint8_t state, const char *state_name, Where where = here());
void set_state(uint8_t state, const char *state_name, Where where = here());
void set_flag(uint8_t flag, const char *flag_name, Where where = here());
void unset_flag(uint8_t flag, const char *flag_name, Where where = here());

// Bodies, and what the functions of a method were given.

bool check_body_present(const void *body, Where where = here());
void check_body_magic(const void *body, uint32_t magic, const char *magic_name, Where where = here());

[[gnu::cold]] void log_no_server(const void *user, Where where = here());
[[gnu::cold]] void log_accept_failed(const void *user, int32_t status, Where where = here());
[[gnu::cold]] void log_no_memory_for_body(Where where = here());
[[gnu::cold]] void log_no_memory_for_output(Where where = here());
[[gnu::cold]] void log_request_not_serialized(const void *buffer, uint32_t status, Where where = here());
[[gnu::cold]] void log_response_not_serialized(const void *buffer, uint32_t status, Where where = here());
[[gnu::cold]] void log_invalid_parameter(Where where = here());
[[gnu::cold]] void log_type_unknown(uint32_t type, Where where = here());
[[gnu::cold]] void log_type_unknown_without_line_feed(uint32_t type, Where where = here());
[[gnu::cold]] void log_no_response_to_free(Where where = here());
[[gnu::cold]] void log_no_response_to_serialize(Where where = here());
[[gnu::cold]] void log_no_response_to_unserialize(Where where = here());

#endif
