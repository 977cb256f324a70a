#include "connection.h"

#include "incoming.h"
#include "loop.h"
#include "message.h"
#include "names.h"
#include "report.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <utility>

namespace dbus {

namespace {

// In microseconds.
constexpr uint64_t call_timeout = 5000000; // of calls to the bus itself
constexpr uint64_t retry_interval = 200000;
constexpr uint64_t leaving_timeout = 1000000;
constexpr const char *local_name = "org.freedesktop.DBus.Local";

// Both are made on first use and never ended, as the tables of the registry.

std::map<uint32_t, Connection> &connections()
{
    static auto &table = *new std::map<uint32_t, Connection>;
    return table;
}

std::string &chosen_address()
{
    static auto &address = *new std::string;
    return address;
}

const char *address()
{
    if (!chosen_address().empty())
        return chosen_address().c_str();
    const char *system = getenv("DBUS_SYSTEM_BUS_ADDRESS");
    return system ? system : "unix:path=/run/dbus/system_bus_socket";
}

void *to_pointer(uint32_t number)
{
    return reinterpret_cast<void *>(uintptr_t{number});
}

uint32_t to_number(void *pointer)
{
    return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(pointer));
}

int match(sd_bus *bus, Subscription &subscription)
{
    return sd_bus_match_signal(bus, nullptr, bus_name_of(subscription.from).c_str(), path_of(subscription.from).c_str(),
                               bus_interface(subscription.interface).c_str(), subscription.method.c_str(), on_signal,
                               &subscription);
}

// ---- Losing the bus and coming back ---------------------------------------------------------------------------------

void drop_bus(Connection &connection)
{
    connection.uids.clear();
    sd_bus_close_unref(std::exchange(connection.bus, nullptr));
}

void retry_later(Connection &connection);
int start(Connection &connection, const std::string &name);

int on_retry(sd_event_source *, uint64_t, void *number) noexcept
{
    Connection *connection = find_connection(to_number(number));
    const host::User *user = host::find_user(to_number(number));
    if (!connection || !user)
        return 0;
    connection->retry = sd_event_source_unref(connection->retry);
    drop_bus(*connection);
    if (start(*connection, user->name) < 0) {
        drop_bus(*connection);
        retry_later(*connection);
    } else {
        report_bus(host::Kind::bus_back, user->name.c_str(), "has the bus back");
    }
    return 0;
}

void retry_later(Connection &connection)
{
    sd_event_source_unref(connection.retry);
    connection.retry = nullptr;
    sd_event_add_time_relative(event_loop(), &connection.retry, CLOCK_MONOTONIC, retry_interval, 0, on_retry,
                               to_pointer(connection.user));
}

// Sees each message before all others do. That is cheaper than a match, which sd-bus would look up for each of them.
int on_message(sd_bus_message *message, void *number, sd_bus_error *) noexcept
{
    if (!sd_bus_message_is_signal(message, local_name, "Disconnected"))
        return 0;
    Connection *connection = find_connection(to_number(number));
    const host::User *user = host::find_user(to_number(number));
    if (!connection || !user)
        return 0;
    report_bus(host::Kind::bus_lost, user->name.c_str(), "has lost the bus");
    retry_later(*connection);
    return 0;
}

// ---- Taking up a connection -----------------------------------------------------------------------------------------

int prepare(sd_bus *bus, uint32_t user)
{
    int result = sd_bus_set_address(bus, address());
    if (result >= 0)
        result = sd_bus_set_bus_client(bus, true);
    if (result >= 0)
        result = sd_bus_set_method_call_timeout(bus, call_timeout);
    if (result >= 0)
        result = sd_bus_add_object(bus, nullptr, ask_path, on_ask, to_pointer(user));
    if (result >= 0)
        result = sd_bus_add_object(bus, nullptr, tell_path, on_tell, to_pointer(user));
    return result;
}

uint64_t now()
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<uint64_t>(time.tv_sec) * 1000000 + static_cast<uint64_t>(time.tv_nsec) / 1000;
}

// The bus lets us in. By itself, sd-bus would wait much longer for that.
int enter(sd_bus *bus)
{
    int result = sd_bus_start(bus);
    uint64_t end = now() + call_timeout;
    while (result >= 0 && sd_bus_is_ready(bus) == 0) {
        result = sd_bus_process(bus, nullptr);
        uint64_t time = now();
        if (result == 0)
            result = time < end ? sd_bus_wait(bus, end - time) : -ETIMEDOUT;
    }
    return result;
}

int start(Connection &connection, const std::string &name)
{
    int result = sd_bus_new(&connection.bus);
    if (result >= 0)
        result = prepare(connection.bus, connection.user);
    if (result >= 0)
        result = enter(connection.bus);
    if (result >= 0)
        result = sd_bus_request_name(connection.bus, bus_name_of(name).c_str(), 0);
    for (size_t i = 0; result >= 0 && i < connection.subscriptions.size(); i++)
        result = match(connection.bus, *connection.subscriptions[i]);
    // Not before: a bus that does not let the user in is not lost.
    if (result >= 0)
        result = sd_bus_add_filter(connection.bus, nullptr, on_message, to_pointer(connection.user));
    if (result >= 0)
        result = sd_bus_attach_event(connection.bus, event_loop(), SD_EVENT_PRIORITY_NORMAL);
    return result;
}

// Sends what is queued, unless the bus takes no more of it: flushing would wait for it forever. Where the bus answers a
// question, it has taken all that was sent before.
void flush(sd_bus *bus)
{
    uint64_t queued = 0;
    if (sd_bus_is_ready(bus) <= 0 || sd_bus_get_n_queued_write(bus, &queued) < 0 || queued == 0)
        return;
    sd_bus_set_method_call_timeout(bus, leaving_timeout);
    sd_bus_call_method(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.Peer", "Ping",
                       nullptr, nullptr, nullptr);
}

void end(Connection &connection)
{
    sd_event_source_unref(connection.retry);
    if (connection.bus)
        flush(connection.bus);
    drop_bus(connection);
}

} // namespace

int open_connection(const host::User &user)
{
    if (bus_name_of(user.name).size() > longest_bus_name)
        return -ENAMETOOLONG;
    Connection &connection = connections()[user.number];
    connection.user = user.number;
    int result = start(connection, user.name);
    if (result < 0)
        close_connection(user.number);
    return result;
}

void close_connection(uint32_t user)
{
    auto found = connections().find(user);
    if (found == connections().end())
        return;
    end(found->second);
    connections().erase(found);
}

Connection *find_connection(uint32_t user)
{
    auto found = connections().find(user);
    return found == connections().end() ? nullptr : &found->second;
}

int subscribe(uint32_t user, const Subscription &subscription)
{
    Connection *connection = find_connection(user);
    if (!connection || !connection->bus)
        return -ENOTCONN;
    bool known =
        std::any_of(connection->subscriptions.begin(), connection->subscriptions.end(), [&](const auto &entry) {
            return entry->from == subscription.from && entry->interface == subscription.interface &&
                   entry->method == subscription.method;
        });
    if (known)
        return 0;
    if (bus_name_of(subscription.from).size() > longest_bus_name)
        return -ENAMETOOLONG;
    auto entry = std::make_unique<Subscription>(subscription);
    int result = match(connection->bus, *entry);
    if (result >= 0)
        connection->subscriptions.push_back(std::move(entry));
    return result;
}

void set_address(const char *address)
{
    chosen_address() = address ? address : "";
}

} // namespace dbus
