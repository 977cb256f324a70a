/* The test bench: unit tests of services and clients without the real bus, for libGorvanet.
 *
 * What is tested and the test are one process, on the loopback host, whose header is the other half of this manual. The
 * test plays the other side of the bus: for a service it is a client, which needs nothing but a user; for a client it is
 * a service that answers by a script. The log lines of the process are captured, and gorvanet_loopback_fail makes the
 * bus fail.
 *
 *     gorvanet_testing_begin();
 *     client_start(gorvanet_loopback_add_user("client"), "ip-service");    // what is tested; it sends a request
 *     void *service = gorvanet_testing_add_service("ip-service");
 *     gorvanet_testing_reply_setMtu(service, 0);
 *     gorvanet_loopback_run();
 *     CHECK(gorvanet_testing_received(service, 0)->mtu == 1400);
 *     CHECK(client_has_its_mtu());
 *     CHECK(gorvanet_testing_end() == 0);
 *
 * examples/unit_test has whole tests of a service and of a client. One thread, as for everything else.
 */
#ifndef GORVANET_TESTING_H
#define GORVANET_TESTING_H

#include "gorvanet.h"
#include "gorvanet_loopback.h"

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- A test ------------------------------------------------------------------------------------------------------ */

/* Begins a test with an empty bus and an empty log, whatever the test before has left. */
void gorvanet_testing_begin(void);

/* Ends a test: tears the bus down, and so ends the library's interfaces; forgets scripts and failures. The log stays.
 *
 * Result: the number of loose ends, 0 after a test that went as it was written: messages that were still on their way or
 * unanswered, scripted answers that no request has asked for, and failures that have not happened. Called from inside a
 * turn it is refused: the result is not 0, and nothing has ended. */
uint32_t gorvanet_testing_end(void);

/* Adds a bus user and attaches it to both interfaces, which must be started already: by what is tested, or by
 * gorvanet_initialize.
 *
 * Result: the user, as of gorvanet_loopback_add_user; null when the interfaces are not started, when there is a user of
 * this name, or when the bus fails as ordered. */
void *gorvanet_testing_add_user(const char *name);

/* ---- A scripted service ------------------------------------------------------------------------------------------ */

/* Adds a user that accepts all commands. Each request that comes is kept, and takes the next answer that was scripted for
 * its method. Without one it stays unanswered, until the test answers it by the method's gorvaNet_sendRes_*.
 *
 * A method that the service shall not handle is accepted again, without a handler: the library answers its requests with
 * status 20. A notification is sent with the service as its user.
 *
 * Result: as of gorvanet_testing_add_user. */
void *gorvanet_testing_add_service(const char *name);

/* Scripts the answer to one request of the method, behind the answers that are scripted for it already. Records are
 * copied.
 *
 * Result: 0; GORVANET_LOOPBACK_BAD_ARGUMENT for a null record; GORVANET_LOOPBACK_UNKNOWN_USER when `service` is not a
 * scripted service. */
int32_t gorvanet_testing_reply_setOsIfc(void *service, uint32_t result);
int32_t gorvanet_testing_reply_setDhcp(void *service);
int32_t gorvanet_testing_reply_setRdisc6(void *service);
int32_t gorvanet_testing_reply_getIPv4Props(void *service, const struct ipv4_properties *properties, uint32_t result);
int32_t gorvanet_testing_reply_getIPv6Props(void *service, const struct ipv6_properties *properties, uint32_t result);
int32_t gorvanet_testing_reply_setIPv4Address(void *service, const struct ipv4_address_return *outcome);
int32_t gorvanet_testing_reply_setMtu(void *service, uint32_t result);
int32_t gorvanet_testing_reply_setIPv6PrefixAndAddress(void *service, uint32_t result);
int32_t gorvanet_testing_reply_registerPrefixStatus(void *service, uint32_t result);

/* Delays the scripted answers: from now on they are held back, until they are released, all of them, in the order of
 * their requests. Result: 0; GORVANET_LOOPBACK_UNKNOWN_USER. */
int32_t gorvanet_testing_hold(void *service);
int32_t gorvanet_testing_release(void *service);

/* The commands, by their indexes. */
enum gorvanet_testing_method {
    GORVANET_TESTING_SET_OS_IFC,
    GORVANET_TESTING_SET_DHCP,
    GORVANET_TESTING_SET_RDISC6,
    GORVANET_TESTING_GET_IPV4_PROPS,
    GORVANET_TESTING_GET_IPV6_PROPS,
    GORVANET_TESTING_SET_IPV4_ADDRESS,
    GORVANET_TESTING_SET_MTU,
    GORVANET_TESTING_SET_IPV6_PREFIX_AND_ADDRESS,
    GORVANET_TESTING_ASK_STATE_RENOTIFICATION,
    GORVANET_TESTING_REGISTER_PREFIX_STATUS,
    GORVANET_TESTING_CONFIGURE,
    GORVANET_TESTING_CONFIGURE_ALL_IPV6_INTF
};

/* A request as it came. Of the arguments those that its method has are set, the others are 0. */
struct gorvanet_testing_request {
    enum gorvanet_testing_method method;
    void *message; /* to answer it with */

    char ifName[50]; /* SetOsIfc, SetDhcp, SetRdisc6 */
    uint32_t dhcp;
    struct ipv4_address address;
    uint32_t mtu;
    struct ipv6_prefix_addr_conf_list list;
    struct state_info info;
    uint32_t first; /* RegisterPrefixStatus, as the next two */
    void *pointer;
    uint32_t last;
    struct intfConf configuration;
    uint32_t value; /* ConfigureAllIPv6Intf */
};

/* The request that the service got as the number `index`, from 0; valid until the test ends. Null when there is none. */
const struct gorvanet_testing_request *gorvanet_testing_received(void *service, uint32_t index);

/* ---- The log ----------------------------------------------------------------------------------------------------- */

/* In a program that uses this part, syslog(3) and vsyslog(3) write here and not to the system log: lines of the library
 * and of what is tested alike. */
struct gorvanet_testing_line {
    int priority;
    const char *text; /* without the line feed at its end */
};

/* The line number `index` of this test, from 0; valid until the next test begins. Null when there is none. */
const struct gorvanet_testing_line *gorvanet_testing_log(uint32_t index);

/* Result: how many lines of this test contain `part`; all of them contain "", and none a null pointer. */
uint32_t gorvanet_testing_logged(const char *part);

#ifdef __cplusplus
}
#endif

#endif
