// serializeBody of every method.

#include "commands/method.h"
#include "commands/record.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

class SerializeTest : public BodyTest {
protected:
    Bytes body = sample_of(GetParam()).image;

private:
    static const Body &sample_of(const Direction &direction)
    {
        return direction.type == GORVANET_BODY_REQUEST ? direction.method->request : direction.method->response;
    }
};

TEST_P(SerializeTest, EncodesTheSample)
{
    ASSERT_EQ(encode(body.data()), 0u);
    EXPECT_EQ(size, sample().wire.size());
    ASSERT_EQ(size_of_block(output), sample().wire.size());
    EXPECT_EQ(contents(output, size), sample().wire);
    EXPECT_EQ(allocations(), 1u);
    free(output);
}

TEST_P(SerializeTest, LeavesTheBodyAsItIs)
{
    ASSERT_EQ(encode(body.data()), 0u);
    EXPECT_EQ(body, sample().image);
    EXPECT_EQ(take_freed().size(), 0u);
    free(output);
}

TEST_P(SerializeTest, DoesNotEncodeTheFlag)
{
    body[4] = 0x5a;
    body[5] = 0xa5;
    ASSERT_EQ(encode(body.data()), 0u);
    EXPECT_EQ(contents(output, size), sample().wire);
    free(output);
}

TEST_P(SerializeTest, EncodesADecodedBodyToTheSameBytes)
{
    void *decoded = callbacks->decoded();
    ASSERT_EQ(encode(decoded), 0u);
    EXPECT_EQ(contents(output, size), sample().wire);
    free(output);
    free(decoded);
}

TEST_P(SerializeTest, RefusesANullBody)
{
    EXPECT_EQ(encode(nullptr), 4u);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, callbacks->log_name("serializeBody").c_str(), "Ctx[NULL] text[%s]\n", "")});
    EXPECT_EQ(allocations(), 0u);
    expect_untouched();
}

TEST_P(SerializeTest, AbortsOnAForeignMagic)
{
    const uint32_t found = method().magic ^ 0x100;
    set_magic(body.data(), found);
    EXPECT_TRUE(aborts([this] { encode(body.data()); }));
    EXPECT_EQ(take_log(),
              LogLines{logged(0, callbacks->log_name("serializeBody").c_str(),
                              "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n", method().magic_name.c_str(),
                              method().magic, static_cast<void *>(body.data()), found, "")});
    EXPECT_EQ(allocations(), 0u);
    expect_untouched();
}

TEST_P(SerializeTest, WithoutMemoryReturns5)
{
    refuse_allocation(1, true);
    EXPECT_EQ(encode(body.data()), 5u);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, callbacks->log_name("serializeBody").c_str(), "Allocating Memory N Ctx[%s]\n", "")});
    expect_untouched();
}

// What the library leaves behind, and nobody can release: the buffer of a body whose text or record is refused. These are
// the encoders that leave one; the others have nothing that could be refused.
const char *const leaves_its_buffer[] = {
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setOsIfc",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setDhcp",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setRdisc6",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_getIPv4Props",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_getIPv6Props",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setIPv4Address",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_setIPv4Address",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_setIPv6PrefixAndAddress",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_askStateRenotification",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdReq_configure",
    "gorvaNet_cbEvtMsgMngt_serializeBody_msgNtfyReq_prefixStatus",
};

TEST_P(SerializeTest, LeavesNothingBehindButTheBufferOfWhatIsRefused)
{
    if (sample().text.capacity)
        pretend_length(body.data() + sample().text.place, 0xfffffffb);
    if (sample().record.probe)
        sample().record.probe->serialize.instead = [](const void *, uint8_t **) { return 4u; };
    const bool leaves = std::count(std::begin(leaves_its_buffer), std::end(leaves_its_buffer),
                                   callbacks->log_name("serializeBody")) == 1;
    EXPECT_EQ(encode(body.data()), leaves ? 4u : 0u);
    ASSERT_EQ(live_blocks().size(), 1u);
    EXPECT_EQ(allocations(), 1u);
    EXPECT_EQ(take_freed().size(), 0u);
    EXPECT_EQ(output == live_blocks()[0], !leaves);
    EXPECT_EQ(take_log().empty(), !leaves);
    free(live_blocks()[0]);
}

INSTANTIATE_TEST_SUITE_P(Methods, SerializeTest, testing::ValuesIn(bodies()), name_of_body);

} // namespace
