#include "method.h"

#include <cstdlib>

namespace {

constexpr uint32_t ok = 0;
constexpr uint32_t unknown_type = 1;
constexpr uint32_t bad_prologue = 2;
constexpr uint32_t no_memory = 5;

// Up to here, malloc and clearing take a fraction of calloc's time: the C library hands out a small block as it came back.
constexpr uint32_t small_block = 512;

void clear_word(uint8_t *at)
{
    const uint32_t zero = 0;
    __builtin_memcpy(at, &zero, sizeof zero);
}

void clear_two_words(uint8_t *at)
{
    clear_word(at);
    clear_word(at + 4);
}

// Zeroed memory of at least 8 bytes, or null. From the end; what is cleared last may overlap.
void *allocate(uint32_t size)
{
    if (size > small_block)
        return calloc(1, size);
    auto *bytes = static_cast<uint8_t *>(malloc(size));
    if (!bytes)
        return nullptr;
    for (uint32_t end = size; end > 8; end -= 8)
        clear_two_words(bytes + end - 8);
    clear_two_words(bytes);
    return bytes;
}

void release(const BodyKind &kind, void *body)
{
    kind.clean(body);
    // Compilers drop a store before free(3) unless it is volatile; whoever still holds the body shall find this.
    *static_cast<volatile uint32_t *>(body) = GORVANET_MAGIC_FREE;
    free(body);
}

// Requests and the two others check flag and magic in different order, and only a request may be null: kept for
// compatibility.

void free_request(const Method &method, void *body)
{
    if (!check_body_present(body, here(method.request.free_name)))
        return;
    check_body_magic(body, method.magic, method.magic_name, here(method.request.free_name));
    if (!flag_of(body))
        release(method.request, body);
}

void free_response_or_notification(const Method &method, const BodyKind &kind, void *body)
{
    if (flag_of(body))
        return;
    check_body_magic(body, method.magic, method.magic_name, here(kind.free_name));
    release(kind, body);
}

// The body of this direction, or null after a log line.
const BodyKind *known_kind(const Method &method, uint32_t type, void (*log_no_response)(Where), Where where)
{
    if (type == GORVANET_BODY_REQUEST)
        return &method.request;
    if (type != GORVANET_BODY_RESPONSE) {
        log_type_unknown(where, type);
        return nullptr;
    }
    if (!method.response.size) {
        log_no_response(where);
        return nullptr;
    }
    return &method.response;
}

void put_prologue(Writer &out, const Method &method)
{
    put_u32(out, 0, method.magic);
    put_u32(out, 1, method.version);
}

// Takes the magic over as it comes: the receive functions check it. Of the version the low 16 bits count.
uint32_t get_prologue(Reader &in, const Method &method, void *body)
{
    uint32_t version = 0;
    get_u32(in, 0, magic_of(body));
    get_u32(in, 1, version);
    if (in.status || static_cast<uint16_t>(version) != method.version)
        return bad_prologue;
    return ok;
}

uint32_t decode(const Method &method, const BodyKind &kind, const uint8_t *buffer, void *body)
{
    Reader in = open_reader(&buffer, kind.unserialize_name);
    uint32_t status = get_prologue(in, method, body);
    if (status)
        return status;
    kind.get(in, body);
    return in.status;
}

bool check_body(const Method &method, const void *body, Where where)
{
    if (!check_body_present(body, where))
        return false;
    check_body_magic(body, method.magic, method.magic_name, where);
    return true;
}

// Without a function to take it, answers the message (or request context) at once: nobody handles it.
bool is_handled(void *message, void *body, gorvaNet_function *function)
{
    if (!function)
        zebCore_sendMsgRes(message, body, answer_unhandled_message, send_options);
    return function;
}

} // namespace

void *allocate_request(const Method &method, Where where, const void *user, const char *server)
{
    if (!server) {
        log_no_server(where, user);
        return nullptr;
    }
    return allocate_body(method, method.request, where);
}

void *allocate_response(const Method &method, Where where, void *message)
{
    if (zebCore_isMsg_needRes(message) != 0)
        return nullptr;
    return allocate_body(method, method.response, where);
}

void *allocate_body(const Method &method, const BodyKind &kind, Where where)
{
    void *body = allocate(kind.size);
    if (!body) {
        log_no_memory_for_body(where);
        return nullptr;
    }
    magic_of(body) = method.magic;
    return body;
}

uint32_t send_request(const Method &method, void *user, void *body, Receiver *receiver, gorvaNet_function *callback,
                      void *pass1, void *pass2, const char *server)
{
    void *core_user = zebIntf_getCore_user(user);
    return zebCore_sendMsgReq_toNameUser(core_user, body, callback ? receiver : nullptr, callback, pass1, pass2, server,
                                         gorvaNet_base.cmd.num, method.index, any_number, send_options);
}

uint32_t send_one_way(const Method &method, void *user, void *body, void *pass, const char *server)
{
    return send_request(method, user, body, nullptr, nullptr, nullptr, pass, server);
}

void send_response(void *message, void *body)
{
    zebCore_sendMsgRes(message, body, answer_normal, send_options);
}

void *check_request(const Method &method, Where where, void *message, void *body, gorvaNet_function *function)
{
    return check_body(method, body, where) && is_handled(message, body, function) ? body : nullptr;
}

void *check_response(const Method &method, Where where, RequestContext *context, void *body)
{
    return check_body(method, body, where) && is_handled(context, body, context->callback) ? body : nullptr;
}

int32_t accept_as(const Method &method, Where where, void *user, gorvaNet_function *handler, void *data, void *value3)
{
    int32_t status = zebIntf_modSrv_mthd(user, handler, data, value3, method.accept_magic, gorvaNet_base.name,
                                         &gorvaNet_base.cmd, &gorvaNet_base.ntfy, method.index, any_number, any_number);
    if (status)
        log_accept_failed(where, user, status);
    return status;
}

void free_as(const Method &method, Where where, uint32_t type, void *body)
{
    if (type == GORVANET_BODY_REQUEST)
        free_request(method, body);
    else if (type != GORVANET_BODY_RESPONSE)
        log_type_unknown_without_line_feed(where, type);
    else if (!method.response.size)
        log_no_response_to_free(where);
    else
        free_response_or_notification(method, method.response, body);
}

void free_notification_as(const Method &method, Where where, uint32_t type, void *body)
{
    if (type == GORVANET_BODY_REQUEST)
        free_response_or_notification(method, method.request, body);
    else
        free_as(method, where, type, body);
}

uint32_t serialize_as(const Method &method, Where where, uint32_t type, const void *body, void **buffer, uint32_t *size)
{
    const BodyKind *kind = known_kind(method, type, log_no_response_to_serialize, where);
    if (!kind)
        return unknown_type;
    if (!check_body_present(body, here(kind->serialize_name)))
        return bad_field;
    check_body_magic(body, method.magic, method.magic_name, here(kind->serialize_name));
    uint32_t length = prologue_size + kind->length(body);
    auto *encoded = static_cast<uint8_t *>(allocate(length));
    if (!encoded) {
        log_no_memory_for_output(here(kind->serialize_name));
        return no_memory;
    }
    uint8_t *cursor = encoded;
    Writer out = open_writer(&cursor, kind->serialize_name);
    put_prologue(out, method);
    kind->put(out, body);
    if (out.status) {
        // The buffer is neither handed out nor released: kept for compatibility.
        if (type == GORVANET_BODY_REQUEST)
            log_request_not_serialized(here(kind->serialize_name), encoded, out.status);
        else
            log_response_not_serialized(here(kind->serialize_name), encoded, out.status);
        return out.status;
    }
    *buffer = encoded;
    *size = length;
    return ok;
}

int32_t unserialize_as(const Method &method, Where where, uint32_t type, const void *buffer, void **body,
                       uint32_t *size)
{
    const BodyKind *kind = known_kind(method, type, log_no_response_to_unserialize, where);
    if (!kind)
        return unknown_type;
    void *decoded = allocate(kind->size);
    if (!decoded) {
        log_no_memory_for_body(here(kind->unserialize_name));
        return no_memory;
    }
    uint32_t status = decode(method, *kind, static_cast<const uint8_t *>(buffer), decoded);
    if (status) {
        free(decoded);
        return static_cast<int32_t>(status);
    }
    *body = decoded;
    *size = kind->size;
    return ok;
}

// Bodies have no text of their own. What the allocation gives is stored even when it is null.
void log_body_as(Where where, char **text)
{
    if (!text) {
        log_invalid_parameter(where);
        return;
    }
    *text = static_cast<char *>(calloc(1, 1));
    if (!*text)
        log_no_memory_for_output(where);
}
