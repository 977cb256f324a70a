// SetDhcp, command 1.

#include "commands/method.h"

#include <cstdlib>
#include <string>
#include <type_traits>

static_assert(std::is_same_v<gorvaNet_setDhcp_response, void(void *context, void *user_data)>);
static_assert(
    std::is_same_v<gorvaNet_setDhcp_handler, void(void *message, void *data, const char *ifName, uint32_t dhcp)>);
static_assert(GORVANET_MAGIC_MSGCMD_SETDHCP == 0x39132011);

extern const Method set_dhcp;
const Method set_dhcp = {
    .suffix = "setDhcp",
    .index = 1,
    .magic = 0x39132011,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETDHCP",
    .accept_magic = 0x39132012,
    .version = 0,
    .request =
        {
            .image = Image(60).number(0, 0x39132011).text(6, "eth0").number(56, 0xa1b2c3d4),
            .wire = hex("00000000 00000004 39132011"
                        "00000001 00000004 00000000"
                        "00000003 00000008 65746830 00000000"
                        "00000004 00000004 a1b2c3d4"),
            .fields = {{.tag = 3, .offset = 24, .announced = {4}}, {.tag = 4, .offset = 40, .announced = {}}},
            .text =
                {
                    .capacity = 50,
                    .place = 6,
                    .offset = 24,
                    .item_size = 16,
                    .announced = {4},
                    .announced_encoding = {4},
                    .send =
                        [](const char *name) {
                            gorvaNet_sendReq_setDhcp(user, nullptr, pass1, pass2, server, name, 0xa1b2c3d4);
                        },
                },
            .passed =
                [](uintptr_t body) {
                    return Words{body + 6, 0xa1b2c3d4};
                },
        },
    .response =
        {
            .image = Image(8).number(0, 0x39132011),
            .wire = hex("00000000 00000004 39132011"
                        "00000001 00000004 00000000"),
            .fields = {},
            .passed = [](uintptr_t) { return Words{}; },
        },
    .send =
        [](void *sender, gorvaNet_function *callback, void *first, void *second, const char *name) {
            return gorvaNet_sendReq_setDhcp(sender, reinterpret_cast<gorvaNet_setDhcp_response *>(callback), first,
                                            second, name, "eth0", 0xa1b2c3d4);
        },
    .respond = [](void *request) { gorvaNet_sendRes_setDhcp(request); },
    .handler = keeper<gorvaNet_setDhcp_handler>(),
    .callback = keeper<gorvaNet_setDhcp_response>(),
};

namespace {

class SetDhcpTest : public LibraryTest {
protected:
    static Bytes encoded(const std::string &name)
    {
        gorvaNet_sendReq_setDhcp(user, nullptr, nullptr, nullptr, server, name.c_str(), 1);
        void *body = sent_body();
        void *buffer = nullptr;
        uint32_t size = 0;
        EXPECT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setDhcp(0, body, &buffer, &size), 0u);
        Bytes bytes = contents(buffer, size);
        free(buffer);
        free(body);
        return bytes;
    }

    static int32_t decode(const Bytes &wire)
    {
        void *body = nullptr;
        uint32_t size = 0;
        int32_t status = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setDhcp(0, wire.data(), &body, &size);
        free(body);
        return status;
    }
};

TEST_F(SetDhcpTest, NamesOf3AndOf4CharactersBothGive52Bytes)
{
    const Bytes prologue = hex("00000000 00000004 39132011 00000001 00000004 00000000");
    EXPECT_EQ(encoded("lan"), prologue + hex("00000003 00000008 6c616e00 00000000 00000004 00000004 00000001"));
    EXPECT_EQ(encoded("eth0"), prologue + hex("00000003 00000008 65746830 00000000 00000004 00000004 00000001"));
    EXPECT_EQ(encoded("eth0").size(), 52u);
}

TEST_F(SetDhcpTest, ANameOf50OrMoreCharactersIsCutTo49SoThatTheRequestAlwaysDecodes)
{
    for (size_t n : {50u, 51u, 200u}) {
        Bytes wire = encoded(std::string(n, 'n'));
        EXPECT_EQ(wire.size(), 49u + 49 - 50 % 4);
        EXPECT_EQ(decode(wire), 0);
    }
}

TEST_F(SetDhcpTest, AReceivedNameOf50CharactersIsRefusedWith51And50)
{
    Bytes wire = hex("00000000 00000004 39132011 00000001 00000004 00000000 00000003 00000034") + Bytes(50, 'n') +
                 hex("0000 00000004 00000004 00000001");
    EXPECT_EQ(decode(wire), 4);
    const char *name = "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_setDhcp";
    const void *start = wire.data();
    EXPECT_EQ(take_log(), (LogLines{logged(3, name, "lgChainIn(%d) lgMaxChainOut(%d)\n", 51, 50),
                                    logged(3, name, "pBody(%p): Type(%d) -> Error Before\n", start, 4)}));
}

TEST_F(SetDhcpTest, ASetOsIfcBodyPassesTheMagicCheck)
{
    Bytes body = Image(60).number(0, GORVANET_MAGIC_MSGCMD_SETOSIFC).text(6, "eth0");
    gorvaNet_recvReq_setDhcp(message, body.data(), set_dhcp.handler, data);
    EXPECT_EQ(take_heard(), (std::vector<Words>{{word(message), word(data), word(body.data()) + 6, 0}}));
}

TEST_F(SetDhcpTest, AVersionOf0x00010000IsAcceptedAndOneOf1RefusedWithoutALine)
{
    EXPECT_EQ(decode(with_number(set_dhcp.request.wire, 20, 0x00010000)), 0);
    EXPECT_EQ(decode(with_number(set_dhcp.request.wire, 20, 0x00000001)), 2);
}

} // namespace
