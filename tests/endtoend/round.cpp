#include "round.h"

#include "bus.h"
#include "support/log.h"
#include "support/memory.h"

#include <cstring>

Round *now;

namespace {

template <typename Record> bool same(const Record *left, const Record &right)
{
    return std::memcmp(left, &right, sizeof right) == 0;
}

void count_request(void *data, bool intact)
{
    EXPECT_EQ(data, static_cast<void *>(&now));
    EXPECT_TRUE(intact);
    now->requests++;
}

void count_answer(void *user_data, bool intact)
{
    EXPECT_EQ(user_data, static_cast<void *>(now));
    EXPECT_TRUE(intact);
    now->answers++;
}

// The service

void serve_set_os_ifc(void *message, void *data, const char *name)
{
    count_request(data, now->name == name);
    gorvaNet_sendRes_setOsIfc(message, now->result);
}

void serve_set_dhcp(void *message, void *data, const char *name, uint32_t dhcp)
{
    count_request(data, now->name == name && dhcp == now->first);
    gorvaNet_sendRes_setDhcp(message);
}

void serve_set_rdisc6(void *message, void *data, const char *name)
{
    count_request(data, now->name == name);
    gorvaNet_sendRes_setRdisc6(message);
}

void serve_get_ipv4_props(void *message, void *data)
{
    count_request(data, true);
    gorvaNet_sendRes_getIPv4Props(message, &now->ipv4, now->result);
}

void serve_get_ipv6_props(void *message, void *data)
{
    count_request(data, true);
    gorvaNet_sendRes_getIPv6Props(message, &now->ipv6, now->result);
}

void serve_set_ipv4_address(void *message, void *data, const ipv4_address *address)
{
    count_request(data, same(address, now->address));
    gorvaNet_sendRes_setIPv4Address(message, &now->outcome);
}

void serve_set_mtu(void *message, void *data, uint32_t mtu)
{
    count_request(data, mtu == now->first);
    gorvaNet_sendRes_setMtu(message, now->result);
}

void serve_set_ipv6_prefix_and_address(void *message, void *data, const ipv6_prefix_addr_conf_list *list)
{
    count_request(data, same(list, now->list));
    gorvaNet_sendRes_setIPv6PrefixAndAddress(message, now->result);
}

void serve_ask_state_renotification(void *, void *data, const state_info *info)
{
    count_request(data, same(info, now->state));
}

void serve_register_prefix_status(void *message, void *data, uint32_t first, void *pointer, uint32_t last)
{
    count_request(data, first == now->first && pointer == now->pointer && last == now->last);
    gorvaNet_sendRes_registerPrefixStatus(message, now->result);
}

void serve_configure(void *, void *data, const intfConf *configuration)
{
    count_request(data, same(configuration, now->configuration));
}

void serve_configure_all(void *, void *data, uint32_t value)
{
    count_request(data, value == now->first);
}

// The client

void on_result(void *, void *user_data, uint32_t result)
{
    count_answer(user_data, result == now->result);
}

void on_done(void *, void *user_data)
{
    count_answer(user_data, true);
}

void on_ipv4_props(void *, void *user_data, const ipv4_properties *properties, uint32_t result)
{
    count_answer(user_data, same(properties, now->ipv4) && result == now->result);
}

void on_ipv6_props(void *, void *user_data, const ipv6_properties *properties, uint32_t result)
{
    count_answer(user_data, same(properties, now->ipv6) && result == now->result);
}

void on_outcome(void *, void *user_data, const ipv4_address_return *outcome)
{
    count_answer(user_data, same(outcome, now->outcome));
}

void on_prefix_status(void *, void *data, const char *name, const ipv6_prefixes *prefixes)
{
    EXPECT_EQ(data, static_cast<void *>(&now));
    EXPECT_EQ(name, now->name);
    EXPECT_TRUE(same(prefixes, now->prefixes));
    now->notifications++;
}

} // namespace

Round random_round(RandomContent &content)
{
    char name[50] = {};
    content.text(name, sizeof name);
    return {
        .name = name,
        .first = content.number(),
        .last = content.number(),
        .pointer = reinterpret_cast<void *>(uintptr_t{content.number()}),
        .result = content.number(),
        .state = content.make_state_info(),
        .configuration = content.make_intf_conf(),
        .address = content.make_ipv4_address(),
        .outcome = {content.number()},
        .list = content.make_ipv6_prefix_addr_conf_list(),
        .ipv4 = content.make_ipv4_properties(),
        .ipv6 = content.make_ipv6_properties(),
        .prefixes = content.make_ipv6_prefixes(),
    };
}

const Trip trips[methods] = {
    {"SetOsIfc", 4,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_setOsIfc(client, on_result, nullptr, &round, "service", round.name.c_str());
     }},
    {"SetDhcp", 4,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_setDhcp(client, on_done, nullptr, &round, "service", round.name.c_str(), round.first);
     }},
    {"SetRdisc6", 4,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_setRdisc6(client, on_done, nullptr, &round, "service", round.name.c_str());
     }},
    {"GetIPv4Props", 4,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_getIPv4Props(client, on_ipv4_props, nullptr, &round, "service");
     }},
    {"GetIPv6Props", 4,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_getIPv6Props(client, on_ipv6_props, nullptr, &round, "service");
     }},
    {"SetIPv4Address", 4,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_setIPv4Address(client, on_outcome, nullptr, &round, "service", &round.address);
     }},
    {"SetMtu", 4,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_setMtu(client, on_result, nullptr, &round, "service", round.first);
     }},
    {"SetIPv6PrefixAndAddress", 4,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_setIPv6PrefixAndAddress(client, on_result, nullptr, &round, "service", &round.list);
     }},
    {"AskStateRenotification", 2,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_askStateRenotification(client, &round, "service", &round.state);
     }},
    {"RegisterPrefixStatus", 4,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_registerPrefixStatus(client, on_result, nullptr, &round, "service", round.first,
                                               round.pointer, round.last);
     }},
    {"Configure", 2,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_configure(client, &round, "service", &round.configuration);
     }},
    {"ConfigureAllIPv6Intf", 2,
     [](void *client, void *, Round &round) {
         gorvaNet_sendReq_configureAllIPv6Intf(client, &round, "service", round.first);
     }},
    {"PrefixStatus", 2,
     [](void *, void *service, Round &round) {
         gorvaNet_sendReq_ntfyPrefixStatus(service, nullptr, nullptr, round.name.c_str(), &round.prefixes);
     }},
};

void EndToEnd::SetUp()
{
    service = add_bus_user("service");
    client = add_bus_user("client");
    ASSERT_EQ(gorvanet_initialize(), 0U);
    for (void *user : {service, client})
        ASSERT_EQ(gorvaNet_regUser_msgMngt(user, nullptr, nullptr, GORVANET_SELECT_BOTH), 0U);
    serve_everything();
    take_log();
    reset_memory();
}

void EndToEnd::TearDown()
{
    EXPECT_EQ(tear_bus_down(), 0);
    EXPECT_EQ(gorvaNet_base.state, GORVANET_STATE_BASE_WAIT_INIT);
    EXPECT_EQ(take_log(), LogLines{});
    EXPECT_TRUE(live_blocks().empty());
}

void EndToEnd::serve_everything()
{
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(service, serve_set_os_ifc, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setDhcp(service, serve_set_dhcp, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setRdisc6(service, serve_set_rdisc6, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_getIPv4Props(service, serve_get_ipv4_props, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_getIPv6Props(service, serve_get_ipv6_props, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setIPv4Address(service, serve_set_ipv4_address, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_setMtu(service, serve_set_mtu, &now, nullptr), 0);
    EXPECT_EQ(
        gorvaNet_modSrv_recvMsg_setIPv6PrefixAndAddress(service, serve_set_ipv6_prefix_and_address, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_askStateRenotification(service, serve_ask_state_renotification, &now, nullptr),
              0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_registerPrefixStatus(service, serve_register_prefix_status, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_configure(service, serve_configure, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modSrv_recvMsg_configureAllIPv6Intf(service, serve_configure_all, &now, nullptr), 0);
    EXPECT_EQ(gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client, on_prefix_status, &now, nullptr, "bus", "service"),
              0U);
}

void EndToEnd::send_everything(Round &round)
{
    for (const Trip &trip : trips)
        trip.send(client, service, round);
}
