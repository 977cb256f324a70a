// The middleware and the event loop as a test sees them: this process's own functions record each call with its
// argument words, exactly as they were passed, and answer as the test says.

#ifndef GORVANET_TESTS_SUPPORT_BUS_H
#define GORVANET_TESTS_SUPPORT_BUS_H

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

using Words = std::vector<uintptr_t>;

// The argument word that a pointer, a function or a number becomes.
template <typename Value> uintptr_t word(Value *value)
{
    return reinterpret_cast<uintptr_t>(value);
}

inline uintptr_t word(uintptr_t value)
{
    return value;
}

struct Call {
    std::string function;
    Words words;
};

using Calls = std::vector<Call>;

bool operator==(const Call &left, const Call &right);
std::ostream &operator<<(std::ostream &out, const Call &call);

// The calls since the last take, in order.
Calls take_calls();

// Makes a function answer with this from now on, or run this. The default is 0 (a new block and number for
// zebCore_getBase_msgMngt; the user plus 0x1000 for zebIntf_getCore_user).
void answer(const std::string &function, uintptr_t result);
void answer(const std::string &function, std::function<uintptr_t(const Words &)> action);

// Blocks that zebCore_getBase_msgMngt has handed out: the words the library may fill, then guard words. All hold
// `untouched` at first. The number of block i is first_number + i.
constexpr uintptr_t untouched = 0xeeeeeeee;
constexpr size_t guard_words = 4;
constexpr uint32_t first_number = 0x0101;
std::vector<Words> &blocks();

// What zebCore_getBase_msgMngt does when the test has no other answer: for answers that do more than that.
uintptr_t hand_out_block(const Words &words);

void reset_bus();

#endif
