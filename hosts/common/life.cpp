#include "life.h"

#include "message.h"
#include "registry.h"
#include "report.h"
#include "results.h"
#include "transport.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace host {

namespace {

constexpr int32_t tear_down_event = 0;

// Made on first use and never ended, as the tables of the registry.
std::vector<std::pair<Hook *, void *>> &hooks()
{
    static auto &list = *new std::vector<std::pair<Hook *, void *>>;
    return list;
}

bool in_turn;

// A hook may hook again, for a next life; it is not called for this one.
void call_hooks() noexcept
{
    for (auto [hook, context] : std::exchange(hooks(), {}))
        hook(context, tear_down_event);
}

void remove_all_users()
{
    for (const auto &[number, user] : users())
        transport::disconnect(user);
}

} // namespace

void add_hook(Hook *hook, void *context)
{
    auto entry = std::make_pair(hook, context);
    if (std::find(hooks().begin(), hooks().end(), entry) == hooks().end())
        hooks().push_back(entry);
}

InTurn::InTurn()
{
    in_turn = true;
}

InTurn::~InTurn()
{
    in_turn = false;
}

bool refuse_when_busy(const char *caller)
{
    if (refuse_in_observer(caller))
        return true;
    if (in_turn)
        report_misuse("%s: called from inside a turn of the loop", caller);
    return in_turn;
}

void *add_named_user(const char *name, const char *caller)
{
    if (refuse_in_observer(caller))
        return nullptr;
    if (!name || !*name) {
        report_misuse("%s: a user needs a name", caller);
        return nullptr;
    }
    if (find_user(std::string(name))) {
        report_misuse("%s: there is a user '%s' already", caller, name);
        return nullptr;
    }
    User *user = add_user(name);
    if (transport::connect(*user, caller))
        return user->handle();
    remove_user(*user);
    return nullptr;
}

int32_t remove_user_of(const void *handle, const char *caller)
{
    if (refuse_in_observer(caller))
        return busy;
    User *user = find_user(number_of(HandleKind::user, handle));
    if (!user) {
        report_misuse("%s: user %p is unknown", caller, handle);
        return unknown_user;
    }
    end_messages_of(*user);
    transport::disconnect(*user);
    remove_user(*user);
    return 0;
}

int32_t withdraw(uint32_t number, const char *caller)
{
    if (refuse_in_observer(caller))
        return busy;
    Interface *interface = registered_interface(number, caller);
    if (!interface)
        return unknown_number;
    withdraw_interface(*interface);
    if (gorvaNet_unreg *unreg = interface->block->unreg)
        unreg(interface->number);
    return 0;
}

int32_t tear_down(const char *caller)
{
    if (refuse_when_busy(caller))
        return busy;
    InTurn turn; // what is called from here on must not run the loop
    call_hooks();
    for (uint16_t number : registered_numbers())
        withdraw(number, caller);
    // Hooks and unreg callbacks may have left something behind: it ends with the rest.
    drop_messages();
    remove_all_users();
    clear_registry();
    transport::tear_down();
    return 0;
}

} // namespace host
