#include "loop.h"

#include "gorvanet_loopback.h"
#include "life.h"
#include "report.h"

#include <deque>

namespace loopback {

namespace {

// One turn: the next step of a message, or a posted function.
struct Turn {
    uint32_t message;
    void (*function)(void *data);
    void *data;
};

// Made on first use and never ended, as the tables of the registry.
std::deque<Turn> &turns()
{
    static auto &queue = *new std::deque<Turn>;
    return queue;
}

bool stopped;

// What is thrown out of a turn ends the process, as it would leave the turn half done.
void take_turn() noexcept
{
    Turn turn = turns().front();
    turns().pop_front();
    host::InTurn in_turn;
    if (turn.function)
        turn.function(turn.data);
    else
        advance_message(turn.message);
}

} // namespace

void queue_message(uint32_t message)
{
    turns().push_back({message, nullptr, nullptr});
}

void drop_turns()
{
    turns().clear();
}

} // namespace loopback

using namespace loopback;

int32_t gorvanet_loopback_run()
{
    if (host::refuse_when_busy(__func__))
        return GORVANET_LOOPBACK_BUSY;
    stopped = false;
    while (!turns().empty() && !stopped)
        take_turn();
    return stopped ? GORVANET_LOOPBACK_STOPPED : GORVANET_LOOPBACK_IDLE;
}

int32_t gorvanet_loopback_turn()
{
    if (host::refuse_when_busy(__func__))
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
        host::report_misuse("%s: no function", __func__);
        return GORVANET_LOOPBACK_BAD_ARGUMENT;
    }
    turns().push_back({0, function, data});
    return 0;
}
