// Interfaces, users, and the words through which the host reaches the library.

#include "loopback_test.h"

#include <set>

extern "C" void *add_user_from_c(const char *name);
extern "C" uint32_t size_of_event_in_c();

namespace {

using UsersTest = LoopbackTest;

TEST_F(UsersTest, TheHeaderIsTheSameInC)
{
    EXPECT_NE(add_user_from_c("from C"), nullptr);
    EXPECT_EQ(size_of_event_in_c(), sizeof(gorvanet_loopback_event));
}

TEST_F(UsersTest, ACoreUserIsNotItsUser)
{
    start();
    void *core = zebIntf_getCore_user(client);
    EXPECT_NE(core, nullptr);
    EXPECT_NE(core, client);
    EXPECT_EQ(core, zebIntf_getCore_user(client));
    EXPECT_NE(core, zebIntf_getCore_user(service));
}

TEST_F(UsersTest, ARemovedUserIsNotTakenForALaterOne)
{
    void *first = gorvanet_loopback_add_user("name");
    EXPECT_EQ(gorvanet_loopback_remove_user(first), 0);
    void *second = gorvanet_loopback_add_user("name");
    EXPECT_NE(first, second);
    EXPECT_EQ(gorvanet_loopback_remove_user(first), GORVANET_LOOPBACK_UNKNOWN_USER);
    EXPECT_EQ(gorvanet_loopback_remove_user(second), 0);
}

// ---- Registration ---------------------------------------------------------------------------------------------------

TEST_F(UsersTest, NumbersAreDistinctAndValid)
{
    std::set<uint16_t> numbers;
    for (int i = 0; i < 100; i++) {
        MessageManagement *block = nullptr;
        uint16_t number = zebCore_getBase_msgMngt(("interface " + std::to_string(i)).c_str(), &block, 1);
        EXPECT_NE(number, GORVANET_NUM_NONE);
        EXPECT_NE(number, 0);
        EXPECT_NE(block, nullptr);
        numbers.insert(number);
    }
    EXPECT_EQ(numbers.size(), 100u);
}

// 70,000 registrations: the 16-bit numbers come around without touching one that is in use.
TEST_F(UsersTest, NumbersComeAroundWithoutAClash)
{
    MessageManagement *block = nullptr;
    uint16_t kept = zebCore_getBase_msgMngt("kept", &block, 1);
    for (int i = 0; i < 70'000; i++) {
        uint16_t number = zebCore_getBase_msgMngt("other", &block, 1);
        ASSERT_NE(number, GORVANET_NUM_NONE);
        ASSERT_NE(number, 0);
        ASSERT_NE(number, kept);
        ASSERT_EQ(zebCore_putBase_msgMngt(number, 0), 0);
    }
    EXPECT_EQ(zebCore_putBase_msgMngt(kept, 0), 0);
}

TEST_F(UsersTest, ANameRegisteredAgainReplacesTheEarlierRegistration)
{
    MessageManagement *block = nullptr;
    uint16_t first = zebCore_getBase_msgMngt("interface", &block, 1);
    block->name = "filled";
    uint16_t second = zebCore_getBase_msgMngt("interface", &block, 2);
    EXPECT_EQ(first, second);
    EXPECT_EQ(block->name, nullptr) << "the block is a new one";
    EXPECT_EQ(zebCore_putBase_msgMngt(first, 0), 0);
    EXPECT_EQ(zebCore_putBase_msgMngt(first, 0), GORVANET_LOOPBACK_UNKNOWN_NUMBER);
}

// The library starts over after a failed start, and everything works.
TEST_F(UsersTest, TheLibraryMayStartOver)
{
    MessageManagement *block = nullptr;
    zebCore_getBase_msgMngt("GorvaNetCmd", &block, 12);
    start();
    serve();
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(results.size(), 1u);
}

TEST_F(UsersTest, AReleasedInterfaceLosesItsUsers)
{
    start();
    serve();
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(send(), 0u) << "the client is not attached any more";
    EXPECT_EQ(gorvaNet_regUser_msgMngt(service, nullptr, nullptr, GORVANET_SELECT_BOTH), 0u);
    EXPECT_EQ(gorvaNet_regUser_msgMngt(client, nullptr, nullptr, GORVANET_SELECT_BOTH), 0u);
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(only(GORVANET_LOOPBACK_STATUS).text, "the user has not accepted the method");
}

TEST_F(UsersTest, AttachingTwiceIsTheSameAsOnce)
{
    start();
    EXPECT_EQ(gorvaNet_regUser_msgMngt(client, this, this, GORVANET_SELECT_CMD), 0u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), 0);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(client, GORVANET_SELECT_CMD), GORVANET_LOOPBACK_NOT_ATTACHED);
}

// The host drops an interface through the unreg word: the library clears its flag and keeps the number.
TEST_F(UsersTest, AWithdrawnInterfaceTellsTheLibrary)
{
    start();
    uint16_t number = gorvaNet_getCmdIntfNum();
    EXPECT_EQ(gorvanet_loopback_withdraw(number), 0);
    EXPECT_EQ(gorvaNet_base.flags, GORVANET_FLAGS_BASE_REG_NTFY);
    EXPECT_EQ(gorvaNet_getCmdIntfNum(), number);
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(count(GORVANET_LOOPBACK_MISUSE), 0u);
}

TEST_F(UsersTest, AWithdrawnInterfaceTakesNobody)
{
    start();
    uint16_t number = gorvaNet_getNtfyIntfNum();
    EXPECT_EQ(gorvanet_loopback_withdraw(number), 0);
    EXPECT_EQ(gorvaNet_regUser_msgMngt(client, nullptr, nullptr, GORVANET_SELECT_NTFY),
              uint32_t{GORVANET_LOOPBACK_UNKNOWN_NUMBER});
    expect_misuse("interface GorvaNetNtfy was withdrawn");
    EXPECT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, nullptr, nullptr, nullptr, "bus", "service"),
              uint32_t{GORVANET_LOOPBACK_UNKNOWN_NUMBER});
    expect_misuse("interface GorvaNetNtfy was withdrawn");
    EXPECT_EQ(gorvanet_loopback_withdraw(number), GORVANET_LOOPBACK_UNKNOWN_NUMBER);
    expect_misuse("interface GorvaNetNtfy was withdrawn");
    EXPECT_EQ(zebCore_putBase_msgMngt(number, 0), GORVANET_LOOPBACK_UNKNOWN_NUMBER);
    expect_misuse("interface GorvaNetNtfy was withdrawn");
    EXPECT_EQ(gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 0, nullptr), 0u);
    expect_misuse("no interface 'GorvaNetNtfy' is registered");
}

TEST_F(UsersTest, AWithdrawnInterfaceMayBeRegisteredAgain)
{
    start();
    EXPECT_EQ(gorvanet_loopback_withdraw(gorvaNet_getCmdIntfNum()), 0);
    EXPECT_EQ(gorvanet_loopback_withdraw(gorvaNet_getNtfyIntfNum()), 0);
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    EXPECT_EQ(gorvaNet_addBase(), 0u);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(service, handler, this, nullptr), GORVANET_LOOPBACK_NOT_ATTACHED);
    EXPECT_EQ(gorvaNet_regUser_msgMngt(service, nullptr, nullptr, GORVANET_SELECT_BOTH), 0u);
    EXPECT_EQ(gorvaNet_regUser_msgMngt(client, nullptr, nullptr, GORVANET_SELECT_BOTH), 0u);
    serve();
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(results, std::vector<uint32_t>{42});
}

TEST_F(UsersTest, NotificationUsersAreCounted)
{
    start();
    EXPECT_EQ(gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 0, nullptr), 0u);
    EXPECT_EQ(zebIntf_modCliNtfyUser_mthd(client, nullptr, nullptr, nullptr, 1, "bus", "service", "GorvaNet",
                                          &gorvaNet_base.cmd, &gorvaNet_base.ntfy, 0),
              0);
    EXPECT_EQ(gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 0, nullptr), 1u);
    EXPECT_EQ(gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 1, nullptr), 0u);
}

// ---- The words ------------------------------------------------------------------------------------------------------

// The body callbacks through the block that gorvaNet_addBase filled (the fixture redirects them before the start),
// recvReq through the row behind the interface block, unreg through the block's head.
TEST_F(UsersTest, TheLibraryIsReachedThroughItsWordsOnly)
{
    static uint32_t received, dropped;
    received = dropped = 0;
    gorvaNet_base.cmdMethods[0].recvReq = [](void *message, void *body, gorvaNet_function *function, void *data) {
        received++;
        gorvaNet_recvReq_setOsIfc(message, body, function, data);
    };
    gorvaNet_base.cmd.unreg = [](uint16_t number) {
        dropped++;
        gorvaNet_cbEvtMsgMngt_unreg_msgCmd(number);
    };
    start();
    serve();
    send();
    gorvanet_loopback_run();
    EXPECT_EQ(results.size(), 1u);
    EXPECT_EQ(received, 1u);
    EXPECT_EQ(ledger.encoded[0] + ledger.encoded[1], 2u);
    EXPECT_EQ(ledger.decoded[0] + ledger.decoded[1], 2u);
    EXPECT_EQ(ledger.freed[0] + ledger.freed[1], 4u);
    gorvanet_loopback_withdraw(gorvaNet_getCmdIntfNum());
    EXPECT_EQ(dropped, 1u);
}

} // namespace
