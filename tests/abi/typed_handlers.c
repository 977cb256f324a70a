/* Every handler and callback that a user writes has a type of its own: it is given to the library without a cast. */

#include "gorvanet.h"

#define UNUSED(argument) ((void)(argument))

static void answer_result(void *context, void *user_data, uint32_t result)
{
    UNUSED(context);
    UNUSED(user_data);
    UNUSED(result);
}

static void answer_nothing(void *context, void *user_data)
{
    UNUSED(context);
    UNUSED(user_data);
}

static void answer_ipv4(void *context, void *user_data, const struct ipv4_properties *properties, uint32_t result)
{
    UNUSED(context);
    UNUSED(user_data);
    UNUSED(properties);
    UNUSED(result);
}

static void answer_ipv6(void *context, void *user_data, const struct ipv6_properties *properties, uint32_t result)
{
    UNUSED(context);
    UNUSED(user_data);
    UNUSED(properties);
    UNUSED(result);
}

static void answer_outcome(void *context, void *user_data, const struct ipv4_address_return *outcome)
{
    UNUSED(context);
    UNUSED(user_data);
    UNUSED(outcome);
}

static void serve_set_os_ifc(void *message, void *data, const char *ifName)
{
    UNUSED(data);
    UNUSED(ifName);
    gorvaNet_sendRes_setOsIfc(message, 0);
}

static void serve_set_dhcp(void *message, void *data, const char *ifName, uint32_t dhcp)
{
    UNUSED(data);
    UNUSED(ifName);
    UNUSED(dhcp);
    gorvaNet_sendRes_setDhcp(message);
}

static void serve_set_rdisc6(void *message, void *data, const char *ifName)
{
    UNUSED(data);
    UNUSED(ifName);
    gorvaNet_sendRes_setRdisc6(message);
}

static void serve_get_ipv4_props(void *message, void *data)
{
    static struct ipv4_properties none;
    UNUSED(data);
    gorvaNet_sendRes_getIPv4Props(message, &none, 0);
}

static void serve_get_ipv6_props(void *message, void *data)
{
    static struct ipv6_properties none;
    UNUSED(data);
    gorvaNet_sendRes_getIPv6Props(message, &none, 0);
}

static void serve_set_ipv4_address(void *message, void *data, const struct ipv4_address *address)
{
    static struct ipv4_address_return good;
    UNUSED(data);
    UNUSED(address);
    gorvaNet_sendRes_setIPv4Address(message, &good);
}

static void serve_set_mtu(void *message, void *data, uint32_t mtu)
{
    UNUSED(data);
    UNUSED(mtu);
    gorvaNet_sendRes_setMtu(message, 0);
}

static void serve_set_ipv6(void *message, void *data, const struct ipv6_prefix_addr_conf_list *list)
{
    UNUSED(data);
    UNUSED(list);
    gorvaNet_sendRes_setIPv6PrefixAndAddress(message, 0);
}

static void serve_ask_state(void *message, void *data, const struct state_info *info)
{
    UNUSED(message);
    UNUSED(data);
    UNUSED(info);
}

static void serve_register(void *message, void *data, uint32_t first, void *pointer, uint32_t last)
{
    UNUSED(data);
    UNUSED(first);
    UNUSED(pointer);
    UNUSED(last);
    gorvaNet_sendRes_registerPrefixStatus(message, 0);
}

static void serve_configure(void *message, void *data, const struct intfConf *configuration)
{
    UNUSED(message);
    UNUSED(data);
    UNUSED(configuration);
}

static void serve_configure_all(void *message, void *data, uint32_t value)
{
    UNUSED(message);
    UNUSED(data);
    UNUSED(value);
}

static void serve_prefix_status(void *message, void *data, const char *name, const struct ipv6_prefixes *prefixes)
{
    UNUSED(message);
    UNUSED(data);
    UNUSED(name);
    UNUSED(prefixes);
}

void serve(void *user);
void ask(void *user, const char *server);
int main(void);

void serve(void *user)
{
    gorvaNet_modSrv_recvMsg_setOsIfc(user, serve_set_os_ifc, 0, 0);
    gorvaNet_modSrv_recvMsg_setDhcp(user, serve_set_dhcp, 0, 0);
    gorvaNet_modSrv_recvMsg_setRdisc6(user, serve_set_rdisc6, 0, 0);
    gorvaNet_modSrv_recvMsg_getIPv4Props(user, serve_get_ipv4_props, 0, 0);
    gorvaNet_modSrv_recvMsg_getIPv6Props(user, serve_get_ipv6_props, 0, 0);
    gorvaNet_modSrv_recvMsg_setIPv4Address(user, serve_set_ipv4_address, 0, 0);
    gorvaNet_modSrv_recvMsg_setMtu(user, serve_set_mtu, 0, 0);
    gorvaNet_modSrv_recvMsg_setIPv6PrefixAndAddress(user, serve_set_ipv6, 0, 0);
    gorvaNet_modSrv_recvMsg_askStateRenotification(user, serve_ask_state, 0, 0);
    gorvaNet_modSrv_recvMsg_registerPrefixStatus(user, serve_register, 0, 0);
    gorvaNet_modSrv_recvMsg_configure(user, serve_configure, 0, 0);
    gorvaNet_modSrv_recvMsg_configureAllIPv6Intf(user, serve_configure_all, 0, 0);
    gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(user, serve_prefix_status, 0, 0, "bus", "service");
}

void ask(void *user, const char *server)
{
    static struct ipv4_address address;
    static struct ipv6_prefix_addr_conf_list list;
    gorvaNet_sendReq_setOsIfc(user, answer_result, 0, 0, server, "eth0");
    gorvaNet_sendReq_setDhcp(user, answer_nothing, 0, 0, server, "eth0", 1);
    gorvaNet_sendReq_setRdisc6(user, answer_nothing, 0, 0, server, "eth0");
    gorvaNet_sendReq_getIPv4Props(user, answer_ipv4, 0, 0, server);
    gorvaNet_sendReq_getIPv6Props(user, answer_ipv6, 0, 0, server);
    gorvaNet_sendReq_setIPv4Address(user, answer_outcome, 0, 0, server, &address);
    gorvaNet_sendReq_setMtu(user, answer_result, 0, 0, server, 1500);
    gorvaNet_sendReq_setIPv6PrefixAndAddress(user, answer_result, 0, 0, server, &list);
    gorvaNet_sendReq_registerPrefixStatus(user, answer_result, 0, 0, server, 1, 0, 2);
}

/* The library's own functions have the types that the middleware and the event loop call them by. */
int main(void)
{
    gorvaNet_recvReq *const receive[] = {gorvaNet_recvReq_setOsIfc, gorvaNet_recvReq_ntfyPrefixStatus};
    gorvaNet_freeBody *const release = gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setOsIfc;
    gorvaNet_serializeBody *const encode = gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setOsIfc;
    gorvaNet_unserializeBody *const decode = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setOsIfc;
    gorvaNet_logBody *const log_body = gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setOsIfc;
    gorvaNet_unreg *const dropped[] = {gorvaNet_cbEvtMsgMngt_unreg_msgCmd, gorvaNet_cbEvtMsgMngt_unreg_msgNtfy};
    void (*const event)(void *context, int32_t number) = gorvaNet_cbEvtBase;
    UNUSED(receive);
    UNUSED(release);
    UNUSED(encode);
    UNUSED(decode);
    UNUSED(log_body);
    UNUSED(dropped);
    UNUSED(event);
    return 0;
}
