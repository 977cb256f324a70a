#include "loop.h"

#include "gorvanet_loopback.h"
#include "message.h"
#include "registry.h"
#include "report.h"

#include <algorithm>
#include <deque>
#include <utility>
#include <vector>

namespace loopback {

namespace {

constexpr int32_t tear_down_event = 0;

// One turn: the next step of a message, or a posted function.
struct Turn {
    uint32_t message;
    void (*function)(void *data);
    void *data;
};

// Both are made on first use and never ended, as the tables of the registry.

std::deque<Turn> &turns()
{
    static auto &queue = *new std::deque<Turn>;
    return queue;
}

std::vector<std::pair<Hook *, void *>> &hooks()
{
    static auto &list = *new std::vector<std::pair<Hook *, void *>>;
    return list;
}

bool in_turn;
bool stopped;

// What is thrown out of a turn ends the process, as it would leave the turn half done.
void take_turn() noexcept
{
    Turn turn = turns().front();
    turns().pop_front();
    in_turn = true;
    if (turn.function)
        turn.function(turn.data);
    else
        advance_message(turn.message);
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

// A hook may hook again, for a next life; it is not called for this one.
void call_hooks() noexcept
{
    for (auto [hook, context] : std::exchange(hooks(), {}))
        hook(context, tear_down_event);
}

} // namespace

void add_hook(Hook *hook, void *context)
{
    auto entry = std::make_pair(hook, context);
    if (std::find(hooks().begin(), hooks().end(), entry) == hooks().end())
        hooks().push_back(entry);
}

void queue_message(uint32_t message)
{
    turns().push_back({message, nullptr, nullptr});
}

} // namespace loopback

using namespace loopback;

int32_t gorvanet_loopback_run()
{
    if (refuse_when_busy(__func__))
        return GORVANET_LOOPBACK_BUSY;
    stopped = false;
    while (!turns().empty() && !stopped)
        take_turn();
    return stopped ? GORVANET_LOOPBACK_STOPPED : GORVANET_LOOPBACK_IDLE;
}

int32_t gorvanet_loopback_turn()
{
    if (refuse_when_busy(__func__))
        return GORVANET_LOOPBACK_BUSY;
    if (turns().empty())
        return GORVANET_LOOPBACK_IDLE;
    take_turn();
    return GORVANET_LOOPBACK_STOPPED;
}

void gorvanet_loopback_stop()
{
    stopped = true;
}

int32_t gorvanet_loopback_post(void (*function)(void *data), void *data)
{
    if (!function) {
        report_misuse("%s: no function", __func__);
        return GORVANET_LOOPBACK_BAD_ARGUMENT;
    }
    turns().push_back({0, function, data});
    return 0;
}

int32_t gorvanet_loopback_tear_down()
{
    if (refuse_when_busy(__func__))
        return GORVANET_LOOPBACK_BUSY;
    in_turn = true; // what is called from here on must not run the loop
    call_hooks();
    for (uint16_t number : registered_numbers())
        gorvanet_loopback_withdraw(number);
    // Hooks and unreg callbacks may have left something behind: it ends with the rest.
    drop_messages();
    turns().clear();
    clear_registry();
    in_turn = false;
    return 0;
}
