// Reads an encoded body with nothing but its bytes and the method's name, and says what each item means.
//
// It knows the layouts from a table (hosts/layouts) and shares no code with the library, so it is a second opinion on
// the bytes. Damaged bytes are fine: every read is checked, and what is wrong is said where it is.

#ifndef GORVANET_DEMO_ANNOTATE_H
#define GORVANET_DEMO_ANNOTATE_H

#include "layouts.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace demo {

using namespace layouts;

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
