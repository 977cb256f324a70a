// The host in the hands of static objects: used before main begins and after it ends, as by a service that registers
// itself in a constructor and leaves in a destructor.

#include "gorvanet.h"
#include "gorvanet_loopback.h"

#include <cstdlib>

namespace {

struct EarlyAndLate {
    EarlyAndLate() : user(gorvanet_loopback_add_user("early"))
    {
        started =
            gorvanet_initialize() == 0 && gorvaNet_regUser_msgMngt(user, nullptr, nullptr, GORVANET_SELECT_BOTH) == 0;
    }
    // Leaves with a message on its way.
    ~EarlyAndLate()
    {
        if (gorvanet_loopback_open_messages() != 1 || gorvanet_loopback_tear_down() != 0 ||
            gorvanet_loopback_open_messages() != 0)
            abort();
    }

    void *user;
    bool started;
};

// Ahead of all other static objects, and so behind them at the end.
[[gnu::init_priority(101)]] EarlyAndLate service;

} // namespace

int main()
{
    if (!service.user || !service.started)
        return 1;
    if (gorvanet_loopback_add_user("early"))
        return 2; // is known already
    return gorvaNet_sendReq_setMtu(service.user, nullptr, nullptr, nullptr, "early", 1500) ? 0 : 3;
}
