// What all records share, shown on state_info: the shape of items, and what a decoder makes of foreign ones.

#include "samples.h"

namespace {

class TlvTest : public RecordTest {};

struct ChainLength {
    size_t characters;
    uint32_t length;
};

void PrintTo(const ChainLength &chain, std::ostream *out)
{
    *out << chain.characters << " characters";
}

// The table of lengths that every chain obeys: the text and its NUL rounded down to a multiple of 4, plus 4.
class ChainLengthTest : public RecordTest, public testing::WithParamInterface<ChainLength> {};

} // namespace

TEST_P(ChainLengthTest, IsTheTextAndItsNulRoundedDownPlus4)
{
    auto [characters, length] = GetParam();
    auto record = untouched_record<state_info>();
    record.state = 1;
    set(record.info, std::string(characters, 'q'));
    clear_wire(unwritten_byte);
    EXPECT_EQ(gorvaNet_state_info_serialize_lg(&record), 12 + 8 + length);
    EXPECT_EQ(gorvaNet_state_info_serialize(&record, &write_cursor), 0u);
    EXPECT_EQ(moved(write_cursor), 12 + 8 + static_cast<ptrdiff_t>(length));
    Bytes text = Bytes(characters, 'q') + Bytes{0} + Bytes(length - characters - 1, unwritten_byte);
    expect_on_wire(bytes("00000003 00000004 00000001 00000004") + big_endian(length) + text);
}

INSTANTIATE_TEST_SUITE_P(Chains, ChainLengthTest,
                         testing::Values(ChainLength{0, 4}, ChainLength{1, 4}, ChainLength{2, 4}, ChainLength{3, 8},
                                         ChainLength{4, 8}, ChainLength{5, 8}, ChainLength{6, 8}, ChainLength{7, 12},
                                         ChainLength{8, 12}, ChainLength{11, 16}, ChainLength{43, 48},
                                         ChainLength{44, 48}, ChainLength{45, 48}),
                         [](const auto &values) { return "Of" + std::to_string(values.param.characters); });

TEST_F(TlvTest, AnEmptyChainIs12BytesWithTheNulFirst)
{
    state_info record = {.state = 0, .info = ""};
    expect_encoding(record, {"00000003 00000004 00000000", "00000004 00000004 00 ......"});
}

TEST_F(TlvTest, ChainsOf3And4CharactersBothHaveLength8)
{
    state_info record = {.state = 0, .info = "abc"};
    expect_encoding(record, {"00000003 00000004 00000000", "00000004 00000008 'abc' 00 ........"});
    set(record.info, "abcd");
    expect_encoding(record, {"00000003 00000004 00000000", "00000004 00000008 'abcd' 00 ......"});
}

TEST_F(TlvTest, OfAnIntegerItemOfLength8TheFirst4BytesAreReadAndAll8Skipped)
{
    auto expected = untouched_record<state_info>();
    expected.state = 0x44;
    set(expected.info, "x");
    expect_decoding({"00000003 00000008 11223344 55667788", "00000004 00000004 'x' 00 ...."}, expected);
}

TEST_F(TlvTest, OfAnIntegerItemOfLength0TheNextTagIsRead)
{
    auto expected = untouched_record<state_info>();
    expected.state = 4;
    set(expected.info, "x");
    expect_decoding({"00000003 00000000", "00000004 00000004 'x' 00 ...."}, expected);
}

TEST_F(TlvTest, AnItemOfLength5MovesTheNextOneOffItsAlignment)
{
    auto expected = untouched_record<state_info>();
    expected.state = 0x44;
    set(expected.info, "x");
    expect_decoding({"00000003 00000005 11223344 99", "00000004 00000004 'x' 00 ...."}, expected);
}

TEST_F(TlvTest, ATextRunsToItsNulWhateverTheLengthSays)
{
    auto expected = untouched_record<state_info>();
    expected.state = 1;
    set(expected.info, "abcdef");
    for (uint32_t length : {0u, 2u, 40u}) {
        receive(bytes("00000003 00000004 00000001 00000004") + big_endian(length) + bytes("'abcdef' 00"));
        expect_received(expected, 20 + static_cast<ptrdiff_t>(length));
    }
}

TEST_F(TlvTest, ALengthThatWrapsMovesTheCursorBack)
{
    auto expected = untouched_record<state_info>();
    expected.state = 1;
    set(expected.info, "x");
    // The first item's length is -20: behind it comes the item 12 bytes in front of it, whose length is -1.
    receive(bytes("00000004 ffffffff 'x' 00 0000 00000003 ffffffec 00000001"), 12);
    expect_received(expected, 7);
}

TEST_F(TlvTest, UnknownItemsAreNeverSkipped)
{
    receive(bytes("00000003 00000004 00000001 00000009 00000000 00000004 00000004 'x' 00 0000"));
    auto record = untouched_record<state_info>();
    EXPECT_EQ(gorvaNet_state_info_unserialize(&record, &read_cursor), 4u);
    EXPECT_EQ(moved(read_cursor), 12);
    EXPECT_EQ(record.state, 1);
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_state_info_unserialize", wire).wrong_tag(9, 0, 4));
}

TEST_F(TlvTest, DecodingTouchesNoByteBehindTheNul)
{
    auto record = untouched_record<state_info>();
    receive(bytes("00000003 00000004 00000001 00000004 00000010 'ab' 00 'not this part'"));
    EXPECT_EQ(gorvaNet_state_info_unserialize(&record, &read_cursor), 0u);
    EXPECT_EQ(moved(read_cursor), 36);
    EXPECT_EQ(Bytes(record.info, record.info + 46), bytes("'ab' 00") + Bytes(43, untouched_byte));
}

TEST_F(TlvTest, EncodingAndDecodingTouchNothingButTheirArguments)
{
    state_info record = {.state = 1, .info = "abc"};
    const state_info before = record;
    gorvaNet_state_info_serialize(&record, &write_cursor);
    EXPECT_EQ(memory_of(record), memory_of(before));
    Bytes sent(wire, wire + sizeof wire);
    read_cursor = wire;
    gorvaNet_state_info_unserialize(&record, &read_cursor);
    EXPECT_EQ(Bytes(wire, wire + sizeof wire), sent);
    EXPECT_EQ(allocations(), 0u);
}
