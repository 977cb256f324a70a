#include "samples.h"

#include <cstddef>

namespace {

class StateInfoTest : public RecordTest {};

void fill(state_info &record)
{
    record.state = 200;
    set(record.info, "up");
}

state_info state_info_sample()
{
    auto record = untouched_record<state_info>();
    fill(record);
    return record;
}

const Items items = {"00000003 00000004 000000c8", "00000004 00000004 'up' 00 .."};

const Fields fields = {
    {0, 3, offsetof(state_info, state), 0, {4}},
    {1, 4, offsetof(state_info, info), 46, {}},
};

} // namespace

TEST_F(StateInfoTest, EncodesItsWireTable)
{
    expect_encoding(state_info_sample(), items);
}

TEST_F(StateInfoTest, DecodesItsWireTableAndRefusesEveryDeviation)
{
    expect_fields(state_info_sample(), items, fields);
}

TEST_F(StateInfoTest, TheStateIsZeroExtended)
{
    auto record = state_info_sample();
    record.state = 0xff;
    expect_encoding(record, {"00000003 00000004 000000ff", items[1]});
}

TEST_F(StateInfoTest, TakesAtLeast24Bytes)
{
    auto record = state_info_sample();
    set(record.info, "");
    expect_encoding(record, {items[0], "00000004 00000004 00 ......"});
    expect_length(record, 24);
}

TEST_F(StateInfoTest, ATextOf45CharactersTakes68BytesAndComesBack)
{
    auto record = state_info_sample();
    set(record.info, std::string(45, 'z'));
    Items longest = {items[0], "00000004 00000030 'z'*45 00 ...."};
    expect_length(record, 68);
    expect_encoding(record, longest);
    expect_decoding(longest, record);
}

TEST_F(StateInfoTest, ATextOf46CharactersFromTheWireIsRefusedWithTheStateAlreadySet)
{
    receive(bytes("00000003 00000004 00000009 00000004 00000030 'z'*46 00 .."));
    auto record = untouched_record<state_info>();
    EXPECT_EQ(gorvaNet_state_info_unserialize(&record, &read_cursor), 4u);
    EXPECT_EQ(record.state, 9);
    EXPECT_EQ(record.info[0], untouched_byte);
    EXPECT_EQ(moved(read_cursor), 12);
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_state_info_unserialize", wire).too_long(47, 46));
}

TEST_F(StateInfoTest, AFirstItemWithTag4GivesTheTlLineAndOneErrorBeforeLine)
{
    receive(bytes("00000004 00000004 00000009 00000004 00000004 00 ......"));
    auto record = untouched_record<state_info>();
    EXPECT_EQ(gorvaNet_state_info_unserialize(&record, &read_cursor), 4u);
    EXPECT_EQ(moved(read_cursor), 0);
    EXPECT_EQ(memory_of(record), memory_of(untouched_record<state_info>()));
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_state_info_unserialize", wire).wrong_tag(4, 4, 3).before({4}));
}

TEST_F(StateInfoTest, StateValuesAbove255AreCutToTheirLow8Bits)
{
    auto expected = state_info_sample();
    expected.state = 0x34;
    expect_decoding({"00000003 00000004 ffffff34", items[1]}, expected);
    expected.state = 0;
    expect_decoding({"00000003 00000004 00000100", items[1]}, expected);
}

TEST_F(StateInfoTest, TheLinesNameThePlaceWhereTheRecordBegan)
{
    constexpr size_t begin = 20;
    receive(Bytes(begin, 0) + bytes(Items{items[0], "00000005 00000004 00 ......"}), begin);
    auto record = untouched_record<state_info>();
    EXPECT_EQ(gorvaNet_state_info_unserialize(&record, &read_cursor), 4u);
    EXPECT_EQ(moved(read_cursor), 32);
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_state_info_unserialize", wire + begin).wrong_tag(5, 4, 4));
}

TEST_F(StateInfoTest, CopiesItsFieldsAndZeroesTheRestOfTheText)
{
    auto source = state_info_sample();
    auto expected = empty_destination<state_info>();
    fill(expected);
    auto destination = empty_destination<state_info>();
    EXPECT_EQ(gorvaNet_state_info_copy(&destination, &source), 0u);
    EXPECT_EQ(memory_of(destination), memory_of(with_zeroed_rests(expected, texts_in(fields))));
}

TEST_F(StateInfoTest, ACopyOfATextWithoutANulIsTerminatedAtTheLastIndex)
{
    expect_unterminated_texts_cut(state_info_sample(), texts_in(fields));
}

TEST_F(StateInfoTest, CleanDoesNothing)
{
    auto record = state_info_sample();
    gorvaNet_state_info_clean(&record);
    EXPECT_EQ(memory_of(record), memory_of(state_info_sample()));
    gorvaNet_state_info_clean(nullptr);
}
