// unserializeBody of every method.

#include "commands/method.h"

#include <cstdlib>

namespace {

constexpr size_t magic_item = 0;
constexpr size_t version_item = 12;
constexpr size_t item_length = 4; // where an item holds its length
constexpr size_t item_value = 8;

class UnserializeTest : public BodyTest {
protected:
    LogLine tag_line(const Bytes &given, uint32_t tag, uint32_t length, uint32_t expected)
    {
        return logged(3, name.c_str(), "pBody(%p): Tl(%u-%u) expectded(%u)\n", start(given), tag, length, expected);
    }

    LogLine announcement(const Bytes &given, uint32_t tag)
    {
        return logged(3, name.c_str(), "pBody(%p): Type(%d) -> Error Before\n", start(given), static_cast<int>(tag));
    }

    static const void *start(const Bytes &given)
    {
        return given.data();
    }

    // The item at this offset made 4 bytes longer.
    static Bytes lengthened(const Bytes &given, size_t item)
    {
        auto length = static_cast<uint32_t>(given.at(item + item_length + 2) << 8 | given.at(item + item_length + 3));
        Bytes longer = with_more(given, item + item_value + length, hex("fedcba98"));
        return with_number(longer, item + item_length, length + 4);
    }

    const Bytes &wire = GetParam().type == GORVANET_BODY_REQUEST ? method().request.wire : method().response.wire;
    std::string name;

    void SetUp() override
    {
        BodyTest::SetUp();
        name = callbacks->log_name("unserializeBody");
    }
};

TEST_P(UnserializeTest, DecodesTheSample)
{
    expect_sample(wire);
    EXPECT_EQ(allocations(), 1u);
    EXPECT_EQ(take_freed().size(), 0u);
}

TEST_P(UnserializeTest, WithoutMemoryReturns5)
{
    refuse_allocation(1, true);
    EXPECT_EQ(callbacks->unserialize(GetParam().type, wire.data(), &output, &size), 5);
    EXPECT_EQ(take_log(), LogLines{logged(3, name.c_str(), "Allocating Memory Ctx[%s]\n", "")});
    EXPECT_EQ(take_freed().size(), 0u);
    expect_untouched();
}

TEST_P(UnserializeTest, MemoryIsAskedForBeforeTheBytesAreLookedAt)
{
    refuse_allocation(1, true);
    Bytes bad = with_number(wire, magic_item, 9);
    EXPECT_EQ(callbacks->unserialize(GetParam().type, bad.data(), &output, &size), 5);
    EXPECT_EQ(take_log(), LogLines{logged(3, name.c_str(), "Allocating Memory Ctx[%s]\n", "")});
}

TEST_P(UnserializeTest, AWrongTag0IsRefusedAndTag1Announced)
{
    for (uint32_t tag : {1u, 3u, 0x100u, 0x80000000u, 0xffffffffu}) {
        Bytes bad = with_number(wire, magic_item, tag);
        expect_refused(bad, 2, 0);
        LogLines lines = take_log();
        EXPECT_EQ(lines, (LogLines{tag_line(bad, tag, 4, 0), announcement(bad, 1)}));
        EXPECT_TRUE(lines_ascend(lines));
    }
}

TEST_P(UnserializeTest, AWrongTag1IsRefused)
{
    for (uint32_t tag : {0u, 2u, 3u, 0x10001u, 0x1000000u}) {
        Bytes bad = with_number(wire, version_item, tag);
        expect_refused(bad, 2, method().magic);
        EXPECT_EQ(take_log(), LogLines{tag_line(bad, tag, 4, 1)});
    }
}

TEST_P(UnserializeTest, TheLineOfAWrongTagShowsTheLengthFound)
{
    Bytes bad = with_number(with_number(wire, magic_item, 7), magic_item + item_length, 0xfffffff0);
    expect_refused(bad, 2, 0);
    EXPECT_EQ(take_log(), (LogLines{tag_line(bad, 7, 4294967280, 0), announcement(bad, 1)}));
}

TEST_P(UnserializeTest, OfTheVersionTheLow16BitsCount)
{
    for (uint32_t high : {0x10000u, 0x20000u, 0x80000000u, 0xffff0000u})
        expect_sample(with_number(wire, version_item + item_value, high | method().version));
}

TEST_P(UnserializeTest, AnotherVersionIsRefusedWithoutALine)
{
    for (uint32_t difference : {1u, 2u, 0x100u, 0x8000u, 0x10001u})
        expect_refused(with_number(wire, version_item + item_value, method().version ^ difference), 2, method().magic);
}

TEST_P(UnserializeTest, TakesTheMagicOverUnchecked)
{
    for (uint32_t magic : {0u, 0x39132012u, 0xdeadbeefu}) {
        Bytes foreign = with_number(wire, magic_item + item_value, magic);
        ASSERT_EQ(callbacks->unserialize(GetParam().type, foreign.data(), &output, &size), 0);
        EXPECT_EQ(*static_cast<uint32_t *>(output), magic);
        EXPECT_EQ(contents(static_cast<char *>(output) + 4, size - 4), without(sample().image, 0, 4));
        free(output);
    }
}

TEST_P(UnserializeTest, FollowsTheLengthOfEachItemOfThePrologue)
{
    expect_sample(lengthened(wire, magic_item));
    expect_sample(lengthened(wire, version_item));
}

TEST_P(UnserializeTest, ANumberIsFourBytesWhateverItsLength)
{
    // The magic's item has no value of its own: what follows it is read as its value, and as the next item.
    Bytes empty = with_number(without(wire, magic_item + item_value, 4), magic_item + item_length, 0);
    ASSERT_EQ(callbacks->unserialize(GetParam().type, empty.data(), &output, &size), 0);
    EXPECT_EQ(*static_cast<uint32_t *>(output), 1u);
    EXPECT_EQ(contents(static_cast<char *>(output) + 4, size - 4), without(sample().image, 0, 4));
    free(output);
}

TEST_P(UnserializeTest, TheAdvanceWrapsIn32Bits)
{
    // 8 + 0xfffffff8 is 0: the next item is the same one again.
    Bytes bad = with_number(wire, magic_item + item_length, 0xfffffff8);
    expect_refused(bad, 2, method().magic);
    EXPECT_EQ(take_log(), LogLines{tag_line(bad, 0, 4294967288, 1)});
}

TEST_P(UnserializeTest, AFieldWithAWrongTagIsRefused)
{
    for (const Field &field : sample().fields)
        for (uint32_t tag : {0u, field.tag + 1, field.tag | 0x10000, field.tag | 0x80000000}) {
            Bytes bad = with_number(with_number(wire, field.offset, tag), field.offset + item_length, 0x1234);
            expect_refused(bad, 4, method().magic);
            LogLines expected = {tag_line(bad, tag, 0x1234, field.tag)};
            for (uint32_t announced : field.announced)
                expected.push_back(announcement(bad, announced));
            LogLines lines = take_log();
            EXPECT_EQ(lines, expected);
            EXPECT_TRUE(lines_ascend(lines));
        }
}

TEST_P(UnserializeTest, FollowsTheLengthOfEachField)
{
    for (const Field &field : sample().fields)
        expect_sample(lengthened(wire, field.offset));
}

INSTANTIATE_TEST_SUITE_P(Methods, UnserializeTest, testing::ValuesIn(bodies()), name_of_body);

} // namespace
