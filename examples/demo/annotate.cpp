#include "annotate.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

namespace demo {

namespace {

constexpr size_t header_size = 8;
constexpr size_t wide_header_size = 16;
constexpr size_t number_size = 4;

[[gnu::format(printf, 1, 2)]] std::string format(const char *pattern, ...)
{
    char line[200];
    va_list arguments;
    va_start(arguments, pattern);
    vsnprintf(line, sizeof(line), pattern, arguments);
    va_end(arguments);
    return line;
}

unsigned long long wide_argument(uint64_t value)
{
    return value;
}

uint64_t big_endian(std::span<const uint8_t> bytes)
{
    uint64_t value = 0;
    for (uint8_t byte : bytes)
        value = value << 8 | byte;
    return value;
}

// One pass over the bytes. After the first damage nothing more is read; what is left becomes one row.
class Walk {
public:
    explicit Walk(std::span<const uint8_t> bytes) : bytes_(bytes)
    {
    }

    void prologue(const Layout &layout)
    {
        if (Row *magic = item(0, header_size, number_size, "magic"))
            expect(*magic, layout.magic, layout.method);
        if (Row *version = item(1, header_size, number_size, "version"))
            expect(*version, layout.version, "");
    }

    void fields(std::span<const Field> fields, const std::string &prefix)
    {
        for (const Field &each : fields)
            field(each, prefix + each.name);
    }

    std::vector<Row> finish(const char *rest_is)
    {
        auto rest = bytes_.subspan(position_);
        if (!rest.empty())
            rows_.push_back({position_, 0, 0, 0, rest, "", is_damaged_ ? "not read" : rest_is, ""});
        return std::move(rows_);
    }

private:
    void field(const Field &field, const std::string &name)
    {
        switch (field.kind) {
        case Kind::number:
        case Kind::signed_number:
            return number_field(field, name);
        case Kind::text:
            return text_field(field, name);
        case Kind::wide:
            return wide_field(field, name);
        case Kind::record:
            return fields(field.members, name + ".");
        case Kind::list:
            return list_field(field, name);
        }
    }

    void number_field(const Field &field, const std::string &name)
    {
        Row *row = item(field.tag, header_size, number_size, name);
        if (!row)
            return;
        auto value = static_cast<uint32_t>(big_endian(row->value.first(number_size)));
        if (field.kind == Kind::signed_number)
            row->meaning = format("%d", static_cast<int32_t>(value));
        else
            row->meaning = format("%u", value);
    }

    void wide_field(const Field &field, const std::string &name)
    {
        if (Row *row = item(field.tag, wide_header_size, 2 * number_size, name))
            row->meaning = format("%llu", wide_argument(big_endian(row->value.first(2 * number_size))));
    }

    void text_field(const Field &field, const std::string &name)
    {
        Row *row = item(field.tag, header_size, 1, name);
        if (!row)
            return;
        auto end = std::find(row->value.begin(), row->value.end(), 0);
        row->meaning = quoted({row->value.begin(), end});
        if (end == row->value.end())
            return damage(*row, "the text has no NUL");
        auto length = static_cast<size_t>(end - row->value.begin());
        size_t padding = row->value.size() - length - 1;
        row->meaning += format(", NUL, %zu zero byte%s", padding, padding == 1 ? "" : "s");
        if (length + 1 > field.capacity)
            return damage(*row, format("%zu bytes with the NUL, %u fit", length + 1, field.capacity));
        if (std::any_of(end, row->value.end(), [](uint8_t byte) { return byte != 0; }))
            row->problem = "the padding is not zero";
        else if (row->value.size() != ((length + 1) & ~size_t{3}) + 4)
            row->problem = "the padding has an unusual length";
    }

    void list_field(const Field &field, const std::string &name)
    {
        Row *row = item(field.tag, header_size, number_size, name);
        if (!row)
            return;
        auto count = static_cast<uint32_t>(big_endian(row->value.first(number_size)));
        row->meaning = format("%u in the list", count);
        if (count > field.capacity)
            row->problem = format("a list holds at most %u", field.capacity);
        for (uint32_t i = 0; i < std::min(count, field.capacity) && !is_damaged_; i++)
            fields(field.members, name + format("[%u].", i));
    }

    // The next item, which shall have this tag and hold at least so many bytes; null behind or at a damage.
    Row *item(uint64_t tag, size_t header, size_t least, const std::string &name)
    {
        if (is_damaged_)
            return nullptr;
        auto rest = bytes_.subspan(position_);
        if (rest.size() < header) {
            rows_.push_back({position_, 0, 0, 0, rest, name, "", ""});
            position_ = bytes_.size();
            damage(rows_.back(), format("an item begins with %zu bytes, %zu are left", header, rest.size()));
            return nullptr;
        }
        Row row = {position_,
                   header,
                   big_endian(rest.first(header / 2)),
                   big_endian(rest.subspan(header / 2, header / 2)),
                   {},
                   name,
                   "",
                   ""};
        // Of the length of a wide item the low half counts.
        uint64_t length = static_cast<uint32_t>(row.length);
        row.value = rest.subspan(header, static_cast<size_t>(std::min<uint64_t>(length, rest.size() - header)));
        position_ += header + row.value.size();
        rows_.push_back(row);
        return sound(rows_.back(), tag, length, least) ? &rows_.back() : nullptr;
    }

    bool sound(Row &row, uint64_t tag, uint64_t length, size_t least)
    {
        if (row.tag != tag)
            damage(row, format("tag %llu, expected %llu", wide_argument(row.tag), wide_argument(tag)));
        else if (row.value.size() < length)
            damage(row, format("%llu bytes announced, %zu are left", wide_argument(length), row.value.size()));
        else if (length < least)
            damage(row, format("%llu bytes, at least %zu needed", wide_argument(length), least));
        return !is_damaged_;
    }

    static void expect(Row &row, uint32_t expected, const char *meaning)
    {
        auto value = static_cast<uint32_t>(big_endian(row.value.first(number_size)));
        row.meaning = *meaning ? meaning : format("%u", value);
        if (value == expected)
            return;
        row.meaning.clear();
        row.problem = format("0x%x, expected 0x%x", value, expected);
    }

    void damage(Row &row, const std::string &problem)
    {
        row.problem = problem;
        is_damaged_ = true;
    }

    static std::string quoted(std::span<const uint8_t> characters)
    {
        std::string text = "\"";
        for (uint8_t character : characters)
            text += character >= ' ' && character < 0x7f ? std::string(1, static_cast<char>(character))
                                                         : format("\\x%02x", character);
        return text + "\"";
    }

    std::span<const uint8_t> bytes_;
    size_t position_ = 0;
    bool is_damaged_ = false;
    std::vector<Row> rows_;
};

} // namespace

std::vector<Row> annotate(const Layout *layout, std::span<const uint8_t> bytes)
{
    Walk walk(bytes);
    if (!layout)
        return walk.finish("no layout is known");
    walk.prologue(*layout);
    walk.fields(layout->fields, "");
    return walk.finish("left over behind the last item");
}

} // namespace demo
