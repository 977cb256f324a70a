// SetRdisc6, command 2.

#include "commands/method.h"

#include <cstdlib>
#include <type_traits>

static_assert(std::is_same_v<gorvaNet_setRdisc6_response, void(void *context, void *user_data)>);
static_assert(std::is_same_v<gorvaNet_setRdisc6_handler, void(void *message, void *data, const char *ifName)>);
static_assert(GORVANET_MAGIC_MSGCMD_SETRDISC6 == 0x34132011);

extern const Method set_rdisc6;
const Method set_rdisc6 = {
    .suffix = "setRdisc6",
    .index = 2,
    .magic = 0x34132011,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETRDISC6",
    .accept_magic = 0x34132012,
    .version = 0,
    .request =
        {
            .image = Image(56).number(0, 0x34132011).text(6, "br-lan"),
            .wire = hex("00000000 00000004 34132011"
                        "00000001 00000004 00000000"
                        "00000003 00000008 62722d6c 616e0000"),
            .fields = {{.tag = 3, .offset = 24, .announced = {}}},
            .text =
                {
                    .capacity = 50,
                    .place = 6,
                    .offset = 24,
                    .item_size = 16,
                    .announced = {},
                    .announced_encoding = {},
                    .send =
                        [](const char *name) { gorvaNet_sendReq_setRdisc6(user, nullptr, pass1, pass2, server, name); },
                },
            .passed = [](uintptr_t body) { return Words{body + 6}; },
        },
    .response =
        {
            .image = Image(8).number(0, 0x34132011),
            .wire = hex("00000000 00000004 34132011"
                        "00000001 00000004 00000000"),
            .fields = {},
            .passed = [](uintptr_t) { return Words{}; },
        },
    .send =
        [](void *sender, gorvaNet_function *callback, void *first, void *second, const char *name) {
            return gorvaNet_sendReq_setRdisc6(sender, reinterpret_cast<gorvaNet_setRdisc6_response *>(callback), first,
                                              second, name, "br-lan");
        },
    .respond = [](void *request) { gorvaNet_sendRes_setRdisc6(request); },
    .handler = keeper<gorvaNet_setRdisc6_handler>(),
    .callback = keeper<gorvaNet_setRdisc6_response>(),
};

namespace {

class SetRdisc6Test : public LibraryTest {};

TEST_F(SetRdisc6Test, AReceivedNameOf50CharactersIsRefusedWith51And50AndNothingIsAnnounced)
{
    Bytes wire =
        hex("00000000 00000004 34132011 00000001 00000004 00000000 00000003 00000034") + Bytes(50, 'n') + hex("0000");
    void *body = nullptr;
    uint32_t size = 0;
    EXPECT_EQ(gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setRdisc6(0, wire.data(), &body, &size), 4);
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_setRdisc6",
                                          "lgChainIn(%d) lgMaxChainOut(%d)\n", 51, 50)});
}

TEST_F(SetRdisc6Test, ASetOsIfcBodyIsForeign)
{
    Bytes body = Image(56).number(0, GORVANET_MAGIC_MSGCMD_SETOSIFC).text(6, "eth0");
    EXPECT_TRUE(aborts([&] { gorvaNet_recvReq_setRdisc6(message, body.data(), set_rdisc6.handler, data); }));
    void *address = body.data();
    EXPECT_EQ(take_log(),
              LogLines{logged(0, "gorvaNet_recvReq_setRdisc6", "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n",
                              "GORVANET_MAGIC_MSGCMD_SETRDISC6", 0x34132011u, address, 0x39132011u, "")});
}

} // namespace
