// What every fuzzer holds the library and the guard against. A finding ends the process.

#ifndef GORVANET_FUZZ_CHECK_H
#define GORVANET_FUZZ_CHECK_H

#include "guard/model.h"

#include <span>

// Says what does not hold, and of which body, and ends the process.
void require(bool holds, const char *what, const std::string &of);

// The guard takes the bytes exactly if they are well formed; what it takes the library decodes as the model does,
// without a look behind the last byte.
void check_guarded(const model::Body &body, std::span<const uint8_t> bytes);

// With zeros behind the bytes, and no guard in front, the library decodes as the model does. Bytes whose items lead out
// of the zeros are left alone.
void check_direct(const model::Body &body, std::span<const uint8_t> bytes);

#endif
