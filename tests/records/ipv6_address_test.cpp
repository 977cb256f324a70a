#include "samples.h"

#include <cstddef>

namespace {

class Ipv6AddressTest : public RecordTest {};

constexpr const char *decoder = "gorvaNet_ipv6_address_unserialize";

} // namespace

TEST_F(Ipv6AddressTest, EncodesItsWireTable)
{
    expect_encoding(sample<ipv6_address>(1), address_items(1));
}

TEST_F(Ipv6AddressTest, DecodesItsWireTableAndRefusesEveryDeviation)
{
    expect_fields(sample<ipv6_address>(2), address_items(2), address_fields);
}

TEST_F(Ipv6AddressTest, AnEmptyTextTakes60BytesWithoutAnItemOfTag4)
{
    ipv6_address record = {.field3 = "", .field5 = 5, .field6 = 6, .field7 = 7, .field8 = 8};
    expect_length(record, 60);
    expect_encoding(record, {"00000003 00000004 00 ......", "00000005 00000004 00000005", "00000006 00000004 00000006",
                             "00000007 00000004 00000007", "00000008 00000004 00000008"});
}

TEST_F(Ipv6AddressTest, ATextOf45CharactersTakes104BytesAndComesBack)
{
    auto record = sample<ipv6_address>(1);
    set(record.field3, std::string(45, 'z'));
    Items items = address_items(1);
    items[0] = "00000003 00000030 'z'*45 00 ....";
    expect_length(record, 104);
    expect_encoding(record, items);
    expect_decoding(items, record);
}

TEST_F(Ipv6AddressTest, AnItemOfTag4BehindTheTextIsRefused)
{
    Items items = address_items(1);
    receive(bytes(Items{items[0], "00000004 00000004 00000000", items[1], items[2], items[3], items[4]}));
    ExpectedLines lines(decoder, wire);
    lines.wrong_tag(4, 4, 5).before({6, 7, 8});
    expect_refusal(sample<ipv6_address>(1), 12, offsetof(ipv6_address, field5), lines);
}

TEST_F(Ipv6AddressTest, ATextOf46CharactersIsRefused)
{
    receive(bytes("00000003 00000030 'z'*46 00 .."));
    ExpectedLines lines(decoder, wire);
    expect_refusal(sample<ipv6_address>(1), 0, 0, lines.too_long(47, 46).before({5, 6, 7, 8}));
}

TEST_F(Ipv6AddressTest, AWrongTag8GivesTheTlLineAlone)
{
    Items items = address_items(1);
    items[4] = "00000009 00000004 80000081";
    receive(bytes(items));
    ExpectedLines lines(decoder, wire);
    expect_refusal(sample<ipv6_address>(1), 48, offsetof(ipv6_address, field8), lines.wrong_tag(9, 4, 8));
}

TEST_F(Ipv6AddressTest, CopiesItsFieldsAndZeroesTheRestOfTheText)
{
    auto source = sample<ipv6_address>(3);
    auto expected = empty_destination<ipv6_address>();
    fill(expected, 3);
    auto destination = empty_destination<ipv6_address>();
    EXPECT_EQ(gorvaNet_ipv6_address_copy(&destination, &source), 0u);
    EXPECT_EQ(memory_of(destination), memory_of(with_zeroed_rests(expected, texts_in(address_fields))));
}

TEST_F(Ipv6AddressTest, ACopyOfATextWithoutANulIsTerminatedAtTheLastIndex)
{
    expect_unterminated_texts_cut(sample<ipv6_address>(1), texts_in(address_fields));
}

TEST_F(Ipv6AddressTest, CleanDoesNothing)
{
    auto record = sample<ipv6_address>(1);
    gorvaNet_ipv6_address_clean(&record);
    EXPECT_EQ(memory_of(record), memory_of(sample<ipv6_address>(1)));
    gorvaNet_ipv6_address_clean(nullptr);
}
