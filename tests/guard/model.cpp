#include "guard/model.h"

#include <algorithm>
#include <cstring>

namespace model {

using reference::Field;
using reference::Kind;
using reference::Layout;

namespace {

uint32_t number_at(const uint8_t *memory)
{
    uint32_t number;
    memcpy(&number, memory, sizeof number);
    return number;
}

uint32_t elements_of(const Field &field, const uint8_t *record)
{
    return field.kind == Kind::list ? std::min(number_at(record + field.count), field.capacity) : 1;
}

// ---- Samples --------------------------------------------------------------------------------------------------------

class Sampler {
public:
    Sampler(uint32_t text_length, uint32_t count) : text_length_(text_length), count_(count)
    {
    }

    void record(const Layout &layout, uint8_t *record)
    {
        for (const Field &each : layout.fields)
            if (!each.element)
                plain(each, record + each.offset);
        for (const Field &each : layout.fields)
            if (each.element)
                nested(each, record);
    }

private:
    void plain(const Field &field, uint8_t *at)
    {
        if (field.kind == Kind::text) {
            uint32_t length = std::min(text_length_, field.capacity - 1);
            for (uint32_t i = 0; i < length; i++)
                at[i] = static_cast<uint8_t>('a' + (last_++ % 26));
            return;
        }
        store(field.kind, at, 0x81020304 + 0x01010101 * last_++);
    }

    void nested(const Field &field, uint8_t *record)
    {
        if (field.kind == Kind::list)
            memcpy(record + field.count, &count_, sizeof count_);
        for (uint32_t i = 0; i < elements_of(field, record); i++)
            this->record(*field.element, record + field.offset + i * field.element->size);
    }

    uint32_t text_length_;
    uint32_t count_;
    uint32_t last_ = 0;
};

// ---- Encoding -------------------------------------------------------------------------------------------------------

class Encoder {
public:
    explicit Encoder(const Body &body) : body_(body)
    {
    }

    Bytes encode(const Bytes &image)
    {
        number(0, body_.magic);
        number(1, body_.version);
        record(body_.layout, image.data(), body_.wide_tag);
        return std::move(bytes_);
    }

private:
    void record(const Layout &layout, const uint8_t *record, uint32_t wide_tag = 0)
    {
        for (const Field &each : layout.fields) {
            if (wide_tag && each.tag == wide_tag)
                wide(each.tag, number_at(record + each.offset));
            else
                field(each, record);
        }
    }

    void field(const Field &field, const uint8_t *record)
    {
        const uint8_t *at = record + field.offset;
        switch (field.kind) {
        case Kind::u8:
            return number(field.tag, *at);
        case Kind::s8:
            return number(field.tag, uint32_t{*at} | (*at < 0x80 ? 0 : 0xffffff00));
        case Kind::u32:
            return number(field.tag, number_at(at));
        case Kind::text:
            return text(field.tag, at);
        default:
            break;
        }
        for (uint32_t i = 0; i < elements_of(field, record); i++)
            this->record(*field.element, at + i * field.element->size);
    }

    void number(uint32_t tag, uint32_t value)
    {
        word(tag);
        word(4);
        word(value);
    }

    void wide(uint32_t tag, uint32_t value)
    {
        for (uint32_t low_half : {tag, 8u, value}) {
            word(0);
            word(low_half);
        }
    }

    // The NUL is followed by one to four zero bytes, so that the length is a multiple of 4.
    void text(uint32_t tag, const uint8_t *text)
    {
        const auto *end = static_cast<const uint8_t *>(memchr(text, 0, 256));
        auto length = static_cast<uint32_t>(end - text);
        uint32_t zeros = 5 - (length + 1) % 4;
        word(tag);
        word(length + zeros);
        bytes_.insert(bytes_.end(), text, end);
        bytes_.insert(bytes_.end(), zeros, 0);
    }

    void word(uint32_t value)
    {
        for (uint32_t shift : {24u, 16u, 8u, 0u})
            bytes_.push_back(static_cast<uint8_t>(value >> shift));
    }

    const Body &body_;
    Bytes bytes_;
};

// ---- Decoding -------------------------------------------------------------------------------------------------------

constexpr int32_t bad_prologue = 2;
constexpr int32_t bad_field = 4;
constexpr int32_t bad_pointer = 12;

// Each step gives false when nothing more is read. Positions wrap at 32 bits, as the library's do. The length of an
// item is read even if its tag is wrong: the log shows it.
class Decoder {
public:
    Decoder(const Body &body, std::span<const uint8_t> bytes) : body_(body), bytes_(bytes)
    {
        result.image.assign(body.layout.size, 0);
    }

    void decode()
    {
        uint8_t *magic = result.image.data();
        uint32_t version = 0;
        if (!number(0, Kind::u32, magic) || !number(1, Kind::u32, reinterpret_cast<uint8_t *>(&version))) {
            result.status = bad_prologue;
        } else if (version % 0x10000 != body_.version) {
            result.status = bad_prologue;
            result.silent = true;
        } else {
            record(body_.layout, result.image.data(), body_.wide_tag);
        }
    }

    Decoding result;

private:
    bool record(const Layout &layout, uint8_t *record, uint32_t wide_tag = 0)
    {
        return std::all_of(layout.fields.begin(), layout.fields.end(), [&](const Field &each) {
            bool is_wide = wide_tag && each.tag == wide_tag;
            return is_wide ? wide(each.tag, record + each.offset) : field(each, record);
        });
    }

    bool field(const Field &field, uint8_t *record)
    {
        uint8_t *at = record + field.offset;
        if (field.kind == Kind::text)
            return text(field, at);
        if (!field.element)
            return number(field.tag, field.kind, at);
        for (uint32_t i = 0; i < elements_of(field, record); i++)
            if (!this->record(*field.element, at + i * field.element->size))
                return false;
        return true;
    }

    bool number(uint32_t tag, Kind kind, uint8_t *to)
    {
        uint32_t length = word(at_ + 4);
        if (!expect(word(at_) == tag))
            return false;
        store(kind, to, word(at_ + 8));
        return next({.offset = at_, .header = 8, .length = length, .needed = 4, .capacity = 4});
    }

    bool wide(uint32_t tag, uint8_t *to)
    {
        uint32_t length = word(at_ + 12);
        if (!expect(word(at_) == 0 && word(at_ + 4) == tag))
            return false;
        if (!expect(word(at_ + 16) == 0, bad_pointer))
            return false;
        uint32_t value = word(at_ + 20);
        memcpy(to, &value, sizeof value);
        return next({.offset = at_, .header = 16, .length = length, .needed = 8, .capacity = 8});
    }

    bool text(const Field &field, uint8_t *to)
    {
        uint32_t length = word(at_ + 4);
        if (!expect(word(at_) == field.tag))
            return false;
        uint32_t size = 1;
        while (byte(at_ + 8 + size - 1))
            size++;
        if (!expect(size <= field.capacity))
            return false;
        memcpy(to, bytes_.data() + at_ + 8, size);
        return next({.offset = at_,
                     .header = 8,
                     .length = length,
                     .needed = size,
                     .capacity = field.capacity,
                     .is_text = true});
    }

    bool expect(bool holds, int32_t status = bad_field)
    {
        if (!holds)
            result.status = status;
        return holds && !result.leaves;
    }

    bool next(const Item &item)
    {
        result.items.push_back(item);
        at_ += item.header + item.length;
        return !result.leaves;
    }

    // Zero from where the bytes end, which ends a text.
    uint8_t byte(uint32_t at)
    {
        result.leaves |= at >= bytes_.size();
        return result.leaves ? 0 : bytes_[at];
    }

    uint32_t word(uint32_t at)
    {
        uint32_t value = 0;
        for (uint32_t i = 0; i < 4; i++)
            value = value << 8 | byte(at + i);
        return value;
    }

    const Body &body_;
    std::span<const uint8_t> bytes_;
    uint32_t at_ = 0;
};

} // namespace

const gorvaNet_method &Body::row() const
{
    return is_notification ? gorvaNet_base.ntfyMethods[index] : gorvaNet_base.cmdMethods[index];
}

Bytes sample(const Body &body, uint32_t text_length, uint32_t count)
{
    Bytes image(body.layout.size);
    Sampler(text_length, count).record(body.layout, image.data());
    memcpy(image.data(), &body.magic, sizeof body.magic);
    return image;
}

Bytes encode(const Body &body, const Bytes &image)
{
    return Encoder(body).encode(image);
}

Decoding decode(const Body &body, std::span<const uint8_t> bytes)
{
    Decoder decoder(body, bytes);
    decoder.decode();
    return std::move(decoder.result);
}

bool well_formed(const Body &body, std::span<const uint8_t> bytes)
{
    Decoding decoding = decode(body, bytes);
    if (decoding.leaves || decoding.status || number_at(decoding.image.data()) != body.magic)
        return false;
    uint64_t end = 0;
    for (const Item &item : decoding.items) {
        if (item.offset != end || item.length < item.needed)
            return false;
        end += uint64_t{item.header} + item.length;
    }
    return end == bytes.size();
}

} // namespace model
