// serializeBody of every method.

#include "commands/method.h"

#include <cstdlib>

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
    body[1] = static_cast<uint8_t>(body[1] ^ 1);
    EXPECT_TRUE(aborts([this] { encode(body.data()); }));
    EXPECT_EQ(take_log(),
              LogLines{logged(0, callbacks->log_name("serializeBody").c_str(),
                              "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n", method().magic_name.c_str(),
                              method().magic, static_cast<void *>(body.data()), method().magic ^ 0x100, "")});
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

INSTANTIATE_TEST_SUITE_P(Methods, SerializeTest, testing::ValuesIn(bodies()), name_of_body);

} // namespace
