#include "watch.h"

#include "annotate.h"
#include "gorvanet.h"
#include "screen.h"

#include <algorithm>
#include <cstdio>

namespace demo {

namespace {

Travelled &entry_of(Watch &watch, const std::string &method)
{
    auto found = std::find_if(watch.travelled.begin(), watch.travelled.end(),
                              [&](const Travelled &entry) { return entry.method == method; });
    if (found != watch.travelled.end())
        return *found;
    watch.travelled.push_back({.method = method});
    return watch.travelled.back();
}

void encoded(Watch &watch, const gorvanet_loopback_event &event)
{
    bool is_request = event.direction == GORVANET_BODY_REQUEST;
    std::string name = event.method + std::string(is_request ? " request" : " response");
    std::span<const uint8_t> bytes(static_cast<const uint8_t *>(event.bytes), event.size);
    std::vector<Row> rows = annotate(find_layout(event.method, event.direction), bytes);

    Travelled &entry = entry_of(watch, event.method);
    (is_request ? entry.request_size : entry.response_size) = event.size;
    for (const Row &row : rows)
        entry.damaged += !row.problem.empty();

    if (watch.shows_bytes)
        dump(name, rows, event.size);
    else
        step("bus", name + ", " + std::to_string(event.size) + " bytes");
}

void on_event(void *data, const gorvanet_loopback_event *event)
{
    auto &watch = *static_cast<Watch *>(data);
    switch (event->kind) {
    case GORVANET_LOOPBACK_SENT:
    case GORVANET_LOOPBACK_ANSWERED:
        return encoded(watch, *event);
    case GORVANET_LOOPBACK_DELIVERED:
    case GORVANET_LOOPBACK_NOTIFIED:
        return;
    case GORVANET_LOOPBACK_STATUS:
        watch.unhandled += event->status == 20;
        return failure("answers with status " + std::to_string(event->status) + ": " + event->text);
    case GORVANET_LOOPBACK_UNDELIVERABLE:
        watch.undeliverable++;
        return failure("cannot deliver it: " + std::string(event->text));
    case GORVANET_LOOPBACK_UNENCODABLE:
    case GORVANET_LOOPBACK_UNDECODABLE:
    case GORVANET_LOOPBACK_MISUSE:
        watch.other_failures++;
        return failure(event->text);
    }
}

} // namespace

void observe(Watch &watch)
{
    gorvanet_loopback_observe(on_event, &watch);
}

void show_summary(const Watch &watch)
{
    table_row("bytes of", "request", "response");
    for (const Travelled &entry : watch.travelled)
        table_row(entry.method, std::to_string(entry.request_size),
                  entry.response_size ? std::to_string(entry.response_size) : "-");
}

} // namespace demo
