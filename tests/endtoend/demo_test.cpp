// The demo tells what happens, not what it was written to tell: other handlers give another transcript, and sizes are
// those of the bytes.

#include "client.h"
#include "screen.h"
#include "service.h"
#include "support/log.h"
#include "watch.h"

#include <gtest/gtest.h>

namespace {

struct Telling {
    std::string transcript;
    demo::Watch watch;
    bool as_expected;
};

// Uses the whole interface, after `change` has had its way with the service.
Telling tell_with(void (*change)(demo::Service &))
{
    Telling telling{.transcript = {}, .watch = {.shows_bytes = false}, .as_expected = false};
    demo::observe(telling.watch);
    testing::internal::CaptureStdout();
    demo::Service service = {.user = gorvanet_loopback_add_user("service")};
    demo::Client client = {.user = gorvanet_loopback_add_user("client"), .carry = [] { gorvanet_loopback_run(); }};
    EXPECT_EQ(gorvanet_initialize(), 0U);
    EXPECT_TRUE(demo::start(service));
    EXPECT_TRUE(demo::start(client));
    change(service);
    demo::choose_interface(client);
    demo::use_everything(client);
    telling.transcript = testing::internal::GetCapturedStdout();
    telling.as_expected = client.as_expected;
    EXPECT_EQ(gorvanet_loopback_tear_down(), 0);
    gorvanet_loopback_observe(nullptr, nullptr);
    return telling;
}

void change_nothing(demo::Service &)
{
}

void refuse_mtu(void *message, void *, uint32_t)
{
    gorvaNet_sendRes_setMtu(message, 77);
}

void change_mtu(demo::Service &service)
{
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setMtu(service.user, refuse_mtu, &service, nullptr), 0);
}

bool contains(const std::string &text, const std::string &part)
{
    return text.find(part) != std::string::npos;
}

TEST(Demo, TellsWhatTheHandlersDo)
{
    Telling usual = tell_with(change_nothing);
    EXPECT_TRUE(usual.as_expected);
    EXPECT_TRUE(contains(usual.transcript, "MTU 1400, was 1500"));
    EXPECT_FALSE(contains(usual.transcript, "result 77"));

    Telling changed = tell_with(change_mtu);
    EXPECT_FALSE(changed.as_expected);
    EXPECT_FALSE(contains(changed.transcript, "MTU 1400, was 1500"));
    EXPECT_TRUE(contains(changed.transcript, "result 77"));
    EXPECT_TRUE(contains(changed.transcript, "MTU 1500, name server")); // what GetIPv4Props reads then
}

TEST(Demo, SizesAreThoseOfTheBytes)
{
    struct Size {
        const char *method;
        uint32_t request;
        uint32_t response;
    };
    // Worked out by hand: 24 for the prologue, 12 for a number, n + 13 - ((n + 1) & 3) for a text of n characters.
    const Size expected[] = {
        {"SetOsIfc", 24 + 16, 24 + 12},
        {"SetDhcp", 24 + 16 + 12, 24},
        {"SetRdisc6", 24 + 16, 24},
        {"SetMtu", 24 + 12, 24 + 12},
        {"SetIPv4Address", 24 + 3 * 12 + 12 + 20 + 24 + 24 + 12, 24 + 12},
        {"SetIPv6PrefixAndAddress", 24 + 12 + 2 * ((16 + 12) + (24 + 7 * 12 + 12 + 12) + (24 + 4 * 12)), 24 + 12},
        {"GetIPv4Props", 24, 24 + (12 + 16 + 12 + 12 + 20 + 24 + 24 + 12 + 12 + 12) + (20 + 24) + (24 + 24) + 12},
        {"GetIPv6Props", 24,
         24 + 4 * 12 + (16 + 12 + 12) + 12 + 12 + 12 + 2 * (24 + 4 * 12) + 12 + 12 + 2 * (24 + 7 * 12 + 12 + 12) + 12 +
             12},
        {"Configure", 24 + 3 * 12 + 16 + 12, 0},
        {"ConfigureAllIPv6Intf", 24 + 12, 0},
        {"RegisterPrefixStatus", 24 + 12 + 24 + 12, 24 + 12},
        {"AskStateRenotification", 24 + 12 + 28, 0},
        {"PrefixStatus", 24 + 28 + 12 + 2 * (24 + 7 * 12 + 12 + 12), 0},
    };
    Telling telling = tell_with(change_nothing);
    ASSERT_EQ(telling.watch.travelled.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); i++) {
        const demo::Travelled &entry = telling.watch.travelled[i];
        EXPECT_EQ(entry.method, expected[i].method);
        EXPECT_EQ(entry.request_size, expected[i].request) << entry.method;
        EXPECT_EQ(entry.response_size, expected[i].response) << entry.method;
        EXPECT_EQ(entry.damaged, 0U) << entry.method;
        EXPECT_TRUE(contains(telling.transcript, std::string(expected[i].method) + " request, " +
                                                     std::to_string(expected[i].request) + " bytes"));
    }
}

} // namespace
