// Configure, command 10.

#include "commands/method.h"
#include "commands/record.h"

#include <cstdlib>
#include <type_traits>

static_assert(
    std::is_same_v<gorvaNet_configure_handler, void(void *message, void *data, const intfConf *configuration)>);
static_assert(GORVANET_MAGIC_MSGCMD_CONFIGURE == 0x13235326);

namespace {

const intfConf configuration = {
    .field3 = 0x11121314,
    .field4 = 0x21222324,
    .field5 = 0x31323334,
    .field6 = "abc",
    .field7 = "",
};

} // namespace

extern const Method configure;
const Method configure = {
    .suffix = "configure",
    .index = 10,
    .magic = 0x13235326,
    .magic_name = "GORVANET_MAGIC_MSGCMD_CONFIGURE",
    .accept_magic = 0x13235327,
    .version = 1,
    .request =
        {
            .image = Image(532)
                         .number(0, 0x13235326)
                         .number(8, 0x11121314)
                         .number(12, 0x21222324)
                         .number(16, 0x31323334)
                         .text(20, "abc"),
            .wire = hex("00000000 00000004 13235326"
                        "00000001 00000004 00000001"
                        "00000003 00000004 11121314"
                        "00000004 00000004 21222324"
                        "00000005 00000004 31323334"
                        "00000006 00000008 61626300 00000000"
                        "00000007 00000004 00000000"),
            .fields = {},
            .record = {.probe = &intfConf_probe,
                       .source = &configuration,
                       .size = 524,
                       .place = 8,
                       .offset = 24,
                       .copy_failed = "Copy intfConf failed",
                       .announced = {}},
            .passed = [](uintptr_t body) { return Words{body + 8}; },
        },
    .send = [](void *sender, gorvaNet_function *, void *, void *pass,
               const char *name) { return gorvaNet_sendReq_configure(sender, pass, name, &configuration); },
    .handler = keeper<gorvaNet_configure_handler>(),
};

namespace {

class ConfigureTest : public LibraryTest {};

TEST_F(ConfigureTest, AnAskStateRenotificationBodyPassesTheMagicCheckAndOnlyItsVersionTellsItApart)
{
    Bytes body = Image(532).number(0, GORVANET_MAGIC_MSGCMD_ASKSTATERENOTIFICATION);
    gorvaNet_recvReq_configure(message, body.data(), configure.handler, data);
    EXPECT_EQ(take_heard(), (std::vector<Words>{{word(message), word(data), word(body.data()) + 8}}));

    void *decoded = nullptr;
    uint32_t size = 0;
    Bytes of_other = with_number(configure.request.wire, 20, 0);
    EXPECT_EQ(gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configure(0, of_other.data(), &decoded, &size), 2);
    EXPECT_EQ(decoded, nullptr);
}

TEST_F(ConfigureTest, ATextOf300CharactersIsRefusedAndTheOneBehindItAnnounced)
{
    Bytes wire = contents(configure.request.wire.data(), 60) + hex("00000006 00000130") + Bytes(300, 't') +
                 hex("00000000 00000007 00000004 00000000");
    void *decoded = nullptr;
    uint32_t size = 0;
    EXPECT_EQ(gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configure(0, wire.data(), &decoded, &size), 4);
    const char *name = "gorvaNet_intfConf_unserialize";
    const void *record = wire.data() + 24;
    EXPECT_EQ(take_log(), (LogLines{logged(3, name, "lgChainIn(%d) lgMaxChainOut(%d)\n", 301, 256),
                                    logged(3, name, "pBody(%p): Type(%d) -> Error Before\n", record, 7)}));
    EXPECT_EQ(decoded, nullptr);
}

} // namespace
