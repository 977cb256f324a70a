// PrefixStatus, notification 0.

#include "commands/method.h"
#include "commands/record.h"

#include <cstdlib>
#include <string>
#include <type_traits>

static_assert(std::is_same_v<gorvaNet_prefixStatus_handler,
                             void(void *message, void *data, const char *name, const ipv6_prefixes *prefixes)>);
static_assert(GORVANET_MAGIC_MSGNTFY_PREFIXSTATUS == 0x20150226);

namespace {

const ipv6_prefixes prefixes = {
    .field3 = 1,
    .prefixes = {{.field3 = "fd00::",
                  .field4 = 0x41,
                  .field5 = 0x51,
                  .field6 = 0x61,
                  .field7 = 0x71,
                  .field8 = 0x81,
                  .field9 = 0x91,
                  .field10 = 0xa1,
                  .field11 = "ok",
                  .field12 = 0xc1}},
};

const Method prefix_status = {
    .suffix = "prefixStatus",
    .index = 0,
    .magic = 0x20150226,
    .magic_name = "GORVANET_MAGIC_MSGNTFY_PREFIXSTATUS",
    .accept_magic = 0x20150227,
    .version = 0,
    .request =
        {
            .image = Image(2372)
                         .number(0, 0x20150226)
                         .text(6, "lan0")
                         .number(88, 1)
                         .text(92, "fd00::")
                         .number(140, 0x41)
                         .number(144, 0x51)
                         .number(148, 0x61)
                         .number(152, 0x71)
                         .number(156, 0x81)
                         .number(160, 0x91)
                         .number(164, 0xa1)
                         .text(168, "ok")
                         .text(318, "\xc1"),
            .wire = hex("00000000 00000004 20150226"
                        "00000001 00000004 00000000"
                        "00000003 00000008 6c616e30 00000000"
                        "00000003 00000004 00000001"
                        "00000003 00000008 66643030 3a3a0000"
                        "00000004 00000004 00000041"
                        "00000005 00000004 00000051"
                        "00000006 00000004 00000061"
                        "00000007 00000004 00000071"
                        "00000008 00000004 00000081"
                        "00000009 00000004 00000091"
                        "0000000a 00000004 000000a1"
                        "0000000b 00000004 6f6b0000"
                        "0000000c 00000004 000000c1"),
            .fields = {{.tag = 3, .offset = 24, .announced = {}}},
            .text =
                {
                    .capacity = 80,
                    .place = 6,
                    .offset = 24,
                    .item_size = 16,
                    .announced = {},
                    .announced_encoding = {},
                    .send =
                        [](const char *name) {
                            gorvaNet_sendReq_ntfyPrefixStatus(user, pass1, pass2, name, &prefixes);
                        },
                },
            .record = {.probe = &ipv6_prefixes_probe,
                       .source = &prefixes,
                       .size = 2284,
                       .place = 88,
                       .offset = 40,
                       .copy_failed = "Copy ipv6_prefixes failed",
                       .announced = {}},
            .passed =
                [](uintptr_t body) {
                    return Words{body + 6, body + 88};
                },
        },
    .send =
        [](void *sender, gorvaNet_function *, void *first, void *second, const char *) {
            gorvaNet_sendReq_ntfyPrefixStatus(sender, first, second, "lan0", &prefixes);
            return 0u;
        },
    .handler = keeper<gorvaNet_prefixStatus_handler>(),
    .message = "msgNtfy",
    .send_suffix = "ntfyPrefixStatus",
    .null_request_checked = false,
};

} // namespace

std::vector<const Method *> methods()
{
    return {&prefix_status};
}

namespace {

class PrefixStatusTest : public LibraryTest {
protected:
    void TearDown() override
    {
        ipv6_prefixes_probe.reset();
        LibraryTest::TearDown();
    }

    static Call sent(uintptr_t body, const char *interface_name, uintptr_t number)
    {
        return {"zebIntf_sendReq_ntfy",
                {word(user), body, 0, 0, 0, word(pass1), word(pass2), word(interface_name), number, 0, 0, 0, 18}};
    }

    static uint32_t accept()
    {
        auto *handler = reinterpret_cast<gorvaNet_prefixStatus_handler *>(prefix_status.handler);
        return gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(user, handler, data, value3, bus_name, user_name);
    }

    static Call accepted(const char *interface_name)
    {
        return {"zebIntf_modCliNtfyUser_mthd",
                {word(user), word(prefix_status.handler), word(data), word(value3), 0x20150227, word(bus_name),
                 word(user_name), word(interface_name), word(&gorvaNet_base.cmd), word(&gorvaNet_base.ntfy), 0}};
    }

    static int32_t decode(const Bytes &wire, void **body)
    {
        uint32_t size = 0;
        return gorvaNet_cbEvtMsgMngt_unserializeBody_msgNtfy_prefixStatus(0, wire.data(), body, &size);
    }

    static Bytes encoded(void *body)
    {
        void *buffer = nullptr;
        uint32_t size = 0;
        EXPECT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgNtfy_prefixStatus(0, body, &buffer, &size), 0u);
        Bytes bytes = contents(buffer, size);
        free(buffer);
        return bytes;
    }

    static constexpr const char *bus_name = "bus0";
    static constexpr const char *user_name = "service";
};

// ---- Sending --------------------------------------------------------------------------------------------------------

TEST_F(PrefixStatusTest, HandsTheNotificationOverWithAllArguments)
{
    gorvaNet_base.ntfy.num = 0x4321;
    gorvaNet_sendReq_ntfyPrefixStatus(user, pass1, pass2, "lan0", &prefixes);
    Calls calls = take_calls();
    ASSERT_EQ(calls.size(), 1u);
    uintptr_t body = calls[0].words.at(1);
    EXPECT_EQ(calls[0], sent(body, gorvaNet_base.name, 0x4321));
    auto *block = reinterpret_cast<void *>(body);
    ASSERT_EQ(size_of_block(block), 2372u);
    EXPECT_EQ(contents(block, 2372), prefix_status.request.image);
    free(block);
}

TEST_F(PrefixStatusTest, TheBodyIsCompleteWhenItIsHandedOverAndLeftAloneFromThenOn)
{
    Bytes held;
    take_over("zebIntf_sendReq_ntfy", held);
    gorvaNet_sendReq_ntfyPrefixStatus(user, pass1, pass2, "lan0", &prefixes);
    EXPECT_EQ(held, prefix_status.request.image);
    expect_left_alone();
}

TEST_F(PrefixStatusTest, ReadsNameAndNumberOfTheDescriptorAtEachCall)
{
    gorvaNet_base.name = "OtherNet";
    for (uint32_t number : {0u, 0x7fffu, 0xffffu}) {
        gorvaNet_base.ntfy.num = static_cast<uint16_t>(number);
        gorvaNet_sendReq_ntfyPrefixStatus(user, pass1, pass2, "lan0", &prefixes);
        Calls calls = take_calls();
        ASSERT_EQ(calls.size(), 1u);
        uintptr_t body = calls[0].words.at(1);
        EXPECT_EQ(calls[0], sent(body, gorvaNet_base.name, number));
        free(reinterpret_cast<void *>(body));
    }
}

TEST_F(PrefixStatusTest, WithoutMemoryNothingIsSent)
{
    refuse_allocation(1, true);
    gorvaNet_sendReq_ntfyPrefixStatus(user, pass1, pass2, "lan0", &prefixes);
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvaNet_sendReq_ntfyPrefixStatus", "Allocating Memory Ctx[%s]\n", "")});
    EXPECT_EQ(allocations(), 1u);
    EXPECT_EQ(ipv6_prefixes_probe.copy.calls, 0u);
}

TEST_F(PrefixStatusTest, AfterAFailedSendTheMiddlewareOwnsTheBodyAndNothingIsLogged)
{
    for (uintptr_t result : {1u, 5u, 0xffffu, 0xffffffffu}) {
        answer("zebIntf_sendReq_ntfy", result);
        gorvaNet_sendReq_ntfyPrefixStatus(user, pass1, pass2, "lan0", &prefixes);
        void *body = sent_body();
        EXPECT_EQ(take_freed().size(), 0u);
        EXPECT_EQ(live_blocks(), std::vector<void *>{body});
        EXPECT_EQ(contents(body, size_of_block(body)), prefix_status.request.image);
        free(body);
    }
}

TEST_F(PrefixStatusTest, NullArgumentsArePassedThrough)
{
    gorvaNet_sendReq_ntfyPrefixStatus(nullptr, nullptr, nullptr, "lan0", &prefixes);
    Calls calls = take_calls();
    ASSERT_EQ(calls.size(), 1u);
    Call expected = sent(calls[0].words.at(1), gorvaNet_base.name, 0xffff);
    expected.words[0] = expected.words[5] = expected.words[6] = 0;
    EXPECT_EQ(calls[0], expected);
    free(reinterpret_cast<void *>(calls[0].words[1]));

    EXPECT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), 0u);
    expected = accepted(gorvaNet_base.name);
    for (size_t place : {0u, 1u, 2u, 3u, 5u, 6u})
        expected.words[place] = 0;
    EXPECT_EQ(take_calls(), Calls{expected});
}

// ---- Accepting ------------------------------------------------------------------------------------------------------

TEST_F(PrefixStatusTest, MakesTheUserReceiveTheNotification)
{
    EXPECT_EQ(accept(), 0u);
    EXPECT_EQ(take_calls(), Calls{accepted(gorvaNet_base.name)});
}

TEST_F(PrefixStatusTest, ReadsTheInterfacesNameFromTheDescriptor)
{
    gorvaNet_base.name = "OtherNet";
    EXPECT_EQ(accept(), 0u);
    EXPECT_EQ(take_calls(), Calls{accepted(gorvaNet_base.name)});
}

TEST_F(PrefixStatusTest, LogsAndReturnsTheMiddlewaresError)
{
    const void *name = user_name;
    for (uint32_t error : {1u, 20u, 0xffffu, 0x80000000u, 0xffffffffu}) {
        answer("zebIntf_modCliNtfyUser_mthd", error);
        EXPECT_EQ(accept(), error);
        EXPECT_EQ(take_calls(), Calls{accepted(gorvaNet_base.name)});
        EXPECT_EQ(take_log(),
                  LogLines{logged(3, "gorvaNet_modCliNtfyUser_recvMsg_prefixStatus",
                                  "user(%p) bus name(%s) user name(%p): ModCliNtfyUser\n", user, bus_name, name)});
    }
}

// ---- Bodies ---------------------------------------------------------------------------------------------------------

TEST_F(PrefixStatusTest, ANameOf79CharactersArrivesWholeAndALongerOneIsCutTo79)
{
    const std::string whole(79, 'n');
    for (const std::string &name : {whole, whole + "x", whole + "xy"}) {
        gorvaNet_sendReq_ntfyPrefixStatus(user, pass1, pass2, name.c_str(), &prefixes);
        void *request = sent_body();
        void *arrived = nullptr;
        ASSERT_EQ(decode(encoded(request), &arrived), 0);
        EXPECT_STREQ(static_cast<char *>(arrived) + 6, whole.c_str());
        free(arrived);
        free(request);
    }
}

TEST_F(PrefixStatusTest, AReceivedNameOf80CharactersIsRefused)
{
    Bytes wire = hex("00000000 00000004 20150226 00000001 00000004 00000000 00000003 00000054") + Bytes(80, 'n') +
                 hex("00000000 00000003 00000004 00000000");
    void *body = nullptr;
    EXPECT_EQ(decode(wire, &body), 4);
    EXPECT_EQ(body, nullptr);
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvaNet_cbEvtMsgMngt_unserializeBody_msgNtfyReq_prefixStatus",
                                          "lgChainIn(%d) lgMaxChainOut(%d)\n", 81, 80)});
    EXPECT_EQ(ipv6_prefixes_probe.unserialize.calls, 0u);
}

TEST_F(PrefixStatusTest, AnEmptyListIsEncodedAndDecoded)
{
    const ipv6_prefixes empty = {};
    gorvaNet_sendReq_ntfyPrefixStatus(user, pass1, pass2, "", &empty);
    void *request = sent_body();
    Bytes wire = encoded(request);
    EXPECT_EQ(wire, hex("00000000 00000004 20150226 00000001 00000004 00000000"
                        "00000003 00000004 00000000 00000003 00000004 00000000"));
    void *arrived = nullptr;
    ASSERT_EQ(decode(wire, &arrived), 0);
    EXPECT_EQ(contents(arrived, 2372), Bytes(Image(2372).number(0, 0x20150226)));
    free(arrived);
    free(request);
}

TEST_F(PrefixStatusTest, FreeingAResponseIsRefusedAndFreesNothing)
{
    Bytes body = prefix_status.request.image;
    gorvaNet_cbEvtMsgMngt_freeBody_msgNtfy_prefixStatus(GORVANET_BODY_RESPONSE, body.data());
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvaNet_cbEvtMsgMngt_freeBody_msgNtfy_prefixStatus",
                                          "No free body response process\n")});
    EXPECT_EQ(body, prefix_status.request.image);
    EXPECT_EQ(take_freed().size(), 0u);
}

TEST_F(PrefixStatusTest, ARefusedNameIsFollowedByNoRecord)
{
    // No text is that long.
    Bytes body = prefix_status.request.image;
    void *buffer = nullptr;
    uint32_t size = 0;
    pretend_length(body.data() + 6, 0xfffffffd);
    EXPECT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgNtfy_prefixStatus(0, body.data(), &buffer, &size), 4u);
    EXPECT_EQ(ipv6_prefixes_probe.serialize.calls, 0u);
    EXPECT_EQ(take_log().size(), 2u);
    ASSERT_EQ(live_blocks().size(), 1u);
    free(live_blocks()[0]);
}

// The accept magic is the body magic of a command by chance: a body of the one is foreign to the other.
TEST_F(PrefixStatusTest, ARegisterPrefixStatusBodyIsForeign)
{
    Bytes body = Image(2372).number(0, GORVANET_MAGIC_MSGCMD_REGISTERPREFIXSTATUS);
    EXPECT_TRUE(aborts([&] { gorvaNet_recvReq_ntfyPrefixStatus(message, body.data(), prefix_status.handler, data); }));
    void *address = body.data();
    EXPECT_EQ(
        take_log(),
        LogLines{logged(0, "gorvaNet_recvReq_ntfyPrefixStatus", "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n",
                        "GORVANET_MAGIC_MSGNTFY_PREFIXSTATUS", 0x20150226u, address, 0x20150227u, "")});
}

TEST_F(PrefixStatusTest, StandsInItsRow)
{
    const gorvaNet_method &row = gorvaNet_base.ntfyMethods[0];
    EXPECT_EQ(row.index, 0u);
    EXPECT_EQ(row.recvReq, gorvaNet_recvReq_ntfyPrefixStatus);
    EXPECT_EQ(row.freeBody, gorvaNet_cbEvtMsgMngt_freeBody_msgNtfy_prefixStatus);
    EXPECT_EQ(row.serializeBody, gorvaNet_cbEvtMsgMngt_serializeBody_msgNtfy_prefixStatus);
    EXPECT_EQ(row.unserializeBody, gorvaNet_cbEvtMsgMngt_unserializeBody_msgNtfy_prefixStatus);
    EXPECT_EQ(row.logBody, gorvaNet_cbEvtMsgMngt_logBody_msgNtfy_prefixStatus);
}

} // namespace
