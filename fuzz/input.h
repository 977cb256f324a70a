// A fuzzer's input as a source of choices: zeros when it is used up. Small changes of the input stay small changes of
// what is made of it.

#ifndef GORVANET_FUZZ_INPUT_H
#define GORVANET_FUZZ_INPUT_H

#include "guard/model.h"

#include <span>

class Input {
public:
    explicit Input(std::span<const uint8_t> bytes) : rest_(bytes)
    {
    }

    uint8_t byte();
    uint32_t number();               // often at one of the ends of a range
    uint32_t below(uint32_t limit);  // 0 for a limit of 0
    std::span<const uint8_t> rest(); // all that is left

    // Fills a zeroed record: texts of any length, counts below, at and above the capacity, elements up to the count.
    // Nothing else is written, so that a decoder into a zeroed record gives the same bytes.
    void fill(const reference::Layout &layout, uint8_t *record);

    // A body in memory.
    Bytes image(const model::Body &body);

    const model::Body &body();

private:
    void fill_plain(const reference::Field &field, uint8_t *at);
    uint32_t count(uint32_t capacity);

    std::span<const uint8_t> rest_;
};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

#endif
