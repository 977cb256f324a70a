// SetIPv4Address, command 5.

#include "commands/method.h"
#include "commands/record.h"

#include <cstdlib>
#include <type_traits>

static_assert(std::is_same_v<gorvaNet_setIPv4Address_response,
                             void(void *context, void *user_data, const ipv4_address_return *outcome)>);
static_assert(
    std::is_same_v<gorvaNet_setIPv4Address_handler, void(void *message, void *data, const ipv4_address *address)>);
static_assert(GORVANET_MAGIC_MSGCMD_SETIPV4ADDRESS == 0x23331320);

namespace {

const ipv4_address address = {
    .field3 = 0x01020304,
    .field4 = 0xa1a2a3a4,
    .field5 = 200,
    .field6 = "lan",
    .field7 = "10.0.0.1",
    .field8 = "",
    .field9 = "",
    .field10 = "",
};

const ipv4_address_return outcome = {.result = 0xb1b2b3b4};

} // namespace

extern const Method set_ipv4_address;
const Method set_ipv4_address = {
    .suffix = "setIPv4Address",
    .index = 5,
    .magic = 0x23331320,
    .magic_name = "GORVANET_MAGIC_MSGCMD_SETIPV4ADDRESS",
    .accept_magic = 0x23331321,
    .version = 0,
    .request =
        {
            .image = Image(132)
                         .number(0, 0x23331320)
                         .number(8, 0x01020304)
                         .number(12, 0xa1a2a3a4)
                         .text(16, "\xc8")
                         .text(17, "lan")
                         .text(50, "10.0.0.1"),
            .wire = hex("00000000 00000004 23331320"
                        "00000001 00000004 00000000"
                        "00000003 00000004 01020304"
                        "00000004 00000004 a1a2a3a4"
                        "00000005 00000004 000000c8"
                        "00000006 00000008 6c616e00 00000000"
                        "00000007 0000000c 31302e30 2e302e31 00000000"
                        "00000008 00000004 00000000"
                        "00000009 00000004 00000000"
                        "0000000a 00000004 00000000"),
            .fields = {},
            .record = {.probe = &ipv4_address_probe,
                       .source = &address,
                       .size = 124,
                       .place = 8,
                       .offset = 24,
                       .copy_failed = "Copy ipv4_address failed",
                       .announced = {}},
            .passed = [](uintptr_t body) { return Words{body + 8}; },
        },
    .response =
        {
            .image = Image(12).number(0, 0x23331320).number(8, 0xb1b2b3b4),
            .wire = hex("00000000 00000004 23331320"
                        "00000001 00000004 00000000"
                        "00000003 00000004 b1b2b3b4"),
            .fields = {},
            .record = {.probe = &ipv4_address_return_probe,
                       .source = &outcome,
                       .size = 4,
                       .place = 8,
                       .offset = 24,
                       .copy_failed = "Copy ipv4_address_return failed",
                       .announced = {}},
            .passed = [](uintptr_t body) { return Words{body + 8}; },
        },
    .send =
        [](void *sender, gorvaNet_function *callback, void *first, void *second, const char *name) {
            return gorvaNet_sendReq_setIPv4Address(
                sender, reinterpret_cast<gorvaNet_setIPv4Address_response *>(callback), first, second, name, &address);
        },
    .respond = [](void *request) { gorvaNet_sendRes_setIPv4Address(request, &outcome); },
    .handler = keeper<gorvaNet_setIPv4Address_handler>(),
    .callback = keeper<gorvaNet_setIPv4Address_response>(),
};

namespace {

class SetIPv4AddressTest : public LibraryTest {
protected:
    void TearDown() override
    {
        ipv4_address_probe.reset();
        LibraryTest::TearDown();
    }
};

TEST_F(SetIPv4AddressTest, ARequestWhoseCopyFailsIsStillSent)
{
    ipv4_address_probe.copy.instead = [](void *, const void *) { return 9u; };
    answer("zebCore_sendMsgReq_toNameUser", 33);
    EXPECT_EQ(gorvaNet_sendReq_setIPv4Address(user, nullptr, pass1, pass2, server, &address), 33u);
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvaNet_sendReq_setIPv4Address", "Copy ipv4_address failed\n")});
    Calls calls = take_calls();
    ASSERT_EQ(calls.size(), 2u);
    void *body = reinterpret_cast<void *>(calls[1].words[1]);
    EXPECT_EQ(calls[1], (Call{"zebCore_sendMsgReq_toNameUser",
                              {word(core_user), word(body), 0, 0, word(pass1), word(pass2), word(server), 0xffff, 5,
                               0xffff, 18}}));
    free(body);
}

TEST_F(SetIPv4AddressTest, ARequestThatIsKeptKeepsItsRecordToo)
{
    Bytes body = set_ipv4_address.request.image;
    body[4] = 1;
    const Bytes kept = body;
    gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setIPv4Address(GORVANET_BODY_REQUEST, body.data());
    EXPECT_EQ(body, kept);
    EXPECT_EQ(ipv4_address_probe.clean.calls, 0u);
    EXPECT_EQ(take_freed().size(), 0u);
}

} // namespace
