// The public functions that are the common part's, under this host's name.

#include "gorvanet_loopback.h"

#include "failures.h"
#include "life.h"
#include "message.h"
#include "report.h"
#include "results.h"

static_assert(host::bad_argument == GORVANET_LOOPBACK_BAD_ARGUMENT);
static_assert(host::unknown_user == GORVANET_LOOPBACK_UNKNOWN_USER);
static_assert(host::unknown_number == GORVANET_LOOPBACK_UNKNOWN_NUMBER);
static_assert(host::not_attached == GORVANET_LOOPBACK_NOT_ATTACHED);
static_assert(host::unknown_method == GORVANET_LOOPBACK_UNKNOWN_METHOD);
static_assert(host::wrong_name == GORVANET_LOOPBACK_WRONG_NAME);
static_assert(host::busy == GORVANET_LOOPBACK_BUSY);
static_assert(static_cast<int>(host::Kind::sent) == GORVANET_LOOPBACK_SENT);
static_assert(static_cast<int>(host::Kind::misuse) == GORVANET_LOOPBACK_MISUSE);
static_assert(static_cast<int>(host::Failure::register_interface) == GORVANET_LOOPBACK_FAIL_REGISTER);
static_assert(static_cast<int>(host::Failure::send) == GORVANET_LOOPBACK_FAIL_SEND);
static_assert(static_cast<int>(host::Failure::leave_unhandled) == GORVANET_LOOPBACK_LEAVE_UNHANDLED);

namespace {

gorvanet_loopback_observer *current_observer;
void *observer_data;

void call_observer(const host::Event &event)
{
    auto given = host::as<gorvanet_loopback_event>(event);
    current_observer(observer_data, &given);
}

} // namespace

void *gorvanet_loopback_add_user(const char *name)
{
    return host::add_named_user(name, __func__);
}

int32_t gorvanet_loopback_remove_user(void *user)
{
    return host::remove_user_of(user, __func__);
}

int32_t gorvanet_loopback_tear_down()
{
    return host::tear_down(__func__);
}

int32_t gorvanet_loopback_withdraw(uint16_t number)
{
    return host::withdraw(number, __func__);
}

uint32_t gorvanet_loopback_open_messages()
{
    return host::open_messages();
}

void gorvanet_loopback_observe(gorvanet_loopback_observer *observer, void *data)
{
    current_observer = observer;
    observer_data = data;
    host::set_observer(observer ? call_observer : nullptr);
}

void gorvanet_loopback_fail(gorvanet_loopback_failure failure, uint32_t after, int32_t result)
{
    host::order_failure(static_cast<host::Failure>(failure), after, result);
}

uint32_t gorvanet_loopback_drop_failures()
{
    return host::drop_failures();
}
