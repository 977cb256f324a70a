// A second codec, for comparison: it interprets tables of the wire format, byte by byte, and works out what the
// library must write, read and log. It shares nothing with the library but the records themselves.

#ifndef GORVANET_TESTS_RECORDS_REFERENCE_CODEC_H
#define GORVANET_TESTS_RECORDS_REFERENCE_CODEC_H

#include "expected_lines.h"
#include "wire.h"

#include <cstring>
#include <optional>

namespace reference {

enum class Kind {
    u8,      // zero-extended on the wire
    s8,      // sign-extended
    u32,     //
    wide,    // 32 bits in memory; tag, length and value of 64 bits on the wire
    version, // `capacity`, nowhere in memory; of what is received the low 16 bits count
    text,    // `capacity` bytes with the NUL
    record,  // `element`, inline
    list,    // as many of `capacity` elements as the 32-bit number at `count` says
};

// Of a number in memory.
size_t size_of_number(Kind kind);

struct Layout;

struct Field {
    Kind kind;
    uint32_t tag; // of a record or a list: where it stands among the tags; no item carries it
    size_t offset;
    uint32_t capacity = 0;
    const Layout *element = nullptr;
    size_t count = 0;
};

// Of a record, or of a body: that opens with the tags 0 and 1, the prologue. What follows is not looked at when they
// are wrong.
struct Layout {
    std::string name; // "gorvaNet_state_info"; a body's does not appear in the log
    size_t size;
    std::vector<Field> fields;
    Tags encoder_announces; // after a failure: those of them that are greater than the failing tag
    Tags decoder_announces;
    bool passes_on_alone = true; // a failure of a nested record adds no line of this record
    std::string encoder = name + "_serialize";
    std::string decoder = name + "_unserialize";
};

// Puts a number into a field of this kind, which takes the bits that fit.
inline void store(Kind kind, void *field, uint32_t number)
{
    auto low_byte = static_cast<uint8_t>(number);
    if (kind == Kind::u8 || kind == Kind::s8)
        memcpy(field, &low_byte, sizeof low_byte);
    else if (kind == Kind::u32 || kind == Kind::wide)
        memcpy(field, &number, sizeof number);
}

// A text whose length is said to be another one.
struct Pretence {
    const char *text;
    uint32_t length;
};

struct Encoding {
    uint32_t status = 0;
    std::vector<std::optional<uint8_t>> bytes; // none: left as the buffer holds it
    LogLines lines;
};

// What is written at `wire`, and logged.
Encoding encode(const Layout &layout, const void *record, const void *wire, Pretence pretence = {});

struct Decoding {
    uint32_t status = 0;
    uint32_t cursor = 0; // from the start of the wire, modulo 2^32
    LogLines lines;
    bool leaves_wire = false; // the items lead out of the wire: what follows is unknown
};

// What is read from `size` bytes at `wire`, and logged. Fills the record.
Decoding decode(const Layout &layout, const uint8_t *wire, size_t size, void *record);

// What copy makes of the destination.
void copy(const Layout &layout, void *destination, const void *source);

} // namespace reference

#endif
