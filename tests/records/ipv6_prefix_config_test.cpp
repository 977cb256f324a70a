#include "samples.h"

#include <cstddef>

namespace {

class Ipv6PrefixConfigTest : public RecordTest {
protected:
    ipv6_prefix_config record = sample<ipv6_prefix_config>(1);
    ipv6_prefix_config other = untouched_record<ipv6_prefix_config>();
};

constexpr const char *decoder = "gorvaNet_ipv6_prefix_config_unserialize";
constexpr size_t prefix_place = offsetof(ipv6_prefix_config, prefix);
constexpr size_t prefix_item = 12 + 16; // behind the two texts of the sample

Texts all_texts()
{
    return texts_in(config_fields) + texts_in(prefix_fields, prefix_place);
}

} // namespace

TEST_F(Ipv6PrefixConfigTest, EncodesItsWireTable)
{
    expect_encoding(record, config_items(1));
}

TEST_F(Ipv6PrefixConfigTest, DecodesItsWireTableAndRefusesEveryDeviation)
{
    expect_fields(record, config_items(1), config_fields);
}

TEST_F(Ipv6PrefixConfigTest, TakesFrom144To496Bytes)
{
    set(record.field3, "");
    set(record.field4, "");
    set(record.prefix.field3, "");
    set(record.prefix.field11, "");
    expect_length(record, 144);
    set(record.field3, std::string(79, 'a'));
    set(record.field4, std::string(79, 'b'));
    set(record.prefix.field3, std::string(45, 'c'));
    set(record.prefix.field11, std::string(149, 'd'));
    expect_length(record, 496);
}

TEST_F(Ipv6PrefixConfigTest, AFirstItemWithTag4GivesTheTlLineAndOneErrorBeforeLine)
{
    receive(bytes("00000004 00000004 'c1' 00 .."));
    expect_refusal(record, 0, 0, ExpectedLines(decoder, wire).wrong_tag(4, 4, 3).before({4}));
}

TEST_F(Ipv6PrefixConfigTest, ATextOf80CharactersIsRefused)
{
    receive(bytes("00000003 00000054 'c'*80 00 ......"));
    expect_refusal(record, 0, 0, ExpectedLines(decoder, wire).too_long(81, 80).before({4}));
}

TEST_F(Ipv6PrefixConfigTest, AFailedPrefixAddsNoLineOfTheConfigurationsOwn)
{
    Items prefix = prefix_items(1);
    prefix[2] = "00000009 00000004 00000000";
    receive(bytes(Items{config_items(1)[0], config_items(1)[1], joined(prefix)}));
    ExpectedLines lines("gorvaNet_ipv6_prefix_unserialize", wire + prefix_item);
    lines.wrong_tag(9, 4, 5).before({6, 7, 8, 9, 10, 11, 12});
    expect_refusal(record, prefix_item + 24, prefix_place + offsetof(ipv6_prefix, field5), lines);
}

TEST_F(Ipv6PrefixConfigTest, ThePrefixIsDecodedOnTheCallersCursor)
{
    receive(bytes(config_items(1)));
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_unserialize(&other, &read_cursor), 0u);
    EXPECT_EQ(take_nested_calls(), (Calls{{decoder, {word(&other), word(&read_cursor), word(wire)}},
                                          {"gorvaNet_ipv6_prefix_unserialize",
                                           {word(&other.prefix), word(&read_cursor), word(wire + prefix_item)}}}));
}

TEST_F(Ipv6PrefixConfigTest, ThePrefixIsEncodedOnTheCallersCursor)
{
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_serialize(&record, &write_cursor), 0u);
    EXPECT_EQ(take_nested_calls(),
              (Calls{{"gorvaNet_ipv6_prefix_config_serialize", {word(&record), word(&write_cursor), word(wire)}},
                     {"gorvaNet_ipv6_prefix_serialize",
                      {word(&record.prefix), word(&write_cursor), word(wire + prefix_item)}}}));
}

TEST_F(Ipv6PrefixConfigTest, AFailedTextKeepsThePrefixFromBeingEncodedAndDecoded)
{
    pretend_length(record.field4, 0xfffffffb);
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_serialize(&record, &write_cursor), 4u);
    receive(bytes("00000005 00000000"));
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_unserialize(&other, &read_cursor), 4u);
    EXPECT_EQ(take_nested_calls().size(), 2u) << "the two calls made here";
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_ipv6_prefix_config_serialize", wire)
                              .too_long(-4, 0)
                              .and_then(ExpectedLines(decoder, wire).wrong_tag(5, 0, 3).before({4})));
}

TEST_F(Ipv6PrefixConfigTest, AFailureOfThePrefixIsReturnedWithTheCursorWhereItWasLeft)
{
    refuse_call("gorvaNet_ipv6_prefix_serialize", {.nth = 1, .status = 7, .moves = 5});
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_serialize(&record, &write_cursor), 7u);
    EXPECT_EQ(moved(write_cursor), static_cast<ptrdiff_t>(prefix_item) + 5);
    receive(bytes(config_items(1)));
    refuse_call("gorvaNet_ipv6_prefix_unserialize", {.nth = 1, .status = 9, .moves = 3});
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_unserialize(&other, &read_cursor), 9u);
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(prefix_item) + 3);
}

TEST_F(Ipv6PrefixConfigTest, TheLengthOfThePrefixIsAskedFor)
{
    refuse_call("gorvaNet_ipv6_prefix_serialize_lg", {.nth = 1, .status = 10000});
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_serialize_lg(&record), prefix_item + 10000);
    EXPECT_EQ(take_nested_calls(), (Calls{{"gorvaNet_ipv6_prefix_config_serialize_lg", {word(&record)}},
                                          {"gorvaNet_ipv6_prefix_serialize_lg", {word(&record.prefix)}}}));
}

TEST_F(Ipv6PrefixConfigTest, CopiesItsFieldsAndItsPrefix)
{
    auto expected = empty_destination<ipv6_prefix_config>();
    fill(expected, 1);
    other = empty_destination<ipv6_prefix_config>();
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_copy(&other, &record), 0u);
    EXPECT_EQ(memory_of(other), memory_of(with_zeroed_rests(expected, all_texts())));
    EXPECT_EQ(take_nested_calls(), (Calls{{"gorvaNet_ipv6_prefix_config_copy", {word(&other), word(&record)}},
                                          {"gorvaNet_ipv6_prefix_copy", {word(&other.prefix), word(&record.prefix)}}}));
}

TEST_F(Ipv6PrefixConfigTest, ACopyOfATextWithoutANulIsTerminatedAtTheLastIndex)
{
    expect_unterminated_texts_cut(record, all_texts());
}

TEST_F(Ipv6PrefixConfigTest, AFailedCopyOfThePrefixIsLoggedSignedAndReturned)
{
    refuse_call("gorvaNet_ipv6_prefix_copy", {.nth = 1, .status = 0xfffffff0});
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_copy(&other, &record), 0xfffffff0);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, "gorvaNet_ipv6_prefix_config_copy", "Copy ipv6_prefix failed(%d)\n", -16)});
    EXPECT_STREQ(other.field3, "c1");
    EXPECT_STREQ(other.field4, "cd1");
}

TEST_F(Ipv6PrefixConfigTest, CleanCleansThePrefix)
{
    gorvaNet_ipv6_prefix_config_clean(&record);
    EXPECT_EQ(take_nested_calls(), (Calls{{"gorvaNet_ipv6_prefix_config_clean", {word(&record)}},
                                          {"gorvaNet_ipv6_prefix_clean", {word(&record.prefix)}}}));
    EXPECT_EQ(memory_of(record), memory_of(sample<ipv6_prefix_config>(1)));
}

TEST_F(Ipv6PrefixConfigTest, CleanOfNothingDoesNothing)
{
    gorvaNet_ipv6_prefix_config_clean(nullptr);
    EXPECT_EQ(take_nested_calls(), (Calls{{"gorvaNet_ipv6_prefix_config_clean", {0}}}));
}
