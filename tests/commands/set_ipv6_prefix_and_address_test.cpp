// SetIPv6PrefixAndAddress, command 7.

#include "commands/method.h"
#include "commands/record.h"

#include <cstdlib>
#include <type_traits>

static_assert(
    std::is_same_v<gorvaNet_setIPv6PrefixAndAddress_response, void(void *context, void *user_data, uint32_t result)>);
static_assert(std::is_same_v<gorvaNet_setIPv6PrefixAndAddress_handler,
                             void(void *message, void *data, const ipv6_prefix_addr_conf_list *list)>);
static_assert(GORVANET_MAGIC_MSGCMD_SETIPV6PREFIXANDADDRESS == 0x24331320);

namespace {

const ipv6_prefix_addr_conf_list list = {
    .field3 = 1,
    .confs = {{
        .config =
            {
                .field3 = "wan",
                .field4 = "",
                .prefix = {.field3 = "fd00::",
                           .field4 = 0x41,
                           .field5 = 0x51,
                           .field6 = 0x61,
                           .field7 = 0x71,
                           .field8 = 0x81,
                           .field9 = 0x91,
                           .field10 = 0xa1,
                           .field11 = "",
                           .field12 = 0xc1},
            },
        .address = {.field3 = "::1", .field5 = 0x52, .field6 = 0x62, .field7 = 0x72, .field8 = 0x82},
    }},
};

} // namespace

extern const Method set_ipv6_prefix_and_address;
const Method set_ipv6_prefix_and_address = {
    .suffix = "setIPv6PrefixAndAddress",
    .index = 7,
    .magic = 0x24331320,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETIPV6PREFIXANDADDRESS",
    .accept_magic = 0x24331321,
    .version = 0,
    .request =
        {
            .image = Image(2272)
                         .number(0, 0x24331320)
                         .number(8, 1)
                         .text(12, "wan")
                         .text(172, "fd00::")
                         .number(220, 0x41)
                         .number(224, 0x51)
                         .number(228, 0x61)
                         .number(232, 0x71)
                         .number(236, 0x81)
                         .number(240, 0x91)
                         .number(244, 0xa1)
                         .text(398, "\xc1")
                         .text(400, "::1")
                         .number(448, 0x52)
                         .number(452, 0x62)
                         .number(456, 0x72)
                         .number(460, 0x82),
            .wire = hex("00000000 00000004 24331320"
                        "00000001 00000004 00000000"
                        "00000003 00000004 00000001"
                        "00000003 00000008 77616e00 00000000"
                        "00000004 00000004 00000000"
                        "00000003 00000008 66643030 3a3a0000"
                        "00000004 00000004 00000041"
                        "00000005 00000004 00000051"
                        "00000006 00000004 00000061"
                        "00000007 00000004 00000071"
                        "00000008 00000004 00000081"
                        "00000009 00000004 00000091"
                        "0000000a 00000004 000000a1"
                        "0000000b 00000004 00000000"
                        "0000000c 00000004 000000c1"
                        "00000003 00000008 3a3a3100 00000000"
                        "00000005 00000004 00000052"
                        "00000006 00000004 00000062"
                        "00000007 00000004 00000072"
                        "00000008 00000004 00000082"),
            .fields = {},
            .record = {.probe = &ipv6_prefix_addr_conf_list_probe,
                       .source = &list,
                       .size = 2264,
                       .place = 8,
                       .offset = 24,
                       .copy_failed = "Copy ipv6_prefix_addr_conf_list failed",
                       .announced = {}},
            .passed = [](uintptr_t body) { return Words{body + 8}; },
        },
    .response =
        {
            .image = Image(12).number(0, 0x24331320).number(8, 0x0a0b0c0d),
            .wire = hex("00000000 00000004 24331320"
                        "00000001 00000004 00000000"
                        "00000003 00000004 0a0b0c0d"),
            .fields = {{.tag = 3, .offset = 24, .announced = {}}},
            .passed = [](uintptr_t) { return Words{0x0a0b0c0d}; },
        },
    .send =
        [](void *sender, gorvaNet_function *callback, void *first, void *second, const char *name) {
            return gorvaNet_sendReq_setIPv6PrefixAndAddress(
                sender, reinterpret_cast<gorvaNet_setIPv6PrefixAndAddress_response *>(callback), first, second, name,
                &list);
        },
    .respond = [](void *request) { gorvaNet_sendRes_setIPv6PrefixAndAddress(request, 0x0a0b0c0d); },
    .handler = keeper<gorvaNet_setIPv6PrefixAndAddress_handler>(),
    .callback = keeper<gorvaNet_setIPv6PrefixAndAddress_response>(),
};

namespace {

class SetIPv6PrefixAndAddressTest : public LibraryTest {
protected:
    static uint32_t encoded_size(uint32_t type, void *body)
    {
        void *buffer = nullptr;
        uint32_t size = 0;
        EXPECT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setIPv6PrefixAndAddress(type, body, &buffer, &size), 0u);
        free(buffer);
        return size;
    }
};

TEST_F(SetIPv6PrefixAndAddressTest, AResponseAlwaysTakes36Bytes)
{
    for (uint32_t result : {0u, 1u, 0x80000000u, 0xffffffffu}) {
        Bytes body = Image(12).number(0, 0x24331320).number(8, result);
        EXPECT_EQ(encoded_size(GORVANET_BODY_RESPONSE, body.data()), 36u);
    }
}

TEST_F(SetIPv6PrefixAndAddressTest, ARequestGrowsWithItsList)
{
    // A conf with empty texts takes 204 bytes; five are the most.
    const std::vector<std::pair<uint32_t, uint32_t>> sizes = {{0, 36},   {1, 240},  {2, 444}, {4, 852},
                                                              {5, 1056}, {6, 1056}, {7, 1056}};
    for (auto [count, size] : sizes) {
        Bytes body = Image(2272).number(0, 0x24331320).number(8, count);
        EXPECT_EQ(encoded_size(GORVANET_BODY_REQUEST, body.data()), size);
    }
}

} // namespace
