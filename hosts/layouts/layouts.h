// What every body looks like on its way: a list of fields for each record and body, a row for each direction of a
// method. It shares no code with the library, so what is checked against it is checked by a second opinion.

#ifndef GORVANET_HOSTS_LAYOUTS_H
#define GORVANET_HOSTS_LAYOUTS_H

#include <cstdint>
#include <span>
#include <string_view>

namespace layouts {

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

enum class Interface { command, notification };

struct Layout {
    Interface interface;
    uint32_t index; // of the method within its interface
    const char *method;
    uint32_t direction;
    uint32_t magic;
    uint32_t version;
    std::span<const Field> fields; // behind the prologue
};

// Null when there is no such body.
const Layout *find_layout(std::string_view method, uint32_t direction);
const Layout *find_layout(Interface interface, uint32_t index, uint32_t direction);

} // namespace layouts

#endif
