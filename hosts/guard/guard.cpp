#include "guard.h"

#include <algorithm>

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

// The first four or eight of these bytes, which are there.

uint32_t big_endian_32(Bytes bytes)
{
    return uint32_t{bytes[0]} << 24 | uint32_t{bytes[1]} << 16 | uint32_t{bytes[2]} << 8 | bytes[3];
}

uint64_t big_endian_64(Bytes bytes)
{
    return uint64_t{big_endian_32(bytes)} << 32 | big_endian_32(bytes.subspan(number_size));
}

// One pass over the items, in the order in which the decoder reads them. The first refusal sticks: behind it nothing is
// read, and items have no value. Positions and lengths have 64 bits, so that no sum of them wraps.
class Walk {
public:
    explicit Walk(Bytes bytes) : bytes_(bytes)
    {
    }

    void prologue(const Layout &layout)
    {
        uint64_t magic = number(0, "magic");
        if (magic != layout.magic)
            refuse(Reason::wrong_magic, magic, layout.magic);
        uint64_t version = number(1, "version") & 0xffff;
        if (version != layout.version)
            refuse(Reason::wrong_version, version, layout.version);
    }

    void fields(std::span<const Field> fields)
    {
        for (const Field &each : fields)
            field(each);
    }

    Verdict finish()
    {
        if (!refused() && position_ < bytes_.size()) {
            begin_item("");
            refuse(Reason::bytes_left_over, bytes_.size() - position_, 0);
        }
        return verdict_;
    }

private:
    void field(const Field &field)
    {
        switch (field.kind) {
        case Kind::number:
        case Kind::signed_number:
            number(field.tag, field.name);
            return;
        case Kind::wide:
            return wide(field);
        case Kind::text:
            return text(field);
        case Kind::record:
            return fields(field.members);
        case Kind::list:
            return list(field);
        }
    }

    uint64_t number(uint32_t tag, const char *name)
    {
        Bytes value = item(tag, name, header_size, number_size);
        return refused() ? 0 : big_endian_32(value);
    }

    void wide(const Field &field)
    {
        Bytes value = item(field.tag, field.name, wide_header_size, wide_number_size);
        uint64_t pointer = refused() ? 0 : big_endian_64(value);
        if (pointer > UINT32_MAX)
            refuse(Reason::large_pointer, pointer, UINT32_MAX);
    }

    void text(const Field &field)
    {
        Bytes value = item(field.tag, field.name, header_size, 1);
        auto end = std::find(value.begin(), value.end(), 0);
        auto size = static_cast<uint64_t>(end - value.begin()) + 1;
        if (end == value.end())
            refuse(Reason::endless_text, value.size(), 0);
        else if (size > field.capacity)
            refuse(Reason::long_text, size, field.capacity);
    }

    void list(const Field &field)
    {
        uint64_t count = std::min<uint64_t>(number(field.tag, field.name), field.capacity);
        for (uint64_t i = 0; i < count && !refused(); i++)
            fields(field.members);
    }

    // The value of the next item, which shall have this tag and hold what the decoder reads of it.
    Bytes item(uint64_t tag, const char *name, uint32_t header, uint32_t needed)
    {
        if (refused())
            return {};
        begin_item(name);
        Bytes rest = bytes_.subspan(static_cast<size_t>(position_));
        if (rest.size() < header)
            return refuse(Reason::cut_header, rest.size(), header);
        uint64_t found = header == wide_header_size ? big_endian_64(rest) : big_endian_32(rest);
        if (found != tag)
            return refuse(Reason::wrong_tag, found, tag);
        // Of the length of a wide item the low half counts.
        uint32_t length = big_endian_32(rest.subspan(header - number_size));
        uint64_t left = rest.size() - header;
        if (length > left)
            return refuse(Reason::cut_value, left, length);
        if (length < needed)
            return refuse(Reason::short_value, length, needed);
        position_ += header + length;
        return rest.subspan(header, length);
    }

    void begin_item(const char *name)
    {
        verdict_.offset = position_;
        verdict_.field = name;
    }

    bool refused() const
    {
        return !verdict_.sound();
    }

    Bytes refuse(Reason reason, uint64_t found, uint64_t expected)
    {
        if (!refused()) {
            verdict_.reason = reason;
            verdict_.found = found;
            verdict_.expected = expected;
        }
        return {};
    }

    Bytes bytes_;
    uint64_t position_ = 0;
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
    Walk walk(bytes);
    walk.prologue(*layout);
    walk.fields(layout->fields);
    return walk.finish();
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
    std::vector<uint8_t> copy;
    copy.reserve(bytes.size() + tail_size);
    copy.assign(bytes.begin(), bytes.end());
    Verdict verdict = check(which, copy);
    if (!verdict.sound())
        return {verdict, {}};
    copy.resize(copy.size() + tail_size);
    return {verdict, std::move(copy)};
}

} // namespace guard
