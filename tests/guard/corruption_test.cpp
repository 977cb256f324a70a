// One body of each kind, damaged in every place: what the guard takes the library decodes, and what the library is
// given all the same it treats as the model says.

#include "guard/body_test.h"
#include "support/long_form.h"

namespace {

class CorruptionTest : public GuardedBodyTest {
protected:
    // Texts of five characters, lists of two.
    const Bytes golden = model::encode(body, model::sample(body, 5, 2));

    bool both(const Bytes &bytes)
    {
        return guarded(bytes) && direct(bytes) && !HasFailure();
    }

    void tell() const
    {
        add_to_figure("damaged bodies taken by the guard and decoded as the model says", taken);
        add_to_figure("damaged bodies refused by the guard", refused);
        add_to_figure("of both without the guard as the model says", taken + refused - skipped);
        add_to_figure("of both without the guard skipped, since they lead out of the arena", skipped);
    }
};

Bytes with_word(Bytes bytes, uint32_t offset, uint32_t value)
{
    Bytes word = big_endian(value);
    std::copy(word.begin(), word.end(), bytes.begin() + static_cast<ptrdiff_t>(offset));
    return bytes;
}

// The bytes with a text of so many characters, and its NUL, in place of what is in the item.
Bytes with_text(Bytes bytes, const model::Item &item, uint32_t length)
{
    bytes = with_word(bytes, item.offset + 4, length + 1);
    auto value = bytes.begin() + static_cast<ptrdiff_t>(item.offset + item.header);
    value = bytes.erase(value, value + static_cast<ptrdiff_t>(item.length));
    value = bytes.insert(value, 1, 0);
    bytes.insert(value, length, 'x');
    return bytes;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Of, CorruptionTest, testing::ValuesIn(every_body()), name_of_body);

// The library's own encoding, and the guard's word for it: the damage below is damage to something sound.
TEST_P(CorruptionTest, None)
{
    void *buffer = nullptr;
    uint32_t size = 0;
    Bytes image = model::sample(body, 5, 2);
    ASSERT_EQ(body.row().serializeBody(body.direction, image.data(), &buffer, &size), 0u);
    EXPECT_EQ(Bytes(static_cast<uint8_t *>(buffer), static_cast<uint8_t *>(buffer) + size), golden);
    free(buffer);
    EXPECT_TRUE(both(golden));
    EXPECT_EQ(taken, 1u);
    EXPECT_EQ(skipped, 0u);
    take_freed();
}

TEST_P(CorruptionTest, OfEveryBit)
{
    for (size_t bit = 0; bit < golden.size() * 8; bit++) {
        Bytes bytes = golden;
        bytes[bit / 8] = static_cast<uint8_t>(bytes[bit / 8] ^ 1 << bit % 8);
        ASSERT_TRUE(both(bytes)) << "bit " << bit % 8 << " of byte " << bit / 8;
    }
    EXPECT_GE(refused, 8u * 20) << "tags, lengths and magic are in the prologue already";
    EXPECT_GE(taken, 16u) << "the high half of the version";
    tell();
}

TEST_P(CorruptionTest, ByTruncation)
{
    for (size_t size = 0; size < golden.size(); size++)
        ASSERT_TRUE(both({golden.begin(), golden.begin() + static_cast<ptrdiff_t>(size)})) << size << " bytes";
    EXPECT_EQ(taken, 0u);
    tell();
}

TEST_P(CorruptionTest, OfEveryLength)
{
    for (const model::Item &item : model::decode(body, golden).items)
        for (uint32_t half = 4; half < item.header; half += 4)
            for (uint32_t value :
                 {0u, 1u, 3u, 5u, item.capacity - 1, item.capacity, item.capacity + 1, 0x80000000u, 0xfffffff8u})
                ASSERT_TRUE(both(with_word(golden, item.offset + half, value)))
                    << "item at " << item.offset << ", word " << half << " is " << value;
    tell();
}

// The longest text is taken; one character more is not, by either.
TEST_P(CorruptionTest, OfEveryTextByItsLength)
{
    unsigned texts = 0;
    for (const model::Item &item : model::decode(body, golden).items) {
        if (!item.is_text)
            continue;
        ASSERT_TRUE(both(with_text(golden, item, item.capacity - 1))) << "item at " << item.offset;
        EXPECT_EQ(taken, ++texts);
        ASSERT_TRUE(both(with_text(golden, item, item.capacity))) << "item at " << item.offset;
        ASSERT_TRUE(both(with_text(golden, item, item.capacity + 1))) << "item at " << item.offset;
        EXPECT_EQ(refused, 2 * texts);
    }
    EXPECT_EQ(skipped, 0u);
}
