// The whole interface at work: a service and a client in one process, the library between them, a loopback bus below.
//
//     gorvanet_demo [--wire] [--colour | --plain] [interface name]
//
// The exit status is 0 only if everything that is told here really happened.

#include "client.h"
#include "gorvanet.h"
#include "gorvanet_loopback.h"
#include "screen.h"
#include "service.h"
#include "watch.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {

struct Options {
    bool wire = false; // the bytes of every message
    bool colour = isatty(STDOUT_FILENO) && !getenv("NO_COLOR");
    std::string interface = "eth0";
};

bool parse(int count, char **arguments, Options &options)
{
    for (int i = 1; i < count; i++) {
        std::string argument = arguments[i];
        if (argument == "--wire")
            options.wire = true;
        else if (argument == "--colour" || argument == "--color")
            options.colour = true;
        else if (argument == "--plain")
            options.colour = false;
        else if (argument.starts_with("-"))
            return false;
        else
            options.interface = argument;
    }
    return true;
}

void carry()
{
    gorvanet_loopback_run();
}

bool start(demo::Service &service, demo::Client &client)
{
    demo::heading("Start: the interface and two users go on the bus");
    bool started = gorvanet_initialize() == 0;
    demo::step("library", "registers GorvaNetCmd as number " + std::to_string(gorvaNet_getCmdIntfNum()) +
                              ", GorvaNetNtfy as number " + std::to_string(gorvaNet_getNtfyIntfNum()));
    started = started && demo::start(service);
    demo::step("service", "serves twelve commands");
    started = started && demo::start(client);
    demo::step("client", "listens to PrefixStatus of \"service\"");
    return started;
}

bool all_travelled(const demo::Watch &watch)
{
    unsigned damaged = 0;
    for (const demo::Travelled &entry : watch.travelled)
        damaged += entry.damaged;
    return watch.travelled.size() == GORVANET_COUNT_CMD + GORVANET_COUNT_NTFY && damaged == 0 &&
           watch.other_failures == 0;
}

bool exchange(const Options &options, demo::Client &client, demo::Watch &watch)
{
    demo::heading("One request, there and back, with every byte");
    demo::choose_interface(client);

    demo::heading("All the others");
    watch.shows_bytes = options.wire;
    demo::use_everything(client);
    demo::show_summary(watch);
    return client.as_expected && client.answers == demo::answered_methods && client.notifications == 1 &&
           all_travelled(watch) && watch.undeliverable == 0 && watch.unhandled == 0;
}

bool fail(demo::Client &client, demo::Watch &watch)
{
    demo::heading("What failures look like");
    watch.shows_bytes = false;
    demo::fail_on_purpose(client);
    return client.answers == demo::answered_methods && watch.undeliverable == 1 && watch.unhandled == 1 &&
           watch.other_failures == 0;
}

bool stop()
{
    demo::heading("Stop: event 0, and the library gives its registrations back");
    bool nothing_open = gorvanet_loopback_open_messages() == 0;
    bool ended = gorvanet_loopback_tear_down() == 0;
    bool released = gorvaNet_base.state == GORVANET_STATE_BASE_WAIT_INIT && gorvaNet_base.flags == 0 &&
                    gorvaNet_getCmdIntfNum() == GORVANET_NUM_NONE;
    demo::step("library", "no interface is registered any more");
    return nothing_open && ended && released;
}

} // namespace

int main(int count, char **arguments)
{
    Options options;
    if (!parse(count, arguments, options)) {
        fprintf(stderr, "usage: %s [--wire] [--colour | --plain] [interface name]\n", arguments[0]);
        return 2;
    }
    demo::use_colour(options.colour);
    demo::title("libGorvanet: a client asks, a service answers, and every byte in between");
    demo::note("Both live in this process; the bus between them is hosts/loopback, the bytes are those of a real bus.");
    if (!options.wire)
        demo::note("With --wire every message is shown byte by byte.");

    demo::Watch watch;
    demo::observe(watch);
    demo::Service service = {.user = gorvanet_loopback_add_user("service")};
    demo::Client client = {
        .user = gorvanet_loopback_add_user("client"), .carry = carry, .interface = options.interface};
    bool happened = start(service, client) && exchange(options, client, watch) && fail(client, watch);
    happened = stop() && happened && service.interface == client.interface;
    if (!happened) {
        demo::failure("something of this did not happen as told");
        return EXIT_FAILURE;
    }
    demo::success("12 commands, 9 answers and 1 notification arrived as they were sent; nothing is left behind.");
    return EXIT_SUCCESS;
}
