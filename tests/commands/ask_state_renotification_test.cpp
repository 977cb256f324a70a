// AskStateRenotification, command 8.

#include "commands/method.h"
#include "commands/record.h"

#include <cstdlib>
#include <type_traits>

static_assert(
    std::is_same_v<gorvaNet_askStateRenotification_handler, void(void *message, void *data, const state_info *info)>);
static_assert(GORVANET_MAGIC_MSGCMD_ASKSTATERENOTIFICATION == 0x13235326);

namespace {

const state_info info = {.state = 7, .info = "up"};

} // namespace

extern const Method ask_state_renotification;
const Method ask_state_renotification = {
    .suffix = "askStateRenotification",
    .index = 8,
    .magic = 0x13235326,
    .magic_name = "GORVANET_MAGIC_MSGCMD_ASKSTATERENOTIFICATION",
    .accept_magic = 0x13235327,
    .version = 0,
    .request =
        {
            .image = Image(56).number(0, 0x13235326).text(6, "\x07").text(7, "up"),
            .wire = hex("00000000 00000004 13235326"
                        "00000001 00000004 00000000"
                        "00000003 00000004 00000007"
                        "00000004 00000004 75700000"),
            .fields = {},
            .record = {.probe = &state_info_probe,
                       .source = &info,
                       .size = 47,
                       .place = 6,
                       .offset = 24,
                       .copy_failed = "Copy state_info failed",
                       .announced = {}},
            .passed = [](uintptr_t body) { return Words{body + 6}; },
        },
    .send = [](void *sender, gorvaNet_function *, void *, void *pass,
               const char *name) { return gorvaNet_sendReq_askStateRenotification(sender, pass, name, &info); },
    .handler = keeper<gorvaNet_askStateRenotification_handler>(),
};

namespace {

class AskStateRenotificationTest : public LibraryTest {};

TEST_F(AskStateRenotificationTest, AConfigureBodyPassesTheMagicCheckAndOnlyItsVersionTellsItApart)
{
    Bytes body = Image(532).number(0, GORVANET_MAGIC_MSGCMD_CONFIGURE);
    gorvaNet_recvReq_askStateRenotification(message, body.data(), ask_state_renotification.handler, data);
    EXPECT_EQ(take_heard(), (std::vector<Words>{{word(message), word(data), word(body.data()) + 6}}));

    void *decoded = nullptr;
    uint32_t size = 0;
    Bytes of_configure = with_number(ask_state_renotification.request.wire, 20, 1);
    EXPECT_EQ(
        gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_askStateRenotification(0, of_configure.data(), &decoded, &size),
        2);
    EXPECT_EQ(decoded, nullptr);
}

TEST_F(AskStateRenotificationTest, TheResponseTypeIsRefusedWithResult1AndHandsBackNoBuffer)
{
    Bytes body = ask_state_renotification.request.image;
    void *buffer = nullptr;
    uint32_t size = 0;
    EXPECT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_askStateRenotification(1, body.data(), &buffer, &size), 1u);
    EXPECT_EQ(buffer, nullptr);
    EXPECT_EQ(size, 0u);
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_askStateRenotification",
                                          "No Serialize response process\n")});
}

} // namespace
