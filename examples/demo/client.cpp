#include "client.h"

#include "screen.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace demo {

namespace {

constexpr const char *server = "service";
constexpr size_t longest_name = 49; // a longer one is cut by the library

constexpr uint32_t mtu = 1400;

ipv6_prefix_addr_conf make_conf(const char *prefix, const char *address)
{
    ipv6_prefix_addr_conf conf = {};
    strncpy(conf.config.field3, "static", sizeof conf.config.field3 - 1);
    strncpy(conf.config.prefix.field3, prefix, sizeof conf.config.prefix.field3 - 1);
    conf.config.prefix.field4 = 64;
    strncpy(conf.address.field3, address, sizeof conf.address.field3 - 1);
    return conf;
}

// ---- What comes back ------------------------------------------------------------------------------------------------

void took(Client &client, bool as_expected, const std::string &text)
{
    client.as_expected &= as_expected;
    step(client.name, text);
}

void answered(void *user_data, bool as_expected, const std::string &text)
{
    auto &client = *static_cast<Client *>(user_data);
    client.answers++;
    took(client, as_expected, text);
}

void on_done(void *, void *user_data)
{
    answered(user_data, true, "is told that it is done");
}

void on_result_0(void *, void *user_data, uint32_t result)
{
    answered(user_data, result == 0, "gets result " + std::to_string(result));
}

void on_result_1(void *, void *user_data, uint32_t result)
{
    answered(user_data, result == 1, "gets result " + std::to_string(result) + ": the first registration");
}

void on_result_2(void *, void *user_data, uint32_t result)
{
    answered(user_data, result == 2, "gets result " + std::to_string(result) + ": that many prefixes are set");
}

void on_outcome(void *, void *user_data, const ipv4_address_return *outcome)
{
    answered(user_data, outcome->result == 0, "gets outcome " + std::to_string(outcome->result));
}

void on_ipv4_props(void *, void *user_data, const ipv4_properties *properties, uint32_t result)
{
    bool as_expected = result == 0 && properties->field6 == mtu && properties->infoCount == 2 &&
                       strcmp(properties->field7, "192.0.2.1") == 0;
    answered(user_data, as_expected,
             "reads \"" + std::string(properties->field4) + "\", " + properties->field7 + ", MTU " +
                 std::to_string(properties->field6) + ", " + properties->infos[0].field4 + " " +
                 properties->infos[0].field3 + ", " + properties->infos[1].field4 + " " + properties->infos[1].field3);
}

void on_ipv6_props(void *, void *user_data, const ipv6_properties *properties, uint32_t result)
{
    bool as_expected = result == 0 && properties->field14 == 2 && properties->field17 == 2 &&
                       strcmp(properties->field15[1].field3, "2001:db8:2::1") == 0;
    answered(user_data, as_expected,
             "reads " + std::to_string(properties->field14) + " addresses, " + properties->field15[0].field3 + " and " +
                 properties->field15[1].field3);
}

void on_prefix_status(void *, void *data, const char *name, const ipv6_prefixes *prefixes)
{
    auto &client = *static_cast<Client *>(data);
    client.notifications++;
    took(client, prefixes->field3 == 2 && strcmp(name, "once more, please") == 0,
         "is notified of \"" + std::string(name) + "\": " + prefixes->prefixes[0].field3 + " and " +
             prefixes->prefixes[1].field3);
}

// ---- What goes out --------------------------------------------------------------------------------------------------

void sends(const std::string &text)
{
    step("client", "sends " + text);
}

void deliver(const Client &client)
{
    client.carry();
    printf("\n");
}

void set_addresses(Client &client)
{
    ipv4_address address = {.field3 = 1, .field7 = "192.0.2.1", .field8 = "255.255.255.0", .field9 = "192.0.2.254"};
    sends("SetIPv4Address 192.0.2.1");
    gorvaNet_sendReq_setIPv4Address(client.user, on_outcome, nullptr, &client, server, &address);
    deliver(client);

    ipv6_prefix_addr_conf_list list = {};
    list.field3 = 2;
    list.confs[0] = make_conf("2001:db8:1::", "2001:db8:1::1");
    list.confs[1] = make_conf("2001:db8:2::", "2001:db8:2::1");
    sends("SetIPv6PrefixAndAddress, two of them");
    gorvaNet_sendReq_setIPv6PrefixAndAddress(client.user, on_result_2, nullptr, &client, server, &list);
    deliver(client);
}

void set_up(Client &client)
{
    const char *name = client.interface.c_str();
    sends("SetDhcp \"" + client.interface + "\", 1");
    gorvaNet_sendReq_setDhcp(client.user, on_done, nullptr, &client, server, name, 1);
    deliver(client);
    sends("SetRdisc6 \"" + client.interface + "\"");
    gorvaNet_sendReq_setRdisc6(client.user, on_done, nullptr, &client, server, name);
    deliver(client);
    sends("SetMtu " + std::to_string(mtu));
    gorvaNet_sendReq_setMtu(client.user, on_result_0, nullptr, &client, server, mtu);
    deliver(client);
}

void read_back(Client &client)
{
    sends("GetIPv4Props");
    gorvaNet_sendReq_getIPv4Props(client.user, on_ipv4_props, nullptr, &client, server);
    deliver(client);
    sends("GetIPv6Props");
    gorvaNet_sendReq_getIPv6Props(client.user, on_ipv6_props, nullptr, &client, server);
    deliver(client);
}

void configure(Client &client)
{
    intfConf configuration = {.field3 = 7, .field4 = 0, .field5 = 0, .field6 = "office", .field7 = ""};
    sends("Configure, one way");
    gorvaNet_sendReq_configure(client.user, nullptr, server, &configuration);
    deliver(client);
    sends("ConfigureAllIPv6Intf 1, one way");
    gorvaNet_sendReq_configureAllIPv6Intf(client.user, nullptr, server, 1);
    deliver(client);
}

void listen(Client &client)
{
    sends("RegisterPrefixStatus");
    gorvaNet_sendReq_registerPrefixStatus(client.user, on_result_1, nullptr, &client, server, 1,
                                          reinterpret_cast<void *>(0x1000), 2);
    deliver(client);
    state_info info = {.state = 3, .info = "once more, please"};
    sends("AskStateRenotification, one way; a notification follows");
    gorvaNet_sendReq_askStateRenotification(client.user, nullptr, server, &info);
    deliver(client);
}

} // namespace

bool attach(const Client &client)
{
    return gorvaNet_regUser_msgMngt(client.user, nullptr, nullptr, GORVANET_SELECT_BOTH) == 0;
}

bool start(Client &client)
{
    return attach(client) && gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(client.user, on_prefix_status, &client,
                                                                          nullptr, "bus", server) == 0;
}

void choose_interface(Client &client)
{
    sends("SetOsIfc \"" + client.interface + "\"");
    gorvaNet_sendReq_setOsIfc(client.user, on_result_0, nullptr, &client, server, client.interface.c_str());
    deliver(client);
    client.interface.resize(std::min(client.interface.size(), longest_name));
}

void use_everything(Client &client)
{
    set_up(client);
    set_addresses(client);
    read_back(client);
    configure(client);
    listen(client);
}

void fail_on_purpose(Client &client)
{
    sends("SetMtu without a server name: the library refuses it and logs it");
    gorvaNet_sendReq_setMtu(client.user, on_result_0, nullptr, &client, nullptr, mtu);
    deliver(client);
    sends("SetMtu to a user that is not on the bus");
    gorvaNet_sendReq_setMtu(client.user, on_result_0, nullptr, &client, "nobody", mtu);
    deliver(client);
    sends("SetMtu to a user that does not serve it, the client itself");
    gorvaNet_sendReq_setMtu(client.user, on_result_0, nullptr, &client, "client", mtu);
    deliver(client);
}

} // namespace demo
