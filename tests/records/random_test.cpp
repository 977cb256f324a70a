// Random records, and random damage to their encodings: the library and the reference codec do the same.

#include "functions.h"
#include "random_record.h"
#include "reference_records.h"

#include "support/library_test.h"
#include "support/long_form.h"

#include <cstring>
#include <functional>

namespace {

constexpr uint32_t first_seed = 20240229;
constexpr uint8_t unwritten = 0xee;

// The functions of a record, for any bytes that hold one.
struct Codec {
    const reference::Layout &layout;
    std::function<uint32_t(void *destination, const void *source)> copy;
    std::function<uint32_t(const void *record)> serialize_lg;
    std::function<uint32_t(const void *record, uint8_t **cursor)> serialize;
    std::function<uint32_t(void *record, const uint8_t **cursor)> unserialize;
};

void PrintTo(const Codec &codec, std::ostream *out)
{
    *out << codec.layout.name;
}

template <typename Record> Codec codec_of()
{
    using F = Functions<Record>;
    return {
        .layout = reference::layout_of(static_cast<const Record *>(nullptr)),
        .copy = [](void *to,
                   const void *from) { return F::copy(static_cast<Record *>(to), static_cast<const Record *>(from)); },
        .serialize_lg = [](const void *record) { return F::serialize_lg(static_cast<const Record *>(record)); },
        .serialize = [](const void *record,
                        uint8_t **cursor) { return F::serialize(static_cast<const Record *>(record), cursor); },
        .unserialize = [](void *record,
                          const uint8_t **cursor) { return F::unserialize(static_cast<Record *>(record), cursor); },
    };
}

class RandomTest : public LibraryTest, public testing::WithParamInterface<Codec> {
protected:
    // No function of a record asks for memory.
    void TearDown() override
    {
        EXPECT_EQ(allocations(), 0u);
        LibraryTest::TearDown();
    }

    // Runs one check for each seed and stops at the first that fails.
    template <typename Check> void for_each_seed(Check check)
    {
        for (uint32_t i = 0; i < rounds && !HasFailure(); i++) {
            SCOPED_TRACE(testing::Message() << codec.layout.name << ", seed " << first_seed + i);
            RandomRecords random(first_seed + i);
            check(random);
        }
    }

    Bytes random_bytes(RandomRecords &random) const
    {
        Bytes record(codec.layout.size);
        random.fill_bytes(record.data(), record.size());
        return record;
    }

    Bytes random_record(RandomRecords &random) const
    {
        Bytes record = random_bytes(random);
        random.fill(codec.layout, record.data());
        return record;
    }

    // The library writes to the wire what the reference codec says, and nothing else.
    void expect_encoding(const Bytes &record, const reference::Encoding &expected)
    {
        memset(wire, unwritten, sizeof wire);
        uint8_t *cursor = wire;
        ASSERT_EQ(codec.serialize(record.data(), &cursor), expected.status);
        ASSERT_EQ(cursor - wire, static_cast<ptrdiff_t>(expected.bytes.size()));
        Bytes whole(sizeof wire, unwritten);
        for (size_t i = 0; i < expected.bytes.size(); i++)
            whole[i] = expected.bytes[i].value_or(unwritten);
        ASSERT_EQ(memcmp(wire, whole.data(), sizeof wire), 0);
        ASSERT_EQ(take_log(), expected.lines);
    }

    // Puts what the reference codec makes of a record on the wire, padded with zeros. Gives its length.
    size_t send(const Bytes &record)
    {
        memset(wire, 0, sizeof wire);
        reference::Encoding encoding = reference::encode(codec.layout, record.data(), wire);
        for (size_t i = 0; i < encoding.bytes.size(); i++)
            wire[i] = encoding.bytes[i].value_or(0);
        return encoding.bytes.size();
    }

    // The library makes of the wire what the reference codec does. Gives that.
    reference::Decoding expect_decoding(RandomRecords &random)
    {
        Bytes expected = random_bytes(random);
        Bytes decoded = expected;
        reference::Decoding decoding = reference::decode(codec.layout, wire, sizeof wire, expected.data());
        if (decoding.leaves_wire)
            return decoding;
        const uint8_t *cursor = wire;
        EXPECT_EQ(codec.unserialize(decoded.data(), &cursor), decoding.status);
        EXPECT_EQ(static_cast<uint32_t>(word(cursor) - word(&wire[0])), decoding.cursor);
        EXPECT_EQ(decoded, expected);
        LogLines lines = take_log();
        EXPECT_EQ(lines, decoding.lines);
        EXPECT_TRUE(lines_ascend_in_each_function(lines));
        return decoding;
    }

    const Codec &codec = GetParam();
    const uint32_t rounds = by_form(codec.layout.size < 1000 ? 10000 : 3000, 1000000);
    uint8_t wire[8192];
};

INSTANTIATE_TEST_SUITE_P(Of, RandomTest,
                         testing::Values(codec_of<state_info>(), codec_of<ipv4_address_return>(), codec_of<intfConf>(),
                                         codec_of<ipv6_prefix>(), codec_of<ipv6_prefix_config>(),
                                         codec_of<ipv6_prefixes>(), codec_of<ipv6_address>(),
                                         codec_of<ipv6_prefix_addr_conf>(), codec_of<ipv6_prefix_addr_conf_list>(),
                                         codec_of<ipv6_properties>(), codec_of<ipv4_info>(),
                                         codec_of<ipv4_properties>(), codec_of<ipv4_address>()),
                         [](const auto &codecs) { return codecs.param.layout.name; });

} // namespace

TEST_P(RandomTest, EncodesWhatTheReferenceDoes)
{
    for_each_seed([&](RandomRecords &random) {
        Bytes record = random_record(random);
        reference::Encoding expected = reference::encode(codec.layout, record.data(), wire);
        EXPECT_EQ(codec.serialize_lg(record.data()), expected.bytes.size());
        expect_encoding(record, expected);
    });
    add_to_figure("random records encoded as the second implementation does", rounds);
}

TEST_P(RandomTest, DecodesWhatTheReferenceDoes)
{
    for_each_seed([&](RandomRecords &random) {
        Bytes record = random_record(random);
        size_t length = send(record);
        reference::Decoding decoding = expect_decoding(random);
        EXPECT_EQ(decoding.status, 0u);
        EXPECT_EQ(decoding.cursor, length);
        EXPECT_FALSE(decoding.leaves_wire);
    });
    add_to_figure("random records decoded as the second implementation does", rounds);
}

TEST_P(RandomTest, DecodesDamagedEncodingsAsTheReferenceDoes)
{
    uint32_t taken = 0;
    uint32_t refused = 0;
    for_each_seed([&](RandomRecords &random) {
        size_t length = send(random_record(random));
        random.damage(wire, length);
        reference::Decoding decoding = expect_decoding(random);
        taken += !decoding.leaves_wire;
        refused += decoding.status == 4;
    });
    EXPECT_GT(taken, rounds / 2) << "most of the damage must stay on the wire";
    EXPECT_GT(refused, rounds / 20) << "and some of it must be refused";
    add_to_figure("damaged records decoded as the second implementation does", taken);
}

TEST_P(RandomTest, RefusesEndlessTextsAsTheReferenceDoes)
{
    uint32_t texts = 0;
    uint32_t refused = 0;
    for_each_seed([&](RandomRecords &random) {
        Bytes record = random_record(random);
        reference::Pretence pretence = {random.any_text(codec.layout, record.data()), 0xfffffffb + random.below(4)};
        reference::Encoding expected = reference::encode(codec.layout, record.data(), wire, pretence);
        pretend_length(pretence.text, pretence.length);
        expect_encoding(record, expected);
        pretend_length(nullptr, 0);
        texts += pretence.text != nullptr;
        refused += expected.status == 4;
    });
    EXPECT_GE(refused, texts / 4) << "the others are texts of entries that are not counted, and not encoded";
    add_to_figure("records with an endless text refused as the second implementation does", refused);
}

TEST_P(RandomTest, CopiesWhatTheReferenceDoes)
{
    for_each_seed([&](RandomRecords &random) {
        Bytes source = random_record(random);
        // A text without a NUL now and then.
        char *text = const_cast<char *>(random.any_text(codec.layout, source.data()));
        if (text && random.below(2))
            text[strlen(text)] = 'x';
        Bytes expected = random_bytes(random);
        Bytes destination = expected;
        reference::copy(codec.layout, expected.data(), source.data());
        EXPECT_EQ(codec.copy(destination.data(), source.data()), 0u);
        EXPECT_EQ(destination, expected);
    });
    add_to_figure("random records copied as the second implementation does", rounds);
}
