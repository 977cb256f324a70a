#include "service.h"

#include "gorvanet_testing.h"

#include <cstring>
#include <deque>
#include <functional>
#include <map>
#include <utility>

namespace {

using Request = gorvanet_testing_request;
using Answer = std::function<void(void *message)>;

struct Service {
    std::deque<Request> requests;
    std::map<gorvanet_testing_method, std::deque<Answer>> scripts;
    bool holds;
    std::deque<std::function<void()>> held;
};

// By their users. Made on first use and never ended.
std::map<void *, Service> &services()
{
    static auto &table = *new std::map<void *, Service>;
    return table;
}

Service *find_service(void *user)
{
    auto found = services().find(user);
    return found == services().end() ? nullptr : &found->second;
}

int32_t script(void *user, gorvanet_testing_method method, Answer answer)
{
    Service *service = find_service(user);
    if (!service)
        return GORVANET_LOOPBACK_UNKNOWN_USER;
    service->scripts[method].push_back(std::move(answer));
    return 0;
}

// ---- Requests -------------------------------------------------------------------------------------------------------

Request new_request(gorvanet_testing_method method, void *message)
{
    Request request = {};
    request.method = method;
    request.message = message;
    return request;
}

// Keeps the request and gives its answer, where there is one. `data` is what the handler was accepted with.
void take(void *data, const Request &request)
{
    Service &service = *static_cast<Service *>(data);
    service.requests.push_back(request);
    std::deque<Answer> &answers = service.scripts[request.method];
    if (answers.empty())
        return;
    auto reply = [answer = std::move(answers.front()), message = request.message] { answer(message); };
    answers.pop_front();
    if (service.holds)
        service.held.push_back(std::move(reply));
    else
        reply();
}

void take_if_name(void *data, Request request, const char *ifName)
{
    strncpy(request.ifName, ifName, sizeof request.ifName - 1);
    take(data, request);
}

void on_set_os_ifc(void *message, void *data, const char *ifName)
{
    take_if_name(data, new_request(GORVANET_TESTING_SET_OS_IFC, message), ifName);
}

void on_set_dhcp(void *message, void *data, const char *ifName, uint32_t dhcp)
{
    Request request = new_request(GORVANET_TESTING_SET_DHCP, message);
    request.dhcp = dhcp;
    take_if_name(data, request, ifName);
}

void on_set_rdisc6(void *message, void *data, const char *ifName)
{
    take_if_name(data, new_request(GORVANET_TESTING_SET_RDISC6, message), ifName);
}

void on_get_ipv4_props(void *message, void *data)
{
    take(data, new_request(GORVANET_TESTING_GET_IPV4_PROPS, message));
}

void on_get_ipv6_props(void *message, void *data)
{
    take(data, new_request(GORVANET_TESTING_GET_IPV6_PROPS, message));
}

void on_set_ipv4_address(void *message, void *data, const ipv4_address *address)
{
    Request request = new_request(GORVANET_TESTING_SET_IPV4_ADDRESS, message);
    request.address = *address;
    take(data, request);
}

void on_set_mtu(void *message, void *data, uint32_t mtu)
{
    Request request = new_request(GORVANET_TESTING_SET_MTU, message);
    request.mtu = mtu;
    take(data, request);
}

void on_set_ipv6_prefix_and_address(void *message, void *data, const ipv6_prefix_addr_conf_list *list)
{
    Request request = new_request(GORVANET_TESTING_SET_IPV6_PREFIX_AND_ADDRESS, message);
    request.list = *list;
    take(data, request);
}

void on_ask_state_renotification(void *message, void *data, const state_info *info)
{
    Request request = new_request(GORVANET_TESTING_ASK_STATE_RENOTIFICATION, message);
    request.info = *info;
    take(data, request);
}

void on_register_prefix_status(void *message, void *data, uint32_t first, void *pointer, uint32_t last)
{
    Request request = new_request(GORVANET_TESTING_REGISTER_PREFIX_STATUS, message);
    request.first = first;
    request.pointer = pointer;
    request.last = last;
    take(data, request);
}

void on_configure(void *message, void *data, const intfConf *configuration)
{
    Request request = new_request(GORVANET_TESTING_CONFIGURE, message);
    request.configuration = *configuration;
    take(data, request);
}

void on_configure_all_ipv6_intf(void *message, void *data, uint32_t value)
{
    Request request = new_request(GORVANET_TESTING_CONFIGURE_ALL_IPV6_INTF, message);
    request.value = value;
    take(data, request);
}

// Result: whether the bus has accepted all of them.
bool accept_all(void *user, Service *service)
{
    return !gorvaNet_modSrv_recvMsg_setOsIfc(user, on_set_os_ifc, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_setDhcp(user, on_set_dhcp, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_setRdisc6(user, on_set_rdisc6, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_getIPv4Props(user, on_get_ipv4_props, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_getIPv6Props(user, on_get_ipv6_props, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_setIPv4Address(user, on_set_ipv4_address, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_setMtu(user, on_set_mtu, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_setIPv6PrefixAndAddress(user, on_set_ipv6_prefix_and_address, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_askStateRenotification(user, on_ask_state_renotification, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_registerPrefixStatus(user, on_register_prefix_status, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_configure(user, on_configure, service, nullptr) &&
           !gorvaNet_modSrv_recvMsg_configureAllIPv6Intf(user, on_configure_all_ipv6_intf, service, nullptr);
}

} // namespace

uint32_t testing_bench::drop_services()
{
    size_t left = 0;
    for (const auto &[user, service] : services())
        for (const auto &[method, answers] : service.scripts)
            left += answers.size();
    services().clear();
    return static_cast<uint32_t>(left);
}

void *gorvanet_testing_add_service(const char *name)
{
    void *user = gorvanet_testing_add_user(name);
    if (!user || accept_all(user, &services()[user]))
        return user;
    services().erase(user);
    gorvanet_loopback_remove_user(user);
    return nullptr;
}

const gorvanet_testing_request *gorvanet_testing_received(void *user, uint32_t index)
{
    const Service *service = find_service(user);
    return service && index < service->requests.size() ? &service->requests[index] : nullptr;
}

// ---- Answers --------------------------------------------------------------------------------------------------------

int32_t gorvanet_testing_reply_setOsIfc(void *service, uint32_t result)
{
    return script(service, GORVANET_TESTING_SET_OS_IFC,
                  [=](void *message) { gorvaNet_sendRes_setOsIfc(message, result); });
}

int32_t gorvanet_testing_reply_setDhcp(void *service)
{
    return script(service, GORVANET_TESTING_SET_DHCP, gorvaNet_sendRes_setDhcp);
}

int32_t gorvanet_testing_reply_setRdisc6(void *service)
{
    return script(service, GORVANET_TESTING_SET_RDISC6, gorvaNet_sendRes_setRdisc6);
}

int32_t gorvanet_testing_reply_getIPv4Props(void *service, const ipv4_properties *properties, uint32_t result)
{
    if (!properties)
        return GORVANET_LOOPBACK_BAD_ARGUMENT;
    return script(service, GORVANET_TESTING_GET_IPV4_PROPS, [copy = *properties, result](void *message) {
        gorvaNet_sendRes_getIPv4Props(message, &copy, result);
    });
}

int32_t gorvanet_testing_reply_getIPv6Props(void *service, const ipv6_properties *properties, uint32_t result)
{
    if (!properties)
        return GORVANET_LOOPBACK_BAD_ARGUMENT;
    return script(service, GORVANET_TESTING_GET_IPV6_PROPS, [copy = *properties, result](void *message) {
        gorvaNet_sendRes_getIPv6Props(message, &copy, result);
    });
}

int32_t gorvanet_testing_reply_setIPv4Address(void *service, const ipv4_address_return *outcome)
{
    if (!outcome)
        return GORVANET_LOOPBACK_BAD_ARGUMENT;
    return script(service, GORVANET_TESTING_SET_IPV4_ADDRESS,
                  [copy = *outcome](void *message) { gorvaNet_sendRes_setIPv4Address(message, &copy); });
}

int32_t gorvanet_testing_reply_setMtu(void *service, uint32_t result)
{
    return script(service, GORVANET_TESTING_SET_MTU, [=](void *message) { gorvaNet_sendRes_setMtu(message, result); });
}

int32_t gorvanet_testing_reply_setIPv6PrefixAndAddress(void *service, uint32_t result)
{
    return script(service, GORVANET_TESTING_SET_IPV6_PREFIX_AND_ADDRESS,
                  [=](void *message) { gorvaNet_sendRes_setIPv6PrefixAndAddress(message, result); });
}

int32_t gorvanet_testing_reply_registerPrefixStatus(void *service, uint32_t result)
{
    return script(service, GORVANET_TESTING_REGISTER_PREFIX_STATUS,
                  [=](void *message) { gorvaNet_sendRes_registerPrefixStatus(message, result); });
}

int32_t gorvanet_testing_hold(void *user)
{
    Service *service = find_service(user);
    if (!service)
        return GORVANET_LOOPBACK_UNKNOWN_USER;
    service->holds = true;
    return 0;
}

int32_t gorvanet_testing_release(void *user)
{
    Service *service = find_service(user);
    if (!service)
        return GORVANET_LOOPBACK_UNKNOWN_USER;
    service->holds = false;
    for (const auto &reply : std::exchange(service->held, {}))
        reply();
    return 0;
}
