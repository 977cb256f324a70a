// The server's side of every command: accepting the method, receiving a request, and answering it.

#include "commands/method.h"

#include <algorithm>
#include <cstdlib>

namespace {

// ---- Accepting ------------------------------------------------------------------------------------------------------

class AcceptTest : public MethodTest {
protected:
    using Accept = int32_t(void *, gorvaNet_function *, void *, void *);

    int32_t accept()
    {
        return exported<Accept>(function("modSrv_recvMsg"))(user, method().handler, data, value3);
    }

    Call accepted(const char *interface_name) const
    {
        return {"zebIntf_modSrv_mthd",
                {word(user), word(method().handler), word(data), word(value3), method().accept_magic,
                 word(interface_name), word(&gorvaNet_base.cmd), word(&gorvaNet_base.ntfy), method().index, 0xffff,
                 0xffff}};
    }
};

TEST_P(AcceptTest, MakesTheUserServeTheMethod)
{
    EXPECT_EQ(accept(), 0);
    EXPECT_EQ(take_calls(), Calls{accepted(gorvaNet_base.name)});
}

TEST_P(AcceptTest, NullArgumentsArePassedThrough)
{
    EXPECT_EQ(exported<Accept>(function("modSrv_recvMsg"))(nullptr, nullptr, nullptr, nullptr), 0);
    Call expected = accepted(gorvaNet_base.name);
    std::fill_n(expected.words.begin(), 4, 0);
    EXPECT_EQ(take_calls(), Calls{expected});
}

TEST_P(AcceptTest, ReadsTheInterfacesNameFromTheDescriptor)
{
    gorvaNet_base.name = "OtherNet";
    EXPECT_EQ(accept(), 0);
    EXPECT_EQ(take_calls(), Calls{accepted(gorvaNet_base.name)});
}

TEST_P(AcceptTest, LogsAndReturnsTheMiddlewaresError)
{
    for (int32_t error : {1, 20, -1, INT32_MIN}) {
        answer("zebIntf_modSrv_mthd", static_cast<uintptr_t>(error));
        EXPECT_EQ(accept(), error);
        EXPECT_EQ(take_calls(), Calls{accepted(gorvaNet_base.name)});
        EXPECT_EQ(take_log(), LogLines{logged(3, function("modSrv_recvMsg").c_str(),
                                              "user(%p): ModCliNtfyUser failed(%d)\n", user, error)});
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, AcceptTest, testing::ValuesIn(methods()), name_of_method);

// ---- Answering ------------------------------------------------------------------------------------------------------

class RespondTest : public MethodTest {};

TEST_P(RespondTest, SendsTheResponse)
{
    method().respond(message);
    Calls calls = take_calls();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0], (Call{"zebCore_isMsg_needRes", {word(message)}}));
    uintptr_t body = calls[1].words.at(1);
    EXPECT_EQ(calls[1], (Call{"zebCore_sendMsgRes", {word(message), body, 0, 18}}));
    free(reinterpret_cast<void *>(body));
}

TEST_P(RespondTest, TheBodyHoldsTheArgumentsAndZerosElsewhere)
{
    method().respond(message);
    void *body = sent_body();
    ASSERT_EQ(size_of_block(body), method().response.image.size());
    EXPECT_EQ(contents(body, size_of_block(body)), method().response.image);
    EXPECT_EQ(take_freed().size(), 0u);
    free(body);
}

TEST_P(RespondTest, TheBodyIsCompleteWhenItIsHandedOverAndLeftAloneFromThenOn)
{
    Bytes held;
    take_over("zebCore_sendMsgRes", held);
    method().respond(message);
    EXPECT_EQ(held, method().response.image);
    expect_left_alone();
}

TEST_P(RespondTest, AMessageThatWantsNoResponseGetsNone)
{
    for (uintptr_t no : {1u, 0x100u, 0x10000u, 0x80000000u, 0xffffffffu}) {
        answer("zebCore_isMsg_needRes", no);
        method().respond(message);
        EXPECT_EQ(take_calls(), (Calls{{"zebCore_isMsg_needRes", {word(message)}}}));
        EXPECT_EQ(allocations(), 0u);
    }
}

TEST_P(RespondTest, WithoutMemoryNothingIsSent)
{
    refuse_allocation(1, true);
    method().respond(message);
    EXPECT_EQ(take_calls(), (Calls{{"zebCore_isMsg_needRes", {word(message)}}}));
    EXPECT_EQ(take_log(), LogLines{logged(3, function("sendRes").c_str(), "Allocating Memory Ctx[%s]\n", "")});
    EXPECT_EQ(allocations(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Commands, RespondTest, testing::ValuesIn(answered_methods()), name_of_method);

} // namespace
