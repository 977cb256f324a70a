#include "samples.h"

#include <cstddef>

namespace {

class Ipv4InfoTest : public RecordTest {};

constexpr const char *decoder = "gorvaNet_ipv4_info_unserialize";

} // namespace

TEST_F(Ipv4InfoTest, EncodesItsWireTable)
{
    expect_encoding(sample<ipv4_info>(1), info_items(1));
}

TEST_F(Ipv4InfoTest, DecodesItsWireTableAndRefusesEveryDeviation)
{
    expect_fields(sample<ipv4_info>(2), info_items(2), info_fields);
}

TEST_F(Ipv4InfoTest, BothTextsEmptyTake24Bytes)
{
    ipv4_info record = {.field3 = "", .field4 = ""};
    expect_length(record, 24);
    expect_encoding(record, {"00000003 00000004 00 ......", "00000004 00000004 00 ......"});
}

TEST_F(Ipv4InfoTest, AnAddressOf11CharactersTakes36BytesWithLength16)
{
    ipv4_info record = {.field3 = "192.168.1.1", .field4 = ""};
    expect_length(record, 36);
    expect_encoding(record, {"00000003 00000010 '192.168.1.1' 00 ........", "00000004 00000004 00 ......"});
}

TEST_F(Ipv4InfoTest, TextsOf15And149CharactersTake188BytesAndComeBack)
{
    auto record = untouched_record<ipv4_info>();
    set(record.field3, "255.255.255.255");
    set(record.field4, std::string(149, 'w'));
    Items longest = {"00000003 00000014 '255.255.255.255' 00 ........", "00000004 00000098 'w'*149 00 ...."};
    expect_length(record, 188);
    expect_encoding(record, longest);
    expect_decoding(longest, record);
}

TEST_F(Ipv4InfoTest, AField3Of16CharactersFromTheWireIsRefused)
{
    receive(bytes(Items{"00000003 00000014 'i'*16 00 ......", info_items(1)[1]}));
    expect_refusal(sample<ipv4_info>(1), 0, 0, ExpectedLines(decoder, wire).too_long(17, 16).before({4}));
}

TEST_F(Ipv4InfoTest, AField4Of149CharactersIsTakenAndOneOf150Refused)
{
    auto record = sample<ipv4_info>(1);
    set(record.field4, std::string(149, 'w'));
    expect_decoding({info_items(1)[0], "00000004 00000098 'w'*149 00 ...."}, record);
    receive(bytes(Items{info_items(1)[0], "00000004 00000098 'w'*150 00 .."}));
    ExpectedLines lines(decoder, wire);
    expect_refusal(record, 12, offsetof(ipv4_info, field4), lines.too_long(151, 150));
}

TEST_F(Ipv4InfoTest, CopiesBothTextsAndZeroesTheirRests)
{
    auto source = sample<ipv4_info>(3);
    auto expected = empty_destination<ipv4_info>();
    fill(expected, 3);
    auto destination = empty_destination<ipv4_info>();
    EXPECT_EQ(gorvaNet_ipv4_info_copy(&destination, &source), 0u);
    EXPECT_EQ(memory_of(destination), memory_of(with_zeroed_rests(expected, texts_in(info_fields))));
}

TEST_F(Ipv4InfoTest, ACopyOfAField3Of16BytesWithoutANulHas15CharactersAndANul)
{
    expect_unterminated_texts_cut(sample<ipv4_info>(1), texts_in(info_fields));
}

TEST_F(Ipv4InfoTest, CleanDoesNothing)
{
    auto record = sample<ipv4_info>(1);
    gorvaNet_ipv4_info_clean(&record);
    EXPECT_EQ(memory_of(record), memory_of(sample<ipv4_info>(1)));
    gorvaNet_ipv4_info_clean(nullptr);
}
