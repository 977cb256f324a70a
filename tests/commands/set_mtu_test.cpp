// SetMtu, command 6.

#include "commands/method.h"

#include <cstdlib>
#include <type_traits>

static_assert(std::is_same_v<gorvaNet_setMtu_response, void(void *context, void *user_data, uint32_t result)>);
static_assert(std::is_same_v<gorvaNet_setMtu_handler, void(void *message, void *data, uint32_t mtu)>);
static_assert(GORVANET_MAGIC_MSGCMD_SETMTU == 0x20190222);

extern const Method set_mtu;
const Method set_mtu = {
    .suffix = "setMtu",
    .index = 6,
    .magic = 0x20190222,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETMTU",
    .accept_magic = 0x20190223,
    .version = 0,
    .request =
        {
            .image = Image(12).number(0, 0x20190222).number(8, 1500),
            .wire = hex("00000000 00000004 20190222"
                        "00000001 00000004 00000000"
                        "00000003 00000004 000005dc"),
            .fields = {{.tag = 3, .offset = 24, .announced = {}}},
            .passed = [](uintptr_t) { return Words{1500}; },
        },
    .response =
        {
            .image = Image(12).number(0, 0x20190222).number(8, 0xfedcba98),
            .wire = hex("00000000 00000004 20190222"
                        "00000001 00000004 00000000"
                        "00000003 00000004 fedcba98"),
            .fields = {{.tag = 3, .offset = 24, .announced = {}}},
            .passed = [](uintptr_t) { return Words{0xfedcba98}; },
        },
    .send =
        [](void *sender, gorvaNet_function *callback, void *first, void *second, const char *name) {
            return gorvaNet_sendReq_setMtu(sender, reinterpret_cast<gorvaNet_setMtu_response *>(callback), first,
                                           second, name, 1500);
        },
    .respond = [](void *request) { gorvaNet_sendRes_setMtu(request, 0xfedcba98); },
    .handler = keeper<gorvaNet_setMtu_handler>(),
    .callback = keeper<gorvaNet_setMtu_response>(),
};

namespace {

class SetMtuTest : public LibraryTest {};

TEST_F(SetMtuTest, AWrongLengthOfTheMtuIsNotLookedAt)
{
    for (uint32_t length : {0u, 1u, 3u, 8u, 0xffffffffu}) {
        Bytes wire = with_number(set_mtu.request.wire, 28, length);
        void *body = nullptr;
        uint32_t size = 0;
        ASSERT_EQ(gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setMtu(0, wire.data(), &body, &size), 0);
        EXPECT_EQ(static_cast<uint32_t *>(body)[2], 1500u);
        free(body);
    }
}

} // namespace
