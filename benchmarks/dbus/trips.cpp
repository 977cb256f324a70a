// Round trips over D-Bus: through the library and the D-Bus host, and plain sd-bus calls that carry the same bytes.
//
//     gorvanet_dbus_trips [TRIPS]
//     gorvanet_dbus_trips MESSAGE PLAIN LIBRARY    so many trips of each kind and nothing else, for callgrind
//
// Both services are processes of their own on one private bus, and so is this client. The two kinds of trip take turns,
// a block of each, so that whatever else the machine does meets both. What is added is the middle one of what the
// pairs of neighbouring blocks say. Exit status 0 if that is no more for any message than it may be.

#include "dbus/daemon.h"
#include "dbus/process.h"
#include "gorvanet.h"
#include "gorvanet_dbus.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <systemd/sd-bus.h>
#include <systemd/sd-event.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Bytes = std::vector<unsigned char>;

constexpr const char *plain_name = "gorvanet.user.plainer";
constexpr const char *path = "/gorvanet/ask";
constexpr const char *interface = "gorvanet.GorvaNetCmd";
constexpr double limit = 15; // of what is added, per cent
constexpr unsigned block_size = 50;

int checked(int result, const char *what)
{
    if (result < 0)
        throw std::runtime_error(std::string(what) + ": " + strerror(-result));
    return result;
}

// ---- Plain sd-bus ---------------------------------------------------------------------------------------------------

Bytes body_of(sd_bus_message *message)
{
    const void *bytes = nullptr;
    size_t size = 0;
    checked(sd_bus_message_read_array(message, 'y', &bytes, &size), "read");
    const auto *begin = static_cast<const unsigned char *>(bytes);
    return {begin, begin + size};
}

struct Plain {
    sd_event *event = nullptr;
    sd_bus *bus = nullptr;
};

// On the thread's default event loop, as the host is: sd-event asks for the thread at each turn of such a loop.
Plain connect(const std::string &address)
{
    Plain plain;
    checked(sd_event_default(&plain.event), "event loop");
    checked(sd_bus_new(&plain.bus), "bus");
    checked(sd_bus_set_address(plain.bus, address.c_str()), "address");
    checked(sd_bus_set_bus_client(plain.bus, true), "client");
    checked(sd_bus_start(plain.bus), "start");
    checked(sd_bus_attach_event(plain.bus, plain.event, SD_EVENT_PRIORITY_NORMAL), "attach");
    return plain;
}

// Keeps the body of a call of "Answer" for the calls of all others.
int answer_plainly(sd_bus_message *call, void *, sd_bus_error *)
{
    static Bytes answer;
    Bytes body = body_of(call);
    if (sd_bus_message_is_method_call(call, interface, "Answer"))
        answer = body;
    sd_bus_message *reply = nullptr;
    checked(sd_bus_message_new_method_return(call, &reply), "reply");
    checked(sd_bus_message_append_array(reply, 'y', answer.data(), answer.size()), "append");
    checked(sd_bus_send(nullptr, reply, nullptr), "send");
    sd_bus_message_unref(reply);
    return 1;
}

int serve_plainly(const std::string &address, const Gate &ready)
{
    Plain plain = connect(address);
    checked(sd_bus_add_object(plain.bus, nullptr, path, answer_plainly, nullptr), "object");
    checked(sd_bus_request_name(plain.bus, plain_name, 0), "name");
    ready.open();
    return sd_event_loop(plain.event);
}

int on_plain_reply(sd_bus_message *reply, void *size, sd_bus_error *)
{
    *static_cast<size_t *>(size) = body_of(reply).size();
    return 0;
}

size_t ask_plainly(const Plain &plain, const char *method, const Bytes &body)
{
    size_t size = 0;
    sd_bus_message *call = nullptr;
    checked(sd_bus_message_new_method_call(plain.bus, &call, plain_name, path, interface, method), "call");
    checked(sd_bus_message_append_array(call, 'y', body.data(), body.size()), "append");
    checked(sd_bus_call_async(plain.bus, nullptr, call, on_plain_reply, &size, 0), "send");
    sd_bus_message_unref(call);
    while (!size)
        checked(sd_event_run(plain.event, UINT64_MAX), "run");
    return size;
}

// ---- Through the library --------------------------------------------------------------------------------------------

void *join(const char *name)
{
    void *user = gorvanet_dbus_add_user(name);
    if (!user || gorvanet_initialize() || gorvaNet_regUser_msgMngt(user, nullptr, nullptr, GORVANET_SELECT_BOTH))
        throw std::runtime_error("no user on the bus");
    return user;
}

// Every list full.
void answer_ipv6_props(void *message, void *)
{
    ipv6_properties properties = {};
    properties.field10 = 2;
    properties.field12 = 2;
    properties.field14 = 10;
    properties.field17 = 10;
    gorvaNet_sendRes_getIPv6Props(message, &properties, 0);
}

void answer_mtu(void *message, void *, uint32_t)
{
    gorvaNet_sendRes_setMtu(message, 0);
}

int serve_with_library(const Gate &ready)
{
    void *user = join("service");
    gorvaNet_modSrv_recvMsg_setMtu(user, answer_mtu, nullptr, nullptr);
    gorvaNet_modSrv_recvMsg_getIPv6Props(user, answer_ipv6_props, nullptr, nullptr);
    ready.open();
    return gorvanet_dbus_run();
}

void *client;
unsigned answers;

void ask_mtu()
{
    auto *callback = +[](void *, void *, uint32_t) { answers++; };
    gorvaNet_sendReq_setMtu(client, callback, nullptr, nullptr, "service", 1400);
}

void ask_ipv6_props()
{
    auto *callback = +[](void *, void *, const ipv6_properties *, uint32_t) { answers++; };
    gorvaNet_sendReq_getIPv6Props(client, callback, nullptr, nullptr, "service");
}

void ask_with_library(void (*ask)())
{
    unsigned before = answers;
    ask();
    while (answers == before)
        gorvanet_dbus_turn(1000);
}

// The bytes of a trip, as they are.
struct Carried {
    Bytes request;
    Bytes response;
};

Carried watch(void (*ask)())
{
    Carried carried;
    auto *observer = +[](void *data, const gorvanet_dbus_event *event) {
        auto &seen = *static_cast<Carried *>(data);
        const auto *begin = static_cast<const unsigned char *>(event->bytes);
        if (event->kind == GORVANET_DBUS_SENT)
            seen.request.assign(begin, begin + event->size);
        if (event->kind == GORVANET_DBUS_DELIVERED)
            seen.response.assign(begin, begin + event->size);
    };
    gorvanet_dbus_observe(observer, &carried);
    ask_with_library(ask);
    gorvanet_dbus_observe(nullptr, nullptr);
    return carried;
}

// ---- Measuring ------------------------------------------------------------------------------------------------------

template <typename Trip> double microseconds(Trip trip)
{
    auto start = Clock::now();
    trip();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

double middle(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Result: the median of the block.
template <typename Trip> double append_block(std::vector<double> &times, Trip trip)
{
    std::vector<double> block;
    for (unsigned i = 0; i < block_size; i++)
        block.push_back(microseconds(trip));
    times.insert(times.end(), block.begin(), block.end());
    return middle(block);
}

struct Summary {
    double rate; // round trips per second
    double median;
    double last; // the 99th percentile
};

Summary summarise(std::vector<double> times)
{
    double sum = 0;
    for (double time : times)
        sum += time;
    std::sort(times.begin(), times.end());
    auto count = static_cast<double>(times.size());
    return {count * 1e6 / sum, times[times.size() / 2], times[times.size() * 99 / 100]};
}

void print(const char *what, const Summary &summary)
{
    printf("  %-20s %8.0f /s   median %7.1f us   99th %7.1f us\n", what, summary.rate, summary.median, summary.last);
}

struct Message {
    const char *method;
    void (*ask)();
    double most; // per cent that may be added: above the limit where that is not kept, for reasons in ../README.md
};

constexpr Message messages[] = {{"SetMtu", ask_mtu, limit}, {"GetIPv6Props", ask_ipv6_props, 25}};

// Result: the bytes, which the plain service answers with from now on.
Carried prepare(const Plain &plain, const Message &message)
{
    Carried carried = watch(message.ask);
    ask_plainly(plain, "Answer", carried.response);
    return carried;
}

// Result: whether no more is added than may be.
bool measure(const Plain &plain, const Message &message, unsigned trips)
{
    Carried carried = prepare(plain, message);
    std::vector<double> plain_times;
    std::vector<double> library_times;
    std::vector<double> additions;
    for (unsigned block = 0; block < trips / block_size; block++) {
        double plainly = append_block(plain_times, [&] { ask_plainly(plain, message.method, carried.request); });
        double through = append_block(library_times, [&] { ask_with_library(message.ask); });
        additions.push_back(100 * (through / plainly - 1));
    }
    Summary without = summarise(plain_times);
    Summary with = summarise(library_times);
    double added = middle(additions);
    printf("%s, %zu bytes there and %zu back, %zu trips of each kind\n", message.method, carried.request.size(),
           carried.response.size(), plain_times.size());
    print("plain sd-bus", without);
    print("library and host", with);
    printf("  added %.1f %%, limit %.0f %%%s\n", added, limit, added > limit ? ": over" : "");
    return added <= message.most;
}

// Between a bus and its two services.
int run(const std::function<int(const Plain &)> &work)
{
    Daemon daemon;
    gorvanet_dbus_set_address(daemon.address().c_str());
    Gate plain_ready;
    Gate library_ready;
    Process plain_service([&] { return serve_plainly(daemon.address(), plain_ready); });
    Process library_service([&] { return serve_with_library(library_ready); });
    if (!plain_ready.wait() || !library_ready.wait())
        throw std::runtime_error("a service does not start");
    Plain plain = connect(daemon.address());
    client = join("client");
    int result = work(plain);
    gorvanet_dbus_tear_down();
    sd_bus_flush_close_unref(plain.bus);
    sd_event_unref(plain.event);
    // Callgrind writes down what it has counted where a signal ends a process that it sees coming.
    for (Process *service : {&plain_service, &library_service}) {
        service->send(SIGTERM);
        service->wait();
    }
    return result;
}

int measure_all(const Plain &plain, unsigned trips)
{
    bool within = true;
    for (const Message &message : messages)
        within = measure(plain, message, std::max(trips, block_size)) && within;
    return within ? EXIT_SUCCESS : EXIT_FAILURE;
}

int repeat(const Plain &plain, const char *method, unsigned plain_trips, unsigned library_trips)
{
    const auto *message = std::find_if(std::begin(messages), std::end(messages),
                                       [&](const Message &entry) { return strcmp(entry.method, method) == 0; });
    if (message == std::end(messages))
        throw std::runtime_error("not a message of these trips");
    Carried carried = prepare(plain, *message);
    for (unsigned i = 0; i < plain_trips; i++)
        ask_plainly(plain, message->method, carried.request);
    for (unsigned i = 0; i < library_trips; i++)
        ask_with_library(message->ask);
    return EXIT_SUCCESS;
}

unsigned number(const char *text)
{
    return static_cast<unsigned>(strtoul(text, nullptr, 10));
}

} // namespace

int main(int count, char **arguments)
{
    constexpr unsigned usual_trips = 20000;
    try {
        if (count > 3)
            return run([&](const Plain &plain) {
                return repeat(plain, arguments[1], number(arguments[2]), number(arguments[3]));
            });
        return run(
            [&](const Plain &plain) { return measure_all(plain, count > 1 ? number(arguments[1]) : usual_trips); });
    } catch (const std::exception &error) {
        fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
