// Random bodies of every method, and random damage to their encodings: the library's callbacks and the reference codec
// do the same.

#include "bodies/reference_bodies.h"

#include "records/random_record.h"

#include "support/library_test.h"
#include "support/long_form.h"

#include <cstdlib>
#include <cstring>

namespace {

using reference::Body;

constexpr uint32_t first_seed = 20240301;

class RandomBodies : public LibraryTest, public testing::WithParamInterface<const Body *> {
protected:
    // Runs one check for each seed and stops at the first that fails.
    template <typename Check> void for_each_seed(Check check)
    {
        for (uint32_t i = 0; i < rounds && !HasFailure(); i++) {
            SCOPED_TRACE(testing::Message() << body.layout.name << ", seed " << first_seed + i);
            RandomRecords random(first_seed + i);
            check(random);
        }
    }

    // A body in memory: any bytes where nothing is said of them, the flag among them.
    Bytes random_body(RandomRecords &random) const
    {
        Bytes image(body.layout.size);
        random.fill_bytes(image.data(), image.size());
        random.fill(body.layout, image.data());
        memcpy(image.data(), &body.magic, sizeof body.magic);
        return image;
    }

    // Puts what the reference codec makes of a body on the wire, padded with zeros. Gives its length.
    size_t send(const Bytes &image)
    {
        memset(wire, 0, sizeof wire);
        reference::Encoding encoding = reference::encode(body.layout, image.data(), wire);
        Bytes bytes = bytes_of(encoding);
        std::copy(bytes.begin(), bytes.end(), wire);
        return bytes.size();
    }

    static Bytes bytes_of(const reference::Encoding &encoding)
    {
        Bytes bytes;
        for (auto byte : encoding.bytes)
            bytes.push_back(byte.value_or(0));
        return bytes;
    }

    // The library makes of the wire what the reference codec does. Gives that.
    reference::Decoding expect_decoding()
    {
        Bytes expected(body.layout.size);
        reference::Decoding decoding = reference::decode(body.layout, wire, sizeof wire, expected.data());
        if (decoding.leaves_wire)
            return decoding;
        void *decoded = untouched_output;
        uint32_t size = untouched_size;
        EXPECT_EQ(body.row.unserializeBody(body.type, wire, &decoded, &size), static_cast<int32_t>(decoding.status));
        LogLines lines = take_log();
        EXPECT_EQ(lines, decoding.lines);
        EXPECT_TRUE(lines_ascend_in_each_function(lines));
        if (decoding.status)
            expect_released(decoded, size);
        else
            expect_handed_out(decoded, size, expected);
        return decoding;
    }

    void expect_released(const void *decoded, uint32_t size)
    {
        EXPECT_EQ(decoded, untouched_output);
        EXPECT_EQ(size, untouched_size);
        std::vector<Freed> freed = take_freed();
        ASSERT_EQ(freed.size(), 1u);
        EXPECT_EQ(freed[0].size, body.layout.size);
        EXPECT_EQ(live_blocks().size(), 0u);
    }

    static void expect_handed_out(void *decoded, uint32_t size, const Bytes &expected)
    {
        ASSERT_EQ(size, expected.size());
        ASSERT_EQ(size_of_block(decoded), expected.size());
        EXPECT_EQ(memcmp(decoded, expected.data(), size), 0);
        EXPECT_EQ(take_freed().size(), 0u);
        EXPECT_EQ(live_blocks(), std::vector<void *>{decoded});
        free(decoded);
    }

    // The last line about a body that cannot be encoded.
    LogLine not_encoded(const void *buffer) const
    {
        const char *name = body.layout.encoder.c_str();
        if (body.type == GORVANET_BODY_REQUEST)
            return logged(3, name, "BodyReq(%p): On serialize failed(%d)\n", buffer, 4);
        return logged(3, name, "pBodyReq(%p): On serialize failed(%d)\n", buffer, 4);
    }

    const Body &body = *GetParam();
    const uint32_t rounds = by_form(body.layout.size < 1000 ? 2000 : 500, 1000000);
    uint8_t wire[8192];

    void *const untouched_output = wire;
    static constexpr uint32_t untouched_size = 0x5a5a5a5a;
};

std::vector<const Body *> all_bodies(bool with_text)
{
    std::vector<const Body *> chosen;
    for (const Body &body : reference::bodies()) {
        Bytes image(body.layout.size);
        if (!with_text || RandomRecords(0).any_text(body.layout, image.data()))
            chosen.push_back(&body);
    }
    return chosen;
}

std::string name_of(const testing::TestParamInfo<const Body *> &info)
{
    return info.param->layout.name;
}

} // namespace

TEST_P(RandomBodies, AreEncodedAsTheReferenceDoes)
{
    for_each_seed([this](RandomRecords &random) {
        Bytes image = random_body(random);
        Bytes before = image;
        Bytes expected = bytes_of(reference::encode(body.layout, image.data(), nullptr));
        void *buffer = nullptr;
        uint32_t size = 0;
        ASSERT_EQ(body.row.serializeBody(body.type, image.data(), &buffer, &size), 0u);
        ASSERT_EQ(size, expected.size());
        ASSERT_EQ(size_of_block(buffer), expected.size());
        EXPECT_EQ(memcmp(buffer, expected.data(), size), 0);
        EXPECT_EQ(image, before);
        EXPECT_EQ(take_freed().size(), 0u);
        free(buffer);
    });
    add_to_figure("random bodies encoded as the second implementation does", rounds);
}

TEST_P(RandomBodies, AreDecodedAsTheReferenceDoes)
{
    for_each_seed([this](RandomRecords &random) {
        size_t length = send(random_body(random));
        reference::Decoding decoding = expect_decoding();
        EXPECT_EQ(decoding.status, 0u);
        EXPECT_EQ(decoding.cursor, length);
        EXPECT_FALSE(decoding.leaves_wire);
    });
    add_to_figure("random bodies decoded as the second implementation does", rounds);
}

TEST_P(RandomBodies, AreDecodedAsTheReferenceDoesWhenTheyAreDamaged)
{
    uint32_t taken = 0;
    uint32_t refused = 0;
    for_each_seed([&](RandomRecords &random) {
        size_t length = send(random_body(random));
        random.damage(wire, length);
        reference::Decoding decoding = expect_decoding();
        taken += !decoding.leaves_wire;
        refused += decoding.status != 0;
    });
    EXPECT_GT(taken, rounds / 2) << "most of the damage must stay on the wire";
    EXPECT_GT(refused, rounds / 20) << "and some of it must be refused";
    add_to_figure("damaged bodies decoded as the second implementation does", taken);
}

INSTANTIATE_TEST_SUITE_P(Of, RandomBodies, testing::ValuesIn(all_bodies(false)), name_of);

class RandomBodiesWithTexts : public RandomBodies {};

// The buffer stays: it is neither handed out nor released.
TEST_P(RandomBodiesWithTexts, AreRefusedAsTheReferenceDoesWhenATextIsEndless)
{
    uint32_t refused = 0;
    for_each_seed([&](RandomRecords &random) {
        Bytes image = random_body(random);
        const char *text = random.any_used_text(body.layout, image.data());
        if (!text)
            return;
        reference::Pretence pretence = {text, 0xfffffffb + random.below(4)};
        pretend_length(pretence.text, pretence.length);
        void *buffer = untouched_output;
        uint32_t size = untouched_size;
        EXPECT_EQ(body.row.serializeBody(body.type, image.data(), &buffer, &size), 4u);
        pretend_length(nullptr, 0);
        EXPECT_EQ(buffer, untouched_output);
        EXPECT_EQ(size, untouched_size);

        EXPECT_EQ(take_freed().size(), 0u);
        ASSERT_EQ(live_blocks().size(), 1u);
        void *left = live_blocks()[0];
        reference::Encoding expected = reference::encode(body.layout, image.data(), left, pretence);
        ASSERT_EQ(expected.status, 4u);
        Bytes bytes = bytes_of(expected);
        ASSERT_GE(size_of_block(left), bytes.size());
        bytes.resize(size_of_block(left));
        EXPECT_EQ(memcmp(left, bytes.data(), bytes.size()), 0);
        expected.lines.push_back(not_encoded(left));
        EXPECT_EQ(take_log(), expected.lines);
        free(left);
        refused++;
    });
    EXPECT_GT(refused, rounds / 2) << "most bodies must have a text";
    add_to_figure("bodies with an endless text refused as the second implementation does", refused);
}

INSTANTIATE_TEST_SUITE_P(Of, RandomBodiesWithTexts, testing::ValuesIn(all_bodies(true)), name_of);
