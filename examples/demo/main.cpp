// One request, there and back: a service and a client in one process, the library between them, a loopback bus below.
//
//     gorvanet_demo [--colour | --plain] [interface name]
//
// The exit status is 0 only if everything that is told here really happened.

#include "annotate.h"
#include "gorvanet.h"
#include "gorvanet_loopback.h"
#include "screen.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <syslog.h>
#include <unistd.h>

// The library writes its failures to the system log. A program that defines syslog itself gets them instead.
extern "C" void syslog(int priority, const char *pattern, ...)
{
    char text[512];
    va_list arguments;
    va_start(arguments, pattern);
    vsnprintf(text, sizeof(text), pattern, arguments);
    va_end(arguments);
    std::string line = text;
    if (!line.empty() && line.back() == '\n')
        line.pop_back();
    demo::log_line(priority, line);
}

namespace {

constexpr uint32_t service_result = 42;
constexpr size_t longest_name = 49; // a longer one is cut by the library

// What the two sides have seen.
struct Service {
    std::string ifName;
};

struct Client {
    uint32_t answers = 0;
    uint32_t result = 0;
};

struct Bus {
    bool shows_bytes = true;
    uint32_t undeliverable = 0;
    uint32_t unhandled = 0;
    uint32_t other_failures = 0;
};

std::string quoted(const std::string &text)
{
    return "\"" + text + "\"";
}

// ---- The service ----------------------------------------------------------------------------------------------------

void handle_set_os_ifc(void *message, void *data, const char *ifName)
{
    static_cast<Service *>(data)->ifName = ifName;
    demo::step("service", "my handler is called: ifName is " + quoted(ifName));
    demo::step("service", "gorvaNet_sendRes_setOsIfc(message, " + std::to_string(service_result) + ")");
    gorvaNet_sendRes_setOsIfc(message, service_result);
}

// ---- The client -----------------------------------------------------------------------------------------------------

void take_response(void *, void *user_data, uint32_t result)
{
    auto *client = static_cast<Client *>(user_data);
    client->answers++;
    client->result = result;
    demo::step("client", "my callback is called: the result is " + std::to_string(result));
}

// ---- The bus, watched -----------------------------------------------------------------------------------------------

std::string route(const gorvanet_loopback_event &event)
{
    return std::string(event.sender) + " -> " + event.receiver;
}

void show_bytes(const gorvanet_loopback_event &event)
{
    std::span<const uint8_t> bytes(static_cast<const uint8_t *>(event.bytes), event.size);
    const char *direction = event.direction == GORVANET_BODY_REQUEST ? " request, " : " response, ";
    demo::dump(event.method + std::string(direction) + route(event),
               demo::annotate(demo::find_layout(event.method, event.direction), bytes), event.size);
}

void watch(void *data, const gorvanet_loopback_event *event)
{
    auto *bus = static_cast<Bus *>(data);
    std::string message = "message " + std::to_string(event->message);
    switch (event->kind) {
    case GORVANET_LOOPBACK_SENT:
    case GORVANET_LOOPBACK_ANSWERED:
        if (bus->shows_bytes)
            show_bytes(*event);
        return;
    case GORVANET_LOOPBACK_DELIVERED:
        return demo::step("bus", "decoded in the " + std::string(event->receiver));
    case GORVANET_LOOPBACK_NOTIFIED:
        return;
    case GORVANET_LOOPBACK_STATUS:
        bus->unhandled += event->status == 20;
        return demo::failure(message + " is answered with status " + std::to_string(event->status) + ": " +
                             event->text);
    case GORVANET_LOOPBACK_UNDELIVERABLE:
        bus->undeliverable++;
        return demo::failure(message + " is undeliverable: " + event->text);
    case GORVANET_LOOPBACK_UNENCODABLE:
    case GORVANET_LOOPBACK_UNDECODABLE:
    case GORVANET_LOOPBACK_MISUSE:
        bus->other_failures++;
        return demo::failure(event->text);
    }
}

// ---- The story ------------------------------------------------------------------------------------------------------

bool start(void *service, void *client, Service &state)
{
    demo::heading("Start: the interface and two users go on the bus");
    bool started = gorvanet_initialize() == 0;
    demo::step("library", "gorvanet_initialize() registers GorvaNetCmd as number " +
                              std::to_string(gorvaNet_getCmdIntfNum()) + ", GorvaNetNtfy as number " +
                              std::to_string(gorvaNet_getNtfyIntfNum()));
    bool attached = gorvaNet_regUser_msgMngt(service, nullptr, nullptr, GORVANET_SELECT_BOTH) == 0 &&
                    gorvaNet_regUser_msgMngt(client, nullptr, nullptr, GORVANET_SELECT_BOTH) == 0;
    demo::step("library", "gorvaNet_regUser_msgMngt() attaches the users 'service' and 'client'");
    bool accepted = gorvaNet_modSrv_recvMsg_setOsIfc(service, handle_set_os_ifc, &state, nullptr) == 0;
    demo::step("service", "gorvaNet_modSrv_recvMsg_setOsIfc(my handler): I serve SetOsIfc");
    return started && attached && accepted;
}

bool exchange(void *client, const std::string &ifName, const Service &service)
{
    demo::heading("One request, there and back");
    Client state;
    demo::step("client", "gorvaNet_sendReq_setOsIfc(my callback, \"service\", " + quoted(ifName) + ")");
    gorvaNet_sendReq_setOsIfc(client, take_response, nullptr, &state, "service", ifName.c_str());
    gorvanet_loopback_run();
    return service.ifName == ifName.substr(0, longest_name) && state.answers == 1 && state.result == service_result;
}

bool fail_on_purpose(void *client, Bus &bus)
{
    demo::heading("What failures look like");
    bus.shows_bytes = false;
    Client state;
    demo::step("client", "a request without a server name; the library refuses it and logs:");
    gorvaNet_sendReq_setOsIfc(client, take_response, nullptr, &state, nullptr, "eth0");
    printf("\n");
    demo::step("client", "a request to a user that is not on the bus:");
    gorvaNet_sendReq_setOsIfc(client, take_response, nullptr, &state, "nobody", "eth0");
    gorvanet_loopback_run();
    printf("\n");
    demo::step("client", "a request to a user that does not serve the method (the client itself):");
    gorvaNet_sendReq_setOsIfc(client, take_response, nullptr, &state, "client", "eth0");
    gorvanet_loopback_run();
    return state.answers == 0 && bus.undeliverable == 1 && bus.unhandled == 1 && bus.other_failures == 0;
}

bool stop(const Bus &bus)
{
    demo::heading("Stop: the event loop ends, the library gives its registrations back");
    bool ended = gorvanet_loopback_tear_down() == 0;
    bool released = gorvaNet_base.state == GORVANET_STATE_BASE_WAIT_INIT && gorvaNet_base.flags == 0 &&
                    gorvaNet_getCmdIntfNum() == GORVANET_NUM_NONE;
    demo::step("library", "event 0 reached gorvaNet_cbEvtBase; no interface is registered any more");
    return ended && released && gorvanet_loopback_open_messages() == 0 && bus.other_failures == 0;
}

int usage(const char *program)
{
    fprintf(stderr, "usage: %s [--colour | --plain] [interface name]\n", program);
    return 2;
}

} // namespace

int main(int count, char **arguments)
{
    bool colour = isatty(STDOUT_FILENO) && !getenv("NO_COLOR");
    std::string ifName = "eth0";
    for (int i = 1; i < count; i++) {
        std::string argument = arguments[i];
        if (argument == "--colour" || argument == "--color")
            colour = true;
        else if (argument == "--plain")
            colour = false;
        else if (argument.starts_with("-"))
            return usage(arguments[0]);
        else
            ifName = argument;
    }
    demo::use_colour(colour);
    demo::title("libGorvanet: a client asks, a service answers, and every byte in between");
    demo::note("Both live in this process; the bus between them is hosts/loopback, the bytes are those of a real bus.");

    Bus bus;
    Service state;
    gorvanet_loopback_observe(watch, &bus);
    void *service = gorvanet_loopback_add_user("service");
    void *client = gorvanet_loopback_add_user("client");
    bool happened = start(service, client, state) && exchange(client, ifName, state) && fail_on_purpose(client, bus);
    happened = stop(bus) && happened;
    if (!happened) {
        demo::failure("something of this did not happen as told");
        return EXIT_FAILURE;
    }
    demo::success("The service saw " + quoted(state.ifName) + ", the client saw " + std::to_string(service_result) +
                  ", nothing is left behind.");
    return EXIT_SUCCESS;
}
