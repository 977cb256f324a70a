#include "samples.h"

#include <cstddef>

namespace {

class IntfConfTest : public RecordTest {};

void fill(intfConf &record)
{
    record.field3 = 0x80000003;
    record.field4 = 0x01020304;
    record.field5 = 0xffffffff;
    set(record.field6, "ab");
    set(record.field7, "xyz");
}

intfConf intf_conf_sample()
{
    auto record = untouched_record<intfConf>();
    fill(record);
    return record;
}

const Items items = {"00000003 00000004 80000003", "00000004 00000004 01020304", "00000005 00000004 ffffffff",
                     "00000006 00000004 'ab' 00 ..", "00000007 00000008 'xyz' 00 ........"};

const Fields fields = {
    {0, 3, offsetof(intfConf, field3), 0, {4, 5, 6, 7}}, {1, 4, offsetof(intfConf, field4), 0, {5, 6, 7}},
    {2, 5, offsetof(intfConf, field5), 0, {6, 7}},       {3, 6, offsetof(intfConf, field6), 256, {7}},
    {4, 7, offsetof(intfConf, field7), 256, {}},
};

constexpr const char *decoder = "gorvaNet_intfConf_unserialize";

} // namespace

TEST_F(IntfConfTest, EncodesItsWireTable)
{
    expect_encoding(intf_conf_sample(), items);
}

TEST_F(IntfConfTest, DecodesItsWireTableAndRefusesEveryDeviation)
{
    expect_fields(intf_conf_sample(), items, fields);
}

TEST_F(IntfConfTest, BothTextsEmptyTake60BytesWithLength4Each)
{
    auto record = intf_conf_sample();
    set(record.field6, "");
    set(record.field7, "");
    expect_length(record, 60);
    expect_encoding(record,
                    {items[0], items[1], items[2], "00000006 00000004 00 ......", "00000007 00000004 00 ......"});
}

TEST_F(IntfConfTest, AField6Of3CharactersHasLength8AndTheRecord64Bytes)
{
    auto record = intf_conf_sample();
    set(record.field6, "abc");
    set(record.field7, "");
    expect_length(record, 64);
    expect_encoding(
        record, {items[0], items[1], items[2], "00000006 00000008 'abc' 00 ........", "00000007 00000004 00 ......"});
}

TEST_F(IntfConfTest, TheLongestTakes572Bytes)
{
    auto record = intf_conf_sample();
    set(record.field6, std::string(255, 'v'));
    set(record.field7, std::string(255, 'w'));
    Items longest = {items[0], items[1], items[2], "00000006 00000104 'v'*255 00 ........",
                     "00000007 00000104 'w'*255 00 ........"};
    expect_length(record, 572);
    expect_encoding(record, longest);
    expect_decoding(longest, record);
}

TEST_F(IntfConfTest, AField6Of256CharactersFromTheWireIsRefused)
{
    receive(bytes(Items{items[0], items[1], items[2], "00000006 00000104 'v'*256 00 ......", items[4]}));
    ExpectedLines lines(decoder, wire);
    expect_refusal(intf_conf_sample(), 36, offsetof(intfConf, field6), lines.too_long(257, 256).before({7}));
}

TEST_F(IntfConfTest, AField6Of300CharactersGivesOneErrorBeforeLine)
{
    receive(bytes(Items{items[0], items[1], items[2], "00000006 00000130 'v'*300 00 ......", items[4]}));
    ExpectedLines lines(decoder, wire);
    expect_refusal(intf_conf_sample(), 36, offsetof(intfConf, field6), lines.too_long(301, 256).before({7}));
}

TEST_F(IntfConfTest, AFirstItemWithTag9GivesOneTlLineAndFourErrorBeforeLines)
{
    receive(bytes("00000009 00000004 80000003"));
    ExpectedLines lines(decoder, wire);
    expect_refusal(intf_conf_sample(), 0, 0, lines.wrong_tag(9, 4, 3).before({4, 5, 6, 7}));
}

TEST_F(IntfConfTest, AWrongFifthTagGivesTheTlLineAlone)
{
    receive(bytes(Items{items[0], items[1], items[2], items[3], "00000008 00000008 'xyz' 00 ........"}));
    ExpectedLines lines(decoder, wire);
    expect_refusal(intf_conf_sample(), 48, offsetof(intfConf, field7), lines.wrong_tag(8, 8, 7));
}

TEST_F(IntfConfTest, ATag4ItemOfLength8IsReadAsItsFirst4BytesAndSkippedWhole)
{
    expect_decoding({items[0], "00000004 00000008 01020304 aabbccdd", items[2], items[3], items[4]},
                    intf_conf_sample());
}

TEST_F(IntfConfTest, CopiesItsFieldsAndZeroesTheRestOfTheTexts)
{
    auto source = intf_conf_sample();
    auto expected = empty_destination<intfConf>();
    fill(expected);
    auto destination = empty_destination<intfConf>();
    EXPECT_EQ(gorvaNet_intfConf_copy(&destination, &source), 0u);
    EXPECT_EQ(memory_of(destination), memory_of(with_zeroed_rests(expected, texts_in(fields))));
}

TEST_F(IntfConfTest, ACopyOfATextThatFillsAll256BytesHas255CharactersAndANul)
{
    expect_unterminated_texts_cut(intf_conf_sample(), texts_in(fields));
}

TEST_F(IntfConfTest, CleanDoesNothing)
{
    auto record = intf_conf_sample();
    gorvaNet_intfConf_clean(&record);
    EXPECT_EQ(memory_of(record), memory_of(intf_conf_sample()));
    gorvaNet_intfConf_clean(nullptr);
}
