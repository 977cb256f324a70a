/* Tests of the service: the test is its client. */

#include "check.h"
#include "gorvanet_testing.h"
#include "service.h"

#include <stddef.h>

#define UNANSWERED 99u

static void on_mtu_set(void *context, void *user_data, uint32_t result)
{
    (void)context;
    *(uint32_t *)user_data = result;
}

static void on_dhcp_set(void *context, void *user_data)
{
    (void)context;
    *(uint32_t *)user_data = 0;
}

/* Starts the service; gives the client. */
static void *begin(void)
{
    gorvanet_testing_begin();
    CHECK(service_start(gorvanet_loopback_add_user("ip-service")) == 0);
    return gorvanet_testing_add_user("client");
}

/* Result: what the service answers. */
static uint32_t set_mtu(void *client, uint32_t mtu)
{
    uint32_t result = UNANSWERED;
    gorvaNet_sendReq_setMtu(client, on_mtu_set, NULL, &result, "ip-service", mtu);
    gorvanet_loopback_run();
    return result;
}

static void keeps_a_good_mtu(void)
{
    void *client = begin();
    CHECK(set_mtu(client, 1400) == 0);
    CHECK(service_mtu() == 1400);
    CHECK(gorvanet_testing_logged("") == 0);
    CHECK(gorvanet_testing_end() == 0);
}

static void refuses_a_small_mtu_and_says_so(void)
{
    void *client = begin();
    CHECK(set_mtu(client, 1279) == SERVICE_REFUSED);
    CHECK(service_mtu() == 1500);
    CHECK(gorvanet_testing_logged("MTU 1279 is too small") == 1);
    CHECK(gorvanet_testing_end() == 0);
}

static void answers_dhcp_when_the_lease_has_come(void)
{
    void *client = begin();
    uint32_t result = UNANSWERED;
    gorvaNet_sendReq_setDhcp(client, on_dhcp_set, NULL, &result, "ip-service", "eth0", 1);
    gorvanet_loopback_run();
    CHECK(result == UNANSWERED);
    service_lease_has_come();
    gorvanet_loopback_run();
    CHECK(result == 0);
    CHECK(gorvanet_testing_end() == 0);
}

static void leaves_no_dhcp_request_unanswered(void)
{
    void *client = begin();
    uint32_t first = UNANSWERED;
    uint32_t second = UNANSWERED;
    gorvaNet_sendReq_setDhcp(client, on_dhcp_set, NULL, &first, "ip-service", "eth0", 1);
    gorvaNet_sendReq_setDhcp(client, on_dhcp_set, NULL, &second, "ip-service", "eth0", 1);
    gorvanet_loopback_run();
    CHECK(first == 0); /* the second waits in its place */
    CHECK(second == UNANSWERED);
    service_lease_has_come();
    gorvanet_loopback_run();
    CHECK(second == 0);
    CHECK(gorvanet_testing_end() == 0);
}

static void does_not_start_when_the_bus_refuses(void)
{
    gorvanet_testing_begin();
    gorvanet_loopback_fail(GORVANET_LOOPBACK_FAIL_ACCEPT, 1, 7); /* the second method that it accepts */
    CHECK(service_start(gorvanet_loopback_add_user("ip-service")) == 7);
    CHECK(gorvanet_testing_logged("ModCliNtfyUser failed(7)") == 1);
    CHECK(gorvanet_testing_end() == 0);
}

int main(void)
{
    keeps_a_good_mtu();
    refuses_a_small_mtu_and_says_so();
    answers_dhcp_when_the_lease_has_come();
    leaves_no_dhcp_request_unanswered();
    does_not_start_when_the_bus_refuses();
    return checks_failed != 0;
}
