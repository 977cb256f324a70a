// The four lists of ipv6_properties. Their own tags 11, 13, 15 and 18 never travel.

#include "ipv6_properties_sample.h"
#include "list_test.h"

namespace {

class Ipv6PropertiesListsTest : public ListTest {
protected:
    template <size_t Capacity> using Addresses = List<ipv6_properties, ipv6_address, Capacity>;

    // A list of addresses: its count is this one of the items.
    template <size_t Capacity>
    static Addresses<Capacity> addresses(uint32_t ipv6_properties::*count, size_t count_item, uint32_t count_tag,
                                         ipv6_address (ipv6_properties::*elements)[Capacity])
    {
        return {
            .record_name = "gorvaNet_ipv6_properties",
            .element_name = "gorvaNet_ipv6_address",
            .count = count,
            .elements = elements,
            .count_tag = count_tag,
            .element_items = address_items,
            .first_item = first_item_of_address,
            .copy_failure = "Copy ipv6_address failed",
            .rest = without_elements(),
            .head = items_before(count_item),
            .tail = items_behind(count_item),
        };
    }

    static Items items_before(size_t item)
    {
        return Items(empty_list_items.begin(), empty_list_items.begin() + static_cast<ptrdiff_t>(item));
    }

    static Items items_behind(size_t item)
    {
        return Items(empty_list_items.begin() + static_cast<ptrdiff_t>(item) + 1, empty_list_items.end());
    }

    static Addresses<2> first_group()
    {
        auto list = addresses(&ipv6_properties::field10, 7, 10, &ipv6_properties::field11);
        list.encoder_announces = {12, 14, 17};
        list.decoder_announces = {12, 14, 16, 17, 19};
        return list;
    }

    static Addresses<2> second_group()
    {
        auto list = addresses(&ipv6_properties::field12, 8, 12, &ipv6_properties::field13);
        list.encoder_announces = {14, 17};
        list.decoder_announces = {14, 16, 17, 19};
        return list;
    }

    static Addresses<10> address_list()
    {
        auto list = addresses(&ipv6_properties::field14, 9, 14, &ipv6_properties::field15);
        list.encoder_announces = {17};
        list.decoder_announces = {16, 17, 19};
        return list;
    }

    static List<ipv6_properties, ipv6_prefix, 10> prefix_list()
    {
        return {
            .record_name = "gorvaNet_ipv6_properties",
            .element_name = "gorvaNet_ipv6_prefix",
            .count = &ipv6_properties::field17,
            .elements = &ipv6_properties::field18,
            .count_tag = 17,
            .element_items = prefix_items,
            .first_item = first_item_of_prefix,
            .copy_failure = "Copy ipv6_prefix failed",
            .rest = without_elements(),
            .head = items_before(11),
            .tail = items_behind(11),
            .encoder_announces = {},
            .decoder_announces = {19},
        };
    }
};

} // namespace

TEST_F(Ipv6PropertiesListsTest, TheFirstGroupHoldsTwoAddresses)
{
    expect_list(first_group());
}

TEST_F(Ipv6PropertiesListsTest, TheSecondGroupHoldsTwoAddresses)
{
    expect_list(second_group());
}

TEST_F(Ipv6PropertiesListsTest, TheAddressListHoldsTenAddresses)
{
    expect_list(address_list());
}

TEST_F(Ipv6PropertiesListsTest, ThePrefixListHoldsTenPrefixes)
{
    expect_list(prefix_list());
}

TEST_F(Ipv6PropertiesListsTest, AField10Of3IsFollowedByTwoAddressesAndComesBack)
{
    Items items = list_items(first_group(), 3, 2);
    EXPECT_EQ(items[7], "0000000a 00000004 00000003");
    expect_encoding(with_elements_set(first_group(), 3, 2), items);
    expect_decoding(items, with_elements_set(first_group(), 3, 2));
}

TEST_F(Ipv6PropertiesListsTest, AField14Of11IsFollowedByTenAddressesAndComesBack)
{
    Items items = list_items(address_list(), 11, 10);
    EXPECT_EQ(items[9], "0000000e 00000004 0000000b");
    expect_encoding(with_elements_set(address_list(), 11, 10), items);
    expect_decoding(items, with_elements_set(address_list(), 11, 10));
}

TEST_F(Ipv6PropertiesListsTest, AnAddressTooManyStandsWhereTheNextFieldIsExpected)
{
    receive(bytes(list_items(first_group(), 3, 3)));
    size_t third = place_of(first_group(), 2);
    auto decoded = untouched_record<ipv6_properties>();
    EXPECT_EQ(gorvaNet_ipv6_properties_unserialize(&decoded, &read_cursor), 4u);
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(third));
    EXPECT_EQ(take_log(),
              ExpectedLines("gorvaNet_ipv6_properties_unserialize", wire).wrong_tag(3, 4, 12).before({14, 16, 17, 19}));
}

TEST_F(Ipv6PropertiesListsTest, AFailedTextKeepsAllElementsFromBeingEncodedAndDecoded)
{
    auto record = with_elements();
    pretend_length(record.field7, 0xfffffffe);
    EXPECT_EQ(gorvaNet_ipv6_properties_serialize(&record, &write_cursor), 4u);
    EXPECT_EQ(take_log(),
              ExpectedLines("gorvaNet_ipv6_properties_serialize", wire).too_long(-1, 0).before({10, 12, 14, 17}));
    receive(Bytes(16, 0));
    EXPECT_EQ(gorvaNet_ipv6_properties_unserialize(&record, &read_cursor), 4u);
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_ipv6_properties_unserialize", wire)
                              .wrong_tag(0, 0, 3)
                              .before({4, 5, 6, 7, 8, 9, 10, 12, 14, 16, 17, 19}));
    EXPECT_EQ(take_nested_calls(), Calls{});
}

TEST_F(Ipv6PropertiesListsTest, AFailureInTheMiddleOfAnAddressKeepsWhatItDecoded)
{
    Items items = full_items;
    Items address = address_items(3);
    address[3] = "00000009 00000004 00000000";
    items[10] = joined(address_items(2)) + joined(address);
    receive(bytes(items));
    size_t second = bytes_before(items, 10).size() + 60;
    auto decoded = untouched_record<ipv6_properties>();
    EXPECT_EQ(gorvaNet_ipv6_properties_unserialize(&decoded, &read_cursor), 4u);
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(second) + 36);
    EXPECT_STREQ(decoded.field13[1].field3, "a3");
    EXPECT_EQ(decoded.field13[1].field6, 0x80000063);
    EXPECT_EQ(decoded.field13[1].field7, 0x5a5a5a5au);
    EXPECT_EQ(decoded.field14, 0x5a5a5a5au);
    EXPECT_EQ(take_log(),
              ExpectedLines("gorvaNet_ipv6_address_unserialize", wire + second)
                  .wrong_tag(9, 4, 7)
                  .before({8})
                  .and_then(ExpectedLines("gorvaNet_ipv6_properties_unserialize", wire).before({14, 16, 17, 19})));
}
