#include "input.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

using reference::Field;
using reference::Kind;
using reference::Layout;

uint8_t Input::byte()
{
    if (rest_.empty())
        return 0;
    uint8_t first = rest_.front();
    rest_ = rest_.subspan(1);
    return first;
}

uint32_t Input::number()
{
    constexpr uint32_t ends[] = {0,    1,     3,          4,          5,          0x7f,      0x80,
                                 0xff, 0x100, 0x7fffffff, 0x80000000, 0xfffffff8, 0xffffffff};
    uint32_t choice = byte();
    if (choice >= 0x80)
        return choice - 0x80;
    if (choice >= 0x40)
        return ends[choice % std::size(ends)];
    uint32_t value = 0;
    for (int i = 0; i < 4; i++)
        value = value << 8 | byte();
    return value;
}

uint32_t Input::below(uint32_t limit)
{
    uint32_t value = byte();
    if (limit > 0x100)
        value |= uint32_t{byte()} << 8;
    return limit ? value % limit : 0;
}

std::span<const uint8_t> Input::rest()
{
    return std::exchange(rest_, {});
}

void Input::fill(const Layout &layout, uint8_t *record)
{
    for (const Field &field : layout.fields) {
        uint8_t *at = record + field.offset;
        if (!field.element) {
            fill_plain(field, at);
            continue;
        }
        uint32_t elements = 1;
        if (field.kind == Kind::list) {
            uint32_t received = count(field.capacity);
            memcpy(record + field.count, &received, sizeof received);
            elements = std::min(received, field.capacity);
        }
        for (uint32_t i = 0; i < elements; i++)
            fill(*field.element, at + i * field.element->size);
    }
}

// A text costs two bytes of input, whatever its length.
void Input::fill_plain(const Field &field, uint8_t *at)
{
    if (field.kind == Kind::text) {
        uint32_t length = below(field.capacity);
        uint32_t first = byte();
        for (uint32_t i = 0; i < length; i++)
            at[i] = static_cast<uint8_t>(1 + (first + i) % 255);
        return;
    }
    store(field.kind, at, number());
}

uint32_t Input::count(uint32_t capacity)
{
    uint32_t choice = byte();
    return choice < 0xf0 ? choice % (capacity + 1) : capacity + 1 + number() % 0x10000;
}

Bytes Input::image(const model::Body &body)
{
    Bytes image(body.layout.size);
    fill(body.layout, image.data());
    memcpy(image.data(), &body.magic, sizeof body.magic);
    return image;
}

const model::Body &Input::body()
{
    return model::bodies()[byte() % model::bodies().size()];
}
