// Records with random content, made from the tables of the reference codec.

#ifndef GORVANET_TESTS_RECORDS_RANDOM_RECORD_H
#define GORVANET_TESTS_RECORDS_RANDOM_RECORD_H

#include "reference_codec.h"

#include <random>

class RandomRecords {
public:
    explicit RandomRecords(uint32_t seed) : numbers(seed)
    {
    }

    // Any number below this one.
    uint32_t below(uint32_t limit);

    // A number that is often at one of the ends of its range.
    uint32_t number();

    // Every byte of the record, those that nobody uses too.
    void fill_bytes(void *record, size_t size);

    // Terminated texts of all lengths, and counts below, at and above the capacity.
    void fill(const reference::Layout &layout, void *record);

    // One of the record's texts, in elements beyond the count too; null if it has none.
    const char *any_text(const reference::Layout &layout, const void *record);

    // The same, but for elements beyond the count.
    const char *any_used_text(const reference::Layout &layout, const void *record);

    // Changes a word of an encoding to a neighbour, a tag, a length, or anything; or a run of bytes to a text without an
    // end, of which up to 400 bytes may lie behind the encoding.
    void damage(uint8_t *wire, size_t length);

private:
    const char *any_of(const std::vector<const char *> &texts);
    void fill_text(char *text, uint32_t capacity);
    uint32_t count(uint32_t capacity);

    std::minstd_rand numbers;
};

#endif
