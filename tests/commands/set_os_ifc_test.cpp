// SetOsIfc, command 0.

#include "commands/method.h"

#include <cstdlib>
#include <string>
#include <type_traits>

static_assert(std::is_same_v<gorvaNet_setOsIfc_response, void(void *context, void *user_data, uint32_t result)>);
static_assert(std::is_same_v<gorvaNet_setOsIfc_handler, void(void *message, void *data, const char *ifName)>);
static_assert(GORVANET_MAGIC_MSGCMD_SETOSIFC == 0x39132011);

extern const Method set_os_ifc;
const Method set_os_ifc = {
    .suffix = "setOsIfc",
    .index = 0,
    .magic = 0x39132011,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETOSIFC",
    .accept_magic = 0x39132012,
    .version = 0,
    .request =
        {
            .image = Image(56).number(0, 0x39132011).text(6, "eth0"),
            .wire = hex("00000000 00000004 39132011"
                        "00000001 00000004 00000000"
                        "00000003 00000008 65746830 00000000"),
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
                        [](const char *name) { gorvaNet_sendReq_setOsIfc(user, nullptr, pass1, pass2, server, name); },
                },
            .passed = [](uintptr_t body) { return Words{body + 6}; },
        },
    .response =
        {
            .image = Image(12).number(0, 0x39132011).number(8, 0x01020304),
            .wire = hex("00000000 00000004 39132011"
                        "00000001 00000004 00000000"
                        "00000003 00000004 01020304"),
            .fields = {{.tag = 3, .offset = 24, .announced = {}}},
            .passed = [](uintptr_t) { return Words{0x01020304}; },
        },
    .send =
        [](void *sender, gorvaNet_function *callback, void *first, void *second, const char *name) {
            return gorvaNet_sendReq_setOsIfc(sender, reinterpret_cast<gorvaNet_setOsIfc_response *>(callback), first,
                                             second, name, "eth0");
        },
    .respond = [](void *request) { gorvaNet_sendRes_setOsIfc(request, 0x01020304); },
    .handler = keeper<gorvaNet_setOsIfc_handler>(),
    .callback = keeper<gorvaNet_setOsIfc_response>(),
};

namespace {

class SetOsIfcTest : public LibraryTest {
protected:
    // A request with this name, sent and encoded.
    static Bytes encoded(const std::string &name)
    {
        gorvaNet_sendReq_setOsIfc(user, nullptr, nullptr, nullptr, server, name.c_str());
        void *body = sent_body();
        void *buffer = nullptr;
        uint32_t size = 0;
        EXPECT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setOsIfc(0, body, &buffer, &size), 0u);
        Bytes bytes = contents(buffer, size);
        free(buffer);
        free(body);
        return bytes;
    }

    static int32_t decode(uint32_t type, const Bytes &wire, void **body)
    {
        uint32_t size = 0;
        return gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setOsIfc(type, wire.data(), body, &size);
    }

    // The name that arrives.
    static std::string name_in(const Bytes &wire)
    {
        void *body = nullptr;
        EXPECT_EQ(decode(GORVANET_BODY_REQUEST, wire, &body), 0);
        std::string name = static_cast<char *>(body) + 6;
        free(body);
        return name;
    }
};

TEST_F(SetOsIfcTest, ANameOf49CharactersIsSentWholeAndALongerOneArrivesCutTo49)
{
    const std::string whole = "abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJKLM";
    ASSERT_EQ(whole.size(), 49u);
    EXPECT_EQ(name_in(encoded(whole)), whole);
    EXPECT_EQ(name_in(encoded(whole + "N")), whole);
    EXPECT_EQ(name_in(encoded(whole + "NO")), whole);
}

TEST_F(SetOsIfcTest, NamesOf3And4CharactersTake8BytesAndAnEmptyNameTakes4)
{
    const Bytes prologue = hex("00000000 00000004 39132011 00000001 00000004 00000000");
    EXPECT_EQ(encoded("lan"), prologue + hex("00000003 00000008 6c616e00 00000000"));
    EXPECT_EQ(encoded("eth0"), prologue + hex("00000003 00000008 65746830 00000000"));
    EXPECT_EQ(encoded(""), prologue + hex("00000003 00000004 00000000"));
}

TEST_F(SetOsIfcTest, AResultOf0xffffffffDecodesTo0xffffffff)
{
    void *body = nullptr;
    ASSERT_EQ(decode(GORVANET_BODY_RESPONSE, with_number(set_os_ifc.response.wire, 32, 0xffffffff), &body), 0);
    EXPECT_EQ(static_cast<uint32_t *>(body)[2], 0xffffffffu);
    free(body);
}

TEST_F(SetOsIfcTest, AVersionOf0x00010000DecodesAndOneOf1IsRefusedWithoutALine)
{
    EXPECT_EQ(name_in(with_number(set_os_ifc.request.wire, 20, 0x00010000)), "eth0");
    void *body = nullptr;
    EXPECT_EQ(decode(GORVANET_BODY_REQUEST, with_number(set_os_ifc.request.wire, 20, 1), &body), 2);
    EXPECT_EQ(body, nullptr);
}

TEST_F(SetOsIfcTest, AMagicOf0x39132012AbortsTheReceiveFunctionNotTheDecoder)
{
    void *body = nullptr;
    ASSERT_EQ(decode(GORVANET_BODY_REQUEST, with_number(set_os_ifc.request.wire, 8, 0x39132012), &body), 0);
    EXPECT_TRUE(aborts([body] { gorvaNet_recvReq_setOsIfc(message, body, set_os_ifc.handler, data); }));
    EXPECT_EQ(take_log(),
              LogLines{logged(0, "gorvaNet_recvReq_setOsIfc", "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]\n",
                              "GORVANET_MAGIC_MSGCMD_SETOSIFC", 0x39132011u, body, 0x39132012u, "")});
    free(body);
}

TEST_F(SetOsIfcTest, AMessageThatWantsNoResponseGetsNoneAndNothingIsLogged)
{
    answer("zebCore_isMsg_needRes", 1);
    gorvaNet_sendRes_setOsIfc(message, 7);
    EXPECT_EQ(take_calls(), (Calls{{"zebCore_isMsg_needRes", {word(message)}}}));
}

TEST_F(SetOsIfcTest, AReceivedNameRunsToItsNulWhateverTheItemsLength)
{
    EXPECT_EQ(name_in(with_number(set_os_ifc.request.wire, 28, 0)), "eth0");
    EXPECT_EQ(name_in(with_number(set_os_ifc.request.wire, 28, 0xffffffff)), "eth0");
}

} // namespace
