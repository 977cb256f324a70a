// The reference codec must itself be right: it agrees with the encodings that are written down by hand.

#include "ipv6_properties_sample.h"
#include "reference_records.h"

namespace {

class ReferenceCodecTest : public RecordTest {
protected:
    template <typename Record> void expect_agreement(const Record &sample, const Items &items)
    {
        const reference::Layout &layout = reference::layout_of(&sample);
        reference::Encoding encoding = reference::encode(layout, &sample, wire);
        EXPECT_EQ(encoding.status, 0u);
        EXPECT_EQ(encoding.lines, LogLines{});
        Bytes encoded;
        for (auto byte : encoding.bytes)
            encoded.push_back(byte.value_or(unwritten_byte));
        EXPECT_EQ(encoded, bytes(items, unwritten_byte));

        receive(bytes(items));
        auto decoded = untouched_record<Record>();
        reference::Decoding decoding = reference::decode(layout, wire, sizeof wire, &decoded);
        EXPECT_EQ(decoding.status, 0u);
        EXPECT_EQ(decoding.lines, LogLines{});
        EXPECT_EQ(decoding.cursor, encoded.size());
        EXPECT_FALSE(decoding.leaves_wire);
        EXPECT_EQ(memory_of(decoded), memory_of(sample));
    }
};

} // namespace

TEST_F(ReferenceCodecTest, AgreesWithTheSamplesWrittenByHand)
{
    expect_agreement(sample<ipv4_info>(1), info_items(1));
    expect_agreement(sample<ipv6_address>(2), address_items(2));
    expect_agreement(sample<ipv6_prefix>(3), prefix_items(3));
    expect_agreement(sample<ipv6_prefix_config>(4), config_items(4));
    expect_agreement(sample<ipv6_prefix_addr_conf>(5), addr_conf_items(5));
    expect_agreement(with_elements(), full_items);
}

TEST_F(ReferenceCodecTest, LogsARefusedElementAndThenTheFieldsBehindIt)
{
    Items items = full_items;
    Items address = address_items(3);
    address[2] = "00000001 00000009 00000000";
    items[10] = joined(address_items(2)) + joined(address);
    receive(bytes(items));
    size_t second = bytes_before(items, 10).size() + 60;
    auto decoded = untouched_record<ipv6_properties>();
    reference::Decoding decoding = reference::decode(reference::layout_of(&decoded), wire, sizeof wire, &decoded);
    EXPECT_EQ(decoding.status, 4u);
    EXPECT_EQ(decoding.cursor, second + 24);
    EXPECT_EQ(decoding.lines,
              ExpectedLines("gorvaNet_ipv6_address_unserialize", wire + second)
                  .wrong_tag(1, 9, 6)
                  .before({7, 8})
                  .and_then(ExpectedLines("gorvaNet_ipv6_properties_unserialize", wire).before({14, 16, 17, 19})));
}

TEST_F(ReferenceCodecTest, SeesThatItemsLeadOutOfTheWire)
{
    receive(bytes("00000003 00002000 00000001"));
    auto decoded = untouched_record<state_info>();
    EXPECT_TRUE(reference::decode(reference::layout_of(&decoded), wire, sizeof wire, &decoded).leaves_wire);
}
