#include "samples.h"

#include <cstddef>

namespace {

class Ipv6PrefixTest : public RecordTest {};

constexpr const char *decoder = "gorvaNet_ipv6_prefix_unserialize";

// The sample with texts of these lengths, and its encoding but for the two items that hold them.
ipv6_prefix with_texts(size_t first, size_t second)
{
    auto record = sample<ipv6_prefix>(1);
    memset(record.field3, untouched_byte, sizeof record.field3);
    memset(record.field11, untouched_byte, sizeof record.field11);
    set(record.field3, std::string(first, 'f'));
    set(record.field11, std::string(second, 's'));
    return record;
}

Items with_text_items(const std::string &first, const std::string &second)
{
    Items items = prefix_items(1);
    items[0] = first;
    items[8] = second;
    return items;
}

} // namespace

TEST_F(Ipv6PrefixTest, EncodesItsWireTable)
{
    expect_encoding(sample<ipv6_prefix>(1), prefix_items(1));
}

TEST_F(Ipv6PrefixTest, DecodesItsWireTableAndRefusesEveryDeviation)
{
    expect_fields(sample<ipv6_prefix>(2), prefix_items(2), prefix_fields);
}

TEST_F(Ipv6PrefixTest, BothTextsEmptyTake120Bytes)
{
    auto empty = with_text_items("00000003 00000004 00 ......", "0000000b 00000004 00 ......");
    expect_length(with_texts(0, 0), 120);
    expect_encoding(with_texts(0, 0), empty);
    expect_decoding(empty, with_texts(0, 0));
}

TEST_F(Ipv6PrefixTest, TextsOf45And149CharactersTake312BytesAndComeBackUnchanged)
{
    auto longest = with_text_items("00000003 00000030 'f'*45 00 ....", "0000000b 00000098 's'*149 00 ....");
    expect_length(with_texts(45, 149), 312);
    expect_encoding(with_texts(45, 149), longest);
    expect_decoding(longest, with_texts(45, 149));
}

TEST_F(Ipv6PrefixTest, AField3Of46CharactersFromTheWireGivesNineErrorBeforeLines)
{
    receive(bytes(with_text_items("00000003 00000030 'f'*46 00 ..", "0000000b 00000004 00 ......")));
    ExpectedLines lines(decoder, wire);
    lines.too_long(47, 46).before({4, 5, 6, 7, 8, 9, 10, 11, 12});
    expect_refusal(sample<ipv6_prefix>(1), 0, 0, lines);
}

TEST_F(Ipv6PrefixTest, AField11Of150CharactersFromTheWireIsRefused)
{
    receive(bytes(with_text_items("00000003 00000004 'p1' 00 ..", "0000000b 00000098 's'*150 00 ..")));
    ExpectedLines lines(decoder, wire);
    expect_refusal(sample<ipv6_prefix>(1), 96, offsetof(ipv6_prefix, field11), lines.too_long(151, 150).before({12}));
}

TEST_F(Ipv6PrefixTest, Field12IsZeroExtendedAndCutToItsLow8Bits)
{
    auto record = sample<ipv6_prefix>(1);
    record.field12 = 0xff;
    Items items = prefix_items(1);
    items[9] = "0000000c 00000004 000000ff";
    expect_encoding(record, items);
    items[9] = "0000000c 00000004 123456ff";
    expect_decoding(items, record);
}

TEST_F(Ipv6PrefixTest, CopiesItsFieldsAndZeroesTheRestOfTheTexts)
{
    auto source = sample<ipv6_prefix>(3);
    auto expected = empty_destination<ipv6_prefix>();
    fill(expected, 3);
    auto destination = empty_destination<ipv6_prefix>();
    EXPECT_EQ(gorvaNet_ipv6_prefix_copy(&destination, &source), 0u);
    EXPECT_EQ(memory_of(destination), memory_of(with_zeroed_rests(expected, texts_in(prefix_fields))));
}

TEST_F(Ipv6PrefixTest, ACopyOfATextWithoutANulIsTerminatedAtTheLastIndex)
{
    expect_unterminated_texts_cut(sample<ipv6_prefix>(1), texts_in(prefix_fields));
}

TEST_F(Ipv6PrefixTest, CleanDoesNothing)
{
    auto record = sample<ipv6_prefix>(1);
    gorvaNet_ipv6_prefix_clean(&record);
    EXPECT_EQ(memory_of(record), memory_of(sample<ipv6_prefix>(1)));
    gorvaNet_ipv6_prefix_clean(nullptr);
}
