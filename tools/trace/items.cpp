#include "items.h"

#include <cstring>

namespace trace {

namespace {

constexpr uint32_t header_size = 8;
constexpr uint32_t wide_header_size = 16;
constexpr uint32_t number_size = 4;
constexpr uint32_t wide_number_size = 8;
constexpr uint32_t longest_body = 262144; // longer ones are not recorded

// Follows the decoder through bytes of unknown number. `at` is behind all that belongs to the body so far.
struct Track {
    const uint8_t *start;
    const uint8_t *at;
    bool stopped;
};

void stop(Track &track, uint32_t size)
{
    track.at += size;
    track.stopped = true;
}

// Is this the item that the decoder expects? If not it has read the header and stopped.
bool expect(Track &track, uint32_t tag)
{
    if (!track.stopped && number_in(track.at) != tag)
        stop(track, header_size);
    return !track.stopped;
}

void advance(Track &track, uint32_t header, uint32_t length)
{
    auto done = static_cast<uint32_t>(track.at - track.start);
    if (length > longest_body - header - done)
        return stop(track, header);
    track.at += header + length;
}

uint32_t follow_number(Track &track, uint32_t tag)
{
    if (!expect(track, tag))
        return 0;
    uint32_t value = number_in(track.at + header_size);
    advance(track, header_size, number_in(track.at + 4));
    return value;
}

void follow_text(Track &track, const Field &field)
{
    if (!expect(track, field.tag))
        return;
    auto size = static_cast<uint32_t>(strlen(reinterpret_cast<const char *>(track.at + header_size)) + 1);
    if (size > field.capacity)
        stop(track, header_size + size);
    else
        advance(track, header_size, number_in(track.at + 4));
}

void follow_wide(Track &track, const Field &field)
{
    if (track.stopped)
        return;
    if (wide_number_in(track.at) != field.tag)
        stop(track, wide_header_size);
    else if (wide_number_in(track.at + wide_header_size) > UINT32_MAX)
        stop(track, wide_header_size + wide_number_size);
    else
        advance(track, wide_header_size, number_in(track.at + 12));
}

void follow(Track &track, std::span<const Field> fields)
{
    for (const Field &field : fields) {
        switch (field.kind) {
        case Kind::number:
        case Kind::signed_number:
            follow_number(track, field.tag);
            break;
        case Kind::text:
            follow_text(track, field);
            break;
        case Kind::wide:
            follow_wide(track, field);
            break;
        case Kind::record:
            follow(track, field.members);
            break;
        case Kind::list:
            for (uint32_t left = elements_in(field, follow_number(track, field.tag)); left; left--)
                follow(track, field.members);
            break;
        }
        if (track.stopped)
            return;
    }
}

} // namespace

Bytes decoded_bytes(const Layout &layout, const void *buffer)
{
    const auto *start = static_cast<const uint8_t *>(buffer);
    Track track = {start, start, false};
    follow_number(track, 0);
    uint32_t version = follow_number(track, 1);
    if (!track.stopped && static_cast<uint16_t>(version) == layout.version)
        follow(track, layout.fields);
    return {start, static_cast<uint32_t>(track.at - start)};
}

Value next_value(Items &items, uint64_t tag, uint32_t header, uint32_t needed)
{
    uint32_t left = items.bytes.size - items.position;
    const uint8_t *at = items.bytes.data + items.position;
    items.stopped = items.stopped || left < header;
    if (items.stopped)
        return {};
    uint64_t found = header == wide_header_size ? wide_number_in(at) : number_in(at);
    uint32_t length = number_in(at + header - number_size);
    items.stopped = found != tag || length > left - header || length < needed;
    if (items.stopped)
        return {};
    items.position += header + length;
    return {at + header, length};
}

Value next_value(Items &items, const Field &field)
{
    if (field.kind == Kind::wide)
        return next_value(items, field.tag, wide_header_size, wide_number_size);
    if (field.kind != Kind::text)
        return next_value(items, field.tag, header_size, number_size);
    Items before = items;
    Value text = next_value(items, field.tag, header_size, 1);
    if (!text.data || memchr(text.data, 0, text.size))
        return text;
    items = before;
    items.stopped = true;
    return {};
}

uint32_t number_in(const uint8_t *value)
{
    return uint32_t{value[0]} << 24 | uint32_t{value[1]} << 16 | uint32_t{value[2]} << 8 | uint32_t{value[3]};
}

uint64_t wide_number_in(const uint8_t *value)
{
    return uint64_t{number_in(value)} << 32 | number_in(value + number_size);
}

uint32_t elements_in(const Field &list, uint32_t count)
{
    return count < list.capacity ? count : list.capacity;
}

} // namespace trace
