// The public functions that are the common part's, under this host's name, and the settings.

#include "gorvanet_dbus.h"

#include "arrival.h"
#include "connection.h"
#include "failures.h"
#include "incoming.h"
#include "life.h"
#include "message.h"
#include "report.h"
#include "results.h"

static_assert(host::bad_argument == GORVANET_DBUS_BAD_ARGUMENT);
static_assert(host::unknown_user == GORVANET_DBUS_UNKNOWN_USER);
static_assert(host::unknown_number == GORVANET_DBUS_UNKNOWN_NUMBER);
static_assert(host::not_attached == GORVANET_DBUS_NOT_ATTACHED);
static_assert(host::unknown_method == GORVANET_DBUS_UNKNOWN_METHOD);
static_assert(host::wrong_name == GORVANET_DBUS_WRONG_NAME);
static_assert(host::busy == GORVANET_DBUS_BUSY);
static_assert(host::bus_failed == GORVANET_DBUS_BUS_FAILED);
static_assert(host::largest_body == GORVANET_DBUS_LARGEST_BODY);
static_assert(static_cast<int>(host::Kind::sent) == GORVANET_DBUS_SENT);
static_assert(static_cast<int>(host::Kind::misuse) == GORVANET_DBUS_MISUSE);
static_assert(static_cast<int>(host::Kind::bus_back) == GORVANET_DBUS_BACK);
static_assert(static_cast<int>(host::Failure::register_interface) == GORVANET_DBUS_FAIL_REGISTER);
static_assert(static_cast<int>(host::Failure::send) == GORVANET_DBUS_FAIL_SEND);
static_assert(static_cast<int>(host::Failure::leave_unhandled) == GORVANET_DBUS_LEAVE_UNHANDLED);

namespace {

gorvanet_dbus_observer *current_observer;
void *observer_data;

void call_observer(const host::Event &event)
{
    auto given = host::as<gorvanet_dbus_event>(event);
    current_observer(observer_data, &given);
}

} // namespace

void *gorvanet_dbus_add_user(const char *name)
{
    return host::add_named_user(name, __func__);
}

int32_t gorvanet_dbus_remove_user(void *user)
{
    return host::remove_user_of(user, __func__);
}

int32_t gorvanet_dbus_tear_down()
{
    return host::tear_down(__func__);
}

int32_t gorvanet_dbus_withdraw(uint16_t number)
{
    return host::withdraw(number, __func__);
}

uint32_t gorvanet_dbus_open_messages()
{
    return host::open_messages();
}

void gorvanet_dbus_observe(gorvanet_dbus_observer *observer, void *data)
{
    current_observer = observer;
    observer_data = data;
    host::set_observer(observer ? call_observer : nullptr);
}

void gorvanet_dbus_fail(gorvanet_dbus_failure failure, uint32_t after, int32_t result)
{
    host::order_failure(static_cast<host::Failure>(failure), after, result);
}

uint32_t gorvanet_dbus_drop_failures()
{
    return host::drop_failures();
}

void gorvanet_dbus_set_address(const char *address)
{
    dbus::set_address(address);
}

void gorvanet_dbus_check_senders(gorvanet_dbus_check *check, void *data)
{
    dbus::check_senders(check, data);
}
