// ipv6_prefix_addr_conf and its list.

#include "list_test.h"

#include <cstddef>

namespace {

class Ipv6PrefixAddrConfTest : public RecordTest {
protected:
    ipv6_prefix_addr_conf record = sample<ipv6_prefix_addr_conf>(1);
    ipv6_prefix_addr_conf other = untouched_record<ipv6_prefix_addr_conf>();
};

constexpr size_t address_place = offsetof(ipv6_prefix_addr_conf, address);
constexpr size_t config_size = 12 + 16 + 124; // of the sample's configuration on the wire

Texts all_texts()
{
    return texts_in(config_fields) + texts_in(prefix_fields, offsetof(ipv6_prefix_config, prefix)) +
           texts_in(address_fields, address_place);
}

} // namespace

TEST_F(Ipv6PrefixAddrConfTest, EncodesAndDecodesItsWireTable)
{
    expect_encoding(record, addr_conf_items(1));
    expect_decoding(addr_conf_items(1), record);
}

TEST_F(Ipv6PrefixAddrConfTest, AllTextsEmptyTake204BytesAndAllFull600)
{
    for (const Text &text : all_texts())
        reinterpret_cast<char *>(&record)[text.offset] = '\0';
    expect_length(record, 204);
    EXPECT_EQ(gorvaNet_ipv6_prefix_config_serialize_lg(&record.config), 144u);
    EXPECT_EQ(gorvaNet_ipv6_address_serialize_lg(&record.address), 60u);
    set(record.config.field3, std::string(79, 'a'));
    set(record.config.field4, std::string(79, 'b'));
    set(record.config.prefix.field3, std::string(45, 'c'));
    set(record.config.prefix.field11, std::string(149, 'd'));
    set(record.address.field3, std::string(45, 'e'));
    expect_length(record, 600);
}

TEST_F(Ipv6PrefixAddrConfTest, BothPartsAreEncodedOnACopyOfTheCursor)
{
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_serialize(&record, &write_cursor), 0u);
    Calls calls = take_nested_calls();
    ASSERT_EQ(calls.size(), 4u);
    uintptr_t copy = calls[1].words[1];
    EXPECT_NE(copy, word(&write_cursor));
    EXPECT_EQ(calls[1], (Call{"gorvaNet_ipv6_prefix_config_serialize", {word(&record.config), copy, word(wire)}}));
    EXPECT_EQ(calls[2].function, "gorvaNet_ipv6_prefix_serialize");
    EXPECT_EQ(calls[3],
              (Call{"gorvaNet_ipv6_address_serialize", {word(&record.address), copy, word(wire + config_size)}}));
}

TEST_F(Ipv6PrefixAddrConfTest, BothPartsAreDecodedOnACopyOfTheCursor)
{
    receive(bytes(addr_conf_items(1)));
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_unserialize(&other, &read_cursor), 0u);
    Calls calls = take_nested_calls();
    ASSERT_EQ(calls.size(), 4u);
    uintptr_t copy = calls[1].words[1];
    EXPECT_NE(copy, word(&read_cursor));
    EXPECT_EQ(calls[1], (Call{"gorvaNet_ipv6_prefix_config_unserialize", {word(&other.config), copy, word(wire)}}));
    EXPECT_EQ(calls[2].function, "gorvaNet_ipv6_prefix_unserialize");
    EXPECT_EQ(calls[3],
              (Call{"gorvaNet_ipv6_address_unserialize", {word(&other.address), copy, word(wire + config_size)}}));
}

TEST_F(Ipv6PrefixAddrConfTest, TheCallersCursorMovesOnlyBeforeTheReturn)
{
    watch_calls([this](const Call &) { EXPECT_EQ(write_cursor, wire); });
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_serialize(&record, &write_cursor), 0u);
    EXPECT_EQ(moved(write_cursor), static_cast<ptrdiff_t>(config_size) + 60);
    receive(bytes(addr_conf_items(1)));
    watch_calls([this](const Call &) { EXPECT_EQ(read_cursor, wire); });
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_unserialize(&other, &read_cursor), 0u);
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(config_size) + 60);
}

TEST_F(Ipv6PrefixAddrConfTest, AFailedConfigurationKeepsTheAddressFromBeingEncodedAndDecoded)
{
    refuse_call("gorvaNet_ipv6_prefix_config_serialize", {.nth = 1, .status = 7, .moves = 5});
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_serialize(&record, &write_cursor), 7u);
    EXPECT_EQ(moved(write_cursor), 5);
    EXPECT_EQ(take_nested_calls().size(), 2u);
    receive(bytes(addr_conf_items(1)));
    refuse_call("gorvaNet_ipv6_prefix_config_unserialize", {.nth = 1, .status = 9, .moves = 3});
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_unserialize(&other, &read_cursor), 9u);
    EXPECT_EQ(moved(read_cursor), 3);
    EXPECT_EQ(take_nested_calls().size(), 2u);
}

TEST_F(Ipv6PrefixAddrConfTest, AFailureOfTheAddressIsReturnedWithTheCursorWhereItWasLeft)
{
    refuse_call("gorvaNet_ipv6_address_serialize", {.nth = 1, .status = 7, .moves = 5});
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_serialize(&record, &write_cursor), 7u);
    EXPECT_EQ(moved(write_cursor), static_cast<ptrdiff_t>(config_size) + 5);
    receive(bytes(addr_conf_items(1)));
    refuse_call("gorvaNet_ipv6_address_unserialize", {.nth = 1, .status = 9, .moves = -3});
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_unserialize(&other, &read_cursor), 9u);
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(config_size) - 3);
}

TEST_F(Ipv6PrefixAddrConfTest, AMalformedPartLogsItsOwnLinesAndNothingMore)
{
    Items address = address_items(1);
    address[1] = "00000004 00000004 00000000";
    receive(bytes(Items{joined(config_items(1)), joined(address)}));
    ExpectedLines lines("gorvaNet_ipv6_address_unserialize", wire + config_size);
    lines.wrong_tag(4, 4, 5).before({6, 7, 8});
    expect_refusal(record, config_size + 12, address_place + offsetof(ipv6_address, field5), lines);

    pretend_length(record.config.prefix.field11, 0xfffffffe);
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_serialize(&record, &write_cursor), 4u);
    EXPECT_EQ(moved(write_cursor), 12 + 16 + 96);
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_ipv6_prefix_serialize", wire + 12 + 16).too_long(-1, 0).before({12}));
}

TEST_F(Ipv6PrefixAddrConfTest, TheLengthIsTheSumOfItsParts)
{
    refuse_call("gorvaNet_ipv6_prefix_config_serialize_lg", {.nth = 1, .status = 1000});
    refuse_call("gorvaNet_ipv6_address_serialize_lg", {.nth = 1, .status = 77});
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_serialize_lg(&record), 1077u);
    EXPECT_EQ(take_nested_calls(), (Calls{{"gorvaNet_ipv6_prefix_addr_conf_serialize_lg", {word(&record)}},
                                          {"gorvaNet_ipv6_prefix_config_serialize_lg", {word(&record.config)}},
                                          {"gorvaNet_ipv6_address_serialize_lg", {word(&record.address)}}}));
}

TEST_F(Ipv6PrefixAddrConfTest, CopiesBothParts)
{
    auto expected = empty_destination<ipv6_prefix_addr_conf>();
    fill(expected, 1);
    other = empty_destination<ipv6_prefix_addr_conf>();
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_copy(&other, &record), 0u);
    EXPECT_EQ(memory_of(other), memory_of(with_zeroed_rests(expected, all_texts())));
    EXPECT_EQ(take_nested_calls(),
              (Calls{{"gorvaNet_ipv6_prefix_addr_conf_copy", {word(&other), word(&record)}},
                     {"gorvaNet_ipv6_prefix_config_copy", {word(&other.config), word(&record.config)}},
                     {"gorvaNet_ipv6_prefix_copy", {word(&other.config.prefix), word(&record.config.prefix)}},
                     {"gorvaNet_ipv6_address_copy", {word(&other.address), word(&record.address)}}}));
}

TEST_F(Ipv6PrefixAddrConfTest, ACopyOfATextWithoutANulIsTerminatedAtTheLastIndex)
{
    expect_unterminated_texts_cut(record, all_texts());
}

TEST_F(Ipv6PrefixAddrConfTest, AFailedCopyOfTheConfigurationEndsTheCopy)
{
    refuse_call("gorvaNet_ipv6_prefix_config_copy", {.nth = 1, .status = 0xfffffff0});
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_copy(&other, &record), 0xfffffff0);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, "gorvaNet_ipv6_prefix_addr_conf_copy", "Copy ipv6_prefix_config failed(%d)\n", -16)});
    EXPECT_EQ(take_nested_calls().size(), 2u);
    EXPECT_EQ(memory_of(other), memory_of(untouched_record<ipv6_prefix_addr_conf>()));
}

TEST_F(Ipv6PrefixAddrConfTest, AFailedCopyOfThePrefixIsLoggedAtBothLevels)
{
    refuse_call("gorvaNet_ipv6_prefix_copy", {.nth = 1, .status = 6});
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_copy(&other, &record), 6u);
    EXPECT_EQ(take_log(),
              (LogLines{logged(3, "gorvaNet_ipv6_prefix_config_copy", "Copy ipv6_prefix failed(%d)\n", 6),
                        logged(3, "gorvaNet_ipv6_prefix_addr_conf_copy", "Copy ipv6_prefix_config failed(%d)\n", 6)}));
}

TEST_F(Ipv6PrefixAddrConfTest, AFailedCopyOfTheAddressIsLoggedSignedAndReturned)
{
    refuse_call("gorvaNet_ipv6_address_copy", {.nth = 1, .status = 0xfffffff0});
    EXPECT_EQ(gorvaNet_ipv6_prefix_addr_conf_copy(&other, &record), 0xfffffff0);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, "gorvaNet_ipv6_prefix_addr_conf_copy", "Copy ipv6_address failed(%d)\n", -16)});
    EXPECT_STREQ(other.config.field3, "c1");
}

TEST_F(Ipv6PrefixAddrConfTest, CleanCleansBothParts)
{
    gorvaNet_ipv6_prefix_addr_conf_clean(&record);
    EXPECT_EQ(take_nested_calls(), (Calls{{"gorvaNet_ipv6_prefix_addr_conf_clean", {word(&record)}},
                                          {"gorvaNet_ipv6_prefix_config_clean", {word(&record.config)}},
                                          {"gorvaNet_ipv6_prefix_clean", {word(&record.config.prefix)}},
                                          {"gorvaNet_ipv6_address_clean", {word(&record.address)}}}));
}

TEST_F(Ipv6PrefixAddrConfTest, CleanOfNothingDoesNothing)
{
    gorvaNet_ipv6_prefix_addr_conf_clean(nullptr);
    EXPECT_EQ(take_nested_calls(), (Calls{{"gorvaNet_ipv6_prefix_addr_conf_clean", {0}}}));
}
