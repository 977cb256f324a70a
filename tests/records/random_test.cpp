// Random records, and random damage to their encodings: the library and the reference codec do the same.

#include "functions.h"
#include "random_record.h"
#include "reference_records.h"

#include "support/library_test.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr uint32_t first_seed = 20240229;
constexpr uint8_t unwritten = 0xee;

template <typename Type> class RandomTest : public LibraryTest {
protected:
    using F = Functions<Type>;

    // For each of the five tests.
    static constexpr uint32_t rounds = sizeof(Type) < 1000 ? 10000 : 3000;
    static constexpr size_t wire_size = 8192;

    // Runs one check for each seed and stops at the first that fails.
    template <typename Check> void for_each_seed(Check check)
    {
        for (uint32_t i = 0; i < rounds && !this->HasFailure(); i++) {
            SCOPED_TRACE(testing::Message() << layout.name << ", seed " << first_seed + i);
            RandomRecords random(first_seed + i);
            check(random);
        }
    }

    Type random_record(RandomRecords &random) const
    {
        Type record;
        random.fill_bytes(&record, sizeof record);
        random.fill(layout, &record);
        return record;
    }

    // The library writes to the wire what the reference codec says, and nothing else.
    void expect_encoding(const Type &record, const reference::Encoding &expected)
    {
        memset(wire, unwritten, sizeof wire);
        uint8_t *cursor = wire;
        ASSERT_EQ(F::serialize(&record, &cursor), expected.status);
        ASSERT_EQ(cursor - wire, static_cast<ptrdiff_t>(expected.bytes.size()));
        Bytes whole(sizeof wire, unwritten);
        for (size_t i = 0; i < expected.bytes.size(); i++)
            whole[i] = expected.bytes[i].value_or(unwritten);
        ASSERT_EQ(std::mismatch(whole.begin(), whole.end(), wire).first, whole.end());
        ASSERT_EQ(take_log(), expected.lines);
    }

    // Puts what the reference codec makes of a record on the wire, padded with zeros. Gives its length.
    size_t send(const Type &record)
    {
        memset(wire, 0, sizeof wire);
        reference::Encoding encoding = reference::encode(layout, &record, wire);
        for (size_t i = 0; i < encoding.bytes.size(); i++)
            wire[i] = encoding.bytes[i].value_or(0);
        return encoding.bytes.size();
    }

    // The library makes of the wire what the reference codec does. Gives that.
    reference::Decoding expect_decoding(RandomRecords &random)
    {
        Type expected;
        random.fill_bytes(&expected, sizeof expected);
        Type decoded = expected;
        reference::Decoding decoding = reference::decode(layout, wire, sizeof wire, &expected);
        if (decoding.leaves_wire)
            return decoding;
        const uint8_t *cursor = wire;
        EXPECT_EQ(F::unserialize(&decoded, &cursor), decoding.status);
        EXPECT_EQ(static_cast<uint32_t>(word(cursor) - word(&wire[0])), decoding.cursor);
        EXPECT_EQ(memcmp(&decoded, &expected, sizeof decoded), 0);
        LogLines lines = take_log();
        EXPECT_EQ(lines, decoding.lines);
        EXPECT_TRUE(lines_ascend_in_each_function(lines));
        return decoding;
    }

    const reference::Layout &layout = reference::layout_of(static_cast<const Type *>(nullptr));
    uint8_t wire[wire_size];
};

using Records = testing::Types<state_info, ipv4_address_return, intfConf, ipv6_prefix, ipv6_prefix_config,
                               ipv6_prefixes, ipv6_address, ipv6_prefix_addr_conf, ipv6_prefix_addr_conf_list,
                               ipv6_properties, ipv4_info, ipv4_properties, ipv4_address>;

struct RecordNames {
    template <typename Type> static std::string GetName(int)
    {
        return reference::layout_of(static_cast<const Type *>(nullptr)).name;
    }
};

TYPED_TEST_SUITE(RandomTest, Records, RecordNames);

// Changes a word to a neighbour, a tag, a length, or anything; or a run of bytes to a text without an end.
void damage(RandomRecords &random, uint8_t *wire, size_t length)
{
    uint32_t at = random.below(static_cast<uint32_t>(length / 4)) * 4;
    uint32_t old = uint32_t{wire[at]} << 24 | uint32_t{wire[at + 1]} << 16 | uint32_t{wire[at + 2]} << 8 | wire[at + 3];
    if (random.below(4) == 0) {
        memset(wire + at, 'x', 1 + random.below(400));
        return;
    }
    uint32_t values[] = {old + 1, old - 1, old + 4, old - 4, random.below(24), random.below(40) * 4, random.number()};
    Bytes changed = big_endian(values[random.below(7)]);
    memcpy(wire + at, changed.data(), changed.size());
}

} // namespace

TYPED_TEST(RandomTest, EncodesWhatTheReferenceDoes)
{
    this->for_each_seed([this](RandomRecords &random) {
        TypeParam record = this->random_record(random);
        reference::Encoding expected = reference::encode(this->layout, &record, this->wire);
        EXPECT_EQ(Functions<TypeParam>::serialize_lg(&record), expected.bytes.size());
        this->expect_encoding(record, expected);
    });
}

TYPED_TEST(RandomTest, DecodesWhatTheReferenceDoes)
{
    this->for_each_seed([this](RandomRecords &random) {
        TypeParam record = this->random_record(random);
        size_t length = this->send(record);
        reference::Decoding decoding = this->expect_decoding(random);
        EXPECT_EQ(decoding.status, 0u);
        EXPECT_EQ(decoding.cursor, length);
        EXPECT_FALSE(decoding.leaves_wire);
    });
}

TYPED_TEST(RandomTest, DecodesDamagedEncodingsAsTheReferenceDoes)
{
    uint32_t taken = 0;
    uint32_t refused = 0;
    this->for_each_seed([&, this](RandomRecords &random) {
        size_t length = this->send(this->random_record(random));
        damage(random, this->wire, length);
        reference::Decoding decoding = this->expect_decoding(random);
        taken += !decoding.leaves_wire;
        refused += decoding.status == 4;
    });
    EXPECT_GT(taken, this->rounds / 2) << "most of the damage must stay on the wire";
    EXPECT_GT(refused, this->rounds / 20) << "and some of it must be refused";
}

TYPED_TEST(RandomTest, RefusesEndlessTextsAsTheReferenceDoes)
{
    this->for_each_seed([this](RandomRecords &random) {
        TypeParam record = this->random_record(random);
        reference::Pretence pretence = {random.any_text(this->layout, &record), 0xfffffffb + random.below(4)};
        reference::Encoding expected = reference::encode(this->layout, &record, this->wire, pretence);
        pretend_length(pretence.text, pretence.length);
        this->expect_encoding(record, expected);
        pretend_length(nullptr, 0);
    });
}

TYPED_TEST(RandomTest, CopiesWhatTheReferenceDoes)
{
    this->for_each_seed([this](RandomRecords &random) {
        TypeParam source = this->random_record(random);
        // A text without a NUL now and then.
        char *text = const_cast<char *>(random.any_text(this->layout, &source));
        if (text && random.below(2))
            text[strlen(text)] = 'x';
        TypeParam expected;
        random.fill_bytes(&expected, sizeof expected);
        TypeParam destination = expected;
        reference::copy(this->layout, &expected, &source);
        EXPECT_EQ(Functions<TypeParam>::copy(&destination, &source), 0u);
        EXPECT_EQ(memcmp(&destination, &expected, sizeof expected), 0);
    });
}
