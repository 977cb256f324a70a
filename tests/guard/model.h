// The bodies of all methods, as the library holds them in memory and as they travel, and a codec of the tests' own that
// says what must become of any bytes. It knows the records from the tables of the reference codec and shares nothing
// with the library or with the guard. The fuzzers use it too: it is plain and quick, and keeps no log.

#ifndef GORVANET_TESTS_GUARD_MODEL_H
#define GORVANET_TESTS_GUARD_MODEL_H

#include "gorvanet.h"
#include "records/reference_codec.h"

#include <span>

namespace model {

struct Body {
    std::string name; // for messages of the tests
    bool is_notification;
    uint32_t index; // of the method within its interface
    uint32_t direction;
    uint32_t magic;
    uint16_t version;
    reference::Layout layout; // the size in memory, and the fields behind the prologue
    uint32_t wide_tag = 0;    // of the one number that travels as a wide item

    const gorvaNet_method &row() const;
};

// One for each direction of each method; 22.
const std::vector<Body> &bodies();

// A body in memory with content everywhere: texts of this length or as long as fits, lists with this count.
Bytes sample(const Body &body, uint32_t text_length, uint32_t count);

// What a body in memory becomes.
Bytes encode(const Body &body, const Bytes &image);

// One item that the decoder reads.
struct Item {
    uint32_t offset;
    uint32_t header;   // 8, or 16 for the wide item
    uint32_t length;   // of the value, as the item says; of the wide item the low half
    uint32_t needed;   // bytes of the value that the decoder reads
    uint32_t capacity; // the most that it takes
    bool is_text = false;
};

// What the library makes of the bytes at the start of `size` bytes.
struct Decoding {
    int32_t status = 0;
    bool leaves = false; // the items lead out of the bytes: the rest of this is worth nothing
    bool silent = false; // refused without a line in the log
    std::vector<Item> items;
    Bytes image; // with status 0
};

Decoding decode(const Body &body, std::span<const uint8_t> bytes);

// Do the bytes hold this body, the whole of it, and nothing else?
bool well_formed(const Body &body, std::span<const uint8_t> bytes);

} // namespace model

#endif
