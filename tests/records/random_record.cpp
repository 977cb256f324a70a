#include "random_record.h"

#include <algorithm>
#include <cstring>

using reference::Field;
using reference::Kind;
using reference::Layout;

namespace {

uint32_t elements_of(const Field &field, const char *record, bool used)
{
    if (field.kind != Kind::list)
        return field.kind == Kind::record;
    uint32_t count = 0;
    memcpy(&count, record + field.count, sizeof count);
    return used ? std::min(count, field.capacity) : field.capacity;
}

// Every text of a record and of those inside it.
void collect_texts(const Layout &layout, const char *record, bool used, std::vector<const char *> &texts)
{
    for (const Field &field : layout.fields) {
        if (field.kind == Kind::text)
            texts.push_back(record + field.offset);
        for (uint32_t i = 0; i < elements_of(field, record, used); i++)
            collect_texts(*field.element, record + field.offset + i * field.element->size, used, texts);
    }
}

} // namespace

uint32_t RandomRecords::below(uint32_t limit)
{
    return static_cast<uint32_t>(numbers() % limit);
}

uint32_t RandomRecords::number()
{
    constexpr uint32_t ends[] = {0, 1, 0x7f, 0x80, 0xff, 0x100, 0x7fffffff, 0x80000000, 0xfffffffe, 0xffffffff};
    if (below(3) == 0)
        return ends[below(sizeof ends / sizeof *ends)];
    return below(0x10000) << 16 | below(0x10000);
}

void RandomRecords::fill_bytes(void *record, size_t size)
{
    auto *bytes = static_cast<unsigned char *>(record);
    for (size_t i = 0; i < size; i++)
        bytes[i] = static_cast<unsigned char>(numbers() >> 8);
}

void RandomRecords::fill(const Layout &layout, void *record)
{
    auto *begin = static_cast<char *>(record);
    for (const Field &field : layout.fields) {
        uint32_t value = number();
        if (field.kind == Kind::text)
            fill_text(begin + field.offset, field.capacity);
        else if (!field.element)
            store(field.kind, begin + field.offset, value);
        if (!field.element)
            continue;
        uint32_t elements = field.kind == Kind::list ? field.capacity : 1;
        for (uint32_t i = 0; i < elements; i++)
            fill(*field.element, begin + field.offset + i * field.element->size);
        if (field.kind == Kind::list) {
            value = count(field.capacity);
            memcpy(begin + field.count, &value, sizeof value);
        }
    }
}

const char *RandomRecords::any_text(const Layout &layout, const void *record)
{
    std::vector<const char *> texts;
    collect_texts(layout, static_cast<const char *>(record), false, texts);
    return any_of(texts);
}

const char *RandomRecords::any_used_text(const Layout &layout, const void *record)
{
    std::vector<const char *> texts;
    collect_texts(layout, static_cast<const char *>(record), true, texts);
    return any_of(texts);
}

const char *RandomRecords::any_of(const std::vector<const char *> &texts)
{
    return texts.empty() ? nullptr : texts[below(static_cast<uint32_t>(texts.size()))];
}

void RandomRecords::damage(uint8_t *wire, size_t length)
{
    uint32_t at = below(static_cast<uint32_t>(length / 4)) * 4;
    uint32_t old = uint32_t{wire[at]} << 24 | uint32_t{wire[at + 1]} << 16 | uint32_t{wire[at + 2]} << 8 | wire[at + 3];
    if (below(4) == 0) {
        memset(wire + at, 'x', 1 + below(400));
        return;
    }
    uint32_t values[] = {old + 1, old - 1, old + 4, old - 4, below(24), below(40) * 4, number()};
    Bytes changed = big_endian(values[below(7)]);
    memcpy(wire + at, changed.data(), changed.size());
}

void RandomRecords::fill_text(char *text, uint32_t capacity)
{
    uint32_t lengths[] = {0, below(5), below(capacity), below(capacity), capacity - 1};
    uint32_t length = lengths[below(5)];
    for (uint32_t i = 0; i < length; i++)
        text[i] = static_cast<char>(1 + below(255));
    text[length] = '\0';
}

uint32_t RandomRecords::count(uint32_t capacity)
{
    uint32_t counts[] = {0, 1, 2, below(capacity + 1), capacity, capacity + 1, number()};
    return counts[below(7)];
}
