#include "list_test.h"

namespace {

class Ipv6PrefixesTest : public ListTest {
protected:
    const List<ipv6_prefixes, ipv6_prefix, 10> list = {
        .record_name = "gorvaNet_ipv6_prefixes",
        .element_name = "gorvaNet_ipv6_prefix",
        .count = &ipv6_prefixes::field3,
        .elements = &ipv6_prefixes::prefixes,
        .count_tag = 3,
        .element_items = prefix_items,
        .first_item = first_item_of_prefix,
        .copy_failure = "Copy ipv6_prefix failed",
        .rest = untouched_record<ipv6_prefixes>(),
    };
};

const Fields fields = {{0, 3, 0, 0, {}}};
constexpr const char *decoder = "gorvaNet_ipv6_prefixes_unserialize";

} // namespace

TEST_F(Ipv6PrefixesTest, EncodesDecodesAndCopiesAsManyEntriesAsTheCountSays)
{
    expect_list(list);
}

TEST_F(Ipv6PrefixesTest, RefusesEveryDeviationOfTheCountItem)
{
    expect_fields(with_elements_set(list, 2, 2), list_items(list, 2, 2), fields);
}

TEST_F(Ipv6PrefixesTest, Count0TakesThe12BytesOfTheCountAloneAndTouchesNoEntry)
{
    auto record = with_elements_set(list, 0, 0);
    expect_length(record, 12);
    expect_encoding(record, {"00000003 00000004 00000000"});
    expect_decoding({"00000003 00000004 00000000"}, record);
}

TEST_F(Ipv6PrefixesTest, Count12WritesTheCount12AndTenEntriesAndComesBack)
{
    auto record = with_elements_set(list, 12, 10);
    Items items = list_items(list, 12, 10);
    EXPECT_EQ(items[0], "00000003 00000004 0000000c");
    expect_encoding(record, items);
    expect_decoding(items, record);
}

TEST_F(Ipv6PrefixesTest, EntriesBeyondTheTenthStayUnread)
{
    Items items = list_items(list, 12, 10);
    Bytes content = bytes(items);
    receive(content + bytes(prefix_items(3)) + bytes(prefix_items(4)));
    expect_received(with_elements_set(list, 12, 10), static_cast<ptrdiff_t>(content.size()));
}

TEST_F(Ipv6PrefixesTest, AMalformedThirdEntryEndsTheListBehindTheFirstTwo)
{
    Items items = list_items(list, 5, 5);
    items[3] = "00000003 00000004 'p2' 00 .. 00000005 00000004 f0000042";
    receive(bytes(items));
    size_t third = 12 + 2 * 124;
    ExpectedLines lines("gorvaNet_ipv6_prefix_unserialize", wire + third);
    lines.wrong_tag(5, 4, 4).before({5, 6, 7, 8, 9, 10, 11, 12});
    ipv6_prefixes expected = with_elements_set(list, 5, 2);
    set(expected.prefixes[2].field3, "p2");
    auto decoded = untouched_record<ipv6_prefixes>();
    EXPECT_EQ(gorvaNet_ipv6_prefixes_unserialize(&decoded, &read_cursor), 4u);
    EXPECT_EQ(memory_of(decoded), memory_of(expected));
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(third) + 12);
    EXPECT_EQ(take_log(), lines);
    EXPECT_EQ(calls_of("gorvaNet_ipv6_prefix_unserialize", take_nested_calls()).size(), 3u);
}

TEST_F(Ipv6PrefixesTest, AWrongCountTagKeepsTheEntriesFromBeingRead)
{
    auto record = with_elements_set(list, 2, 2);
    receive(bytes("00000004 00000004 00000002") + bytes(prefix_items(0)));
    EXPECT_EQ(gorvaNet_ipv6_prefixes_unserialize(&record, &read_cursor), 4u);
    EXPECT_EQ(moved(read_cursor), 0);
    EXPECT_EQ(take_log(), ExpectedLines(decoder, wire).wrong_tag(4, 4, 3));
    EXPECT_EQ(take_nested_calls(), Calls{});
}

TEST_F(Ipv6PrefixesTest, TheLongestTakes3132Bytes)
{
    auto record = with_elements_set(list, 10, 10);
    for (ipv6_prefix &prefix : record.prefixes) {
        set(prefix.field3, std::string(45, 'c'));
        set(prefix.field11, std::string(149, 'd'));
    }
    expect_length(record, 3132);
}

TEST_F(Ipv6PrefixesTest, CleanOfNothingDoesNothing)
{
    gorvaNet_ipv6_prefixes_clean(nullptr);
    EXPECT_EQ(take_nested_calls(), Calls{});
}
