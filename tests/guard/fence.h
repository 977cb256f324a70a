// Memory that ends where nothing may be read: whoever reads one byte behind what is placed here ends the process. The
// hardware sees to it, with and without a sanitizer.

#ifndef GORVANET_TESTS_GUARD_FENCE_H
#define GORVANET_TESTS_GUARD_FENCE_H

#include <cstddef>
#include <cstdint>
#include <span>

class Fence {
public:
    // With room for this much, rounded up to whole pages.
    explicit Fence(size_t room);
    ~Fence();
    Fence(const Fence &) = delete;
    Fence &operator=(const Fence &) = delete;

    // A copy, and so many zero bytes behind it, of which the last is the last byte before the fence. Takes the place of
    // what was placed before.
    std::span<const uint8_t> place(std::span<const uint8_t> bytes, size_t zeros = 0);

private:
    uint8_t *memory_;
    size_t room_;
};

#endif
