// The types of body that a method's callbacks refuse, and logBody, which takes them all.

#include "commands/method.h"

#include <cstdlib>

namespace {

// ---- Types that no method knows -------------------------------------------------------------------------------------

class UnknownTypeTest : public MethodTest {
protected:
    const BodyCallbacks callbacks{method(), GORVANET_BODY_REQUEST};
    const std::vector<uint32_t> unknown = {2, 3, 0x100, 0x10000, 0x80000000, 0xffffffff};
    void *output = nullptr;
    uint32_t size = 7;
};

TEST_P(UnknownTypeTest, FreeBodyFreesNothingAndLogsWithoutALineFeed)
{
    for (uint32_t type : unknown)
        for (void *body : {callbacks.decoded(), static_cast<void *>(nullptr)}) {
            callbacks.free_body(type, body);
            EXPECT_EQ(take_freed().size(), 0u);
            EXPECT_EQ(take_log(), LogLines{logged(3, callbacks.name("freeBody").c_str(), "Type(%d) unknown",
                                                  static_cast<int>(type))});
            EXPECT_EQ(contents(body, size_of_block(body)), body ? method().request.image : Bytes{});
            free(body);
        }
}

TEST_P(UnknownTypeTest, SerializeBodyReturns1)
{
    for (uint32_t type : unknown) {
        EXPECT_EQ(callbacks.serialize(type, nullptr, &output, &size), 1u);
        EXPECT_EQ(take_log(), LogLines{logged(3, callbacks.name("serializeBody").c_str(), "Type(%d) unknown\n",
                                              static_cast<int>(type))});
    }
    EXPECT_EQ(output, nullptr);
    EXPECT_EQ(size, 7u);
    EXPECT_EQ(allocations(), 0u);
}

TEST_P(UnknownTypeTest, UnserializeBodyReturns1)
{
    for (uint32_t type : unknown) {
        EXPECT_EQ(callbacks.unserialize(type, nullptr, &output, &size), 1);
        EXPECT_EQ(take_log(), LogLines{logged(3, callbacks.name("unserializeBody").c_str(), "Type(%d) unknown\n",
                                              static_cast<int>(type))});
    }
    EXPECT_EQ(output, nullptr);
    EXPECT_EQ(size, 7u);
    EXPECT_EQ(allocations(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Methods, UnknownTypeTest, testing::ValuesIn(methods()), name_of_method);

// ---- The response of a method that has none -------------------------------------------------------------------------

class MissingResponseTest : public MethodTest {
protected:
    const BodyCallbacks callbacks{method(), GORVANET_BODY_REQUEST};
    void *output = nullptr;
    uint32_t size = 7;
};

TEST_P(MissingResponseTest, FreeBodyFreesNothing)
{
    for (void *body : {callbacks.decoded(), static_cast<void *>(nullptr)}) {
        callbacks.free_body(GORVANET_BODY_RESPONSE, body);
        EXPECT_EQ(take_freed().size(), 0u);
        EXPECT_EQ(take_log(),
                  LogLines{logged(3, callbacks.name("freeBody").c_str(), "No free body response process\n")});
        EXPECT_EQ(contents(body, size_of_block(body)), body ? method().request.image : Bytes{});
        free(body);
    }
}

TEST_P(MissingResponseTest, SerializeBodyReturns1)
{
    Bytes body = method().request.image;
    EXPECT_EQ(callbacks.serialize(GORVANET_BODY_RESPONSE, body.data(), &output, &size), 1u);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, callbacks.name("serializeBody").c_str(), "No Serialize response process\n")});
    EXPECT_EQ(callbacks.serialize(GORVANET_BODY_RESPONSE, nullptr, &output, &size), 1u);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, callbacks.name("serializeBody").c_str(), "No Serialize response process\n")});
    EXPECT_EQ(output, nullptr);
    EXPECT_EQ(size, 7u);
    EXPECT_EQ(allocations(), 0u);
}

TEST_P(MissingResponseTest, UnserializeBodyReturns1)
{
    EXPECT_EQ(callbacks.unserialize(GORVANET_BODY_RESPONSE, method().request.wire.data(), &output, &size), 1);
    EXPECT_EQ(take_log(),
              LogLines{logged(3, callbacks.name("unserializeBody").c_str(), "No Unserialize response process\n")});
    EXPECT_EQ(output, nullptr);
    EXPECT_EQ(size, 7u);
    EXPECT_EQ(allocations(), 0u);
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(MissingResponseTest);
INSTANTIATE_TEST_SUITE_P(Methods, MissingResponseTest, testing::ValuesIn(one_way_methods()), name_of_method);

// ---- logBody --------------------------------------------------------------------------------------------------------

class LogBodyTest : public MethodTest {
protected:
    gorvaNet_logBody *log() const
    {
        return callbacks.log;
    }

    const BodyCallbacks callbacks{method(), GORVANET_BODY_REQUEST};
    const std::string name = callbacks.name("logBody");
};

TEST_P(LogBodyTest, StoresANewEmptyText)
{
    char *text = nullptr;
    log()(GORVANET_BODY_REQUEST, nullptr, 0, &text);
    ASSERT_EQ(size_of_block(text), 1u);
    EXPECT_EQ(text[0], '\0');
    free(text);
}

TEST_P(LogBodyTest, IgnoresTypeBodyAndSize)
{
    for (uint32_t type : {0u, 1u, 2u, 0xffffffffu}) {
        char *text = nullptr;
        log()(type, reinterpret_cast<void *>(1), 0xffffffff, &text);
        ASSERT_EQ(size_of_block(text), 1u);
        free(text);
    }
}

TEST_P(LogBodyTest, RefusesANullOutput)
{
    log()(GORVANET_BODY_REQUEST, nullptr, 0, nullptr);
    EXPECT_EQ(take_log(), LogLines{logged(3, name.c_str(), "Invalid parameter\n")});
    EXPECT_EQ(allocations(), 0u);
}

TEST_P(LogBodyTest, WithoutMemoryStoresNull)
{
    char old[] = "old";
    char *text = old;
    refuse_allocation(1, true);
    log()(GORVANET_BODY_RESPONSE, nullptr, 0, &text);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(take_log(), LogLines{logged(3, name.c_str(), "Allocating Memory N Ctx[%s]\n", "")});
}

INSTANTIATE_TEST_SUITE_P(Methods, LogBodyTest, testing::ValuesIn(methods()), name_of_method);

} // namespace
