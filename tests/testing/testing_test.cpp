// The test bench does what it is told and says what was left undone.

#include "gorvanet_testing.h"

#include <cstdarg>
#include <cstring>
#include <gtest/gtest.h>
#include <syslog.h>
#include <vector>

extern "C" void __syslog_chk(int priority, int flag, const char *format, ...);
extern "C" void __vsyslog_chk(int priority, int flag, const char *format, va_list arguments);

namespace {

class TestingTest : public testing::Test {
protected:
    TestingTest()
    {
        gorvanet_testing_begin();
        EXPECT_EQ(gorvanet_initialize(), 0u);
        client = gorvanet_testing_add_user("client");
        service = gorvanet_testing_add_service("service");
    }
    ~TestingTest() override
    {
        gorvanet_testing_end();
    }

    // The only request that has come.
    const gorvanet_testing_request &request()
    {
        gorvanet_loopback_run();
        EXPECT_EQ(gorvanet_testing_received(service, 1), nullptr);
        const gorvanet_testing_request *first = gorvanet_testing_received(service, 0);
        static const gorvanet_testing_request none = {};
        EXPECT_NE(first, nullptr);
        return first ? *first : none;
    }

    void ask_for_mtu(uint32_t mtu)
    {
        gorvaNet_sendReq_setMtu(client, take_result, nullptr, this, "service", mtu);
    }

    static void take_result(void *, void *data, uint32_t result)
    {
        static_cast<TestingTest *>(data)->results.push_back(result);
    }
    static void take_nothing(void *, void *data)
    {
        static_cast<TestingTest *>(data)->results.push_back(0);
    }
    static void take_outcome(void *, void *data, const ipv4_address_return *outcome)
    {
        static_cast<TestingTest *>(data)->results.push_back(outcome->result);
    }
    static void take_ipv4(void *, void *data, const ipv4_properties *properties, uint32_t result)
    {
        auto *test = static_cast<TestingTest *>(data);
        test->results.push_back(result);
        test->text = properties->field4;
    }
    static void take_ipv6(void *, void *data, const ipv6_properties *properties, uint32_t result)
    {
        auto *test = static_cast<TestingTest *>(data);
        test->results.push_back(result);
        test->text = properties->field7;
    }

    using Results = std::vector<uint32_t>;

    void *client = nullptr;
    void *service = nullptr;
    Results results;
    std::string text;
};

// ---- Every command --------------------------------------------------------------------------------------------------

TEST_F(TestingTest, SetOsIfc)
{
    EXPECT_EQ(gorvanet_testing_reply_setOsIfc(service, 5), 0);
    gorvaNet_sendReq_setOsIfc(client, take_result, nullptr, this, "service", "eth0");
    EXPECT_EQ(request().method, GORVANET_TESTING_SET_OS_IFC);
    EXPECT_STREQ(request().ifName, "eth0");
    EXPECT_EQ(results, Results{5});
}

TEST_F(TestingTest, SetDhcp)
{
    EXPECT_EQ(gorvanet_testing_reply_setDhcp(service), 0);
    gorvaNet_sendReq_setDhcp(client, take_nothing, nullptr, this, "service", "eth1", 7);
    EXPECT_EQ(request().method, GORVANET_TESTING_SET_DHCP);
    EXPECT_STREQ(request().ifName, "eth1");
    EXPECT_EQ(request().dhcp, 7u);
    EXPECT_EQ(results, Results{0});
}

TEST_F(TestingTest, SetRdisc6)
{
    EXPECT_EQ(gorvanet_testing_reply_setRdisc6(service), 0);
    std::string longest(49, 'n');
    gorvaNet_sendReq_setRdisc6(client, take_nothing, nullptr, this, "service", longest.c_str());
    EXPECT_EQ(request().method, GORVANET_TESTING_SET_RDISC6);
    EXPECT_EQ(request().ifName, longest);
    EXPECT_EQ(results, Results{0});
}

TEST_F(TestingTest, GetIPv4Props)
{
    ipv4_properties properties = {.field4 = "answer"};
    EXPECT_EQ(gorvanet_testing_reply_getIPv4Props(service, &properties, 6), 0);
    properties = {}; // it was copied
    gorvaNet_sendReq_getIPv4Props(client, take_ipv4, nullptr, this, "service");
    EXPECT_EQ(request().method, GORVANET_TESTING_GET_IPV4_PROPS);
    EXPECT_EQ(results, Results{6});
    EXPECT_EQ(text, "answer");
}

TEST_F(TestingTest, GetIPv6Props)
{
    ipv6_properties properties = {.field7 = "answer"};
    EXPECT_EQ(gorvanet_testing_reply_getIPv6Props(service, &properties, 6), 0);
    properties = {};
    gorvaNet_sendReq_getIPv6Props(client, take_ipv6, nullptr, this, "service");
    EXPECT_EQ(request().method, GORVANET_TESTING_GET_IPV6_PROPS);
    EXPECT_EQ(results, Results{6});
    EXPECT_EQ(text, "answer");
}

TEST_F(TestingTest, SetIPv4Address)
{
    ipv4_address_return outcome = {8};
    EXPECT_EQ(gorvanet_testing_reply_setIPv4Address(service, &outcome), 0);
    outcome = {};
    ipv4_address address = {.field3 = 3, .field10 = "last"};
    gorvaNet_sendReq_setIPv4Address(client, take_outcome, nullptr, this, "service", &address);
    EXPECT_EQ(request().method, GORVANET_TESTING_SET_IPV4_ADDRESS);
    EXPECT_EQ(request().address.field3, 3u);
    EXPECT_STREQ(request().address.field10, "last");
    EXPECT_EQ(results, Results{8});
}

TEST_F(TestingTest, SetMtu)
{
    EXPECT_EQ(gorvanet_testing_reply_setMtu(service, 9), 0);
    ask_for_mtu(1400);
    EXPECT_EQ(request().method, GORVANET_TESTING_SET_MTU);
    EXPECT_EQ(request().mtu, 1400u);
    EXPECT_EQ(results, Results{9});
}

TEST_F(TestingTest, SetIPv6PrefixAndAddress)
{
    EXPECT_EQ(gorvanet_testing_reply_setIPv6PrefixAndAddress(service, 10), 0);
    ipv6_prefix_addr_conf_list list = {.field3 = 1, .confs = {}};
    strcpy(list.confs[0].address.field3, "2001:db8::1");
    gorvaNet_sendReq_setIPv6PrefixAndAddress(client, take_result, nullptr, this, "service", &list);
    EXPECT_EQ(request().method, GORVANET_TESTING_SET_IPV6_PREFIX_AND_ADDRESS);
    EXPECT_EQ(request().list.field3, 1u);
    EXPECT_STREQ(request().list.confs[0].address.field3, "2001:db8::1");
    EXPECT_EQ(results, Results{10});
}

TEST_F(TestingTest, AskStateRenotification)
{
    state_info info = {4, "info"};
    gorvaNet_sendReq_askStateRenotification(client, nullptr, "service", &info);
    EXPECT_EQ(request().method, GORVANET_TESTING_ASK_STATE_RENOTIFICATION);
    EXPECT_EQ(request().info.state, 4);
    EXPECT_STREQ(request().info.info, "info");
    EXPECT_EQ(gorvanet_testing_end(), 0u); // wants no answer
}

TEST_F(TestingTest, RegisterPrefixStatus)
{
    EXPECT_EQ(gorvanet_testing_reply_registerPrefixStatus(service, 11), 0);
    gorvaNet_sendReq_registerPrefixStatus(client, take_result, nullptr, this, "service", 1, this, 2);
    EXPECT_EQ(request().method, GORVANET_TESTING_REGISTER_PREFIX_STATUS);
    EXPECT_EQ(request().first, 1u);
    EXPECT_EQ(request().pointer, this);
    EXPECT_EQ(request().last, 2u);
    EXPECT_EQ(results, Results{11});
}

TEST_F(TestingTest, Configure)
{
    intfConf configuration = {.field5 = 5, .field7 = "seven"};
    gorvaNet_sendReq_configure(client, nullptr, "service", &configuration);
    EXPECT_EQ(request().method, GORVANET_TESTING_CONFIGURE);
    EXPECT_EQ(request().configuration.field5, 5u);
    EXPECT_STREQ(request().configuration.field7, "seven");
}

TEST_F(TestingTest, ConfigureAllIPv6Intf)
{
    gorvaNet_sendReq_configureAllIPv6Intf(client, nullptr, "service", 12);
    EXPECT_EQ(request().method, GORVANET_TESTING_CONFIGURE_ALL_IPV6_INTF);
    EXPECT_EQ(request().value, 12u);
}

// ---- Scripts --------------------------------------------------------------------------------------------------------

TEST_F(TestingTest, AnswersComeInTheirOrderForEachMethod)
{
    gorvanet_testing_reply_setMtu(service, 1);
    gorvanet_testing_reply_setOsIfc(service, 2);
    gorvanet_testing_reply_setMtu(service, 3);
    gorvaNet_sendReq_setOsIfc(client, take_result, nullptr, this, "service", "eth0");
    ask_for_mtu(1);
    ask_for_mtu(2);
    gorvanet_loopback_run();
    EXPECT_EQ(results, (Results{2, 1, 3}));
    EXPECT_EQ(gorvanet_testing_end(), 0u);
}

TEST_F(TestingTest, WithoutAScriptTheTestAnswers)
{
    ask_for_mtu(1);
    void *message = request().message;
    EXPECT_EQ(results, Results{});
    gorvaNet_sendRes_setMtu(message, 4);
    gorvanet_loopback_run();
    EXPECT_EQ(results, Results{4});
    EXPECT_EQ(gorvanet_testing_end(), 0u);
}

TEST_F(TestingTest, HeldAnswersComeWhenTheyAreReleased)
{
    gorvanet_testing_reply_setMtu(service, 1);
    gorvanet_testing_reply_setMtu(service, 2);
    gorvanet_testing_reply_setMtu(service, 3);
    EXPECT_EQ(gorvanet_testing_hold(service), 0);
    ask_for_mtu(1);
    ask_for_mtu(2);
    gorvanet_loopback_run();
    EXPECT_EQ(results, Results{});
    EXPECT_EQ(gorvanet_testing_release(service), 0);
    gorvanet_loopback_run();
    EXPECT_EQ(results, (Results{1, 2}));
    ask_for_mtu(3);
    gorvanet_loopback_run();
    EXPECT_EQ(results, (Results{1, 2, 3}));
}

TEST_F(TestingTest, TwoServicesHaveScriptsOfTheirOwn)
{
    void *other = gorvanet_testing_add_service("other");
    gorvanet_testing_reply_setMtu(service, 1);
    gorvanet_testing_reply_setMtu(other, 2);
    gorvaNet_sendReq_setMtu(client, take_result, nullptr, this, "other", 1400);
    gorvanet_loopback_run();
    EXPECT_EQ(results, Results{2});
    EXPECT_EQ(gorvanet_testing_received(service, 0), nullptr);
    EXPECT_NE(gorvanet_testing_received(other, 0), nullptr);
}

TEST_F(TestingTest, AMethodWithoutAHandlerIsNotHandled)
{
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setMtu(service, nullptr, nullptr, nullptr), 0);
    ask_for_mtu(1);
    gorvanet_loopback_run();
    EXPECT_EQ(gorvanet_testing_received(service, 0), nullptr);
    EXPECT_EQ(results, Results{});
    EXPECT_EQ(gorvanet_testing_end(), 0u);
}

TEST_F(TestingTest, WhatIsNoServiceIsRefused)
{
    ipv4_properties ipv4 = {};
    ipv6_properties ipv6 = {};
    ipv4_address_return outcome = {};
    for (void *user : {static_cast<void *>(nullptr), client}) {
        for (int32_t refused : {
                 gorvanet_testing_reply_setOsIfc(user, 0),
                 gorvanet_testing_reply_setDhcp(user),
                 gorvanet_testing_reply_setRdisc6(user),
                 gorvanet_testing_reply_getIPv4Props(user, &ipv4, 0),
                 gorvanet_testing_reply_getIPv6Props(user, &ipv6, 0),
                 gorvanet_testing_reply_setIPv4Address(user, &outcome),
                 gorvanet_testing_reply_setMtu(user, 0),
                 gorvanet_testing_reply_setIPv6PrefixAndAddress(user, 0),
                 gorvanet_testing_reply_registerPrefixStatus(user, 0),
                 gorvanet_testing_hold(user),
                 gorvanet_testing_release(user),
             })
            EXPECT_EQ(refused, GORVANET_LOOPBACK_UNKNOWN_USER);
        EXPECT_EQ(gorvanet_testing_received(user, 0), nullptr);
    }
}

TEST_F(TestingTest, AnAnswerWithoutItsRecordIsRefused)
{
    EXPECT_EQ(gorvanet_testing_reply_getIPv4Props(service, nullptr, 0), GORVANET_LOOPBACK_BAD_ARGUMENT);
    EXPECT_EQ(gorvanet_testing_reply_getIPv6Props(service, nullptr, 0), GORVANET_LOOPBACK_BAD_ARGUMENT);
    EXPECT_EQ(gorvanet_testing_reply_setIPv4Address(service, nullptr), GORVANET_LOOPBACK_BAD_ARGUMENT);
    EXPECT_EQ(gorvanet_testing_end(), 0u); // nothing was scripted
}

// ---- A test from beginning to end -----------------------------------------------------------------------------------

TEST_F(TestingTest, UsersNeedAStartedInterface)
{
    gorvanet_testing_begin();
    EXPECT_EQ(gorvanet_testing_add_user("user"), nullptr);
    EXPECT_EQ(gorvanet_testing_add_service("service"), nullptr);
    EXPECT_EQ(gorvanet_initialize(), 0u);
    EXPECT_NE(gorvanet_testing_add_user("user"), nullptr);
    EXPECT_EQ(gorvanet_testing_add_user("user"), nullptr);
}

TEST_F(TestingTest, AUserThatTheBusRefusesIsGone)
{
    gorvanet_loopback_fail(GORVANET_LOOPBACK_FAIL_ATTACH, 0, 1);
    EXPECT_EQ(gorvanet_testing_add_user("user"), nullptr);
    EXPECT_NE(gorvanet_testing_add_user("user"), nullptr);
    gorvanet_loopback_fail(GORVANET_LOOPBACK_FAIL_ACCEPT, 11, 1);
    EXPECT_EQ(gorvanet_testing_add_service("other"), nullptr);
    EXPECT_NE(gorvanet_testing_add_service("other"), nullptr);
    EXPECT_EQ(gorvanet_testing_end(), 0u);
}

TEST_F(TestingTest, LooseEndsAreCounted)
{
    EXPECT_EQ(gorvanet_testing_end(), 0u);

    EXPECT_EQ(gorvanet_initialize(), 0u);
    client = gorvanet_testing_add_user("client");
    service = gorvanet_testing_add_service("service");
    gorvanet_testing_reply_setMtu(service, 0); // asked for by none
    gorvanet_testing_reply_setOsIfc(service, 0);
    gorvanet_loopback_fail(GORVANET_LOOPBACK_FAIL_DETACH, 0, 1); // does not happen
    gorvaNet_sendReq_setDhcp(client, take_nothing, nullptr, this, "service", "eth0", 1);
    gorvanet_loopback_run();                                                             // stays unanswered
    gorvaNet_sendReq_setDhcp(client, take_nothing, nullptr, this, "service", "eth0", 1); // stays queued
    EXPECT_EQ(gorvanet_testing_end(), 5u);
    EXPECT_EQ(gorvanet_testing_end(), 0u);
}

TEST_F(TestingTest, ATestDoesNotEndInsideATurn)
{
    gorvanet_testing_reply_setMtu(service, 7);
    gorvanet_testing_reply_setMtu(service, 8);
    uint32_t loose_ends = 0;
    auto end = [](void *, void *data, uint32_t) { *static_cast<uint32_t *>(data) = gorvanet_testing_end(); };
    gorvaNet_sendReq_setMtu(client, end, nullptr, &loose_ends, "service", 1400);
    gorvanet_loopback_run();
    EXPECT_NE(loose_ends, 0u);
    ask_for_mtu(1500);
    gorvanet_loopback_run();
    EXPECT_EQ(results, std::vector<uint32_t>{8});
    EXPECT_EQ(gorvanet_testing_end(), 0u);
}

TEST_F(TestingTest, AFailureOfTheTearDownHappens)
{
    gorvanet_loopback_fail(GORVANET_LOOPBACK_FAIL_RELEASE, 0, 9);
    EXPECT_EQ(gorvanet_testing_end(), 0u);
    EXPECT_EQ(gorvanet_testing_logged("failed(9)"), 1u);
}

TEST_F(TestingTest, ANewTestKnowsNothingOfTheOneBefore)
{
    gorvanet_testing_reply_setMtu(service, 1);
    syslog(LOG_ERR, "before");
    ask_for_mtu(1);
    gorvanet_testing_begin();
    EXPECT_EQ(gorvanet_testing_logged(""), 0u);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
    EXPECT_EQ(gorvanet_testing_received(service, 0), nullptr);
    EXPECT_EQ(gorvanet_initialize(), 0u);
}

// ---- The log --------------------------------------------------------------------------------------------------------

[[gnu::format(printf, 2, 3)]] void log_by_list(bool fortified, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    if (fortified)
        __vsyslog_chk(LOG_ERR, 1, format, arguments);
    else
        vsyslog(LOG_ERR, format, arguments);
    va_end(arguments);
}

TEST_F(TestingTest, LinesAreCapturedWhicheverWayTheyCome)
{
    syslog(LOG_INFO, "line %d\n", 1);
    __syslog_chk(LOG_ERR, 1, "line %d", 2);
    log_by_list(false, "line %d", 3);
    log_by_list(true, "line %s", "4");
    ASSERT_NE(gorvanet_testing_log(3), nullptr);
    EXPECT_STREQ(gorvanet_testing_log(0)->text, "line 1");
    EXPECT_EQ(gorvanet_testing_log(0)->priority, LOG_INFO);
    EXPECT_STREQ(gorvanet_testing_log(1)->text, "line 2");
    EXPECT_EQ(gorvanet_testing_log(1)->priority, LOG_ERR);
    EXPECT_STREQ(gorvanet_testing_log(2)->text, "line 3");
    EXPECT_STREQ(gorvanet_testing_log(3)->text, "line 4");
    EXPECT_EQ(gorvanet_testing_log(4), nullptr);
    EXPECT_EQ(gorvanet_testing_logged(""), 4u);
    EXPECT_EQ(gorvanet_testing_logged("4"), 1u);
    EXPECT_EQ(gorvanet_testing_logged("line 5"), 0u);
    EXPECT_EQ(gorvanet_testing_logged(nullptr), 0u);
}

TEST_F(TestingTest, TheLibraryLogsHere)
{
    EXPECT_EQ(gorvanet_initialize(), 3u); // it is started already
    ASSERT_EQ(gorvanet_testing_logged(""), 2u);
    EXPECT_EQ(gorvanet_testing_logged("[GORVANET] -> gorvaNet_addBase("), 1u);
    EXPECT_EQ(gorvanet_testing_logged("Add Base failed(3)"), 1u);
}

} // namespace
