#include "trace.h"

#include "record.h"

#include <cerrno>
#include <cstring>
#include <pthread.h>
#include <unistd.h>

namespace trace {

namespace {

// ---- What is known of messages that are on their way ----------------------------------------------------------------

// The oldest entry makes room for the newest: what is forgotten is recorded without name and number.
constexpr uint32_t remembered = 256;
constexpr uint32_t longest_user = 255;

struct Known {
    const void *key;
    uint32_t number;
    Method method;
    char user[longest_user + 1];
};

struct Memory {
    Known entries[remembered];
    uint32_t next;
};

Memory bodies;   // by body: those that leave, and requests that have arrived
Memory messages; // by the bus's message: requests that have arrived

// The requests of a command that await their response here. With more than one, nobody here can tell which of them a
// response answers: it is recorded without number until all have been answered.
struct Awaited {
    uint32_t count;
    bool is_ambiguous;
    uint32_t number;
    char user[longest_user + 1];
};

Awaited awaited[GORVANET_COUNT_CMD];

pthread_mutex_t lock = PTHREAD_MUTEX_INITIALIZER;

// What the tracer does for itself: one at a time, and errno stays as the process has it.
class Aside {
public:
    Aside() : error_(errno)
    {
        pthread_mutex_lock(&lock);
    }
    ~Aside()
    {
        pthread_mutex_unlock(&lock);
        errno = error_;
    }
    Aside(const Aside &) = delete;
    Aside &operator=(const Aside &) = delete;

private:
    int error_;
};

void copy_user(char (&to)[longest_user + 1], const char *user)
{
    strncpy(to, user, longest_user);
}

// Unlike those of other processes that write to the same file, as long as their ids differ by less than 4000.
uint32_t next_number()
{
    static uint32_t last;
    last = last % (numbers_of_a_process - 1) + 1;
    return static_cast<uint32_t>(getpid()) % 4000 * numbers_of_a_process + last;
}

Known *find(Memory &memory, const void *key)
{
    for (Known &entry : memory.entries)
        if (key && entry.key == key)
            return &entry;
    return nullptr;
}

void remember(Memory &memory, const void *key, uint32_t number, Method method, const char *user)
{
    Known *entry = find(memory, key);
    if (!entry)
        entry = &memory.entries[memory.next++ % remembered];
    entry->key = key;
    entry->number = number;
    entry->method = method;
    copy_user(entry->user, user);
}

void await(uint16_t method, uint32_t number, const char *user)
{
    if (method >= GORVANET_COUNT_CMD)
        return;
    Awaited &entry = awaited[method];
    entry.is_ambiguous = entry.count++ > 0 || entry.is_ambiguous;
    entry.number = number;
    copy_user(entry.user, user);
}

// ---- Messages -------------------------------------------------------------------------------------------------------

const Layout *layout_of(Method method, uint32_t type)
{
    return layouts::find_layout(method.interface, method.index, type);
}

Direction direction_of(Method method, uint32_t type)
{
    if (method.interface == layouts::Interface::notification)
        return Direction::notification;
    return type == layouts::request ? Direction::request : Direction::response;
}

Message new_message(Side side, Method method, uint32_t type)
{
    Message message = {};
    clock_gettime(CLOCK_REALTIME, &message.time);
    message.side = side;
    message.direction = direction_of(method, type);
    message.method = method;
    message.name = layout_of(method, layouts::request)->method;
    message.user = "";
    message.is_handled = true;
    return message;
}

// The bodies end here: others may come to lie at the same address.
void forget(Known *known)
{
    if (known)
        known->key = nullptr;
}

// Of a response that has arrived.
void find_request(Message &message)
{
    Awaited &entry = awaited[message.method.index];
    if (!entry.count)
        return;
    if (!entry.is_ambiguous) {
        message.number = entry.number;
        message.user = entry.user;
    }
    if (--entry.count == 0)
        entry.is_ambiguous = false;
}

} // namespace

uint32_t serialize(Method method, gorvaNet_serializeBody *real, uint32_t type, const void *body, void **buffer,
                   uint32_t *size)
{
    uint32_t status = real(type, body, buffer, size);
    Aside aside;
    if (!layout_of(method, type))
        return status;
    Message message = new_message(Side::sent, method, type);
    message.status = status;
    if (!status)
        message.body = {static_cast<const uint8_t *>(*buffer), *size};
    Known *known = find(bodies, body);
    if (known) {
        message.number = known->number;
        message.user = known->user;
    }
    record(message);
    forget(known);
    return status;
}

int32_t unserialize(Method method, gorvaNet_unserializeBody *real, uint32_t type, const void *buffer, void **body,
                    uint32_t *size)
{
    constexpr int32_t no_memory = 5; // before the first byte was read
    int32_t status = real(type, buffer, body, size);
    Aside aside;
    const Layout *layout = layout_of(method, type);
    if (!layout)
        return status;
    Message message = new_message(Side::received, method, type);
    message.status = static_cast<uint32_t>(status);
    if (status != no_memory)
        message.body = decoded_bytes(*layout, buffer);
    if (message.direction == Direction::response)
        find_request(message);
    else if (message.direction == Direction::request)
        message.number = next_number();
    record(message);
    if (message.direction == Direction::request && !status)
        remember(bodies, *body, message.number, method, "");
    return status;
}

void receive(Method method, gorvaNet_recvReq *real, void *message, void *body, gorvaNet_function *handler, void *data)
{
    {
        Aside aside;
        Known *known = find(bodies, body);
        if (known && method.interface == layouts::Interface::command)
            remember(messages, message, known->number, method, "");
        forget(known);
    }
    real(message, body, handler, data);
}

void request_leaves(uint16_t method, const void *body, const char *server, bool awaits_response)
{
    Aside aside;
    uint32_t number = next_number();
    remember(bodies, body, number, command(method), server);
    if (awaits_response)
        await(method, number, server);
}

void response_leaves(const void *message, const void *body)
{
    Aside aside;
    Known *known = find(messages, message);
    if (!known)
        return;
    remember(bodies, body, known->number, known->method, "");
    forget(known);
}

void nobody_handles(const void *message)
{
    Aside aside;
    Known *known = find(messages, message);
    if (!known)
        return;
    Message answer = new_message(Side::sent, known->method, layouts::response);
    answer.number = known->number;
    answer.is_handled = false;
    record(answer);
    forget(known);
}

} // namespace trace
