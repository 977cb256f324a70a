#include "gorvanet_testing.h"
#include "log.h"
#include "service.h"

void gorvanet_testing_begin()
{
    gorvanet_testing_end();
    testing_bench::clear_log();
}

uint32_t gorvanet_testing_end()
{
    uint32_t loose_ends = gorvanet_loopback_open_messages();
    if (gorvanet_loopback_tear_down()) // which may meet failures that were ordered
        return loose_ends + 1;         // called from inside a turn: nothing has ended
    loose_ends += gorvanet_loopback_drop_failures();
    // The bus has withdrawn what it refused to release: no registration is left, and the library may start again.
    if (gorvaNet_base.state == GORVANET_STATE_BASE_INIT)
        gorvaNet_delBase();
    loose_ends += testing_bench::drop_services();
    return loose_ends;
}

void *gorvanet_testing_add_user(const char *name)
{
    if (gorvaNet_base.state != GORVANET_STATE_BASE_INIT)
        return nullptr;
    void *user = gorvanet_loopback_add_user(name);
    if (!user || !gorvaNet_regUser_msgMngt(user, nullptr, nullptr, GORVANET_SELECT_BOTH))
        return user;
    gorvanet_loopback_remove_user(user);
    return nullptr;
}
