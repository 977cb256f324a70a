// GetIPv6Props, command 4.

#include "commands/method.h"
#include "commands/record.h"

#include <cstdlib>
#include <type_traits>

static_assert(std::is_same_v<gorvaNet_getIPv6Props_response,
                             void(void *context, void *user_data, const ipv6_properties *properties, uint32_t result)>);
static_assert(std::is_same_v<gorvaNet_getIPv6Props_handler, void(void *message, void *data)>);
static_assert(GORVANET_MAGIC_MSGCMD_GETIPV6PROPS == 0x24331110);

namespace {

const ipv6_properties properties = {
    .field3 = -1,
    .field4 = 2,
    .field5 = -3,
    .field6 = 4,
    .field7 = "lan",
    .field8 = "",
    .field9 = "",
    .field10 = 1,
    .field11 = {{.field3 = "::1", .field5 = 0x51, .field6 = 0x61, .field7 = 0x71, .field8 = 0x81}},
    .field12 = 0,
    .field13 = {},
    .field14 = 0,
    .field15 = {},
    .field16 = "",
    .field17 = 0,
    .field18 = {},
    .field19 = "",
};

} // namespace

extern const Method get_ipv6_props;
const Method get_ipv6_props = {
    .suffix = "getIPv6Props",
    .index = 4,
    .magic = 0x24331110,
    .magic_name = "GORVANET_MAGIC_MSGCMD_GETIPV6PROPS",
    .accept_magic = 0x24331111,
    .version = 1,
    .request =
        {
            .image = Image(8).number(0, 0x24331110),
            .wire = hex("00000000 00000004 24331110"
                        "00000001 00000004 00000001"),
            .fields = {},
            .passed = [](uintptr_t) { return Words{}; },
        },
    .response =
        {
            .image = Image(3664)
                         .number(0, 0x24331110)
                         .text(8, "\xff\x02\xfd\x04")
                         .text(12, "lan")
                         .number(164, 1)
                         .text(168, "::1")
                         .number(216, 0x51)
                         .number(220, 0x61)
                         .number(224, 0x71)
                         .number(228, 0x81)
                         .number(3660, 0x99aabbcc),
            .wire = hex("00000000 00000004 24331110"
                        "00000001 00000004 00000001"
                        "00000003 00000004 ffffffff"
                        "00000004 00000004 00000002"
                        "00000005 00000004 fffffffd"
                        "00000006 00000004 00000004"
                        "00000007 00000008 6c616e00 00000000"
                        "00000008 00000004 00000000"
                        "00000009 00000004 00000000"
                        "0000000a 00000004 00000001"
                        "00000003 00000008 3a3a3100 00000000"
                        "00000005 00000004 00000051"
                        "00000006 00000004 00000061"
                        "00000007 00000004 00000071"
                        "00000008 00000004 00000081"
                        "0000000c 00000004 00000000"
                        "0000000e 00000004 00000000"
                        "00000010 00000004 00000000"
                        "00000011 00000004 00000000"
                        "00000013 00000004 00000000"
                        "00000004 00000004 99aabbcc"),
            .fields = {{.tag = 4, .offset = 248, .announced = {}}},
            .record = {.probe = &ipv6_properties_probe,
                       .source = &properties,
                       .size = 3652,
                       .place = 8,
                       .offset = 24,
                       .copy_failed = "Copy ipv6_properties failed",
                       .announced = {4}},
            .passed =
                [](uintptr_t body) {
                    return Words{body + 8, 0x99aabbcc};
                },
        },
    .send =
        [](void *sender, gorvaNet_function *callback, void *first, void *second, const char *name) {
            return gorvaNet_sendReq_getIPv6Props(sender, reinterpret_cast<gorvaNet_getIPv6Props_response *>(callback),
                                                 first, second, name);
        },
    .respond = [](void *request) { gorvaNet_sendRes_getIPv6Props(request, &properties, 0x99aabbcc); },
    .handler = keeper<gorvaNet_getIPv6Props_handler>(),
    .callback = keeper<gorvaNet_getIPv6Props_response>(),
};

namespace {

class GetIPv6PropsTest : public LibraryTest {
protected:
    void TearDown() override
    {
        ipv6_properties_probe.reset();
        LibraryTest::TearDown();
    }

    static int32_t decode(uint32_t type, const Bytes &wire, void **body)
    {
        uint32_t size = 0;
        return gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_getIPv6Props(type, wire.data(), body, &size);
    }
};

TEST_F(GetIPv6PropsTest, ARequestOfVersion0IsRefusedWithoutALineAndOneOf0x00020001Accepted)
{
    void *body = nullptr;
    EXPECT_EQ(decode(GORVANET_BODY_REQUEST, with_number(get_ipv6_props.request.wire, 20, 0), &body), 2);
    EXPECT_EQ(body, nullptr);
    EXPECT_EQ(decode(GORVANET_BODY_REQUEST, with_number(get_ipv6_props.request.wire, 20, 0x00020001), &body), 0);
    free(body);
}

TEST_F(GetIPv6PropsTest, PropertiesThatCannotBeEncodedGiveTheirCodeAndNoBuffer)
{
    // No text is that long. The record announces its four counts behind it, the body its result.
    Bytes body = get_ipv6_props.response.image;
    void *buffer = nullptr;
    uint32_t size = 0;
    pretend_length(body.data() + 12, 0xfffffffe);
    EXPECT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv6Props(1, body.data(), &buffer, &size), 4u);
    EXPECT_EQ(buffer, nullptr);
    ASSERT_EQ(live_blocks().size(), 1u);
    void *kept = live_blocks()[0];
    void *record = static_cast<char *>(kept) + 24;
    const char *inner = "gorvaNet_ipv6_properties_serialize";
    const char *outer = "gorvaNet_cbEvtMsgMngt_serializeBody_msgCmdRes_getIPv6Props";
    LogLines expected = {logged(3, inner, "lgChainIn(%d) lgMaxChainOut(%d)\n", -1, 0)};
    for (int tag : {10, 12, 14, 17})
        expected.push_back(logged(3, inner, "pBody(%p): Type(%d) -> Error Before\n", record, tag));
    expected.push_back(logged(3, outer, "pBody(%p): Type(%d) -> Error Before\n", kept, 4));
    expected.push_back(logged(3, outer, "pBodyReq(%p): On serialize failed(%d)\n", kept, 4));
    EXPECT_EQ(take_log(), expected);
    free(kept);
}

TEST_F(GetIPv6PropsTest, TheResultIsReadWhereTheDecoderOfThePropertiesStops)
{
    // It claims to have read no more than the 4 bytes that stand where the properties should.
    Bytes wire = hex("00000000 00000004 24331110 00000001 00000004 00000001 eeeeeeee 00000004 00000004 12345678");
    ipv6_properties_probe.unserialize.instead = [](void *, const uint8_t **cursor) {
        *cursor += 4;
        return 0u;
    };
    void *body = nullptr;
    ASSERT_EQ(decode(GORVANET_BODY_RESPONSE, wire, &body), 0);
    EXPECT_EQ(contents(body, 3664), Bytes(Image(3664).number(0, 0x24331110).number(3660, 0x12345678)));
    free(body);
}

TEST_F(GetIPv6PropsTest, TheResultIsWrittenWhereTheEncoderOfThePropertiesStops)
{
    ipv6_properties_probe.serialize_lg.instead = [](const void *) { return 8u; };
    ipv6_properties_probe.serialize.instead = [](const void *, uint8_t **cursor) {
        *cursor += 8;
        return 0u;
    };
    Bytes body = get_ipv6_props.response.image;
    void *buffer = nullptr;
    uint32_t size = 0;
    ASSERT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv6Props(1, body.data(), &buffer, &size), 0u);
    EXPECT_EQ(contents(buffer, size), hex("00000000 00000004 24331110 00000001 00000004 00000001"
                                          "00000000 00000000 00000004 00000004 99aabbcc"));
    free(buffer);
}

} // namespace
