// What the tests of the interface frame share: the run-time part of the descriptor at a glance, the descriptor as the
// words that the middleware sees, and the calls of the bus that the lifecycle makes.

#ifndef GORVANET_TESTS_FRAME_FRAME_TEST_H
#define GORVANET_TESTS_FRAME_FRAME_TEST_H

#include "support/library_test.h"

#include <array>

// All of the descriptor that may change at run time, but for `debug`.
struct Frame {
    uint32_t cmd = 0xffff; // message-management numbers
    uint32_t ntfy = 0xffff;
    uint32_t flags = 0;
    uint32_t state = 0;

    bool operator==(const Frame &) const = default;
};

std::ostream &operator<<(std::ostream &out, const Frame &frame);

// The descriptor now.
Frame frame();

// The complete descriptor as 32-bit words, and their places.
constexpr size_t base_words = 116;
constexpr size_t cmd_block = 2;
constexpr size_t cmd_rows = 6;
constexpr size_t ntfy_block = 102;
constexpr size_t ntfy_rows = 106;
constexpr size_t row_words = 8;

using BaseWords = std::array<uint32_t, base_words>;
BaseWords words_of_base();
void set_word_of_base(size_t place, uint32_t word);

// The word that two 16-bit numbers make, and that two bytes and two zero bytes make, in the order of their addresses.
uint32_t word_of_numbers(uint32_t first, uint32_t second);
uint32_t word_of_bytes(uint32_t first, uint32_t second);

// The words of a block as they must be once the interface at `place` of the descriptor has registered.
Words filled(const BaseWords &base, size_t place, size_t methods);

// The numbers that the middleware gives at a first start.
constexpr uint32_t cmd_number = first_number;
constexpr uint32_t ntfy_number = first_number + 1;

constexpr Frame started{.cmd = cmd_number, .ntfy = ntfy_number, .flags = 3, .state = 1};

// Calls of the bus. The address of the block pointer is some address on the stack: calls_made puts this word there.
constexpr uintptr_t some_address = 1;
Calls calls_made();
Call asks_for_cmd();
Call asks_for_ntfy();
Call hooks_event_loop();
Call releases(uintptr_t number);

// Makes the middleware refuse the block for this many methods: 12 for the command interface, 1 for the other.
void refuse_block(uintptr_t methods);
// Makes it give this number, and no block.
void give_number_without_block(uintptr_t methods, uintptr_t number);
// Makes it keep the block with this number when it is to be released, for this reason.
void keep_block(uintptr_t number, uintptr_t status);

// No function of the frame asks for memory: each test ends with a look at that.
class FrameTest : public LibraryTest {
protected:
    void TearDown() override;

    // Starts the interface and takes the calls.
    static void start();
};

#endif
