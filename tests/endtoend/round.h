// All thirteen methods over a host: a service and a client that check what arrives, and the same whatever is
// sent.

#ifndef GORVANET_TESTS_ENDTOEND_ROUND_H
#define GORVANET_TESTS_ENDTOEND_ROUND_H

#include "random_record.h"

#include <gtest/gtest.h>
#include <string>

// One round: what the client sends, what the service answers, and how many of both have arrived intact.
struct Round {
    std::string name;
    uint32_t first;
    uint32_t last;
    void *pointer;
    uint32_t result;
    state_info state;
    intfConf configuration;
    ipv4_address address;
    ipv4_address_return outcome;
    ipv6_prefix_addr_conf_list list;
    ipv4_properties ipv4;
    ipv6_properties ipv6;
    ipv6_prefixes prefixes;

    unsigned requests = 0;
    unsigned answers = 0;
    unsigned notifications = 0;
};

Round random_round(RandomContent &content);

// The round that is on its way. Handlers and callbacks get it as their data too, and check that they do.
extern Round *now;

// A method on its way there and back.
struct Trip {
    const char *name;
    unsigned bodies; // sent and decoded, there and back
    void (*send)(void *client, void *service, Round &round);
};

constexpr size_t methods = 13;
extern const Trip trips[methods];

// A service that serves everything and a client. Whatever they do, nothing is left behind and nothing is logged.
class EndToEnd : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    void serve_everything();

    // Sends each method once.
    void send_everything(Round &round);

    void *service = nullptr;
    void *client = nullptr;
};

#endif
