#include "samples.h"

#include <cstddef>

namespace {

class Ipv4AddressTest : public RecordTest {};

void fill(ipv4_address &record)
{
    record.field3 = 0x80000003;
    record.field4 = 0xfffffffe;
    record.field5 = 200;
    set(record.field6, "f6");
    set(record.field7, "f-7");
    set(record.field8, "8");
    set(record.field9, "");
    set(record.field10, "10.");
}

ipv4_address ipv4_address_sample()
{
    auto record = untouched_record<ipv4_address>();
    fill(record);
    return record;
}

const Items items = {
    "00000003 00000004 80000003",   "00000004 00000004 fffffffe",          "00000005 00000004 000000c8",
    "00000006 00000004 'f6' 00 ..", "00000007 00000008 'f-7' 00 ........", "00000008 00000004 '8' 00 ....",
    "00000009 00000004 00 ......",  "0000000a 00000008 '10.' 00 ........",
};

const Fields fields = {
    {0, 3, offsetof(ipv4_address, field3), 0, {4, 5, 6, 7, 8, 9, 10}},
    {1, 4, offsetof(ipv4_address, field4), 0, {5, 6, 7, 8, 9, 10}},
    {2, 5, offsetof(ipv4_address, field5), 0, {6, 7, 8, 9, 10}},
    {3, 6, offsetof(ipv4_address, field6), 33, {7, 8, 9, 10}},
    {4, 7, offsetof(ipv4_address, field7), 16, {8, 9, 10}},
    {5, 8, offsetof(ipv4_address, field8), 16, {9, 10}},
    {6, 9, offsetof(ipv4_address, field9), 16, {10}},
    {7, 10, offsetof(ipv4_address, field10), 33, {}},
};

constexpr const char *decoder = "gorvaNet_ipv4_address_unserialize";

// The sample's items with another one in its place.
Items with(size_t item, const std::string &text)
{
    Items changed = items;
    changed[item] = text;
    return changed;
}

} // namespace

TEST_F(Ipv4AddressTest, EncodesItsWireTable)
{
    expect_encoding(ipv4_address_sample(), items);
}

TEST_F(Ipv4AddressTest, DecodesItsWireTableAndRefusesEveryDeviation)
{
    expect_fields(ipv4_address_sample(), items, fields);
}

TEST_F(Ipv4AddressTest, AllTextsEmptyTake96Bytes)
{
    ipv4_address record = {};
    expect_length(record, 96);
    expect_encoding(record,
                    {"00000003 00000004 00000000", "00000004 00000004 00000000", "00000005 00000004 00000000",
                     "00000006 00000004 00 ......", "00000007 00000004 00 ......", "00000008 00000004 00 ......",
                     "00000009 00000004 00 ......", "0000000a 00000004 00 ......"});
}

TEST_F(Ipv4AddressTest, TheLongestTakes208BytesAndComesBack)
{
    auto record = ipv4_address_sample();
    set(record.field6, std::string(32, 'f'));
    set(record.field7, std::string(15, 'g'));
    set(record.field8, std::string(15, 'h'));
    set(record.field9, std::string(15, 'i'));
    set(record.field10, std::string(32, 'j'));
    Items longest = {items[0],
                     items[1],
                     items[2],
                     "00000006 00000024 'f'*32 00 ......",
                     "00000007 00000014 'g'*15 00 ........",
                     "00000008 00000014 'h'*15 00 ........",
                     "00000009 00000014 'i'*15 00 ........",
                     "0000000a 00000024 'j'*32 00 ......"};
    expect_length(record, 208);
    expect_encoding(record, longest);
    expect_decoding(longest, record);
}

TEST_F(Ipv4AddressTest, AField5Of200IsZeroExtendedAndCutToItsLow8Bits)
{
    auto record = ipv4_address_sample();
    record.field5 = 200;
    expect_encoding(record, with(2, "00000005 00000004 000000c8"));
    expect_decoding(with(2, "00000005 00000004 000000c8"), record);
    record.field5 = 1;
    expect_decoding(with(2, "00000005 00000004 00000101"), record);
}

TEST_F(Ipv4AddressTest, AField6Of32CharactersIsTakenAndOneOf33Refused)
{
    auto record = ipv4_address_sample();
    set(record.field6, std::string(32, 'f'));
    expect_decoding(with(3, "00000006 00000024 'f'*32 00 ......"), record);
    receive(bytes(with(3, "00000006 00000024 'f'*33 00 ....")));
    ExpectedLines lines(decoder, wire);
    lines.too_long(34, 33).before({7, 8, 9, 10});
    expect_refusal(record, 36, offsetof(ipv4_address, field6), lines);
}

TEST_F(Ipv4AddressTest, AField7Of15CharactersTakes28BytesAndOneOf11CharactersTakes24)
{
    auto record = ipv4_address_sample();
    set(record.field7, "255.255.255.255");
    expect_encoding(record, with(4, "00000007 00000014 '255.255.255.255' 00 ........"));
    set(record.field7, "192.168.1.1");
    expect_encoding(record, with(4, "00000007 00000010 '192.168.1.1' 00 ........"));
}

TEST_F(Ipv4AddressTest, AField9Of20CharactersGivesOneErrorBeforeLine)
{
    receive(bytes(with(6, "00000009 00000018 'i'*20 00 ......")));
    ExpectedLines lines(decoder, wire);
    expect_refusal(ipv4_address_sample(), 36 + 12 + 16 + 12, offsetof(ipv4_address, field9),
                   lines.too_long(21, 16).before({10}));
}

TEST_F(Ipv4AddressTest, AWrongFirstTagGivesSevenErrorBeforeLinesAndAWrongLastOneNone)
{
    receive(bytes(with(0, "00000000 00000004 80000003")));
    ExpectedLines first(decoder, wire);
    expect_refusal(ipv4_address_sample(), 0, 0, first.wrong_tag(0, 4, 3).before({4, 5, 6, 7, 8, 9, 10}));
    receive(bytes(with(7, "0000000b 00000008 '10.' 00 ........")));
    ExpectedLines last(decoder, wire);
    expect_refusal(ipv4_address_sample(), 36 + 12 + 16 + 12 + 12, offsetof(ipv4_address, field10),
                   last.wrong_tag(11, 8, 10));
}

TEST_F(Ipv4AddressTest, CopiesItsFieldsAndZeroesTheRestOfTheTexts)
{
    auto source = ipv4_address_sample();
    auto expected = empty_destination<ipv4_address>();
    fill(expected);
    auto destination = empty_destination<ipv4_address>();
    EXPECT_EQ(gorvaNet_ipv4_address_copy(&destination, &source), 0u);
    EXPECT_EQ(memory_of(destination), memory_of(with_zeroed_rests(expected, texts_in(fields))));
}

TEST_F(Ipv4AddressTest, ACopyOfATextWithoutANulIsTerminatedAtTheLastIndex)
{
    expect_unterminated_texts_cut(ipv4_address_sample(), texts_in(fields));
}

TEST_F(Ipv4AddressTest, CleanDoesNothing)
{
    auto record = ipv4_address_sample();
    gorvaNet_ipv4_address_clean(&record);
    EXPECT_EQ(memory_of(record), memory_of(ipv4_address_sample()));
    gorvaNet_ipv4_address_clean(nullptr);
}
