/* The program of docs/guide.md, run. */

#include "guide.c"

#include "gorvanet_loopback.h"

#include <stdio.h>

static int check(int holds, const char *what)
{
    if (!holds)
        printf("not so: %s\n", what);
    return !holds;
}

int main(void)
{
    void *service = gorvanet_loopback_add_user("ip-service");
    void *client = gorvanet_loopback_add_user("client");
    struct state state = {.mtu = 1500, .properties = {.field7 = "192.0.2.1"}};
    struct ipv4_properties kept = {0};
    uint32_t result = 4711;
    uint32_t count = 0;

    int wrong = check(join(service) == 0, "the service joins");
    wrong += check(gorvaNet_regUser_msgMngt(client, NULL, NULL, GORVANET_SELECT_BOTH) == 0, "the client joins");
    wrong += check(serve(service, &state) == 0, "the service serves");
    wrong += check(listen(client, &count) == 0, "the client listens");
    ask_for_mtu(client, &result);
    ask_for_properties(client, &kept);
    tell(service, "new");
    gorvanet_loopback_run();
    wrong += check(result == 0 && state.mtu == 1400, "the MTU is set");
    wrong += check(kept.field7[0] == '1', "the properties arrive");
    wrong += check(count == 1, "the notification arrives");
    struct ipv6_prefixes prefixes = {.field3 = 99, .prefixes = {{.field4 = 48}, {.field4 = 64}}};
    wrong += check(first_lengths(&prefixes) == 48 + 64, "a large count is bounded");
    wrong += check(gorvanet_loopback_tear_down() == 0 && gorvaNet_base.state == 0, "all is stopped");
    return wrong != 0;
}
