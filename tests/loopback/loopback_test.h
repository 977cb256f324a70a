// What the tests of the loopback host share: recorded events and log lines, a ledger of every body, two users on the
// bus, and an interface made by hand.

#ifndef LOOPBACK_TEST_H
#define LOOPBACK_TEST_H

#include "gorvanet.h"
#include "gorvanet_loopback.h"
#include "middleware.h"

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

// An event that outlives the observer's call.
struct Seen {
    gorvanet_loopback_kind kind;
    uint32_t message;
    std::string method, sender, receiver;
    uint32_t direction;
    std::string bytes;
    uint32_t status;
    std::string text;
};

// Every body that an encoder or a decoder of SetOsIfc has seen, until freeBody ends it. The words in the rows are
// redirected here before the library registers, which also shows that the host reaches the callbacks through them.
struct Ledger {
    std::map<const void *, uint32_t> open; // body, type
    uint32_t encoded[2], decoded[2], freed[2];
    uint32_t freed_unseen; // bodies that never came to the encoder
    uint32_t freed_wrong_type;
    uint32_t encode_status; // not 0: the encoder refuses
    int32_t decode_status;  // not 0: the decoder refuses
    bool gives_nothing;     // the encoder reports success and gives no bytes
};

class LoopbackTest : public testing::Test {
public:
    LoopbackTest();
    ~LoopbackTest() override;

    // Adds and attaches two users on a started interface.
    void start();
    // Lets the service answer SetOsIfc with its result, from the handler or, when `defers`, when answer_deferred says.
    void serve(bool defers = false);
    void answer_deferred();
    uint32_t send(const char *server = "service", const char *ifName = "eth0");

    static std::vector<gorvanet_loopback_kind> kinds();
    static uint32_t count(gorvanet_loopback_kind kind);
    // The only event of this kind; a failure if there is another number of them.
    static Seen only(gorvanet_loopback_kind kind);

    // There is one misuse report, and it says this; then all that was seen is forgotten.
    void expect_misuse(const std::string &part) const;

    // Bodies of SetOsIfc, for calls of the middleware without the library.
    static void *new_request();
    static void *new_response();

    // Fails if running the action again and again takes memory that does not come back.
    void expect_no_growth(uint32_t times, const std::function<void()> &action);

    void *service = nullptr;
    void *client = nullptr;

    // The service's side.
    static void handler(void *message, void *data, const char *ifName);
    std::vector<std::string> handled;
    std::vector<void *> deferred;
    bool defers_answers = false;
    uint32_t result = 42;

    // The client's side.
    static void callback(void *context, void *user_data, uint32_t result);
    std::vector<uint32_t> results;
    std::function<void(void *context)> in_callback;
    std::function<void(void *message)> in_handler;

private:
    gorvaNet_descriptor saved_;
};

extern std::vector<Seen> seen;
extern bool records_events;
extern std::vector<std::string> log_lines;
extern Ledger ledger;

// An interface "TestNet" with one command and one notification, both called by the same four callbacks. A body is a
// letter; its encoding is that letter. The rows follow their block as they do in the library's descriptor.
struct TestInterface {
    gorvaNet_interface cmd;
    gorvaNet_method cmd_rows[1];
    gorvaNet_interface ntfy;
    gorvaNet_method ntfy_rows[1];

    TestInterface();
    ~TestInterface();
    void attach(void *user) const;
};

struct Letter {
    uint32_t magic;
    uint16_t flag;
    char letter;
};

Letter *new_letter(char letter);
extern uint32_t open_letters; // allocated and not freed yet

#endif
