#include "guard.h"

#include <algorithm>
#include <cstring>

namespace guard {

namespace {

using layouts::Field;
using layouts::Kind;
using layouts::Layout;

constexpr uint32_t header_size = 8;       // tag and length
constexpr uint32_t wide_header_size = 16; // of 64 bits each
constexpr uint32_t number_size = 4;
constexpr uint32_t wide_number_size = 8;

using Bytes = std::span<const uint8_t>;

uint32_t big_endian_32(const uint8_t *bytes)
{
    return uint32_t{bytes[0]} << 24 | uint32_t{bytes[1]} << 16 | uint32_t{bytes[2]} << 8 | bytes[3];
}

uint64_t big_endian_64(const uint8_t *bytes)
{
    return uint64_t{big_endian_32(bytes)} << 32 | big_endian_32(bytes + number_size);
}

// One pass over the items, in the order in which the decoder reads them. Each step begins at an item and gives the place
// behind what it has read; null once something is refused, and nothing goes on from there. Lengths are compared with
// what is left before they move anything, so nothing wraps.
class Walk {
public:
    using Place = const uint8_t *;

    explicit Walk(Bytes bytes) : begin_(bytes.data()), end_(begin_ + bytes.size())
    {
    }

    Verdict body(const Layout &layout)
    {
        Place next = prologue(begin_, layout);
        if (next)
            next = fields(next, layout.fields);
        if (next && next < end_)
            refuse(next, "", Reason::bytes_left_over, left(next), 0);
        return verdict_;
    }

private:
    Place prologue(Place first, const Layout &layout)
    {
        uint32_t magic = 0;
        Place second = number(first, 0, "magic", magic);
        if (second && magic != layout.magic)
            return refuse(first, "magic", Reason::wrong_magic, magic, layout.magic);
        uint32_t version = 0;
        Place next = second ? number(second, 1, "version", version) : nullptr;
        if (next && (version & 0xffff) != layout.version)
            return refuse(second, "version", Reason::wrong_version, version & 0xffff, layout.version);
        return next;
    }

    Place fields(Place next, std::span<const Field> fields)
    {
        for (const Field &each : fields) {
            if (uint32_t size = usual_size(next, each))
                next += size;
            else
                next = field(next, each);
            if (!next)
                return nullptr;
        }
        return next;
    }

    // Nearly all items are numbers of four bytes, and texts that end in their padding and would fit even with it. Those
    // are known to be sound by this much; all others are looked at with more care. Result: the size of the item, or 0.
    uint32_t usual_size(Place next, const Field &field) const
    {
        size_t left = this->left(next);
        if (left < header_size + number_size || big_endian_32(next) != field.tag)
            return 0;
        uint32_t length = big_endian_32(next + number_size);
        bool is_usual = false;
        if (field.kind == Kind::number || field.kind == Kind::signed_number)
            is_usual = length == number_size;
        else if (field.kind == Kind::text)
            is_usual = length > 0 && length <= std::min(left - header_size, size_t{field.capacity}) &&
                       next[header_size + length - 1] == 0;
        return is_usual ? header_size + length : 0;
    }

    Place field(Place next, const Field &field)
    {
        switch (field.kind) {
        case Kind::number:
        case Kind::signed_number: {
            uint32_t value = 0;
            return number(next, field.tag, field.name, value);
        }
        case Kind::wide:
            return wide(next, field);
        case Kind::text:
            return text(next, field);
        case Kind::record:
            return fields(next, field.members);
        case Kind::list:
            return list(next, field);
        }
        return nullptr;
    }

    Place number(Place next, uint32_t tag, const char *name, uint32_t &found)
    {
        Item number = item(next, tag, name, header_size, number_size);
        if (number.value)
            found = big_endian_32(number.value);
        return number.end();
    }

    Place wide(Place next, const Field &field)
    {
        Item wide = item(next, field.tag, field.name, wide_header_size, wide_number_size);
        uint64_t pointer = wide.value ? big_endian_64(wide.value) : 0;
        if (pointer > UINT32_MAX)
            return refuse(next, field.name, Reason::large_pointer, pointer, UINT32_MAX);
        return wide.end();
    }

    Place text(Place next, const Field &field)
    {
        Item text = item(next, field.tag, field.name, header_size, 1);
        if (!text.value)
            return nullptr;
        const void *nul = memchr(text.value, 0, text.length);
        if (!nul)
            return refuse(next, field.name, Reason::endless_text, text.length, 0);
        auto size = static_cast<size_t>(static_cast<Place>(nul) - text.value) + 1;
        if (size > field.capacity)
            return refuse(next, field.name, Reason::long_text, size, field.capacity);
        return text.end();
    }

    Place list(Place next, const Field &field)
    {
        uint32_t count = 0;
        next = number(next, field.tag, field.name, count);
        for (uint32_t i = 0; next && i < std::min(count, field.capacity); i++)
            next = fields(next, field.members);
        return next;
    }

    struct Item {
        Place value = nullptr; // null: refused
        uint32_t length = 0;

        Place end() const
        {
            return value ? value + length : nullptr;
        }
    };

    // An item that shall have this tag and hold what the decoder reads of it.
    Item item(Place next, uint32_t tag, const char *name, uint32_t header, uint32_t needed)
    {
        if (left(next) < header)
            return refused(next, name, Reason::cut_header, left(next), header);
        uint64_t found = header == wide_header_size ? big_endian_64(next) : big_endian_32(next);
        if (found != tag)
            return refused(next, name, Reason::wrong_tag, found, tag);
        // Of the length of a wide item the low half counts.
        uint32_t length = big_endian_32(next + header - number_size);
        if (length > left(next) - header)
            return refused(next, name, Reason::cut_value, left(next) - header, length);
        if (length < needed)
            return refused(next, name, Reason::short_value, length, needed);
        return {next + header, length};
    }

    size_t left(Place next) const
    {
        return static_cast<size_t>(end_ - next);
    }

    [[gnu::cold]] Place refuse(Place item, const char *name, Reason reason, uint64_t found, uint64_t expected)
    {
        verdict_ = {reason, static_cast<uint64_t>(item - begin_), name, found, expected};
        return nullptr;
    }

    [[gnu::cold]] Item refused(Place item, const char *name, Reason reason, uint64_t found, uint64_t expected)
    {
        refuse(item, name, reason, found, expected);
        return {};
    }

    Place begin_;
    Place end_;
    Verdict verdict_;
};

std::string hexadecimal(uint64_t value)
{
    std::string digits;
    do {
        digits.insert(digits.begin(), "0123456789abcdef"[value % 16]);
        value /= 16;
    } while (value);
    return "0x" + digits;
}

std::string problem(const Verdict &verdict)
{
    std::string found = std::to_string(verdict.found);
    std::string expected = std::to_string(verdict.expected);
    switch (verdict.reason) {
    case Reason::none:
        return "sound";
    case Reason::unknown_body:
        return "there is no such body";
    case Reason::cut_header:
        return "an item begins with " + expected + " bytes, " + found + " are left";
    case Reason::cut_value:
        return expected + " bytes announced, " + found + " are left";
    case Reason::wrong_tag:
        return "tag " + found + ", expected " + expected;
    case Reason::wrong_magic:
        return hexadecimal(verdict.found) + ", expected " + hexadecimal(verdict.expected);
    case Reason::wrong_version:
        return found + ", expected " + expected;
    case Reason::short_value:
        return found + " bytes, at least " + expected + " needed";
    case Reason::large_pointer:
        return hexadecimal(verdict.found) + " does not fit 32 bits";
    case Reason::endless_text:
        return "no NUL in " + found + " bytes";
    case Reason::long_text:
        return found + " bytes with the NUL, " + expected + " fit";
    case Reason::bytes_left_over:
        return found + " bytes left over behind the last item";
    }
    return "";
}

} // namespace

Verdict check(Which which, std::span<const uint8_t> bytes)
{
    const Layout *layout = layouts::find_layout(which.interface, which.index, which.direction);
    if (!layout)
        return {.reason = Reason::unknown_body};
    return Walk(bytes).body(*layout);
}

std::string explain(const Verdict &verdict)
{
    if (verdict.sound() || verdict.reason == Reason::unknown_body)
        return problem(verdict);
    std::string field = *verdict.field ? std::string(", ") + verdict.field : "";
    return "byte " + std::to_string(verdict.offset) + field + ": " + problem(verdict);
}

Admission admit(Which which, std::span<const uint8_t> bytes)
{
    auto copy = std::make_unique_for_overwrite<uint8_t[]>(bytes.size() + tail_size);
    uint8_t *tail = std::copy(bytes.begin(), bytes.end(), copy.get());
    std::fill_n(tail, tail_size, 0);
    Verdict verdict = check(which, {copy.get(), bytes.size()});
    if (!verdict.sound())
        return {verdict, nullptr};
    return {verdict, std::move(copy)};
}

} // namespace guard
