// Every body that the library encodes passes the guard, and so does every well-formed one with other lengths.

#include "guard/body_test.h"
#include "records/random_record.h"

#include <cstring>

namespace {

class AcceptTest : public GuardedBodyTest {
protected:
    // What the library encodes is what the model does, and passes.
    bool encodes_to_something_sound(const Bytes &image)
    {
        void *buffer = nullptr;
        uint32_t size = 0;
        EXPECT_EQ(body.row().serializeBody(body.direction, image.data(), &buffer, &size), 0u);
        const auto *first = static_cast<const uint8_t *>(buffer);
        Bytes encoded(first, first + size);
        free(buffer);
        EXPECT_EQ(encoded, model::encode(body, image));
        return sound(encoded) && !HasFailure();
    }

    bool sound(const Bytes &bytes)
    {
        EXPECT_EQ(guard::explain(check(bytes)), "sound");
        return guarded(bytes) && refused == 0;
    }
};

// The bytes with so many more at the end of an item's value. They are not zero.
Bytes lengthened(Bytes bytes, const model::Item &item, uint32_t more)
{
    uint32_t end = item.offset + item.header + item.length;
    bytes.insert(bytes.begin() + static_cast<ptrdiff_t>(end), more, 0xff);
    Bytes length = big_endian(item.length + more);
    std::copy(length.begin(), length.end(), bytes.begin() + static_cast<ptrdiff_t>(item.offset + item.header - 4));
    return bytes;
}

// The bytes without those that no decoder reads.
Bytes shortened(const model::Body &body, Bytes bytes)
{
    std::vector<model::Item> items = model::decode(body, bytes).items;
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        auto value = bytes.begin() + static_cast<ptrdiff_t>(item->offset + item->header);
        Bytes length = big_endian(item->needed);
        std::copy(length.begin(), length.end(), value - 4);
        bytes.erase(value + static_cast<ptrdiff_t>(item->needed), value + static_cast<ptrdiff_t>(item->length));
    }
    return bytes;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Of, AcceptTest, testing::ValuesIn(every_body()), name_of_body);

TEST_P(AcceptTest, TextsOfEveryLength)
{
    for (uint32_t length = 0; length < 256; length++)
        ASSERT_TRUE(encodes_to_something_sound(model::sample(body, length, 1))) << "length " << length;
}

TEST_P(AcceptTest, ListsOfEveryCount)
{
    for (uint32_t count : {0u, 1u, 2u, 3u, 5u, 6u, 10u, 11u, 19u, 20u, 21u, 0x80000000u, 0xffffffffu})
        ASSERT_TRUE(encodes_to_something_sound(model::sample(body, count % 7, count))) << "count " << count;
}

TEST_P(AcceptTest, RandomContent)
{
    for (uint32_t seed = 1; seed <= 500; seed++) {
        RandomRecords random(seed);
        Bytes image(body.layout.size);
        random.fill(body.layout, image.data());
        memcpy(image.data(), &body.magic, sizeof body.magic);
        ASSERT_TRUE(encodes_to_something_sound(image)) << "seed " << seed;
    }
}

// Shorter than any encoder makes them; the decoder still reads nothing behind a NUL.
TEST_P(AcceptTest, TextsWithoutPadding)
{
    for (uint32_t length = 0; length < 256; length++)
        ASSERT_TRUE(sound(shortened(body, model::encode(body, model::sample(body, length, 1))))) << length;
}

TEST_P(AcceptTest, EachItemLonger)
{
    Bytes bytes = model::encode(body, model::sample(body, 5, 2));
    Bytes image = model::decode(body, bytes).image;
    for (const model::Item &item : model::decode(body, bytes).items)
        for (uint32_t more : {1u, 2u, 3u, 4u, 5u, 8u, 63u, 1024u}) {
            Bytes longer = lengthened(bytes, item, more);
            ASSERT_TRUE(sound(longer)) << "item at " << item.offset << ", " << more << " more";
            ASSERT_EQ(model::decode(body, longer).image, image);
        }
}

TEST_P(AcceptTest, AllItemsLonger)
{
    for (uint32_t seed = 1; seed <= 20; seed++) {
        RandomRecords random(seed);
        Bytes bytes = model::encode(body, model::sample(body, seed, 2));
        std::vector<model::Item> items = model::decode(body, bytes).items;
        for (auto item = items.rbegin(); item != items.rend(); ++item)
            bytes = lengthened(bytes, *item, random.below(70));
        ASSERT_TRUE(sound(bytes)) << "seed " << seed;
    }
}
