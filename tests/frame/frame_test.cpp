#include "frame_test.h"

#include <bit>
#include <cstring>
#include <ostream>

std::ostream &operator<<(std::ostream &out, const Frame &frame)
{
    return out << std::hex << "cmd 0x" << frame.cmd << ", ntfy 0x" << frame.ntfy << ", flags 0x" << frame.flags
               << ", state 0x" << frame.state << std::dec;
}

Frame frame()
{
    return {.cmd = gorvaNet_base.cmd.num,
            .ntfy = gorvaNet_base.ntfy.num,
            .flags = gorvaNet_base.flags,
            .state = gorvaNet_base.state};
}

BaseWords words_of_base()
{
    return std::bit_cast<BaseWords>(gorvaNet_base);
}

void set_word_of_base(size_t place, uint32_t word)
{
    memcpy(reinterpret_cast<char *>(&gorvaNet_base) + 4 * place, &word, sizeof word);
}

uint32_t word_of_numbers(uint32_t first, uint32_t second)
{
    return std::bit_cast<uint32_t>(std::array{static_cast<uint16_t>(first), static_cast<uint16_t>(second)});
}

uint32_t word_of_bytes(uint32_t first, uint32_t second)
{
    return std::bit_cast<uint32_t>(
        std::array<uint8_t, 4>{static_cast<uint8_t>(first), static_cast<uint8_t>(second), 0, 0});
}

Words filled(const BaseWords &base, size_t place, size_t methods)
{
    Words block = {base[place + 1], base[place + 2], untouched};
    for (size_t row = place + 4; row < place + 4 + row_words * methods; row += row_words)
        block.insert(block.end(), &base[row + 1], &base[row + 7]);
    block.insert(block.end(), guard_words, untouched);
    return block;
}

Calls calls_made()
{
    Calls calls = take_calls();
    for (Call &call : calls)
        if (call.function == "zebCore_getBase_msgMngt" && call.words[1] != 0)
            call.words[1] = some_address;
    return calls;
}

Call asks_for_cmd()
{
    return {"zebCore_getBase_msgMngt", {word(gorvaNet_base.cmd.name), some_address, 12}};
}

Call asks_for_ntfy()
{
    return {"zebCore_getBase_msgMngt", {word(gorvaNet_base.ntfy.name), some_address, 1}};
}

Call hooks_event_loop()
{
    return {"ruvo_addEvtBase", {word(gorvaNet_cbEvtBase), word(&gorvaNet_base)}};
}

Call releases(uintptr_t number)
{
    return {"zebCore_putBase_msgMngt", {number, 0}};
}

void refuse_block(uintptr_t methods)
{
    give_number_without_block(methods, 0xffff);
}

void give_number_without_block(uintptr_t methods, uintptr_t number)
{
    answer("zebCore_getBase_msgMngt",
           [methods, number](const Words &words) { return words[2] == methods ? number : hand_out_block(words); });
}

void keep_block(uintptr_t number, uintptr_t status)
{
    answer("zebCore_putBase_msgMngt",
           [number, status](const Words &words) { return words[0] == number ? status : uintptr_t{0}; });
}

void FrameTest::TearDown()
{
    EXPECT_EQ(allocations(), 0u);
    LibraryTest::TearDown();
}

void FrameTest::start()
{
    ASSERT_EQ(gorvanet_initialize(), 0u);
    take_calls();
}
