// The road that every method travels, once: what a method's source does not say is here.
//
// A method is a constant table of what is its own: its numbers, and for each direction the body's size in memory, its
// fields on the wire and the names its callbacks log under. A direction without a body is left empty.

#ifndef GORVANET_COMMANDS_METHOD_H
#define GORVANET_COMMANDS_METHOD_H

#include "../frame/body.h"
#include "../frame/check.h"
#include "../frame/internal.h"
#include "../frame/middleware.h"
#include "../records/tlv.h"
#include "gorvanet.h"

#include <cstddef>

// Every encoded body opens with two numbers: tag 0, the body's magic; tag 1, the method's version.
constexpr uint32_t prologue_size = 2 * number_item;

// One direction of a method.
struct BodyKind {
    uint32_t size; // of the body in memory; 0: there is no such body
    [[IN_REGISTERS]] uint32_t (*length)(const void *body);
    [[IN_REGISTERS]] void (*put)(Writer &out, const void *body);
    [[IN_REGISTERS]] void (*get)(Reader &in, void *body);
    [[IN_REGISTERS]] void (*clean)(void *body);
    const char *free_name;
    const char *serialize_name;
    const char *unserialize_name;
};

struct Method {
    uint32_t index;
    uint32_t magic;
    const char *magic_name;
    uint32_t accept_magic;
    uint16_t version;
    BodyKind request;
    BodyKind response;
};

// What a body without fields, or without a nested record, gives.

template <typename Body> uint32_t no_length(const Body &)
{
    return 0;
}

template <typename Body> void put_nothing(Writer &, const Body &)
{
}

template <typename Body> void get_nothing(Reader &, Body &)
{
}

template <typename Body> void clean_nothing(Body &)
{
}

// The functions of a body, for those who do not know its type.

template <typename Body, uint32_t (*Length)(const Body &)> [[IN_REGISTERS]] uint32_t length_body(const void *body)
{
    return Length(*static_cast<const Body *>(body));
}

template <typename Body, void (*Put)(Writer &, const Body &)>
[[IN_REGISTERS]] void put_body(Writer &out, const void *body)
{
    Put(out, *static_cast<const Body *>(body));
}

template <typename Body, void (*Get)(Reader &, Body &)> [[IN_REGISTERS]] void get_body(Reader &in, void *body)
{
    Get(in, *static_cast<Body *>(body));
}

template <typename Body, void (*Clean)(Body &)> [[IN_REGISTERS]] void clean_body(void *body)
{
    Clean(*static_cast<Body *>(body));
}

// Closes over the type of a body: the encoded length of its fields, and the fields in both directions.
template <typename Body, uint32_t (*Length)(const Body &) = no_length<Body>,
          void (*Put)(Writer &, const Body &) = put_nothing<Body>, void (*Get)(Reader &, Body &) = get_nothing<Body>,
          void (*Clean)(Body &) = clean_nothing<Body>>
constexpr BodyKind body_kind(const char *free_name, const char *serialize_name, const char *unserialize_name)
{
    static_assert(offsetof(Body, magic) == 0 && offsetof(Body, flag) == flag_offset);
    return {
        .size = sizeof(Body),
        .length = length_body<Body, Length>,
        .put = put_body<Body, Put>,
        .get = get_body<Body, Get>,
        .clean = clean_body<Body, Clean>,
        .free_name = free_name,
        .serialize_name = serialize_name,
        .unserialize_name = unserialize_name,
    };
}

// Handlers and callbacks travel as one generic type.
template <typename Function> gorvaNet_function *plain(Function *function)
{
    return reinterpret_cast<gorvaNet_function *>(function);
}

// Where a function below takes its method and a Where first, these travel in registers, and what its caller was given
// stays where it is: most of the callbacks are a jump to it.

// ---- Client and server ----------------------------------------------------------------------------------------------

// A new body of the method, zeroed, with its magic; or null: without a server to send to, for a message that wants no
// response, or without memory. All but the second are logged.

[[INTERNAL]] void *allocate_request(const Method &method, Where where, const void *user, const char *server);
[[INTERNAL]] void *allocate_response(const Method &method, Where where, void *message);
[[INTERNAL]] void *allocate_body(const Method &method, const BodyKind &kind, Where where);

template <typename Body>
Body *new_request(const Method &method, const void *user, const char *server, Where where = here())
{
    return static_cast<Body *>(allocate_request(method, where, user, server));
}

template <typename Body> Body *new_response(const Method &method, void *message, Where where = here())
{
    return static_cast<Body *>(allocate_response(method, where, message));
}

template <typename Body> Body *new_notification(const Method &method, Where where = here())
{
    return static_cast<Body *>(allocate_body(method, method.request, where));
}

// The middleware owns the body from here on, on a failed send too.
[[HIDDEN]] uint32_t send_request(const Method &method, void *user, void *body, Receiver *receiver,
                                 gorvaNet_function *callback, void *pass1, void *pass2, const char *server);

// Of a method without response.
[[HIDDEN]] uint32_t send_one_way(const Method &method, void *user, void *body, void *pass, const char *server);
[[INTERNAL]] void send_response(void *message, void *body);

// The body that was received, for `function` to take; or null: without a body, which is logged, or without a function,
// and then the message (or request context) is answered at once, since nobody handles it. A foreign magic aborts. The
// context of a response is looked at last.
[[INTERNAL]] void *check_request(const Method &method, Where where, void *message, void *body,
                                 gorvaNet_function *function);
[[INTERNAL]] void *check_response(const Method &method, Where where, RequestContext *context, void *body);

template <typename Body>
Body *received_request(const Method &method, void *message, void *body, gorvaNet_function *function,
                       Where where = here())
{
    return static_cast<Body *>(check_request(method, where, message, body, function));
}

template <typename Body>
Body *received_response(const Method &method, RequestContext *context, void *body, Where where = here())
{
    return static_cast<Body *>(check_response(method, where, context, body));
}

[[INTERNAL]] int32_t accept_as(const Method &method, Where where, void *user, gorvaNet_function *handler, void *data,
                               void *value3);

inline int32_t accept(const Method &method, void *user, gorvaNet_function *handler, void *data, void *value3,
                      Where where = here())
{
    return accept_as(method, where, user, handler, data, value3);
}

// ---- Body callbacks -------------------------------------------------------------------------------------------------

[[INTERNAL]] void free_as(const Method &method, Where where, uint32_t type, void *body);
[[INTERNAL]] void free_notification_as(const Method &method, Where where, uint32_t type, void *body);
[[INTERNAL]] uint32_t serialize_as(const Method &method, Where where, uint32_t type, const void *body, void **buffer,
                                   uint32_t *size);
[[INTERNAL]] int32_t unserialize_as(const Method &method, Where where, uint32_t type, const void *buffer, void **body,
                                    uint32_t *size);
[[INTERNAL]] void log_body_as(Where where, char **text);

inline void free_body(const Method &method, uint32_t type, void *body, Where where = here())
{
    free_as(method, where, type, body);
}

inline void free_notification(const Method &method, uint32_t type, void *body, Where where = here())
{
    free_notification_as(method, where, type, body);
}

inline uint32_t serialize_body(const Method &method, uint32_t type, const void *body, void **buffer, uint32_t *size,
                               Where where = here())
{
    return serialize_as(method, where, type, body, buffer, size);
}

inline int32_t unserialize_body(const Method &method, uint32_t type, const void *buffer, void **body, uint32_t *size,
                                Where where = here())
{
    return unserialize_as(method, where, type, buffer, body, size);
}

inline void log_body(char **text, Where where = here())
{
    log_body_as(where, text);
}

#endif
