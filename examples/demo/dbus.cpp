// One of the demo's processes on a D-Bus: the service, a client that uses the whole interface, or one that listens.
//
//     gorvanet_demo_dbus [--wire] [--allow UID] [--ready FD] service | client | listener
//
// The bus is that of DBUS_SYSTEM_BUS_ADDRESS, the system's by default. The service and the listener say when they are
// ready: to whoever started them by sd_notify(3), and with a line to the file descriptor of --ready. They end with
// SIGTERM. The exit status is 0 only if everything really happened.

#include "annotate.h"
#include "client.h"
#include "gorvanet.h"
#include "gorvanet_dbus.h"
#include "screen.h"
#include "service.h"

#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <system_error>
#include <systemd/sd-daemon.h>
#include <systemd/sd-event.h>
#include <unistd.h>

namespace {

struct Options {
    std::string role;
    bool wire = false;
    int ready = -1;
    uint32_t allowed = 0; // a user besides root and this process's own
};

template <typename Number> bool parse_number(const char *text, Number &number)
{
    if (text == nullptr)
        return false;
    const char *behind = text + std::strlen(text);
    auto [end, error] = std::from_chars(text, behind, number);
    return error == std::errc() && end == behind;
}

bool parse(char **arguments, Options &options)
{
    while (*++arguments != nullptr) {
        std::string argument = *arguments;
        bool known = true;
        if (argument == "--wire")
            options.wire = true;
        else if (argument == "--ready")
            known = parse_number(*++arguments, options.ready);
        else if (argument == "--allow")
            known = parse_number(*++arguments, options.allowed);
        else if (!argument.starts_with("-") && options.role.empty())
            options.role = argument;
        else
            known = false;
        if (!known)
            return false;
    }
    return options.role == "service" || options.role == "client" || options.role == "listener";
}

// ---- The bus, watched -----------------------------------------------------------------------------------------------

struct Watch {
    bool wire;
    unsigned damaged = 0; // rows in which the annotator found a problem
    unsigned undeliverable = 0;
    unsigned unhandled = 0;
    unsigned other_failures = 0;
};

void sent(Watch &watch, const gorvanet_dbus_event &event)
{
    std::string name = event.method + std::string(event.direction == GORVANET_BODY_REQUEST ? " request" : " response");
    std::span<const uint8_t> bytes(static_cast<const uint8_t *>(event.bytes), event.size);
    std::vector<demo::Row> rows = demo::annotate(demo::find_layout(event.method, event.direction), bytes);
    for (const demo::Row &row : rows)
        watch.damaged += !row.problem.empty();
    if (watch.wire)
        demo::dump(name, rows, event.size);
    else
        demo::step("bus", name + ", " + std::to_string(event.size) + " bytes");
}

void on_event(void *data, const gorvanet_dbus_event *event)
{
    auto &watch = *static_cast<Watch *>(data);
    switch (event->kind) {
    case GORVANET_DBUS_SENT:
    case GORVANET_DBUS_ANSWERED:
        return sent(watch, *event);
    case GORVANET_DBUS_DELIVERED:
    case GORVANET_DBUS_NOTIFIED:
        return;
    case GORVANET_DBUS_STATUS:
        watch.unhandled++;
        return demo::failure("answered with status " + std::to_string(event->status) + ": " + event->text);
    case GORVANET_DBUS_UNDELIVERABLE:
        watch.undeliverable++;
        return demo::failure("cannot be delivered: " + std::string(event->text));
    default:
        watch.other_failures++;
        return demo::failure(event->text);
    }
}

// ---- The processes --------------------------------------------------------------------------------------------------

void say_ready(const Options &options)
{
    sd_notify(0, "READY=1");
    if (options.ready >= 0)
        dprintf(options.ready, "ready\n");
}

// SIGTERM stops the loop.
bool stop_on_request()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    sd_event *loop = nullptr;
    auto *stop = +[](sd_event_source *, const signalfd_siginfo *, void *) {
        gorvanet_dbus_stop();
        return 0;
    };
    bool added = sd_event_default(&loop) >= 0 && sd_event_add_signal(loop, nullptr, SIGTERM, stop, nullptr) >= 0;
    sd_event_unref(loop);
    return added;
}

void wait_for_answers()
{
    while (gorvanet_dbus_open_messages())
        gorvanet_dbus_turn(1000);
}

bool serve(const Options &options, void *user)
{
    demo::Service service = {.user = user};
    if (!demo::start(service) || !stop_on_request())
        return false;
    demo::step("service", "serves twelve commands, process " + std::to_string(getpid()));
    say_ready(options);
    gorvanet_dbus_run();
    return true;
}

bool listen(const Options &options, void *user)
{
    demo::Client listener = {.user = user, .carry = wait_for_answers, .name = "listener"};
    if (!demo::start(listener) || !stop_on_request())
        return false;
    demo::step("listener", "listens to PrefixStatus of \"service\", process " + std::to_string(getpid()));
    say_ready(options);
    gorvanet_dbus_run();
    return listener.as_expected && listener.notifications == 1;
}

bool ask(const Options &, void *user, const Watch &watch)
{
    demo::Client client = {.user = user, .carry = wait_for_answers};
    if (!demo::attach(client))
        return false;
    demo::heading("The whole interface, process " + std::to_string(getpid()));
    demo::choose_interface(client);
    demo::use_everything(client);
    bool everything = client.as_expected && client.answers == demo::answered_methods && watch.undeliverable == 0 &&
                      watch.unhandled == 0;
    demo::heading("What failures look like");
    demo::fail_on_purpose(client);
    return everything && client.answers == demo::answered_methods && watch.undeliverable == 1 && watch.unhandled == 2;
}

bool play(const Options &options, void *user, const Watch &watch)
{
    if (options.role == "service")
        return serve(options, user);
    if (options.role == "listener")
        return listen(options, user);
    return ask(options, user, watch);
}

int32_t is_allowed(void *options, const gorvanet_dbus_sender *sender)
{
    return sender->uid == 0 || sender->uid == geteuid() || sender->uid == static_cast<Options *>(options)->allowed;
}

} // namespace

int main(int, char **arguments)
{
    Options options;
    if (!parse(arguments, options)) {
        fprintf(stderr, "usage: %s [--wire] [--allow UID] [--ready FD] service | client | listener\n", arguments[0]);
        return 2;
    }
    setvbuf(stdout, nullptr, _IOLBF, 0); // the processes write in turns
    demo::use_colour(isatty(STDOUT_FILENO) && !getenv("NO_COLOR"));
    Watch watch = {.wire = options.wire};
    gorvanet_dbus_observe(on_event, &watch);
    if (options.allowed)
        gorvanet_dbus_check_senders(is_allowed, &options);
    void *user = gorvanet_dbus_add_user(options.role.c_str());
    bool happened = user && gorvanet_initialize() == 0 && play(options, user, watch);
    happened = gorvanet_dbus_open_messages() == 0 && gorvanet_dbus_tear_down() == 0 && happened;
    happened = happened && gorvaNet_base.state == GORVANET_STATE_BASE_WAIT_INIT && watch.damaged == 0 &&
               watch.other_failures == 0;
    if (!happened)
        demo::failure(options.role + ": something of this did not happen as told");
    return happened ? EXIT_SUCCESS : EXIT_FAILURE;
}
