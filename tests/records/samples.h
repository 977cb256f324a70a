// Samples of those records that stand inside others: the content of a record, its encoding and the table of its
// fields, each written down by hand. Samples with different numbers differ in every field.

#ifndef GORVANET_TESTS_RECORDS_SAMPLES_H
#define GORVANET_TESTS_RECORDS_SAMPLES_H

#include "record_test.h"

// `number` is 0 to 9, for ipv4_info 0 to 25.
void fill(ipv4_info &record, unsigned number);
void fill(ipv6_address &record, unsigned number);
void fill(ipv6_prefix &record, unsigned number);
void fill(ipv6_prefix_config &record, unsigned number);
void fill(ipv6_prefix_addr_conf &record, unsigned number);

template <typename Record> Record sample(unsigned number)
{
    auto record = untouched_record<Record>();
    fill(record, number);
    return record;
}

Items info_items(unsigned number);
Items address_items(unsigned number);
Items prefix_items(unsigned number);
Items config_items(unsigned number);    // the prefix is the last one
Items addr_conf_items(unsigned number); // the configuration and the address

// Items as one: an element of a list.
std::string joined(const Items &items);

// Items of a list: `first`, then those of the elements 0 to `count` - 1.
Items with_elements(Items first, Items (*items)(unsigned number), unsigned count);

extern const Fields info_fields;
extern const Fields address_fields;
extern const Fields prefix_fields;
extern const Fields config_fields;

// Where texts are in a record: those of a nested record, moved to its place.
struct Text {
    size_t offset;
    size_t capacity;
};
using Texts = std::vector<Text>;

Texts texts_in(const Fields &fields, size_t place = 0);
Texts operator+(Texts left, const Texts &right);

// What copy makes of a sample in a record full of this byte: the rest of each text is zeroed.
constexpr uint8_t copied_over = 0x11;

template <typename Record> Record empty_destination()
{
    Record record;
    memset(&record, copied_over, sizeof record);
    return record;
}

template <typename Record> Record with_zeroed_rests(Record record, const Texts &texts)
{
    for (const Text &text : texts) {
        char *begin = reinterpret_cast<char *>(&record) + text.offset;
        size_t used = strnlen(begin, text.capacity);
        memset(begin + used, 0, text.capacity - used);
    }
    return record;
}

// Every text of a source without a NUL loses its last character.
template <typename Record> void expect_unterminated_texts_cut(const Record &sample, const Texts &texts)
{
    for (const Text &text : texts) {
        SCOPED_TRACE(testing::Message() << "text at " << text.offset);
        auto source = sample;
        memset(reinterpret_cast<char *>(&source) + text.offset, 'u', text.capacity);
        auto expected = with_zeroed_rests(source, texts);
        reinterpret_cast<char *>(&expected)[text.offset + text.capacity - 1] = '\0';
        Record destination = sample;
        EXPECT_EQ(Functions<Record>::copy(&destination, &source), 0u);
        EXPECT_EQ(memory_of(destination), memory_of(expected));
    }
}

#endif
