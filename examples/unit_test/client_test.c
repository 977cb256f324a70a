/* Tests of the client: the test is its service. */

#include "check.h"
#include "client.h"
#include "gorvanet_testing.h"

#include <stddef.h>

#define REFUSED 22u

/* Starts the client, whose request is then on its way; gives the service. */
static void *begin(void)
{
    gorvanet_testing_begin();
    CHECK(client_start(gorvanet_loopback_add_user("client"), "ip-service") == 0);
    return gorvanet_testing_add_service("ip-service");
}

static void asks_for_jumbo_frames(void)
{
    void *service = begin();
    gorvanet_testing_reply_setMtu(service, 0);
    gorvanet_loopback_run();
    CHECK(gorvanet_testing_received(service, 0)->method == GORVANET_TESTING_SET_MTU);
    CHECK(gorvanet_testing_received(service, 0)->mtu == 9000);
    CHECK(gorvanet_testing_received(service, 1) == NULL);
    CHECK(client_mtu() == 9000);
    CHECK(gorvanet_testing_end() == 0);
}

static void puts_up_with_ordinary_frames(void)
{
    void *service = begin();
    gorvanet_testing_reply_setMtu(service, REFUSED);
    gorvanet_testing_reply_setMtu(service, 0);
    gorvanet_loopback_run();
    CHECK(gorvanet_testing_received(service, 1)->mtu == 1500);
    CHECK(client_mtu() == 1500);
    CHECK(gorvanet_testing_end() == 0);
}

static void gives_up_after_two_refusals(void)
{
    void *service = begin();
    gorvanet_testing_reply_setMtu(service, REFUSED);
    gorvanet_testing_reply_setMtu(service, REFUSED);
    gorvanet_loopback_run();
    CHECK(gorvanet_testing_received(service, 2) == NULL);
    CHECK(client_mtu() == 0);
    CHECK(gorvanet_testing_end() == 0);
}

static void waits_for_a_slow_service(void)
{
    void *service = begin();
    gorvanet_testing_hold(service);
    gorvanet_testing_reply_setMtu(service, 0);
    gorvanet_loopback_run();
    CHECK(client_mtu() == 0);
    gorvanet_testing_release(service);
    gorvanet_loopback_run();
    CHECK(client_mtu() == 9000);
    CHECK(gorvanet_testing_end() == 0);
}

static void does_not_take_a_damaged_answer(void)
{
    void *service = begin();
    gorvanet_testing_reply_setMtu(service, 0);
    gorvanet_loopback_fail(GORVANET_LOOPBACK_DAMAGE_RESPONSE, 0, 0);
    gorvanet_loopback_run();
    CHECK(client_mtu() == 0);
    CHECK(gorvanet_testing_logged("expectded") == 1); /* the library says which item is wrong */
    CHECK(gorvanet_testing_end() == 0);
}

int main(void)
{
    asks_for_jumbo_frames();
    puts_up_with_ordinary_frames();
    gives_up_after_two_refusals();
    waits_for_a_slow_service();
    does_not_take_a_damaged_answer();
    return checks_failed != 0;
}
