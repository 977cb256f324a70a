// What the host has to say: to the observer, or, failures only, to stderr.

#ifndef GORVANET_HOSTS_REPORT_H
#define GORVANET_HOSTS_REPORT_H

#include <cstdint>

namespace host {

// The hosts' headers say what each kind means; their kinds have these numbers.
enum class Kind {
    sent,
    delivered,
    answered,
    notified,
    status,
    undeliverable,
    unencodable,
    undecodable,
    misuse,
    bus_lost,
    bus_back
};

struct Event {
    Kind kind;
    uint32_t message;
    const char *method;
    const char *sender;
    const char *receiver;
    uint32_t direction;
    const void *bytes;
    uint32_t size;
    uint32_t status;
    const char *text;
};

using Observer = void(const Event &event);

// The event with the members, and the types, of a host's header.
template <typename PublicEvent> PublicEvent as(const Event &event)
{
    return {.kind = static_cast<decltype(PublicEvent::kind)>(event.kind),
            .message = event.message,
            .method = event.method,
            .sender = event.sender,
            .receiver = event.receiver,
            .direction = event.direction,
            .bytes = event.bytes,
            .size = event.size,
            .status = event.status,
            .text = event.text};
}

// Null: none, and failures, from Kind::status on, go to stderr.
void set_observer(Observer *observer);

// Null texts are replaced by empty ones. What the observer's own calls lead to goes to stderr: it is not called from
// inside itself.
void report(Event event);

[[gnu::format(printf, 1, 2)]] void report_misuse(const char *format, ...);

// A user has lost the bus, cannot use it, or has it back.
void report_bus(Kind kind, const char *user, const char *text);

// The observer is called in the middle of the host's work, so what changes the bus must not be done from there.
bool in_observer();

// True, after a misuse report on behalf of `caller`, inside the observer.
bool refuse_in_observer(const char *caller = __builtin_FUNCTION());

} // namespace host

#endif
