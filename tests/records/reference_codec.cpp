#include "reference_codec.h"

#include <algorithm>
#include <cstring>

namespace reference {

namespace {

uint32_t number_at(const void *record, size_t offset)
{
    uint32_t number;
    memcpy(&number, static_cast<const char *>(record) + offset, sizeof number);
    return number;
}

uint32_t used_elements(const Field &field, const void *record)
{
    return std::min(number_at(record, field.count), field.capacity);
}

bool in_prologue(uint32_t tag)
{
    return tag < 2;
}

Tags announced_after(uint32_t tag, const Tags &tags)
{
    Tags found;
    std::copy_if(tags.begin(), tags.end(), std::back_inserter(found),
                 [&](uint32_t other) { return other > tag && in_prologue(other) == in_prologue(tag); });
    return found;
}

// Does a failure of this field make its own record announce the later ones?
bool announces_after(const Layout &layout, const Field &field)
{
    bool nested = field.kind == Kind::record || field.kind == Kind::list;
    return !nested || !layout.passes_on_alone;
}

// ---- Encoding -------------------------------------------------------------------------------------------------------

class Encoder {
public:
    Encoder(const void *place, Pretence length_pretence)
        : wire(reinterpret_cast<uintptr_t>(place)), pretence(length_pretence)
    {
    }

    bool encode_record(const Layout &layout, const void *record)
    {
        ExpectedLines own(layout.encoder, reinterpret_cast<const void *>(wire + result.bytes.size()));
        for (const Field &field : layout.fields) {
            if (encode_field(field, record, own))
                continue;
            if (announces_after(layout, field))
                own.before(announced_after(field.tag, layout.encoder_announces));
            const LogLines &lines = own;
            result.lines.insert(result.lines.end(), lines.begin(), lines.end());
            result.status = 4;
            return false;
        }
        return true;
    }

    Encoding result;

private:
    bool encode_field(const Field &field, const void *record, ExpectedLines &lines)
    {
        const auto *at = static_cast<const char *>(record) + field.offset;
        switch (field.kind) {
        case Kind::u8:
            return encode_number(field.tag, *reinterpret_cast<const unsigned char *>(at));
        case Kind::s8:
            return encode_number(field.tag, static_cast<uint32_t>(int32_t{*reinterpret_cast<const int8_t *>(at)}));
        case Kind::u32:
            return encode_number(field.tag, number_at(record, field.offset));
        case Kind::wide:
            return encode_wide(field.tag, number_at(record, field.offset));
        case Kind::version:
            return encode_number(field.tag, field.capacity);
        case Kind::text:
            return encode_text(field.tag, at, lines);
        case Kind::record:
            return encode_record(*field.element, at);
        case Kind::list:
            break;
        }
        for (uint32_t i = 0; i < used_elements(field, record); i++)
            if (!encode_record(*field.element, at + i * field.element->size))
                return false;
        return true;
    }

    bool encode_number(uint32_t tag, uint32_t value)
    {
        append(tag);
        append(4);
        append(value);
        return true;
    }

    bool encode_wide(uint32_t tag, uint32_t value)
    {
        for (uint32_t low_half : {tag, 8u, value}) {
            append(0);
            append(low_half);
        }
        return true;
    }

    bool encode_text(uint32_t tag, const char *text, ExpectedLines &lines)
    {
        uint32_t characters = text == pretence.text ? pretence.length : static_cast<uint32_t>(std::string(text).size());
        uint32_t size = characters + 1;
        uint32_t room = size - size % 4 + 4;
        if (size > room) {
            lines.too_long(static_cast<int>(size), static_cast<int>(room));
            return false;
        }
        append(tag);
        append(room);
        result.bytes.insert(result.bytes.end(), text, text + size);
        result.bytes.resize(result.bytes.size() + room - size);
        return true;
    }

    void append(uint32_t word)
    {
        for (uint32_t weight = 1u << 24; weight; weight >>= 8)
            result.bytes.push_back(static_cast<uint8_t>(word / weight));
    }

    uintptr_t wire; // where it will be; 0 where no line tells
    Pretence pretence;
};

// ---- Decoding -------------------------------------------------------------------------------------------------------

struct LeftWire {};

class Decoder {
public:
    Decoder(const uint8_t *place, size_t place_size) : wire(place), size(place_size)
    {
    }

    // The status of the first field that fails, or 0.
    uint32_t decode_record(const Layout &layout, void *record)
    {
        // Lengths that wrap may have led anywhere: the place is a number before it is an address.
        auto place = reinterpret_cast<uintptr_t>(wire) + result.cursor;
        ExpectedLines own(layout.decoder, reinterpret_cast<const void *>(place));
        for (const Field &field : layout.fields) {
            uint32_t status = decode_field(field, record, own);
            if (!status)
                continue;
            if (announces_after(layout, field))
                own.before(announced_after(field.tag, layout.decoder_announces));
            const LogLines &lines = own;
            result.lines.insert(result.lines.end(), lines.begin(), lines.end());
            return in_prologue(field.tag) ? bad_prologue : status;
        }
        return 0;
    }

    Decoding result;

private:
    static constexpr uint32_t bad_prologue = 2;
    static constexpr uint32_t bad_field = 4;
    static constexpr uint32_t bad_pointer = 12;

    uint32_t decode_field(const Field &field, void *record, ExpectedLines &lines)
    {
        auto *at = static_cast<char *>(record) + field.offset;
        if (field.kind == Kind::record)
            return decode_record(*field.element, at);
        if (field.kind == Kind::list)
            return decode_list(field, record);
        if (field.kind == Kind::wide)
            return decode_wide(field.tag, at, lines);
        uint32_t item = result.cursor;
        if (word_at(item) != field.tag) {
            lines.wrong_tag(word_at(item), word_at(item + 4), field.tag);
            return bad_field;
        }
        if (field.kind == Kind::text) {
            if (!decode_text(field, item + 8, at, lines))
                return bad_field;
        } else if (field.kind == Kind::version) {
            if (word_at(item + 8) % 0x10000 != field.capacity)
                return bad_field;
        } else {
            store(field.kind, at, word_at(item + 8));
        }
        result.cursor = item + 8 + word_at(item + 4);
        return 0;
    }

    uint32_t decode_list(const Field &field, void *record)
    {
        auto *elements = static_cast<char *>(record) + field.offset;
        uint32_t status = 0;
        for (uint32_t i = 0; i < used_elements(field, record) && !status; i++)
            status = decode_record(*field.element, elements + i * field.element->size);
        return status;
    }

    uint32_t decode_wide(uint32_t tag, char *to, ExpectedLines &lines)
    {
        uint32_t item = result.cursor;
        if (wide_word_at(item) != tag) {
            lines.wrong_wide_tag(wide_word_at(item), wide_word_at(item + 8), tag);
            return bad_field;
        }
        uint64_t value = wide_word_at(item + 16);
        if (value > 0xffffffff) {
            lines.bad_pointer(value);
            return bad_pointer;
        }
        store(Kind::u32, to, static_cast<uint32_t>(value));
        result.cursor = item + 16 + word_at(item + 12);
        return 0;
    }

    bool decode_text(const Field &field, uint32_t begin, char *to, ExpectedLines &lines)
    {
        std::string text;
        for (uint32_t at = begin; byte_at(at); at++)
            text.push_back(static_cast<char>(byte_at(at)));
        if (text.size() >= field.capacity) {
            lines.too_long(static_cast<int>(text.size()) + 1, static_cast<int>(field.capacity));
            return false;
        }
        std::copy(text.begin(), text.end(), to);
        to[text.size()] = '\0';
        return true;
    }

    uint8_t byte_at(uint32_t at) const
    {
        if (at >= size)
            throw LeftWire{};
        return wire[at];
    }

    uint32_t word_at(uint32_t at) const
    {
        uint32_t word = 0;
        for (uint32_t i = 0; i < 4; i++)
            word = word * 256 + byte_at(at + i);
        return word;
    }

    uint64_t wide_word_at(uint32_t at) const
    {
        return uint64_t{word_at(at)} << 32 | word_at(at + 4);
    }

    const uint8_t *wire;
    size_t size;
};

void copy_text(char *destination, const char *source, size_t capacity)
{
    size_t characters = 0;
    while (characters < capacity - 1 && source[characters])
        characters++;
    std::fill(std::copy(source, source + characters, destination), destination + capacity, '\0');
}

} // namespace

size_t size_of_number(Kind kind)
{
    switch (kind) {
    case Kind::u8:
    case Kind::s8:
        return 1;
    case Kind::u32:
    case Kind::wide:
        return 4;
    default:
        return 0;
    }
}

Encoding encode(const Layout &layout, const void *record, const void *wire, Pretence pretence)
{
    Encoder encoder(wire, pretence);
    encoder.encode_record(layout, record);
    return encoder.result;
}

Decoding decode(const Layout &layout, const uint8_t *wire, size_t size, void *record)
{
    Decoder decoder(wire, size);
    try {
        decoder.result.status = decoder.decode_record(layout, record);
    } catch (const LeftWire &) {
        decoder.result.leaves_wire = true;
    }
    return decoder.result;
}

void copy(const Layout &layout, void *destination, const void *source)
{
    for (const Field &field : layout.fields) {
        auto *to = static_cast<char *>(destination) + field.offset;
        const auto *from = static_cast<const char *>(source) + field.offset;
        uint32_t elements = field.kind == Kind::list ? used_elements(field, source) : field.kind == Kind::record;
        for (uint32_t i = 0; i < elements; i++)
            copy(*field.element, to + i * field.element->size, from + i * field.element->size);
        if (field.kind == Kind::text)
            copy_text(to, from, field.capacity);
        else if (!field.element)
            memcpy(to, from, size_of_number(field.kind));
    }
}

} // namespace reference
