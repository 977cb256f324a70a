// The checks that every list inside a record has to pass: counts, elements that fail, and the calls made for them.

#ifndef GORVANET_TESTS_RECORDS_LIST_TEST_H
#define GORVANET_TESTS_RECORDS_LIST_TEST_H

#include "samples.h"

#include <algorithm>

// What a codec logs when the first item of an element is refused.
struct FirstItem {
    std::string encoder, decoder; // the functions that log
    Tags encoder_announces, decoder_announces;
};

extern const FirstItem first_item_of_info;
extern const FirstItem first_item_of_address;
extern const FirstItem first_item_of_prefix;
extern const FirstItem first_item_of_addr_conf;

template <typename Record, typename Element, size_t Capacity> struct List {
    std::string record_name, element_name; // "gorvaNet_..."
    uint32_t Record::*count;
    Element (Record::*elements)[Capacity];
    uint32_t count_tag;
    Items (*element_items)(unsigned number);
    FirstItem first_item;
    const char *copy_failure; // the line of a failed copy
    // Everything but the list: the record with all other counts 0, and its items in front and behind.
    Record rest;
    Items head = {};
    Items tail = {};
    // What the record itself announces after an element has failed.
    Tags encoder_announces = {};
    Tags decoder_announces = {};
};

// The calls of one function.
Calls calls_of(const std::string &function, const Calls &calls);

// A number item.
std::string number_item(uint32_t tag, uint32_t value);

// The line of a copy that failed with status 0xfffffff0, shown unsigned.
LogLine copy_failed(const std::string &function, const std::string &text);

class ListTest : public RecordTest {
protected:
    template <typename L> static auto with_elements_set(const L &list, uint32_t count, size_t elements)
    {
        auto record = list.rest;
        record.*list.count = count;
        for (unsigned i = 0; i < elements; i++)
            fill((record.*list.elements)[i], i);
        return record;
    }

    template <typename L> static Items list_items(const L &list, uint32_t count, size_t elements)
    {
        Items items = list.head;
        items.push_back(number_item(list.count_tag, count));
        items = with_elements(items, list.element_items, static_cast<unsigned>(elements));
        items.insert(items.end(), list.tail.begin(), list.tail.end());
        return items;
    }

    // Where an element of a list begins on the wire.
    template <typename L> static size_t place_of(const L &list, size_t element)
    {
        Items items = list_items(list, 0, element);
        return bytes(items).size() - bytes(list.tail).size();
    }

    // Where an element begins in the record.
    template <typename L> static size_t offset_of(const L &list, size_t element)
    {
        auto *begin = reinterpret_cast<const char *>(&list.rest);
        return static_cast<size_t>(reinterpret_cast<const char *>(&(list.rest.*list.elements)[element]) - begin);
    }

    template <typename Record, typename Element, size_t Capacity>
    void expect_list(const List<Record, Element, Capacity> &list)
    {
        for (uint32_t count : {uint32_t{0}, uint32_t{1}, uint32_t{2}, uint32_t{3}, uint32_t{Capacity - 1},
                               uint32_t{Capacity}, uint32_t{Capacity + 1}, uint32_t{256}, uint32_t{0xffffffff}}) {
            SCOPED_TRACE(testing::Message() << list.element_name << ", count " << count);
            size_t used = std::min<size_t>(count, Capacity);
            expect_encoding(with_elements_set(list, count, Capacity), list_items(list, count, used));
            expect_decoding(list_items(list, count, used), with_elements_set(list, count, used));
            expect_calls_for(list, count, used);
            expect_copied(list, count, used);
        }
        expect_first_items_refused(list, Capacity);
        for (size_t failing = 0; failing < Capacity; failing++) {
            SCOPED_TRACE(testing::Message() << list.element_name << " " << failing << " fails");
            expect_encoder_stops(list, Capacity, failing);
            expect_decoder_stops(list, Capacity, failing);
            expect_copy_stops(list, Capacity, failing);
        }
    }

    // Items behind the last element that fits stay unread. Of a list that ends its record.
    template <typename Record, typename Element, size_t Capacity>
    void expect_surplus_left(const List<Record, Element, Capacity> &list, uint32_t count)
    {
        receive(bytes(list_items(list, count, count)));
        expect_received(with_elements_set(list, count, Capacity), static_cast<ptrdiff_t>(place_of(list, Capacity)));
    }

private:
    // Each function is called for the used elements, in order, on the caller's own cursor.
    template <typename L> void expect_calls_for(const L &list, uint32_t count, size_t used)
    {
        using Record = decltype(list.rest);
        auto record = with_elements_set(list, count, used);
        auto *elements = record.*list.elements;
        take_nested_calls();

        Functions<Record>::serialize_lg(&record);
        EXPECT_EQ(calls_of(list.element_name + "_serialize_lg", take_nested_calls()),
                  expected_calls(list.element_name + "_serialize_lg", elements, used));
        Functions<Record>::clean(&record);
        EXPECT_EQ(calls_of(list.element_name + "_clean", take_nested_calls()),
                  expected_calls(list.element_name + "_clean", elements, used));

        clear_wire(0);
        Functions<Record>::serialize(&record, &write_cursor);
        EXPECT_EQ(calls_of(list.element_name + "_serialize", take_nested_calls()),
                  expected_calls(list, "_serialize", elements, used, word(&write_cursor)));
        read_cursor = wire;
        Functions<Record>::unserialize(&record, &read_cursor);
        EXPECT_EQ(calls_of(list.element_name + "_unserialize", take_nested_calls()),
                  expected_calls(list, "_unserialize", elements, used, word(&read_cursor)));
    }

    template <typename Element>
    static Calls expected_calls(const std::string &function, const Element *elements, size_t used)
    {
        Calls calls;
        for (size_t i = 0; i < used; i++)
            calls.push_back({function, {word(&elements[i])}});
        return calls;
    }

    template <typename L, typename Element>
    Calls expected_calls(const L &list, const char *operation, const Element *elements, size_t used, uintptr_t cursor)
    {
        Calls calls;
        for (size_t i = 0; i < used; i++)
            calls.push_back(
                {list.element_name + operation, {word(&elements[i]), cursor, word(wire + place_of(list, i))}});
        return calls;
    }

    // The count is copied as it stands, the used elements by their own copy; the others stay as they are.
    template <typename L> void expect_copied(const L &list, uint32_t count, size_t used)
    {
        using Record = decltype(list.rest);
        auto source = with_elements_set(list, count, used);
        auto destination = empty_destination<Record>();
        take_nested_calls();
        EXPECT_EQ(Functions<Record>::copy(&destination, &source), 0u);
        Calls expected;
        for (size_t i = 0; i < used; i++)
            expected.push_back({list.element_name + "_copy",
                                {word(&(destination.*list.elements)[i]), word(&(source.*list.elements)[i])}});
        EXPECT_EQ(calls_of(list.element_name + "_copy", take_nested_calls()), expected);
        EXPECT_EQ(destination.*list.count, count);
        auto *elements = reinterpret_cast<const uint8_t *>(destination.*list.elements);
        size_t size = sizeof(destination.*list.elements);
        auto begin = elements + size / std::size(destination.*list.elements) * used;
        EXPECT_EQ(std::count(begin, elements + size, copied_over), elements + size - begin);
    }

    // Elements with a real defect in their first item, in both directions.
    template <typename L> void expect_first_items_refused(const L &list, size_t capacity)
    {
        using Record = decltype(list.rest);
        auto count = static_cast<uint32_t>(capacity);
        for (size_t failing = 0; failing < capacity; failing++) {
            SCOPED_TRACE(testing::Message() << "first item of " << list.element_name << " " << failing);
            size_t place = place_of(list, failing);
            receive(bytes(list_items(list, count, capacity)));
            overwrite(place, big_endian(0x55));
            ExpectedLines decoded(list.first_item.decoder, wire + place);
            decoded.wrong_tag(0x55, 4, 3).before(list.first_item.decoder_announces);
            decoded.and_then(ExpectedLines(list.record_name + "_unserialize", wire).before(list.decoder_announces));
            expect_refusal(with_elements_set(list, count, capacity), place, offset_of(list, failing), decoded);

            auto record = with_elements_set(list, count, capacity);
            clear_wire(unwritten_byte);
            pretend_length(&(record.*list.elements)[failing], 0xfffffffc);
            EXPECT_EQ(Functions<Record>::serialize(&record, &write_cursor), 4u);
            pretend_length(nullptr, 0);
            EXPECT_EQ(write_cursor, wire + place);
            ExpectedLines encoded(list.first_item.encoder, wire + place);
            encoded.too_long(-3, 0).before(list.first_item.encoder_announces);
            encoded.and_then(ExpectedLines(list.record_name + "_serialize", wire).before(list.encoder_announces));
            EXPECT_EQ(take_log(), encoded);
            EXPECT_EQ(std::count(wire + place, wire + sizeof wire, unwritten_byte),
                      static_cast<ptrdiff_t>(sizeof wire - place));
        }
    }

    // An element encoder that fails: its status and cursor are kept, and nothing more is written.
    template <typename L> void expect_encoder_stops(const L &list, size_t capacity, size_t failing)
    {
        using Record = decltype(list.rest);
        auto record = with_elements_set(list, static_cast<uint32_t>(capacity), capacity);
        clear_wire(unwritten_byte);
        refuse_element(list, "_serialize", failing, {.nth = 0, .status = 7, .moves = 4});
        EXPECT_EQ(Functions<Record>::serialize(&record, &write_cursor), 7u);
        EXPECT_EQ(calls_of(list.element_name + "_serialize", take_nested_calls()).size(), failing + 1);
        EXPECT_EQ(write_cursor, wire + place_of(list, failing) + 4);
        EXPECT_EQ(std::count(wire + place_of(list, failing), wire + sizeof wire, unwritten_byte),
                  static_cast<ptrdiff_t>(sizeof wire - place_of(list, failing)));
        LogLines lines = take_log();
        EXPECT_EQ(lines, ExpectedLines(list.record_name + "_serialize", wire).before(list.encoder_announces));
        EXPECT_TRUE(lines_ascend(lines));
        reset_nested_calls();
    }

    // An element decoder that fails: its status and cursor are kept, and nothing more is read.
    template <typename L> void expect_decoder_stops(const L &list, size_t capacity, size_t failing)
    {
        using Record = decltype(list.rest);
        auto count = static_cast<uint32_t>(capacity);
        receive(bytes(list_items(list, count, capacity)));
        refuse_element(list, "_unserialize", failing, {.nth = 0, .status = 9, .moves = -6});
        auto decoded = untouched_record<Record>();
        EXPECT_EQ(Functions<Record>::unserialize(&decoded, &read_cursor), 9u);
        EXPECT_EQ(calls_of(list.element_name + "_unserialize", take_nested_calls()).size(), failing + 1);
        EXPECT_EQ(read_cursor, wire + place_of(list, failing) - 6);
        Bytes expected = memory_of(with_elements_set(list, count, capacity));
        std::fill(expected.begin() + static_cast<ptrdiff_t>(offset_of(list, failing)), expected.end(), untouched_byte);
        EXPECT_EQ(memory_of(decoded), expected);
        LogLines lines = take_log();
        EXPECT_EQ(lines, ExpectedLines(list.record_name + "_unserialize", wire).before(list.decoder_announces));
        EXPECT_TRUE(lines_ascend(lines));
        reset_nested_calls();
    }

    // A copy that fails ends the outer copy: one line, its status, and the fields from there on untouched.
    template <typename L> void expect_copy_stops(const L &list, size_t capacity, size_t failing)
    {
        using Record = decltype(list.rest);
        auto source = with_elements_set(list, static_cast<uint32_t>(capacity), capacity);
        auto whole = empty_destination<Record>();
        Functions<Record>::copy(&whole, &source);
        Bytes expected = memory_of(whole);
        std::fill(expected.begin() + static_cast<ptrdiff_t>(offset_of(list, failing)), expected.end(), copied_over);
        take_nested_calls();

        refuse_element(list, "_copy", failing, {.nth = 0, .status = 0xfffffff0});
        auto destination = empty_destination<Record>();
        EXPECT_EQ(Functions<Record>::copy(&destination, &source), 0xfffffff0);
        EXPECT_EQ(calls_of(list.element_name + "_copy", take_nested_calls()).size(), failing + 1);
        EXPECT_EQ(memory_of(destination), expected);
        EXPECT_EQ(take_log(), LogLines{copy_failed(list.record_name + "_copy", list.copy_failure)});
        reset_nested_calls();
    }

    template <typename L>
    static void refuse_element(const L &list, const char *operation, size_t failing, Refusal refusal)
    {
        reset_nested_calls();
        refusal.nth = static_cast<unsigned>(failing) + 1;
        refuse_call(list.element_name + operation, refusal);
    }
};

#endif
