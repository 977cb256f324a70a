// The codecs of all records and bodies keep nothing between calls: two threads that use them at the same time get what
// one alone gets.

#include "bodies/reference_bodies.h"
#include "records/functions.h"
#include "records/random_record.h"
#include "records/reference_records.h"

#include <array>
#include <barrier>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace {

constexpr size_t room = 8192; // more than any record or body takes, in memory or encoded
using Room = std::array<uint8_t, room>;

// A record or a body in this room: both functions give the status and, on success, the size of what they made.
struct Codec {
    reference::Layout layout;
    uint32_t magic = 0; // of a body
    std::function<uint32_t(const Room &image, Room &wire, size_t &size)> encode;
    std::function<uint32_t(const Room &wire, Room &image, size_t &size)> decode;
};

template <typename Record> Codec codec_of_record()
{
    using F = Functions<Record>;
    return {.layout = reference::layout_of(static_cast<const Record *>(nullptr)),
            .encode =
                [](const Room &image, Room &wire, size_t &size) {
                    const auto *record = reinterpret_cast<const Record *>(image.data());
                    uint8_t *cursor = wire.data();
                    uint32_t status = F::serialize(record, &cursor);
                    size = static_cast<size_t>(cursor - wire.data());
                    EXPECT_EQ(size, F::serialize_lg(record));
                    return status;
                },
            .decode =
                [](const Room &wire, Room &image, size_t &size) {
                    const uint8_t *cursor = wire.data();
                    size = sizeof(Record);
                    return F::unserialize(reinterpret_cast<Record *>(image.data()), &cursor);
                }};
}

// Moves what a callback has made to its room.
void take(Room &to, void *made, uint32_t size)
{
    memcpy(to.data(), made, size);
    free(made);
}

Codec codec_of_body(const reference::Body &body)
{
    return {.layout = body.layout,
            .magic = body.magic,
            .encode =
                [body](const Room &image, Room &wire, size_t &size) {
                    void *buffer = nullptr;
                    uint32_t length = 0;
                    uint32_t status = body.row.serializeBody(body.type, image.data(), &buffer, &length);
                    take(wire, buffer, length);
                    size = length;
                    return status;
                },
            .decode =
                [body](const Room &wire, Room &image, size_t &size) {
                    void *decoded = nullptr;
                    uint32_t length = 0;
                    int32_t status = body.row.unserializeBody(body.type, wire.data(), &decoded, &length);
                    if (!status)
                        take(image, decoded, length);
                    size = length;
                    return static_cast<uint32_t>(status);
                }};
}

std::vector<Codec> all_codecs()
{
    std::vector<Codec> codecs = {codec_of_record<state_info>(),
                                 codec_of_record<ipv4_address_return>(),
                                 codec_of_record<intfConf>(),
                                 codec_of_record<ipv6_prefix>(),
                                 codec_of_record<ipv6_prefix_config>(),
                                 codec_of_record<ipv6_prefixes>(),
                                 codec_of_record<ipv6_address>(),
                                 codec_of_record<ipv6_prefix_addr_conf>(),
                                 codec_of_record<ipv6_prefix_addr_conf_list>(),
                                 codec_of_record<ipv6_properties>(),
                                 codec_of_record<ipv4_info>(),
                                 codec_of_record<ipv4_properties>(),
                                 codec_of_record<ipv4_address>()};
    for (const reference::Body &body : reference::bodies())
        codecs.push_back(codec_of_body(body));
    return codecs;
}

// What a codec makes of one record or body.
struct Made {
    uint32_t encoding_status = 0;
    size_t encoded_size = 0;
    Room wire{};
    uint32_t decoding_status = 0;
    size_t decoded_size = 0;
    Room image{};
    uint32_t damaged_status = 0;
    size_t damaged_size = 0;
    Room damaged_image{};
    LogLines lines;

    bool operator==(const Made &) const = default;
};

// Some content, and what one thread alone makes of it. The threads share what they read.
struct Sample {
    const Codec &codec;
    Room image{};
    Room wire{};
    Room damaged{};
    bool damaged_stays = true; // a damaged length may lead out of the room: that one is not decoded
    Made made{};
};

void run(const Sample &sample, Made &made)
{
    const Codec &codec = sample.codec;
    made.encoding_status = codec.encode(sample.image, made.wire, made.encoded_size);
    made.decoding_status = codec.decode(sample.wire, made.image, made.decoded_size);
    if (sample.damaged_stays)
        made.damaged_status = codec.decode(sample.damaged, made.damaged_image, made.damaged_size);
    made.lines = take_log();
}

std::unique_ptr<Sample> sample_of(const Codec &codec, uint32_t seed)
{
    std::unique_ptr<Sample> sample(new Sample{codec});
    RandomRecords random(seed);
    random.fill(codec.layout, sample->image.data());
    if (codec.magic)
        memcpy(sample->image.data(), &codec.magic, sizeof codec.magic);
    size_t size = 0;
    EXPECT_EQ(codec.encode(sample->image, sample->wire, size), 0u);
    sample->damaged = sample->wire;
    random.damage(sample->damaged.data(), size);
    Room decoded{};
    sample->damaged_stays = !reference::decode(codec.layout, sample->damaged.data(), room, decoded.data()).leaves_wire;
    run(*sample, sample->made);
    return sample;
}

class Threads : public testing::Test {
protected:
    void SetUp() override
    {
        for (const Codec &codec : codecs)
            for (uint32_t seed = 0; seed < seeds; seed++)
                samples.push_back(sample_of(codec, seed));
    }

    // Goes through all samples, from the front or from the back; counts those of which something else was made.
    void go_through(bool reversed, unsigned &differing) const
    {
        auto made = std::make_unique<Made>();
        for (size_t i = 0; i < samples.size(); i++) {
            const Sample &sample = *samples[reversed ? samples.size() - 1 - i : i];
            *made = {};
            run(sample, *made);
            differing += *made != sample.made;
        }
    }

    // Lets two threads go through all samples, again and again; gives how often either made something else.
    unsigned differing_in_two(bool second_reversed) const
    {
        std::array<unsigned, 2> differing{};
        std::barrier together(2);
        auto work = [&](bool reversed, unsigned &own) {
            for (uint32_t i = 0; i < rounds; i++) {
                together.arrive_and_wait();
                go_through(reversed, own);
            }
        };
        std::thread first([&] { work(false, differing[0]); });
        std::thread second([&] { work(second_reversed, differing[1]); });
        first.join();
        second.join();
        return differing[0] + differing[1];
    }

    static constexpr uint32_t seeds = 20;
    static constexpr uint32_t rounds = 40;
    const std::vector<Codec> codecs = all_codecs();
    std::vector<std::unique_ptr<Sample>> samples;
};

} // namespace

TEST_F(Threads, OneAloneMakesTheSameEachTime)
{
    ASSERT_EQ(samples.size(), (13u + 22u) * seeds);
    unsigned differing = 0;
    go_through(true, differing);
    EXPECT_EQ(differing, 0u);
}

TEST_F(Threads, TwoThatDoTheSameMakeTheSameAsOne)
{
    EXPECT_EQ(differing_in_two(false), 0u);
}

TEST_F(Threads, TwoThatDoDifferentThingsMakeTheSameAsOne)
{
    EXPECT_EQ(differing_in_two(true), 0u);
}
