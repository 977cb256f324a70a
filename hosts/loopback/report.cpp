#include "report.h"

#include <cstdarg>
#include <cstdio>

namespace loopback {

namespace {

gorvanet_loopback_observer *current_observer;
void *observer_data;
bool observing;

const char *present(const char *text)
{
    return text ? text : "";
}

const char *label(const Event &event)
{
    switch (event.kind) {
    case GORVANET_LOOPBACK_STATUS:
        return "answered with status";
    case GORVANET_LOOPBACK_UNDELIVERABLE:
        return "undeliverable";
    case GORVANET_LOOPBACK_UNENCODABLE:
        return "cannot be encoded, status";
    case GORVANET_LOOPBACK_UNDECODABLE:
        return "cannot be decoded, status";
    default:
        return "";
    }
}

void write_to_stderr(const Event &event)
{
    if (event.kind == GORVANET_LOOPBACK_MISUSE) {
        fprintf(stderr, "loopback: misuse: %s\n", event.text);
        return;
    }
    fprintf(stderr, "loopback: message %u, %s from '%s' to '%s': %s", event.message, event.method, event.sender,
            event.receiver, label(event));
    if (event.kind != GORVANET_LOOPBACK_UNDELIVERABLE)
        fprintf(stderr, " %u", event.status);
    if (*event.text)
        fprintf(stderr, ": %s", event.text);
    fputc('\n', stderr);
}

} // namespace

void report(Event event)
{
    event.method = present(event.method);
    event.sender = present(event.sender);
    event.receiver = present(event.receiver);
    event.text = present(event.text);
    if (current_observer && !observing) {
        observing = true;
        current_observer(observer_data, &event);
        observing = false;
    } else if (event.kind >= GORVANET_LOOPBACK_STATUS) {
        write_to_stderr(event);
    }
}

void report_misuse(const char *format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof(text), format, arguments);
    va_end(arguments);
    Event event = {};
    event.kind = GORVANET_LOOPBACK_MISUSE;
    event.text = text;
    report(event);
}

bool in_observer()
{
    return observing;
}

bool refuse_in_observer(const char *caller)
{
    if (observing)
        report_misuse("%s: called from inside the observer", caller);
    return observing;
}

} // namespace loopback

void gorvanet_loopback_observe(gorvanet_loopback_observer *observer, void *data)
{
    loopback::current_observer = observer;
    loopback::observer_data = data;
}
