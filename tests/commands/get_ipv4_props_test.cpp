// GetIPv4Props, command 3.

#include "commands/method.h"
#include "commands/record.h"

#include <cstdlib>
#include <type_traits>

static_assert(std::is_same_v<gorvaNet_getIPv4Props_response,
                             void(void *context, void *user_data, const ipv4_properties *properties, uint32_t result)>);
static_assert(std::is_same_v<gorvaNet_getIPv4Props_handler, void(void *message, void *data)>);
static_assert(GORVANET_MAGIC_MSGCMD_GETIPV4PROPS == 0x23331110);

namespace {

const ipv4_properties properties = {
    .field3 = -2,
    .field4 = "eth0",
    .field5 = "",
    .field6 = 0x01020304,
    .field7 = "10.0.0.1",
    .field8 = "",
    .field9 = "",
    .field10 = "",
    .field11 = "",
    .infoCount = 1,
    .infos = {{.field3 = "1.2.3.4", .field4 = ""}},
};

} // namespace

extern const Method get_ipv4_props;
const Method get_ipv4_props = {
    .suffix = "getIPv4Props",
    .index = 3,
    .magic = 0x23331110,
    .magic_name = "GORVANET_MAGIC_MSGCMD_GETIPV4PROPS",
    .accept_magic = 0x23331111,
    .version = 1,
    .request =
        {
            .image = Image(8).number(0, 0x23331110),
            .wire = hex("00000000 00000004 23331110"
                        "00000001 00000004 00000001"),
            .fields = {},
            .passed = [](uintptr_t) { return Words{}; },
        },
    .response =
        {
            .image = Image(3784)
                         .number(0, 0x23331110)
                         .text(8, "\xfe")
                         .text(9, "eth0")
                         .number(112, 0x01020304)
                         .text(116, "10.0.0.1")
                         .number(456, 1)
                         .text(460, "1.2.3.4")
                         .number(3780, 0x55667788),
            .wire = hex("00000000 00000004 23331110"
                        "00000001 00000004 00000001"
                        "00000003 00000004 fffffffe"
                        "00000004 00000008 65746830 00000000"
                        "00000005 00000004 00000000"
                        "00000006 00000004 01020304"
                        "00000007 0000000c 31302e30 2e302e31 00000000"
                        "00000008 00000004 00000000"
                        "00000009 00000004 00000000"
                        "0000000a 00000004 00000000"
                        "0000000b 00000004 00000000"
                        "0000000c 00000004 00000001"
                        "00000003 0000000c 312e322e 332e3400 00000000"
                        "00000004 00000004 00000000"
                        "00000004 00000004 55667788"),
            .fields = {{.tag = 4, .offset = 188, .announced = {}}},
            .record = {.probe = &ipv4_properties_probe,
                       .source = &properties,
                       .size = 3772,
                       .place = 8,
                       .offset = 24,
                       .copy_failed = "Copy ipv4_properties failed",
                       .announced = {4}},
            .passed =
                [](uintptr_t body) {
                    return Words{body + 8, 0x55667788};
                },
        },
    .send =
        [](void *sender, gorvaNet_function *callback, void *first, void *second, const char *name) {
            return gorvaNet_sendReq_getIPv4Props(sender, reinterpret_cast<gorvaNet_getIPv4Props_response *>(callback),
                                                 first, second, name);
        },
    .respond = [](void *request) { gorvaNet_sendRes_getIPv4Props(request, &properties, 0x55667788); },
    .handler = keeper<gorvaNet_getIPv4Props_handler>(),
    .callback = keeper<gorvaNet_getIPv4Props_response>(),
};

namespace {

class GetIPv4PropsTest : public LibraryTest {
protected:
    void TearDown() override
    {
        ipv4_properties_probe.reset();
        LibraryTest::TearDown();
    }

    static int32_t decode(uint32_t type, const Bytes &wire, void **body)
    {
        uint32_t size = 0;
        return gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_getIPv4Props(type, wire.data(), body, &size);
    }
};

TEST_F(GetIPv4PropsTest, ARequestOfVersion0IsRefusedWithoutALineAndOneOf0x00020001Accepted)
{
    void *body = nullptr;
    EXPECT_EQ(decode(GORVANET_BODY_REQUEST, with_number(get_ipv4_props.request.wire, 20, 0), &body), 2);
    EXPECT_EQ(body, nullptr);
    EXPECT_EQ(decode(GORVANET_BODY_REQUEST, with_number(get_ipv4_props.request.wire, 20, 0x00020001), &body), 0);
    free(body);
}

TEST_F(GetIPv4PropsTest, PropertiesThatCannotBeEncodedGiveTheirCodeAndNoBuffer)
{
    // No text is that long. The record announces two numbers behind it, the body its result.
    Bytes body = get_ipv4_props.response.image;
    void *buffer = nullptr;
    uint32_t size = 0;
    pretend_length(body.data() + 9, 0xfffffffe);
    EXPECT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv4Props(1, body.data(), &buffer, &size), 4u);
    EXPECT_EQ(buffer, nullptr);
    ASSERT_EQ(live_blocks().size(), 1u);
    void *kept = live_blocks()[0];
    void *record = static_cast<char *>(kept) + 24;
    const char *inner = "gorvaNet_ipv4_properties_serialize";
    const char *outer = "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_getIPv4Props";
    EXPECT_EQ(take_log(), (LogLines{logged(3, inner, "lgChainIn(%d) lgMaxChainOut(%d)\n", -1, 0),
                                    logged(3, inner, "pBody(%p): Type(%d) -> Error Before\n", record, 6),
                                    logged(3, inner, "pBody(%p): Type(%d) -> Error Before\n", record, 12),
                                    logged(3, outer, "pBody(%p): Type(%d) -> Error Before\n", kept, 4),
                                    logged(3, outer, "pBodyReq(%p): On serialize failed(%d)\n", kept, 4)}));
    free(kept);
}

TEST_F(GetIPv4PropsTest, TheResultIsReadWhereTheDecoderOfThePropertiesStops)
{
    // It claims to have read no more than the 20 bytes that stand where the properties should.
    Bytes wire = hex("00000000 00000004 23331110 00000001 00000004 00000001") + Bytes(20, 0xee) +
                 hex("00000004 00000004 12345678");
    ipv4_properties_probe.unserialize.instead = [](void *, const uint8_t **cursor) {
        *cursor += 20;
        return 0u;
    };
    void *body = nullptr;
    ASSERT_EQ(decode(GORVANET_BODY_RESPONSE, wire, &body), 0);
    EXPECT_EQ(contents(body, 3784), Bytes(Image(3784).number(0, 0x23331110).number(3780, 0x12345678)));
    free(body);
}

TEST_F(GetIPv4PropsTest, TheResultIsWrittenWhereTheEncoderOfThePropertiesStops)
{
    ipv4_properties_probe.serialize_lg.instead = [](const void *) { return 8u; };
    ipv4_properties_probe.serialize.instead = [](const void *, uint8_t **cursor) {
        *cursor += 8;
        return 0u;
    };
    Bytes body = get_ipv4_props.response.image;
    void *buffer = nullptr;
    uint32_t size = 0;
    ASSERT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv4Props(1, body.data(), &buffer, &size), 0u);
    EXPECT_EQ(contents(buffer, size), hex("00000000 00000004 23331110 00000001 00000004 00000001"
                                          "00000000 00000000 00000004 00000004 55667788"));
    free(buffer);
}

} // namespace
