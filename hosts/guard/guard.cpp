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

uint32_t big_endian_32(const uint8_t *bytes)
{
    return uint32_t{bytes[0]} << 24 | uint32_t{bytes[1]} << 16 | uint32_t{bytes[2]} << 8 | bytes[3];
}

uint64_t big_endian_64(const uint8_t *bytes)
{
    return uint64_t{big_endian_32(bytes)} << 32 | big_endian_32(bytes + number_size);
}

// One pass over the items, in the order in which the decoder reads them. The first refusal sticks: behind it nothing is
// read, and items have no value. Lengths are compared with what is left before they move anything, so nothing wraps.
class Walk {
public:
    explicit Walk(Bytes bytes) : begin_(bytes.data()), next_(begin_), end_(begin_ + bytes.size()), item_(begin_)
    {
    }

    void prologue(const Layout &layout)
    {
        uint32_t magic = number(0, "magic");
        if (magic != layout.magic)
            refuse(Reason::wrong_magic, magic, layout.magic);
        uint32_t version = number(1, "version") & 0xffff;
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
        if (!refused() && next_ < end_) {
            begin_item("");
            refuse(Reason::bytes_left_over, left(), 0);
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

    [[gnu::always_inline]] uint32_t number(uint32_t tag, const char *name)
    {
        const uint8_t *value = item(tag, name, header_size, number_size).value;
        return value ? big_endian_32(value) : 0;
    }

    void wide(const Field &field)
    {
        const uint8_t *value = item(field.tag, field.name, wide_header_size, wide_number_size).value;
        uint64_t pointer = value ? big_endian_64(value) : 0;
        if (pointer > UINT32_MAX)
            refuse(Reason::large_pointer, pointer, UINT32_MAX);
    }

    void text(const Field &field)
    {
        Item item = this->item(field.tag, field.name, header_size, 1);
        if (!item.value)
            return;
        const uint8_t *nul = std::find(item.value, item.value + item.length, 0);
        size_t size = static_cast<size_t>(nul - item.value) + 1;
        if (size > item.length)
            refuse(Reason::endless_text, item.length, 0);
        else if (size > field.capacity)
            refuse(Reason::long_text, size, field.capacity);
    }

    void list(const Field &field)
    {
        uint32_t count = std::min(number(field.tag, field.name), field.capacity);
        for (uint32_t i = 0; i < count && !refused(); i++)
            fields(field.members);
    }

    struct Item {
        const uint8_t *value; // null: refused, now or earlier
        uint32_t length;
    };

    // The next item, which shall have this tag and hold what the decoder reads of it. Inline, or most of the time that a
    // body takes goes into calls.
    [[gnu::always_inline]] Item item(uint32_t tag, const char *name, uint32_t header, uint32_t needed)
    {
        if (refused())
            return {};
        begin_item(name);
        if (left() < header)
            return refuse(Reason::cut_header, left(), header);
        uint64_t found = header == wide_header_size ? big_endian_64(next_) : big_endian_32(next_);
        if (found != tag)
            return refuse(Reason::wrong_tag, found, tag);
        // Of the length of a wide item the low half counts.
        uint32_t length = big_endian_32(next_ + header - number_size);
        if (length > left() - header)
            return refuse(Reason::cut_value, left() - header, length);
        if (length < needed)
            return refuse(Reason::short_value, length, needed);
        const uint8_t *value = next_ + header;
        next_ = value + length;
        return {value, length};
    }

    void begin_item(const char *name)
    {
        item_ = next_;
        name_ = name;
    }

    size_t left() const
    {
        return static_cast<size_t>(end_ - next_);
    }

    bool refused() const
    {
        return !verdict_.sound();
    }

    [[gnu::cold, gnu::noinline]] Item refuse(Reason reason, uint64_t found, uint64_t expected)
    {
        if (!refused())
            verdict_ = {reason, static_cast<uint64_t>(item_ - begin_), name_, found, expected};
        return {};
    }

    const uint8_t *begin_;
    const uint8_t *next_;
    const uint8_t *end_;
    const uint8_t *item_; // the one that is looked at, and its name
    const char *name_ = "";
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
