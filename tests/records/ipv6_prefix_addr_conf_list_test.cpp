#include "list_test.h"

namespace {

class Ipv6PrefixAddrConfListTest : public ListTest {
protected:
    const List<ipv6_prefix_addr_conf_list, ipv6_prefix_addr_conf, 5> list = {
        .record_name = "gorvaNet_ipv6_prefix_addr_conf_list",
        .element_name = "gorvaNet_ipv6_prefix_addr_conf",
        .count = &ipv6_prefix_addr_conf_list::field3,
        .elements = &ipv6_prefix_addr_conf_list::confs,
        .count_tag = 3,
        .element_items = addr_conf_items,
        .first_item = first_item_of_addr_conf,
        .copy_failure = "Copy ipv6_prefix_addr_conf failed",
        .rest = untouched_record<ipv6_prefix_addr_conf_list>(),
    };
};

constexpr size_t entry_size = 12 + 16 + 124 + 60; // of a sample on the wire

} // namespace

TEST_F(Ipv6PrefixAddrConfListTest, EncodesDecodesAndCopiesAsManyEntriesAsTheCountSays)
{
    expect_list(list);
}

TEST_F(Ipv6PrefixAddrConfListTest, RefusesEveryDeviationOfTheCountItem)
{
    expect_fields(with_elements_set(list, 2, 2), list_items(list, 2, 2), {{0, 3, 0, 0, {}}});
}

TEST_F(Ipv6PrefixAddrConfListTest, Count0Takes12BytesAndDecodesToCount0)
{
    auto record = with_elements_set(list, 0, 0);
    expect_length(record, 12);
    expect_encoding(record, {"00000003 00000004 00000000"});
    expect_decoding({"00000003 00000004 00000000"}, record);
}

TEST_F(Ipv6PrefixAddrConfListTest, Count7WritesTheCount7AndFiveEntriesAndComesBack)
{
    Items items = list_items(list, 7, 5);
    EXPECT_EQ(items[0], "00000003 00000004 00000007");
    expect_encoding(with_elements_set(list, 7, 5), items);
    Bytes content = bytes(items);
    EXPECT_EQ(content.size(), 12 + 5 * entry_size);
    receive(content + bytes(addr_conf_items(5)) + bytes(addr_conf_items(6)));
    expect_received(with_elements_set(list, 7, 5), static_cast<ptrdiff_t>(content.size()));
}

TEST_F(Ipv6PrefixAddrConfListTest, AFailedConfigurationKeepsItsAddressAndAllLaterEntriesFromBeingDecoded)
{
    Items items = list_items(list, 4, 4);
    Items config = config_items(1);
    config[1] = "00000007 00000008 'cd1' 00 ........";
    items[2] = joined(config) + joined(address_items(1));
    receive(bytes(items));
    constexpr size_t second = 12 + entry_size;
    auto expected = with_elements_set(list, 4, 1);
    set(expected.confs[1].config.field3, "c1");

    auto decoded = untouched_record<ipv6_prefix_addr_conf_list>();
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_list_unserialize(&decoded, &read_cursor), 4u);
    EXPECT_EQ(memory_of(decoded), memory_of(expected));
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(second) + 12);
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_ipv6_prefix_config_unserialize", wire + second).wrong_tag(7, 8, 4));
    Calls calls = take_nested_calls();
    EXPECT_EQ(calls_of("gorvaNet_ipv6_address_unserialize", calls).size(), 1u);
    EXPECT_EQ(calls_of("gorvaNet_ipv6_prefix_addr_conf_unserialize", calls).size(), 2u);
}

TEST_F(Ipv6PrefixAddrConfListTest, AWrongCountTagKeepsTheEntriesFromBeingRead)
{
    auto record = with_elements_set(list, 2, 2);
    receive(bytes("00000000 00000004 00000002") + bytes(addr_conf_items(0)));
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_list_unserialize(&record, &read_cursor), 4u);
    EXPECT_EQ(moved(read_cursor), 0);
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_ipv6_prefix_addr_conf_list_unserialize", wire).wrong_tag(0, 4, 3));
    EXPECT_EQ(take_nested_calls(), Calls{});
}

TEST_F(Ipv6PrefixAddrConfListTest, TheLongestTakes3012Bytes)
{
    auto record = with_elements_set(list, 5, 5);
    for (ipv6_prefix_addr_conf &conf : record.confs) {
        set(conf.config.field3, std::string(79, 'a'));
        set(conf.config.field4, std::string(79, 'b'));
        set(conf.config.prefix.field3, std::string(45, 'c'));
        set(conf.config.prefix.field11, std::string(149, 'd'));
        set(conf.address.field3, std::string(45, 'e'));
    }
    expect_length(record, 3012);
}

TEST_F(Ipv6PrefixAddrConfListTest, CleanOfNothingDoesNothing)
{
    gorvaNet_ipv6_prefix_addr_conf_list_clean(nullptr);
    EXPECT_EQ(take_nested_calls(), Calls{});
}
