// The observer watches. What it calls in the host must not pull the ground from under the report it is called with.

#include "loopback_test.h"

namespace {

// Calls `act` on the first event of a kind, and counts all events.
class ObserverTest : public LoopbackTest {
protected:
    // The observer ends with this object; the base tears the host down behind it.
    ~ObserverTest() override
    {
        gorvanet_loopback_observe([](void *, const gorvanet_loopback_event *) {}, nullptr);
    }

    void act_on(gorvanet_loopback_kind kind, std::function<void()> action)
    {
        kind_ = kind;
        act_ = std::move(action);
        gorvanet_loopback_observe(observe, this);
    }

    // What the action, called by the observer, writes to stderr while `run` runs.
    static std::string said_by(const std::function<void()> &run)
    {
        testing::internal::CaptureStderr();
        run();
        return testing::internal::GetCapturedStderr();
    }

    static std::string refusal(const std::string &function)
    {
        return "loopback: misuse: " + function + ": called from inside the observer\n";
    }

    uint32_t events = 0;
    uint32_t acted = 0;

private:
    static void observe(void *data, const gorvanet_loopback_event *event)
    {
        auto *test = static_cast<ObserverTest *>(data);
        ASSERT_LT(++test->events, 100u) << "the observer is called by what it calls";
        if (event->kind != test->kind_)
            return;
        test->acted++;
        test->act_();
    }

    gorvanet_loopback_kind kind_;
    std::function<void()> act_;
};

TEST_F(ObserverTest, CannotRunOrEndTheLoop)
{
    start();
    serve();
    act_on(GORVANET_LOOPBACK_SENT, [] {
        EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_BUSY);
        EXPECT_EQ(gorvanet_loopback_turn(), GORVANET_LOOPBACK_BUSY);
        EXPECT_EQ(gorvanet_loopback_tear_down(), GORVANET_LOOPBACK_BUSY);
    });
    std::string said = said_by([&] { send(); });
    EXPECT_EQ(said, refusal("gorvanet_loopback_run") + refusal("gorvanet_loopback_turn") +
                        refusal("gorvanet_loopback_tear_down"));
    EXPECT_EQ(acted, 1u);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 1u);
    gorvanet_loopback_run();
    EXPECT_EQ(results, std::vector<uint32_t>{42});
}

TEST_F(ObserverTest, CannotChangeTheUsers)
{
    start();
    serve(true);
    send();
    send();
    gorvanet_loopback_run();
    act_on(GORVANET_LOOPBACK_UNDELIVERABLE, [&] {
        EXPECT_EQ(gorvanet_loopback_add_user("another"), nullptr);
        EXPECT_EQ(gorvanet_loopback_remove_user(client), GORVANET_LOOPBACK_BUSY);
    });
    std::string said = said_by([&] { EXPECT_EQ(gorvanet_loopback_remove_user(client), 0); });
    std::string once = refusal("gorvanet_loopback_add_user") + refusal("gorvanet_loopback_remove_user");
    EXPECT_EQ(said, once + once);
    EXPECT_EQ(acted, 2u);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
}

// In the middle of a delivery: the handler that was accepted is about to be called.
TEST_F(ObserverTest, CannotChangeTheInterfaces)
{
    start();
    serve();
    send();
    act_on(GORVANET_LOOPBACK_DELIVERED, [&] {
        MessageManagement *block = nullptr;
        EXPECT_EQ(zebCore_getBase_msgMngt("OtherNet", &block, 1), GORVANET_NUM_NONE);
        EXPECT_EQ(zebCore_putBase_msgMngt(gorvaNet_getCmdIntfNum(), 0), GORVANET_LOOPBACK_BUSY);
        EXPECT_EQ(gorvanet_loopback_withdraw(gorvaNet_getCmdIntfNum()), GORVANET_LOOPBACK_BUSY);
        EXPECT_EQ(gorvaNet_regUser_msgMngt(client, nullptr, nullptr, GORVANET_SELECT_CMD),
                  uint32_t{GORVANET_LOOPBACK_BUSY});
        EXPECT_EQ(gorvaNet_unregUser_msgMngt(service, GORVANET_SELECT_CMD), GORVANET_LOOPBACK_BUSY);
        EXPECT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(service, nullptr, nullptr, nullptr), GORVANET_LOOPBACK_BUSY);
        EXPECT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, nullptr, nullptr, nullptr, "bus", "service"),
                  uint32_t{GORVANET_LOOPBACK_BUSY});
    });
    std::string said = said_by([] { gorvanet_loopback_turn(); });
    EXPECT_EQ(said, refusal("zebCore_getBase_msgMngt") + refusal("zebCore_putBase_msgMngt") +
                        refusal("gorvanet_loopback_withdraw") + refusal("zebIntf_regUser_msgMngt") +
                        refusal("zebIntf_unregUser_msgMngt") + refusal("zebIntf_modSrv_mthd") +
                        refusal("zebIntf_modCliNtfyUser_mthd"));
    EXPECT_EQ(handled.size(), 1u);
}

TEST_F(ObserverTest, CannotSendAndTheBodiesAreFreed)
{
    start();
    ipv6_prefixes prefixes = {};
    act_on(GORVANET_LOOPBACK_SENT, [&] {
        EXPECT_EQ(send(), 0u);
        gorvaNet_sendReq_ntfyPrefixStatus(service, nullptr, nullptr, "lan", &prefixes);
    });
    std::string said = said_by([&] { send(); });
    EXPECT_EQ(said, refusal("zebCore_sendMsgReq_toNameUser") + refusal("zebIntf_sendReq_ntfy"));
    EXPECT_EQ(events, 1u);
    EXPECT_EQ(ledger.freed[0], 2u);
    EXPECT_EQ(gorvanet_loopback_open_messages(), 1u);
}

TEST_F(ObserverTest, CannotAnswerAndTheBodyIsFreed)
{
    start();
    serve(true);
    send();
    gorvanet_loopback_run();
    act_on(GORVANET_LOOPBACK_SENT, [&] { gorvaNet_sendRes_setOsIfc(deferred[0], 1); });
    std::string said = said_by([&] { send(); });
    EXPECT_NE(said.find("cannot be answered from inside the observer"), std::string::npos) << said;
    EXPECT_EQ(ledger.freed[1], 1u);
    answer_deferred();
    gorvanet_loopback_turn();
    gorvanet_loopback_turn();
    EXPECT_EQ(results, std::vector<uint32_t>{42}) << "the message stayed open";
}

TEST_F(ObserverTest, MayStopPostAndHandOver)
{
    start();
    serve();
    send();
    static bool posted;
    posted = false;
    act_on(GORVANET_LOOPBACK_DELIVERED, [&] {
        gorvanet_loopback_stop();
        EXPECT_EQ(gorvanet_loopback_post([](void *) { posted = true; }, nullptr), 0);
        gorvanet_loopback_observe(nullptr, nullptr);
    });
    std::string said = said_by([] { EXPECT_EQ(gorvanet_loopback_run(), GORVANET_LOOPBACK_STOPPED); });
    EXPECT_EQ(said, "");
    EXPECT_EQ(handled.size(), 1u);
    gorvanet_loopback_run();
    EXPECT_TRUE(posted);
    EXPECT_EQ(acted, 1u);
    EXPECT_EQ(results.size(), 1u);
}

} // namespace
