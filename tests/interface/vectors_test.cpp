// The golden vectors: the library decodes and encodes each to the same bytes, and the hosts' layouts find in it what
// it says it holds, line by line.

#include "layouts.h"
#include "support/library_test.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <span>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;
using layouts::Field;
using layouts::Kind;

// One item: what it is called, its value in words, its bytes.
struct Line {
    std::string path;
    std::string value;
    Bytes bytes;
};

struct Vector {
    std::string method;
    uint32_t direction;
    std::vector<Line> lines;
};

Bytes from_hex(const std::string &words)
{
    std::string digits;
    std::copy_if(words.begin(), words.end(), std::back_inserter(digits), [](char each) { return each != ' '; });
    Bytes bytes;
    for (size_t i = 0; i < digits.size(); i += 2)
        std::from_chars(&digits[i], &digits[i] + 2, bytes.emplace_back(), 16);
    return bytes;
}

// The vector of this name: METHOD.DIRECTION.
Vector read_vector(const std::string &name)
{
    size_t dot = name.find('.');
    uint32_t direction = name.substr(dot) == ".response" ? layouts::response : layouts::request;
    Vector vector = {name.substr(0, dot), direction, {}};
    std::ifstream file(std::filesystem::path(VECTORS) / (name + ".txt"));
    for (std::string text; std::getline(file, text);) {
        if (text.starts_with(' ')) {
            Bytes more = from_hex(text);
            Bytes &bytes = vector.lines.back().bytes;
            bytes.insert(bytes.end(), more.begin(), more.end());
        } else if (!text.starts_with('#')) {
            size_t middle = text.find(" = ");
            vector.lines.push_back({text.substr(0, middle), text.substr(middle + 3), {}});
        }
    }
    return vector;
}

std::vector<std::string> all_names()
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(VECTORS))
        if (entry.path().extension() == ".txt")
            names.push_back(entry.path().stem());
    std::sort(names.begin(), names.end());
    return names;
}

Bytes whole(const Vector &vector)
{
    Bytes bytes;
    for (const Line &line : vector.lines)
        bytes.insert(bytes.end(), line.bytes.begin(), line.bytes.end());
    return bytes;
}

struct Rows {
    layouts::Interface interface;
    std::span<const gorvaNet_method> methods;
};

std::array<Rows, 2> all_rows()
{
    return {{
        {layouts::Interface::command, gorvaNet_base.cmdMethods},
        {layouts::Interface::notification, gorvaNet_base.ntfyMethods},
    }};
}

const gorvaNet_method *find_row(const std::string &name)
{
    for (const Rows &rows : all_rows())
        for (const gorvaNet_method &row : rows.methods)
            if (row.name == name)
                return &row;
    return nullptr;
}

// ---- What the layouts find ------------------------------------------------------------------------------------------

uint64_t number_at(std::span<const uint8_t> bytes)
{
    return std::accumulate(bytes.begin(), bytes.end(), uint64_t{0},
                           [](uint64_t sum, uint8_t byte) { return sum << 8 | byte; });
}

std::string hexadecimal(uint64_t value)
{
    std::array<char, 32> text = {};
    std::snprintf(text.data(), text.size(), "0x%08llx", static_cast<unsigned long long>(value));
    return text.data();
}

std::string in_words(const Line &line, Kind kind)
{
    std::span<const uint8_t> value = std::span(line.bytes).subspan(kind == Kind::wide ? 16 : 8);
    switch (kind) {
    case Kind::text:
        return '"' + std::string(value.begin(), std::find(value.begin(), value.end(), 0)) + '"';
    case Kind::wide:
        return hexadecimal(number_at(value));
    case Kind::signed_number:
        return std::to_string(static_cast<int32_t>(number_at(value)));
    default:
        return std::to_string(number_at(value));
    }
}

class Checker {
public:
    explicit Checker(const Vector &vector) : vector_(vector)
    {
    }

    void body(const layouts::Layout &layout)
    {
        number("magic", 0, hexadecimal(layout.magic));
        number("version", 1, std::to_string(layout.version));
        fields(layout.fields);
        EXPECT_EQ(next_, vector_.lines.size()) << "lines that no layout has";
    }

private:
    void fields(std::span<const Field> fields)
    {
        for (const Field &field : fields)
            this->field(field);
    }

    void field(const Field &field)
    {
        if (field.kind == Kind::record)
            return fields(field.members);
        const Line &line = take(field.tag, field.kind);
        if (field.kind == Kind::list) {
            // The layouts do not name the count.
            EXPECT_EQ(in_words(line, Kind::number), line.value) << line.path;
            for (uint64_t i = number_at(std::span(line.bytes).subspan(8)); i > 0; i--)
                fields(field.members);
            return;
        }
        EXPECT_EQ(line.path.substr(line.path.rfind('.') + 1), field.name);
        EXPECT_EQ(in_words(line, field.kind), line.value) << line.path;
    }

    void number(const std::string &name, uint32_t tag, const std::string &value)
    {
        const Line &line = take(tag, Kind::number);
        EXPECT_EQ(line.path, name);
        EXPECT_EQ(line.value, value) << name;
    }

    // The next line, which shall have this tag, and the length of what stands in it.
    const Line &take(uint32_t tag, Kind kind)
    {
        static const Line none = {"a line that is missing", "", Bytes(24)};
        EXPECT_LT(next_, vector_.lines.size());
        const Line &line = next_ < vector_.lines.size() ? vector_.lines[next_] : none;
        next_++;
        std::span<const uint8_t> bytes = line.bytes;
        size_t half = kind == Kind::wide ? 8 : 4;
        EXPECT_EQ(number_at(bytes.first(half)), tag) << line.path;
        EXPECT_EQ(number_at(bytes.subspan(half, half)), bytes.size() - 2 * half) << line.path;
        return line;
    }

    const Vector &vector_;
    size_t next_ = 0;
};

// ---- Tests ----------------------------------------------------------------------------------------------------------

class VectorTest : public LibraryTest, public testing::WithParamInterface<std::string> {
protected:
    const Vector vector = read_vector(GetParam());
};

TEST_P(VectorTest, IsDecodedAndEncodedToTheSameBytes)
{
    const gorvaNet_method *row = find_row(vector.method);
    ASSERT_NE(row, nullptr);
    Bytes bytes = whole(vector);
    void *body = nullptr;
    uint32_t body_size = 0;
    ASSERT_EQ(row->unserializeBody(vector.direction, bytes.data(), &body, &body_size), 0);
    void *buffer = nullptr;
    uint32_t size = 0;
    ASSERT_EQ(row->serializeBody(vector.direction, body, &buffer, &size), 0u);
    const auto *encoded = static_cast<const uint8_t *>(buffer);
    EXPECT_EQ(Bytes(encoded, encoded + size), bytes);
    row->freeBody(vector.direction, body);
    free(buffer);
    reset_memory();
}

TEST_P(VectorTest, HoldsWhatItSays)
{
    const layouts::Layout *layout = layouts::find_layout(vector.method, vector.direction);
    ASSERT_NE(layout, nullptr);
    Checker(vector).body(*layout);
}

std::string name_of_test(const testing::TestParamInfo<std::string> &info)
{
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Each, VectorTest, testing::ValuesIn(all_names()), name_of_test);

TEST(Vectors, ThereIsOneForEachBody)
{
    std::vector<std::string> expected;
    for (const Rows &rows : all_rows())
        for (const gorvaNet_method &row : rows.methods)
            for (uint32_t direction : {layouts::request, layouts::response})
                if (layouts::find_layout(rows.interface, row.index, direction))
                    expected.push_back(row.name + std::to_string(direction));
    std::vector<std::string> found;
    for (const std::string &name : all_names())
        found.push_back(read_vector(name).method + std::to_string(read_vector(name).direction));
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    EXPECT_EQ(found, expected);
}

} // namespace
