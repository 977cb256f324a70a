// What the tests of all records share: a buffer on the wire, the checks that every record has to pass, and the table
// of fields that says what to expect of them.

#ifndef GORVANET_TESTS_RECORDS_RECORD_TEST_H
#define GORVANET_TESTS_RECORDS_RECORD_TEST_H

#include "expected_lines.h"
#include "functions.h"
#include "nested_calls.h"
#include "wire.h"

#include "support/library_test.h"

#include <cstring>

// A field with an item of its own.
struct Field {
    size_t item;     // which of the sample's items it is
    uint32_t tag;    // of the item
    size_t offset;   // of the field in the record
    size_t capacity; // of a text; 0 for a number
    Tags decoder_announces;
    Tags encoder_announces = {};
};

using Fields = std::vector<Field>;

constexpr uint8_t untouched_byte = 0x5a; // what records hold before a test fills them
constexpr uint8_t unwritten_byte = 0xee; // what the wire holds before a test fills it

// A record that nobody has filled yet.
template <typename Record> Record untouched_record()
{
    Record record;
    memset(&record, untouched_byte, sizeof record);
    return record;
}

// Sets a text and leaves the bytes behind its NUL alone.
template <size_t Capacity> void set(char (&field)[Capacity], const std::string &text)
{
    ASSERT_LT(text.size(), Capacity);
    memcpy(field, text.c_str(), text.size() + 1);
}

template <typename Record> Bytes memory_of(const Record &record)
{
    auto *begin = reinterpret_cast<const uint8_t *>(&record);
    return Bytes(begin, begin + sizeof record);
}

class RecordTest : public LibraryTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // Fills the wire with bytes and puts the read cursor in front of them, or into them.
    void receive(const Bytes &content, size_t begin = 0);

    // Fills the wire with this byte and puts the write cursor in front of it.
    void clear_wire(uint8_t content);

    // What has been written to the cleared wire: `expected`, and nothing behind.
    void expect_on_wire(const Bytes &expected);

    // How far a cursor has moved from the start of the wire.
    ptrdiff_t moved(const uint8_t *cursor) const
    {
        return cursor - wire;
    }

    // serialize writes these items, leaves padding alone, and serialize_lg knows how long they are.
    template <typename Record> void expect_encoding(const Record &record, const Items &items)
    {
        expect_encoding_into(record, items, 0);
        expect_encoding_into(record, items, unwritten_byte);
    }

    // As above, of a record whose encoding is worth its length only.
    template <typename Record> void expect_length(const Record &record, uint32_t length)
    {
        clear_wire(0);
        EXPECT_EQ(Functions<Record>::serialize_lg(&record), length);
        EXPECT_EQ(Functions<Record>::serialize(&record, &write_cursor), 0u);
        EXPECT_EQ(moved(write_cursor), static_cast<ptrdiff_t>(length));
    }

    // unserialize makes this of these items. Bytes of `expected` that a decoder does not touch are untouched_byte.
    template <typename Record> void expect_decoding(const Items &items, const Record &expected)
    {
        receive(bytes(items));
        expect_received(expected, static_cast<ptrdiff_t>(bytes(items).size()));
    }

    // The same for what has been received, with the cursor's place behind it.
    template <typename Record> void expect_received(const Record &expected, ptrdiff_t end)
    {
        auto decoded = untouched_record<Record>();
        EXPECT_EQ(Functions<Record>::unserialize(&decoded, &read_cursor), 0u);
        EXPECT_EQ(moved(read_cursor), end);
        EXPECT_EQ(memory_of(decoded), memory_of(expected));
    }

    // unserialize fails at this place: the fields in front of `offset` have been decoded, and the others not.
    template <typename Record>
    void expect_refusal(const Record &sample, size_t item, size_t offset, const LogLines &expected)
    {
        Bytes half = memory_of(untouched_record<Record>());
        Bytes whole = memory_of(sample);
        std::copy(whole.begin(), whole.begin() + static_cast<ptrdiff_t>(offset), half.begin());
        auto decoded = untouched_record<Record>();
        EXPECT_EQ(Functions<Record>::unserialize(&decoded, &read_cursor), 4u);
        EXPECT_EQ(moved(read_cursor), static_cast<ptrdiff_t>(item));
        EXPECT_EQ(memory_of(decoded), half);
        LogLines lines = take_log();
        EXPECT_EQ(lines, expected);
        EXPECT_TRUE(lines_ascend_in_each_function(lines));
    }

    // Every field of the sample with a wrong tag in its place.
    template <typename Record>
    void expect_wrong_tags_refused(const Record &sample, const Items &items, const Fields &fields)
    {
        for (const Field &field : fields) {
            for (uint32_t found : {uint32_t{0}, field.tag + 1, uint32_t{0xfffffffe}}) {
                SCOPED_TRACE(testing::Message() << "tag " << found << " instead of " << field.tag);
                size_t item = bytes_before(items, field.item).size();
                receive(bytes(items));
                overwrite(item, big_endian(found));
                overwrite(item + 4, big_endian(0xfffffff9));
                ExpectedLines lines(Functions<Record>::unserialize_name, wire);
                lines.wrong_tag(found, 0xfffffff9, field.tag).before(field.decoder_announces);
                expect_refusal(sample, item, field.offset, lines);
            }
        }
    }

    // Every text of the sample with one that does not fit in its place, by one byte or by all there are.
    template <typename Record>
    void expect_long_texts_refused(const Record &sample, const Items &items, const Fields &fields)
    {
        for (const Field &field : fields) {
            for (size_t size = field.capacity; field.capacity && size < field.capacity + 300; size += 299) {
                SCOPED_TRACE(testing::Message() << size << " characters with tag " << field.tag);
                size_t item = bytes_before(items, field.item).size();
                receive(bytes(items));
                overwrite(item + 8, Bytes(size, 'x') + Bytes{0});
                ExpectedLines lines(Functions<Record>::unserialize_name, wire);
                lines.too_long(static_cast<int>(size) + 1, static_cast<int>(field.capacity));
                expect_refusal(sample, item, field.offset, lines.before(field.decoder_announces));
            }
        }
    }

    // Every text of the sample with the longest one that fits in its place.
    template <typename Record> void expect_longest_texts_taken(Record sample, const Items &items, const Fields &fields)
    {
        for (const Field &field : fields) {
            if (!field.capacity)
                continue;
            SCOPED_TRACE(testing::Message() << "longest text with tag " << field.tag);
            Bytes text = Bytes(field.capacity - 1, 'y') + Bytes{0};
            Bytes item = big_endian(field.tag) + big_endian(static_cast<uint32_t>(text.size())) + text;
            Bytes content = bytes_before(items, field.item) + item + bytes_behind(items, field.item);
            auto expected = sample;
            memcpy(reinterpret_cast<uint8_t *>(&expected) + field.offset, text.data(), text.size());
            receive(content);
            expect_received(expected, static_cast<ptrdiff_t>(content.size()));
        }
    }

    // Lengths of texts that no text has: the size of a text and its NUL comes near to 2^32.
    template <typename Record>
    void expect_endless_texts_refused(const Record &sample, const Items &items, const Fields &fields)
    {
        for (const Field &field : fields) {
            for (int size = -4; field.capacity && size <= -1; size++) {
                SCOPED_TRACE(testing::Message() << size << " bytes with tag " << field.tag);
                expect_endless_text_not_decoded(sample, items, field, size);
                expect_endless_text_not_encoded(sample, items, field, size);
            }
        }
    }

    // Every item with a length of its own: what lies behind the value is skipped, whatever it is. The texts of the
    // sample have at most 3 characters.
    template <typename Record>
    void expect_lengths_followed(const Record &sample, const Items &items, const Fields &fields)
    {
        for (const Field &field : fields) {
            for (uint32_t length : {4u, 5u, 8u, 97u}) {
                SCOPED_TRACE(testing::Message() << "length " << length << " with tag " << field.tag);
                Bytes item = item_of_length(items, field, length);
                item.resize(8 + length, 0x77);
                Bytes content = bytes_before(items, field.item) + item + bytes_behind(items, field.item);
                receive(content);
                expect_received(sample, static_cast<ptrdiff_t>(content.size()));
            }
        }
    }

    // Every item with a length that wraps: the following items lie in front of all others.
    template <typename Record> void expect_lengths_wrap(const Record &sample, const Items &items, const Fields &fields)
    {
        for (const Field &field : fields) {
            SCOPED_TRACE(testing::Message() << "wrapping length with tag " << field.tag);
            Bytes rest = bytes_behind(items, field.item);
            Bytes front = bytes_before(items, field.item);
            auto length = static_cast<uint32_t>(0 - (rest.size() + front.size() + 8));
            receive(rest + front + item_of_length(items, field, length), rest.size());
            expect_received(sample, static_cast<ptrdiff_t>(rest.size()));
        }
    }

    // All of the above that is about decoding and its failures.
    template <typename Record> void expect_fields(const Record &sample, const Items &items, const Fields &fields)
    {
        expect_decoding(items, sample);
        expect_wrong_tags_refused(sample, items, fields);
        expect_long_texts_refused(sample, items, fields);
        expect_longest_texts_taken(sample, items, fields);
        expect_endless_texts_refused(sample, items, fields);
        expect_lengths_followed(sample, items, fields);
        expect_lengths_wrap(sample, items, fields);
    }

    uint8_t wire[8192];
    uint8_t *write_cursor = nullptr;
    const uint8_t *read_cursor = nullptr;

    void overwrite(size_t at, const Bytes &content);

private:
    template <typename Record> void expect_encoding_into(const Record &record, const Items &items, uint8_t content)
    {
        Bytes expected = bytes(items, content);
        clear_wire(content);
        EXPECT_EQ(Functions<Record>::serialize_lg(&record), expected.size());
        EXPECT_EQ(Functions<Record>::serialize(&record, &write_cursor), 0u);
        EXPECT_EQ(moved(write_cursor), static_cast<ptrdiff_t>(expected.size()));
        expect_on_wire(expected);
    }

    template <typename Record>
    void expect_endless_text_not_decoded(const Record &sample, const Items &items, const Field &field, int size)
    {
        size_t item = bytes_before(items, field.item).size();
        receive(bytes(items));
        pretend_length(wire + item + 8, static_cast<uint32_t>(size) - 1);
        ExpectedLines lines(Functions<Record>::unserialize_name, wire);
        lines.too_long(size, static_cast<int>(field.capacity)).before(field.decoder_announces);
        expect_refusal(sample, item, field.offset, lines);
        pretend_length(nullptr, 0);
    }

    template <typename Record>
    void expect_endless_text_not_encoded(const Record &sample, const Items &items, const Field &field, int size)
    {
        Bytes in_front = bytes_before(items, field.item, unwritten_byte);
        clear_wire(unwritten_byte);
        pretend_length(reinterpret_cast<const char *>(&sample) + field.offset, static_cast<uint32_t>(size) - 1);
        EXPECT_EQ(Functions<Record>::serialize(&sample, &write_cursor), 4u);
        pretend_length(nullptr, 0);
        EXPECT_EQ(moved(write_cursor), static_cast<ptrdiff_t>(in_front.size()));
        expect_on_wire(in_front);
        ExpectedLines expected(Functions<Record>::serialize_name, wire);
        LogLines lines = take_log();
        EXPECT_EQ(lines, expected.too_long(size, 0).before(field.encoder_announces));
        EXPECT_TRUE(lines_ascend_in_each_function(lines));
    }

    // The item of a field up to the end of its value, with this length in its header.
    static Bytes item_of_length(const Items &items, const Field &field, uint32_t length);
};

#endif
