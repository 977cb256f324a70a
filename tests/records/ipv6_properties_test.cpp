#include "ipv6_properties_sample.h"

#include <cstddef>

namespace {

class Ipv6PropertiesTest : public RecordTest {};

constexpr const char *decoder = "gorvaNet_ipv6_properties_unserialize";

// The items of a record without elements, with another one in its place.
Items with(size_t item, const std::string &text)
{
    Items items = empty_list_items;
    items[item] = text;
    return items;
}

// Addresses and prefixes with the longest texts.
template <typename Element, size_t Capacity> void lengthen(Element (&elements)[Capacity])
{
    for (Element &element : elements)
        set(element.field3, std::string(45, 'e'));
}

} // namespace

TEST_F(Ipv6PropertiesTest, EncodesItsWireTable)
{
    expect_encoding(without_elements(), empty_list_items);
    expect_encoding(with_elements(), full_items);
}

TEST_F(Ipv6PropertiesTest, DecodesItsWireTableAndRefusesEveryDeviation)
{
    expect_decoding(empty_list_items, without_elements());
    expect_fields(with_elements(), full_items, ipv6_properties_fields);
}

TEST_F(Ipv6PropertiesTest, AllCounts0AndAllTextsEmptyTake156Bytes)
{
    ipv6_properties record = {};
    expect_length(record, 156);
    expect_encoding(record, {"00000003 00000004 00000000", "00000004 00000004 00000000", "00000005 00000004 00000000",
                             "00000006 00000004 00000000", "00000007 00000004 00 ......", "00000008 00000004 00 ......",
                             "00000009 00000004 00 ......", "0000000a 00000004 00000000", "0000000c 00000004 00000000",
                             "0000000e 00000004 00000000", "00000010 00000004 00 ......", "00000011 00000004 00000000",
                             "00000013 00000004 00 ......"});
}

TEST_F(Ipv6PropertiesTest, TheLongestTakesTheSumOfItsItems)
{
    ipv6_properties record = {};
    record.field10 = record.field12 = 2;
    record.field14 = record.field17 = 10;
    set(record.field7, std::string(49, 'a'));
    set(record.field8, std::string(49, 'b'));
    set(record.field9, std::string(49, 'c'));
    set(record.field16, std::string(45, 'd'));
    set(record.field19, std::string(255, 'e'));
    lengthen(record.field11);
    lengthen(record.field13);
    lengthen(record.field15);
    lengthen(record.field18);
    for (ipv6_prefix &prefix : record.field18)
        set(prefix.field11, std::string(149, 'f'));
    // 49 characters take 60 bytes, 45 take 56, 255 take 268; an address takes 104 and a prefix 312.
    expect_length(record, 48 + 3 * 60 + 12 + 2 * 104 + 12 + 2 * 104 + 12 + 10 * 104 + 56 + 12 + 10 * 312 + 268);
}

TEST_F(Ipv6PropertiesTest, AField3OfMinus1IsWrittenAsFFFFFFFFAndComesBack)
{
    auto record = without_elements();
    record.field3 = -1;
    expect_encoding(record, with(0, "00000003 00000004 ffffffff"));
    expect_decoding(with(0, "00000003 00000004 ffffffff"), record);
}

TEST_F(Ipv6PropertiesTest, TheSmallValuesAreSignExtendedAndCutToTheirLow8Bits)
{
    for (size_t item = 0; item < 4; item++) {
        constexpr int8_t ipv6_properties::*values[] = {&ipv6_properties::field3, &ipv6_properties::field4,
                                                       &ipv6_properties::field5, &ipv6_properties::field6};
        auto record = without_elements();
        record.*values[item] = -2;
        std::string tag = "0000000" + std::to_string(3 + item);
        expect_encoding(record, with(item, tag + " 00000004 fffffffe"));
        expect_decoding(with(item, tag + " 00000004 fffffffe"), record);
        expect_decoding(with(item, tag + " 00000004 000000fe"), record);
        record.*values[item] = 0x21;
        expect_decoding(with(item, tag + " 00000004 87654321"), record);
    }
}

TEST_F(Ipv6PropertiesTest, AField19Of256CharactersIsRefusedAfterAllOtherFieldsHaveBeenDecoded)
{
    Items items = full_items;
    items[16] = "00000013 00000104 'x'*256 00 ......";
    receive(bytes(items));
    expect_refusal(with_elements(), bytes_before(items, 16).size(), offsetof(ipv6_properties, field19),
                   ExpectedLines(decoder, wire).too_long(257, 256));
}

TEST_F(Ipv6PropertiesTest, AnItemOfTag11BehindACountOf0IsRefused)
{
    receive(bytes(with(8, "0000000b 00000004 00000000")));
    expect_refusal(without_elements(), bytes_before(empty_list_items, 8).size(), offsetof(ipv6_properties, field11),
                   ExpectedLines(decoder, wire).wrong_tag(11, 4, 12).before({14, 16, 17, 19}));
}

TEST_F(Ipv6PropertiesTest, CopiesItsFieldsAndZeroesTheRestOfTheTexts)
{
    auto source = without_elements();
    auto expected = empty_destination<ipv6_properties>();
    fill(expected);
    auto destination = empty_destination<ipv6_properties>();
    EXPECT_EQ(gorvaNet_ipv6_properties_copy(&destination, &source), 0u);
    EXPECT_EQ(memory_of(destination), memory_of(with_zeroed_rests(expected, texts_in(ipv6_properties_fields))));
}

TEST_F(Ipv6PropertiesTest, ACopyOfATextWithoutANulIsTerminatedAtTheLastIndex)
{
    expect_unterminated_texts_cut(without_elements(), texts_in(ipv6_properties_fields));
}

TEST_F(Ipv6PropertiesTest, CleanOfNothingDoesNothing)
{
    gorvaNet_ipv6_properties_clean(nullptr);
    EXPECT_EQ(take_nested_calls(), Calls{});
}

TEST_F(Ipv6PropertiesTest, CleanHandsOnToEveryUsedElementInOrder)
{
    auto record = with_elements();
    gorvaNet_ipv6_properties_clean(&record);
    constexpr const char *address = "gorvaNet_ipv6_address_clean";
    constexpr const char *prefix = "gorvaNet_ipv6_prefix_clean";
    EXPECT_EQ(take_nested_calls(), (Calls{{address, {word(&record.field11[0])}},
                                          {address, {word(&record.field13[0])}},
                                          {address, {word(&record.field13[1])}},
                                          {address, {word(&record.field15[0])}},
                                          {address, {word(&record.field15[1])}},
                                          {address, {word(&record.field15[2])}},
                                          {prefix, {word(&record.field18[0])}},
                                          {prefix, {word(&record.field18[1])}}}));
    EXPECT_EQ(memory_of(record), memory_of(with_elements()));
}
