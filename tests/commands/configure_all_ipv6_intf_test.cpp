// ConfigureAllIPv6Intf, command 11.

#include "commands/method.h"

#include <cstdlib>
#include <type_traits>

static_assert(std::is_same_v<gorvaNet_configureAllIPv6Intf_handler, void(void *message, void *data, uint32_t value)>);
static_assert(GORVANET_MAGIC_MSGCMD_CONFIGUREALLIPV6INTF == 0x20161209);

extern const Method configure_all_ipv6_intf;
const Method configure_all_ipv6_intf = {
    .suffix = "configureAllIPv6Intf",
    .index = 11,
    .magic = 0x20161209,
    .magic_name = "GORVANET_MAGIC_MSGCMD_CONFIGUREALLIPV6INTF",
    .accept_magic = 0x20161210,
    .version = 0,
    .request =
        {
            .image = Image(12).number(0, 0x20161209).number(8, 0xc0ffee01),
            .wire = hex("00000000 00000004 20161209"
                        "00000001 00000004 00000000"
                        "00000003 00000004 c0ffee01"),
            .fields = {{.tag = 3, .offset = 24, .announced = {}}},
            .passed = [](uintptr_t) { return Words{0xc0ffee01}; },
        },
    .send = [](void *sender, gorvaNet_function *, void *, void *pass,
               const char *name) { return gorvaNet_sendReq_configureAllIPv6Intf(sender, pass, name, 0xc0ffee01); },
    .handler = keeper<gorvaNet_configureAllIPv6Intf_handler>(),
};

namespace {

class ConfigureAllIPv6IntfTest : public LibraryTest {};

TEST_F(ConfigureAllIPv6IntfTest, ARequestAlwaysTakes36Bytes)
{
    for (uint32_t value : {0u, 1u, 0x80000000u, 0xffffffffu}) {
        Bytes body = Image(12).number(0, 0x20161209).number(8, value);
        void *buffer = nullptr;
        uint32_t size = 0;
        ASSERT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_configureAllIPv6Intf(0, body.data(), &buffer, &size), 0u);
        EXPECT_EQ(size, 36u);
        EXPECT_EQ(contents(buffer, size), with_number(configure_all_ipv6_intf.request.wire, 32, value));
        free(buffer);
    }
}

} // namespace
