#include "report.h"

#include "transport.h"

#include <cstdarg>
#include <cstdio>

namespace host {

namespace {

Observer *current_observer;
bool observing;

const char *present(const char *text)
{
    return text ? text : "";
}

const char *label(const Event &event)
{
    switch (event.kind) {
    case Kind::status:
        return "answered with status";
    case Kind::undeliverable:
        return "undeliverable";
    case Kind::unencodable:
        return "cannot be encoded, status";
    case Kind::undecodable:
        return "cannot be decoded, status";
    default:
        return "";
    }
}

void write_to_stderr(const Event &event)
{
    if (event.kind == Kind::misuse) {
        fprintf(stderr, "%s: misuse: %s\n", transport::name, event.text);
        return;
    }
    if (event.kind == Kind::bus_lost || event.kind == Kind::bus_back) {
        fprintf(stderr, "%s: user '%s': %s\n", transport::name, event.sender, event.text);
        return;
    }
    fprintf(stderr, "%s: message %u, %s from '%s' to '%s': %s", transport::name, event.message, event.method,
            event.sender, event.receiver, label(event));
    if (event.kind != Kind::undeliverable)
        fprintf(stderr, " %u", event.status);
    if (*event.text)
        fprintf(stderr, ": %s", event.text);
    fputc('\n', stderr);
}

} // namespace

void set_observer(Observer *observer)
{
    current_observer = observer;
}

void report(Event event)
{
    event.method = present(event.method);
    event.sender = present(event.sender);
    event.receiver = present(event.receiver);
    event.text = present(event.text);
    if (current_observer && !observing) {
        observing = true;
        current_observer(event);
        observing = false;
    } else if (event.kind >= Kind::status) {
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
    event.kind = Kind::misuse;
    event.text = text;
    report(event);
}

void report_bus(Kind kind, const char *user, const char *text)
{
    Event event = {};
    event.kind = kind;
    event.sender = user;
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

} // namespace host
