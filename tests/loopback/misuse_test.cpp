// Misuse is a clear message and a result, never a crash, and what came with it is released.

#include "loopback_test.h"

namespace {

class MisuseTest : public LoopbackTest {
protected:
    static uint32_t send_raw(void *core_user, void *body, const char *server, uint32_t number, uint32_t method)
    {
        return zebCore_sendMsgReq_toNameUser(core_user, body, nullptr, nullptr, nullptr, nullptr, server, number,
                                             method, any_number, send_options);
    }

    static int32_t accept(void *user, const char *name, gorvaNet_interface *cmd, gorvaNet_interface *ntfy,
                          uint32_t method)
    {
        return zebIntf_modSrv_mthd(user, nullptr, nullptr, nullptr, 1, name, cmd, ntfy, method, any_number, any_number);
    }
};

// ---- Users and interfaces -------------------------------------------------------------------------------------------

TEST_F(MisuseTest, AddingUsers)
{
    EXPECT_EQ(gorvanet_loopback_add_user(nullptr), nullptr);
    expect_misuse("a user needs a name");
    EXPECT_EQ(gorvanet_loopback_add_user(""), nullptr);
    expect_misuse("a user needs a name");
    EXPECT_NE(gorvanet_loopback_add_user("twice"), nullptr);
    EXPECT_EQ(gorvanet_loopback_add_user("twice"), nullptr);
    expect_misuse("there is a user 'twice' already");
}

TEST_F(MisuseTest, UnknownUsers)
{
    start();
    int object = 0;
    void *removed = gorvanet_loopback_add_user("removed");
    EXPECT_EQ(gorvanet_loopback_remove_user(removed), 0);
    for (void *user :
         {static_cast<void *>(nullptr), static_cast<void *>(&object), removed, zebIntf_getCore_user(client)}) {
        EXPECT_EQ(gorvanet_loopback_remove_user(user), GORVANET_LOOPBACK_UNKNOWN_USER);
        expect_misuse("gorvanet_loopback_remove_user: user");
        EXPECT_EQ(gorvaNet_regUser_msgMngt(user, nullptr, nullptr, GORVANET_SELECT_CMD),
                  uint32_t{GORVANET_LOOPBACK_UNKNOWN_USER});
        expect_misuse("zebIntf_regUser_msgMngt: user");
        EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, GORVANET_SELECT_CMD), GORVANET_LOOPBACK_UNKNOWN_USER);
        expect_misuse("zebIntf_unregUser_msgMngt: user");
        EXPECT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(user, handler, this, nullptr), GORVANET_LOOPBACK_UNKNOWN_USER);
        expect_misuse("zebIntf_modSrv_mthd: user");
        EXPECT_EQ(zebIntf_getCore_user(user), nullptr);
        expect_misuse("zebIntf_getCore_user: user");
    }
}

TEST_F(MisuseTest, UnknownNumbers)
{
    start();
    for (uint32_t number : {0u, 999u, 0xffffu, 0x10001u}) {
        EXPECT_EQ(zebCore_putBase_msgMngt(number, 0), GORVANET_LOOPBACK_UNKNOWN_NUMBER);
        expect_misuse("zebCore_putBase_msgMngt: message management number");
        EXPECT_EQ(zebIntf_regUser_msgMngt(client, nullptr, nullptr, number, any_number, 0),
                  GORVANET_LOOPBACK_UNKNOWN_NUMBER);
        expect_misuse("zebIntf_regUser_msgMngt: message management number");
        EXPECT_EQ(zebIntf_unregUser_msgMngt(client, number, any_number, 0), GORVANET_LOOPBACK_UNKNOWN_NUMBER);
        expect_misuse("zebIntf_unregUser_msgMngt: message management number");
        uint32_t body = 0; // stays the caller's: nobody knows how to release it
        EXPECT_EQ(send_raw(zebIntf_getCore_user(client), &body, "service", number, 0), 0u);
        expect_misuse("zebCore_sendMsgReq_toNameUser: message management number");
    }
    EXPECT_EQ(gorvanet_loopback_withdraw(999), GORVANET_LOOPBACK_UNKNOWN_NUMBER);
    expect_misuse("gorvanet_loopback_withdraw: message management number 999 is unknown");
}

TEST_F(MisuseTest, Registering)
{
    MessageManagement *block = nullptr;
    EXPECT_EQ(zebCore_getBase_msgMngt(nullptr, &block, 1), GORVANET_NUM_NONE);
    expect_misuse("no interface name");
    EXPECT_EQ(zebCore_getBase_msgMngt("TestNetCmd", nullptr, 1), GORVANET_NUM_NONE);
    expect_misuse("no address for the block");
    EXPECT_EQ(zebCore_getBase_msgMngt("TestNetCmd", &block, 0x10000), GORVANET_NUM_NONE);
    expect_misuse("too many methods");
    EXPECT_EQ(block, nullptr);
    EXPECT_NE(ruvo_addEvtBase(nullptr, nullptr), 0);
    expect_misuse("ruvo_addEvtBase: no callback");
}

TEST_F(MisuseTest, NotAttached)
{
    start();
    void *stranger = gorvanet_loopback_add_user("stranger");
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(stranger, handler, this, nullptr), GORVANET_LOOPBACK_NOT_ATTACHED);
    expect_misuse("user 'stranger' is not attached to interface GorvaNetCmd");
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(stranger, GORVANET_SELECT_CMD), GORVANET_LOOPBACK_NOT_ATTACHED);
    expect_misuse("user 'stranger' is not attached to interface GorvaNetCmd");
    EXPECT_EQ(gorvaNet_sendReq_setOsIfc(stranger, callback, nullptr, this, "service", "eth0"), 0u);
    expect_misuse("user 'stranger' is not attached to interface GorvaNetCmd");
    EXPECT_EQ(ledger.freed[0], 1u);
}

TEST_F(MisuseTest, Accepting)
{
    start();
    gorvaNet_interface *cmd = &gorvaNet_base.cmd;
    gorvaNet_interface *ntfy = &gorvaNet_base.ntfy;
    EXPECT_EQ(accept(service, "GorvaNet", nullptr, ntfy, 0), GORVANET_LOOPBACK_BAD_ARGUMENT);
    expect_misuse("no command interface block");
    EXPECT_EQ(accept(service, "GorvaNet", cmd, nullptr, 0), GORVANET_LOOPBACK_BAD_ARGUMENT);
    expect_misuse("no notification interface block");
    EXPECT_EQ(accept(service, "OtherNet", cmd, ntfy, 0), GORVANET_LOOPBACK_WRONG_NAME);
    expect_misuse("'GorvaNetCmd' is not the interface of 'OtherNetCmd'");
    EXPECT_EQ(accept(service, nullptr, cmd, ntfy, 0), GORVANET_LOOPBACK_WRONG_NAME);
    expect_misuse("'GorvaNetCmd' is not the interface of 'Cmd'");
    EXPECT_EQ(accept(service, "GorvaNet", cmd, cmd, 0), GORVANET_LOOPBACK_WRONG_NAME);
    expect_misuse("'GorvaNetCmd' is not the interface of 'GorvaNetNtfy'");
    EXPECT_EQ(accept(service, "GorvaNet", cmd, ntfy, 12), GORVANET_LOOPBACK_UNKNOWN_METHOD);
    expect_misuse("interface GorvaNetCmd has no method 12");
    gorvaNet_interface swapped = *cmd;
    swapped.num = gorvaNet_getNtfyIntfNum();
    EXPECT_EQ(accept(service, "GorvaNet", &swapped, ntfy, 0), GORVANET_LOOPBACK_WRONG_NAME);
    expect_misuse("'GorvaNetCmd' is not the interface of 'GorvaNetNtfy'");
    swapped.num = GORVANET_NUM_NONE;
    EXPECT_EQ(accept(service, "GorvaNet", &swapped, ntfy, 0), GORVANET_LOOPBACK_UNKNOWN_NUMBER);
    expect_misuse("message management number 65535 is unknown");
}

TEST_F(MisuseTest, FindingUsers)
{
    EXPECT_EQ(zebIntf_findSrvMthdNtfyUser(nullptr, nullptr, nullptr, 0, nullptr), 0u);
    expect_misuse("no interface name");
    EXPECT_EQ(gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 0, nullptr), 0u);
    expect_misuse("no interface 'GorvaNetNtfy' is registered");
}

// ---- Sending --------------------------------------------------------------------------------------------------------

TEST_F(MisuseTest, SendingFreesTheBody)
{
    start();
    uint16_t number = gorvaNet_getCmdIntfNum();
    EXPECT_EQ(send_raw(client, new_request(), "service", number, 0), 0u);
    expect_misuse("zebCore_sendMsgReq_toNameUser: core user");
    EXPECT_EQ(send_raw(nullptr, new_request(), "service", number, 0), 0u);
    expect_misuse("zebCore_sendMsgReq_toNameUser: core user");
    EXPECT_EQ(send_raw(zebIntf_getCore_user(client), new_request(), nullptr, number, 0), 0u);
    expect_misuse("no name of a serving user");
    EXPECT_EQ(ledger.freed[0], 3u);
    EXPECT_EQ(send_raw(zebIntf_getCore_user(client), nullptr, "service", number, 0), 0u);
    expect_misuse("no body");
    EXPECT_EQ(ledger.freed[0], 3u);
    EXPECT_EQ(ledger.encoded[0], 0u);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

TEST_F(MisuseTest, SendingAnUnknownMethod)
{
    start();
    uint32_t body = 0;
    EXPECT_EQ(send_raw(zebIntf_getCore_user(client), &body, "service", gorvaNet_getCmdIntfNum(), 12), 0u);
    expect_misuse("interface GorvaNetCmd has no method 12");
}

TEST_F(MisuseTest, SendingAMethodWithoutCallbacks)
{
    gorvaNet_base.cmdMethods[0].serializeBody = nullptr;
    start();
    uint32_t body = 0;
    EXPECT_EQ(send_raw(zebIntf_getCore_user(client), &body, "service", gorvaNet_getCmdIntfNum(), 0), 0u);
    expect_misuse("method 0 of interface GorvaNetCmd has no name or lacks a body callback");
}

// ---- The loop -------------------------------------------------------------------------------------------------------

TEST_F(MisuseTest, RunningInsideATurn)
{
    start();
    serve();
    in_handler = [&](void *) {
        seen.clear();
        EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_BUSY);
        expect_misuse("gorvanet_loopback_run: called from inside a turn");
        EXPECT_EQ(gorvanet_loopback_turn(), GORVANET_LOOPBACK_BUSY);
        expect_misuse("gorvanet_loopback_turn: called from inside a turn");
        EXPECT_EQ(gorvanet_loopback_tear_down(), GORVANET_LOOPBACK_BUSY);
        expect_misuse("gorvanet_loopback_tear_down: called from inside a turn");
    };
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(results.size(), 1u);
}

TEST_F(MisuseTest, PostingNothing)
{
    EXPECT_EQ(gorvanet_loopback_post(nullptr, nullptr), GORVANET_LOOPBACK_BAD_ARGUMENT);
    expect_misuse("gorvanet_loopback_post: no function");
}

// ---- Without an observer --------------------------------------------------------------------------------------------

TEST_F(MisuseTest, AndOtherFailuresGoToStderrWithoutAnObserver)
{
    start();
    gorvanet_loopback_observe(nullptr, nullptr);
    testing::internal::CaptureStderr();
    uint32_t first = send("nobody");
    send("service");
    ledger.encode_status = 4;
    send();
    ledger.encode_status = 0;
    gorvanet_loopback_run();
    gorvanet_loopback_post(nullptr, nullptr);
    std::string one = std::to_string(first), two = std::to_string(first + 1), three = std::to_string(first + 2);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "loopback: message " + three + ", SetOsIfc from 'client' to 'service': cannot be encoded, status 4\n" +
                  "loopback: message " + one +
                  ", SetOsIfc from 'client' to 'nobody': undeliverable: there is no user of this name\n" +
                  "loopback: message " + two +
                  ", SetOsIfc from 'service' to 'client': answered with status 20: the user has not accepted the "
                  "method\n" +
                  "loopback: misuse: gorvanet_loopback_post: no function\n");
}

TEST_F(MisuseTest, WhatGoesWellIsSilentWithoutAnObserver)
{
    start();
    serve();
    gorvanet_loopback_observe(nullptr, nullptr);
    testing::internal::CaptureStderr();
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(results.size(), 1u);
}

} // namespace
