// Bytes to expect, written out by hand: encoded bodies as hexadecimal digits, bodies in memory as what stands where.

#ifndef GORVANET_TESTS_COMMANDS_BYTES_H
#define GORVANET_TESTS_COMMANDS_BYTES_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

using Bytes = std::vector<uint8_t>;

// Two digits a byte; blanks are for the reader.
Bytes hex(std::string_view digits);

Bytes operator+(Bytes left, const Bytes &right);

// A block of memory as it is now.
Bytes contents(const void *block, size_t size);

// The same bytes, but for a big-endian number at this offset.
Bytes with_number(Bytes bytes, size_t offset, uint32_t value);

// The same bytes with others put in at this offset.
Bytes with_more(Bytes bytes, size_t offset, const Bytes &more);

// The same bytes without `size` of them from this offset on.
Bytes without(Bytes bytes, size_t offset, size_t size);

// A structure in memory: zero bytes, but for what is placed in them.
class Image {
public:
    explicit Image(size_t size);

    Image &number(size_t offset, uint32_t value);
    Image &text(size_t offset, std::string_view characters);
    Image &record(size_t offset, const void *record, size_t size);

    operator Bytes() const;

private:
    Bytes bytes;
};

#endif
