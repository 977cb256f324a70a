// Reads an encoded body with nothing but its bytes and the method's name, and says what each item means.
//
// It knows the layouts from a table of its own (layouts.cpp) and shares no code with the library, so it is a second
// opinion on the bytes. Damaged bytes are fine: every read is checked, and what is wrong is said where it is.

#ifndef GORVANET_DEMO_ANNOTATE_H
#define GORVANET_DEMO_ANNOTATE_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

// ---- Layouts: what a body should look like --------------------------------------------------------------------------

enum class Kind {
    number,        // 4 bytes, unsigned
    signed_number, // 4 bytes, two's complement
    text,          // characters, NUL, zero bytes
    wide,          // 64-bit tag, length and value
    record,        // another run of items, inline
    list,          // a number, then that many records, at most `capacity`
};

struct Field {
    uint32_t tag; // not used by a record
    Kind kind;
    const char *name;
    uint32_t capacity = 0; // of a text with its NUL, or of a list in elements
    std::span<const Field> members = {};
};

constexpr Field number(uint32_t tag, const char *name)
{
    return {tag, Kind::number, name};
}

constexpr Field signed_number(uint32_t tag, const char *name)
{
    return {tag, Kind::signed_number, name};
}

constexpr Field text(uint32_t tag, const char *name, uint32_t capacity)
{
    return {tag, Kind::text, name, capacity};
}

constexpr Field wide(uint32_t tag, const char *name)
{
    return {tag, Kind::wide, name};
}

constexpr Field record(const char *name, std::span<const Field> members)
{
    return {0, Kind::record, name, 0, members};
}

constexpr Field list(uint32_t tag, const char *name, uint32_t capacity, std::span<const Field> members)
{
    return {tag, Kind::list, name, capacity, members};
}

constexpr uint32_t request = 0;
constexpr uint32_t response = 1;

struct Layout {
    const char *method;
    uint32_t direction;
    uint32_t magic;
    uint32_t version;
    std::span<const Field> fields; // behind the prologue
};

// Null when the table has no such body.
const Layout *find_layout(std::string_view method, uint32_t direction);

// ---- Rows: what the bytes say ---------------------------------------------------------------------------------------

// One item, or bytes that are none.
struct Row {
    size_t offset;
    size_t header; // 8, or 16 for a wide item; 0: these bytes are no item
    uint64_t tag;
    uint64_t length;
    std::span<const uint8_t> value;
    std::string field;
    std::string meaning;
    std::string problem; // empty: as it should be
};

// The rows cover all bytes, each once, in order. Without a layout, or behind a damage, the rest is one row of plain
// bytes.
std::vector<Row> annotate(const Layout *layout, std::span<const uint8_t> bytes);

} // namespace demo

#endif
