#include "list_test.h"

#include <cstddef>

namespace {

void fill(ipv4_properties &record)
{
    record.field3 = -56;
    set(record.field4, "4");
    set(record.field5, "555");
    record.field6 = 0x80000006;
    set(record.field7, "77");
    set(record.field8, "");
    set(record.field9, "9.9");
    set(record.field10, "10");
    set(record.field11, "11-");
    record.infoCount = 0;
}

ipv4_properties without_infos()
{
    auto record = untouched_record<ipv4_properties>();
    fill(record);
    return record;
}

const Items head = {
    "00000003 00000004 ffffffc8",          "00000004 00000004 '4' 00 ....", "00000005 00000008 '555' 00 ........",
    "00000006 00000004 80000006",          "00000007 00000004 '77' 00 ..",  "00000008 00000004 00 ......",
    "00000009 00000008 '9.9' 00 ........", "0000000a 00000004 '10' 00 ..",  "0000000b 00000008 '11-' 00 ........",
};

const Fields fields = {
    {0, 3, offsetof(ipv4_properties, field3), 0, {4, 5, 6, 7, 8, 9, 10, 11, 12}},
    {1, 4, offsetof(ipv4_properties, field4), 50, {5, 6, 7, 8, 9, 10, 11, 12}, {6, 12}},
    {2, 5, offsetof(ipv4_properties, field5), 50, {6, 7, 8, 9, 10, 11, 12}, {6, 12}},
    {3, 6, offsetof(ipv4_properties, field6), 0, {7, 8, 9, 10, 11, 12}},
    {4, 7, offsetof(ipv4_properties, field7), 16, {8, 9, 10, 11, 12}, {12}},
    {5, 8, offsetof(ipv4_properties, field8), 16, {9, 10, 11, 12}, {12}},
    {6, 9, offsetof(ipv4_properties, field9), 16, {10, 11, 12}, {12}},
    {7, 10, offsetof(ipv4_properties, field10), 33, {11, 12}, {12}},
    {8, 11, offsetof(ipv4_properties, field11), 256, {12}, {12}},
    {9, 12, offsetof(ipv4_properties, infoCount), 0, {}},
};

constexpr const char *decoder = "gorvaNet_ipv4_properties_unserialize";
const std::string count_0 = "0000000c 00000004 00000000";

class Ipv4PropertiesTest : public ListTest {
protected:
    const List<ipv4_properties, ipv4_info, 20> list = {
        .record_name = "gorvaNet_ipv4_properties",
        .element_name = "gorvaNet_ipv4_info",
        .count = &ipv4_properties::infoCount,
        .elements = &ipv4_properties::infos,
        .count_tag = 12,
        .element_items = info_items,
        .first_item = first_item_of_info,
        .copy_failure = "Copy ipv4_info failed",
        .rest = without_infos(),
        .head = head,
    };

    // The sample's items with another one in its place.
    Items with(size_t item, const std::string &text) const
    {
        Items items = list_items(list, 0, 0);
        items[item] = text;
        return items;
    }
};

} // namespace

TEST_F(Ipv4PropertiesTest, EncodesDecodesAndCopiesAsManyEntriesAsTheCountSays)
{
    expect_list(list);
}

TEST_F(Ipv4PropertiesTest, RefusesEveryDeviationOfItsFixedItems)
{
    expect_fields(with_elements_set(list, 2, 2), list_items(list, 2, 2), fields);
}

TEST_F(Ipv4PropertiesTest, AllTextsEmptyAndNoEntriesTake120Bytes)
{
    ipv4_properties record = {};
    expect_length(record, 120);
    expect_encoding(record, {"00000003 00000004 00000000", "00000004 00000004 00 ......", "00000005 00000004 00 ......",
                             "00000006 00000004 00000000", "00000007 00000004 00 ......", "00000008 00000004 00 ......",
                             "00000009 00000004 00 ......", "0000000a 00000004 00 ......",
                             "0000000b 00000004 00 ......", count_0});
}

TEST_F(Ipv4PropertiesTest, TwoEntriesWithEmptyTextsTake168Bytes)
{
    ipv4_properties record = {};
    record.infoCount = 2;
    expect_length(record, 168);
    Bytes sent(wire, wire + 168);
    EXPECT_EQ(Bytes(sent.begin() + 108, sent.end()),
              bytes("0000000c 00000004 00000002 00000003 00000004 00000000 00000004 00000004 0000000000000003 00000004 "
                    "00000000 00000004 00000004 00000000"));
    ipv4_properties decoded = {};
    read_cursor = wire;
    EXPECT_EQ(gorvaNet_ipv4_properties_unserialize(&decoded, &read_cursor), 0u);
    EXPECT_EQ(moved(read_cursor), 168);
    EXPECT_EQ(decoded.infoCount, 2u);
}

TEST_F(Ipv4PropertiesTest, TheFixedPartTakes552BytesAtMostAndTwentyEntriesFrom480To3760)
{
    ipv4_properties record = {};
    record.infoCount = 20;
    expect_length(record, 120 + 480);
    set(record.field4, std::string(49, 'a'));
    set(record.field5, std::string(49, 'b'));
    set(record.field7, std::string(15, 'c'));
    set(record.field8, std::string(15, 'd'));
    set(record.field9, std::string(15, 'e'));
    set(record.field10, std::string(32, 'f'));
    set(record.field11, std::string(255, 'g'));
    for (ipv4_info &info : record.infos) {
        set(info.field3, std::string(15, 'h'));
        set(info.field4, std::string(149, 'i'));
    }
    expect_length(record, 552 + 3760);
    record.infoCount = 0;
    expect_length(record, 552);
}

TEST_F(Ipv4PropertiesTest, OfTwentyFiveEntriesOnTheWireTwentyAreReadAndTheCountStays25)
{
    expect_surplus_left(list, 25);
    expect_encoding(with_elements_set(list, 25, 20), list_items(list, 25, 20));
    EXPECT_EQ(list_items(list, 25, 20)[9], "0000000c 00000004 00000019");
    expect_length(with_elements_set(list, 25, 20), static_cast<uint32_t>(place_of(list, 20)));
}

TEST_F(Ipv4PropertiesTest, AField3OfFFIsWrittenAsFFFFFFFFAndComesBack)
{
    auto record = without_infos();
    record.field3 = -1;
    expect_encoding(record, with(0, "00000003 00000004 ffffffff"));
    expect_decoding(with(0, "00000003 00000004 ffffffff"), record);
    expect_decoding(with(0, "00000003 00000004 123456ff"), record);
    record.field3 = 127;
    expect_encoding(record, with(0, "00000003 00000004 0000007f"));
    record.field3 = -128;
    expect_encoding(record, with(0, "00000003 00000004 ffffff80"));
}

TEST_F(Ipv4PropertiesTest, AField11Of255CharactersIsTakenAndOneOf256Refused)
{
    auto record = without_infos();
    set(record.field11, std::string(255, 'g'));
    expect_decoding(with(8, "0000000b 00000104 'g'*255 00 ........"), record);
    receive(bytes(with(8, "0000000b 00000104 'g'*256 00 ......")));
    expect_refusal(record, bytes_before(head, 8).size(), offsetof(ipv4_properties, field11),
                   ExpectedLines(decoder, wire).too_long(257, 256).before({12}));
}

TEST_F(Ipv4PropertiesTest, AWrongFirstTagGivesOneTlLineAndNineErrorBeforeLines)
{
    receive(bytes(with(0, "00000004 00000004 00000000")));
    expect_refusal(list.rest, 0, 0,
                   ExpectedLines(decoder, wire).wrong_tag(4, 4, 3).before({4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST_F(Ipv4PropertiesTest, AWrongTag12GivesTheTlLineAloneAndNoEntryIsDecoded)
{
    auto record = with_elements_set(list, 2, 2);
    receive(bytes(with(9, "0000000d 00000004 00000002")) + bytes(info_items(5)) + bytes(info_items(6)));
    EXPECT_EQ(gorvaNet_ipv4_properties_unserialize(&record, &read_cursor), 4u);
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(bytes(head).size()));
    EXPECT_EQ(take_log(), ExpectedLines(decoder, wire).wrong_tag(13, 4, 12));
    EXPECT_EQ(take_nested_calls(), Calls{});
    EXPECT_EQ(memory_of(record), memory_of(with_elements_set(list, 2, 2)));
}

TEST_F(Ipv4PropertiesTest, AfterAnEntryFailureTheCountIsTheReceivedOne)
{
    Items items = list_items(list, 3, 3);
    items[11] = "00000003 00000004 'i1' 00 .. 00000005 00000000";
    receive(bytes(items));
    auto expected = with_elements_set(list, 3, 1);
    set(expected.infos[1].field3, "i1");
    size_t second = place_of(list, 1);
    auto decoded = untouched_record<ipv4_properties>();
    EXPECT_EQ(gorvaNet_ipv4_properties_unserialize(&decoded, &read_cursor), 4u);
    EXPECT_EQ(memory_of(decoded), memory_of(expected));
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(second) + 12);
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_ipv4_info_unserialize", wire + second).wrong_tag(5, 0, 4));
}

TEST_F(Ipv4PropertiesTest, TheCountIsReadFromTheRecordAgainBeforeEveryEntry)
{
    receive(bytes(list_items(list, 3, 6)));
    auto decoded = untouched_record<ipv4_properties>();
    watch_calls([&](const Call &call) {
        if (call.words[0] == word(&decoded.infos[2]))
            decoded.infoCount = 5;
    });
    EXPECT_EQ(gorvaNet_ipv4_properties_unserialize(&decoded, &read_cursor), 0u);
    EXPECT_EQ(take_nested_calls().size(), 5u);
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(place_of(list, 5)));

    receive(bytes(list_items(list, 3, 3)));
    watch_calls([&](const Call &) { decoded.infoCount = 1; });
    EXPECT_EQ(gorvaNet_ipv4_properties_unserialize(&decoded, &read_cursor), 0u);
    EXPECT_EQ(take_nested_calls().size(), 1u);
    EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(place_of(list, 1)));
}

TEST_F(Ipv4PropertiesTest, CopiesItsFieldsAndZeroesTheRestOfTheTexts)
{
    auto source = without_infos();
    auto expected = empty_destination<ipv4_properties>();
    fill(expected);
    auto destination = empty_destination<ipv4_properties>();
    EXPECT_EQ(gorvaNet_ipv4_properties_copy(&destination, &source), 0u);
    EXPECT_EQ(memory_of(destination), memory_of(with_zeroed_rests(expected, texts_in(fields))));
}

TEST_F(Ipv4PropertiesTest, ACopyOfATextWithoutANulIsTerminatedAtTheLastIndex)
{
    expect_unterminated_texts_cut(without_infos(), texts_in(fields));
}

TEST_F(Ipv4PropertiesTest, CleanOfNothingDoesNothing)
{
    gorvaNet_ipv4_properties_clean(nullptr);
    EXPECT_EQ(take_nested_calls(), Calls{});
}
