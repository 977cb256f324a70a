// Encoded bytes, written down so that they can be read.
//
//     "00000003 00000008 'abc' 00 ........"
//
// Digits are bytes in hexadecimal, quotes hold characters, ".." is a padding byte: one that an encoder leaves as it
// finds it. "*45" behind a piece repeats it. Blanks mean nothing.

#ifndef GORVANET_TESTS_RECORDS_WIRE_H
#define GORVANET_TESTS_RECORDS_WIRE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<uint8_t>;

// One string for each item; an element of a list may be one string too.
using Items = std::vector<std::string>;

// The bytes, with padding as a buffer full of `padding` would show it.
Bytes bytes(const std::string &text, uint8_t padding = 0);
Bytes bytes(const Items &items, uint8_t padding = 0);

// The item with this number, and all items in front of it or behind it.
Bytes bytes_before(const Items &items, size_t item, uint8_t padding = 0);
Bytes bytes_behind(const Items &items, size_t item);

// A 32-bit number, big-endian.
Bytes big_endian(uint32_t value);

Bytes operator+(Bytes left, const Bytes &right);

#endif
