// The items of an encoded body, read by the layout of its method.

#ifndef GORVANET_TRACE_ITEMS_H
#define GORVANET_TRACE_ITEMS_H

#include "layouts.h"

#include <cstdint>

namespace trace {

using layouts::Field;
using layouts::Kind;
using layouts::Layout;

struct Bytes {
    const uint8_t *data;
    uint32_t size;
};

// The bytes of a body that the library's decoder has just read. It is given no length, and so the tracer has none: the
// body ends where its last item ends by its own length, or behind what made the decoder stop. Nothing is read that the
// decoder does not read.
Bytes decoded_bytes(const Layout &layout, const void *buffer);

// ---- Reading within the bytes ---------------------------------------------------------------------------------------

// A reader stops at the first item that is not what the layout says, and stays there.
struct Items {
    Bytes bytes;
    uint32_t position;
    bool stopped;
};

// The value of the next item, which shall have this tag, a header of this size and `needed` bytes at least. Without it:
// the reader stops, and the value is null.
struct Value {
    const uint8_t *data;
    uint32_t size;
};

Value next_value(Items &items, uint64_t tag, uint32_t header, uint32_t needed);
Value next_value(Items &items, const Field &field);

uint32_t number_in(const uint8_t *value);
uint64_t wide_number_in(const uint8_t *value);

// Elements of a list that the decoder reads.
uint32_t elements_in(const Field &list, uint32_t count);

} // namespace trace

#endif
