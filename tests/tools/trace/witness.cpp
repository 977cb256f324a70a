// Uses the whole interface, and writes down what the bus carries, as the bus sees it:
//
//     trace_witness FILE
//
// A line for each message that is encoded or handed over: side, method, direction, the body in hex. The program succeeds
// when everything came back as the demo expects it.

#include "client.h"
#include "gorvanet.h"
#include "gorvanet_loopback.h"
#include "service.h"

#include <cstdio>

namespace {

void write_down(void *data, const gorvanet_loopback_event *event)
{
    auto *file = static_cast<FILE *>(data);
    const char *side = "received";
    if (event->kind == GORVANET_LOOPBACK_SENT || event->kind == GORVANET_LOOPBACK_ANSWERED)
        side = "sent";
    else if (event->kind != GORVANET_LOOPBACK_DELIVERED)
        return;
    fprintf(file, "%s %s %s ", side, event->method, event->direction == GORVANET_BODY_REQUEST ? "forth" : "back");
    const auto *bytes = static_cast<const unsigned char *>(event->bytes);
    for (uint32_t i = 0; i < event->size; i++)
        fprintf(file, "%02x", bytes[i]);
    fprintf(file, "\n");
}

void ignore_result(void *, void *, uint32_t)
{
}

// Two requests at once, then one that nobody handles: the service has accepted the method, without a handler.
bool send_more(void *service, void *client)
{
    gorvaNet_sendReq_setMtu(client, ignore_result, nullptr, nullptr, "service", 1);
    gorvaNet_sendReq_setMtu(client, ignore_result, nullptr, nullptr, "service", 2);
    gorvanet_loopback_run();
    if (gorvaNet_modSrv_recvMsg_setMtu(service, nullptr, nullptr, nullptr) != 0)
        return false;
    gorvaNet_sendReq_setMtu(client, ignore_result, nullptr, nullptr, "service", 3);
    gorvanet_loopback_run();
    return true;
}

} // namespace

int main(int count, char **arguments)
{
    FILE *file = count == 2 ? fopen(arguments[1], "w") : nullptr;
    if (!file)
        return 2;
    gorvanet_loopback_observe(write_down, file);
    demo::Service service = {.user = gorvanet_loopback_add_user("service")};
    demo::Client client = {.user = gorvanet_loopback_add_user("client"), .carry = [] { gorvanet_loopback_run(); }};
    bool fine = gorvanet_initialize() == 0 && demo::start(service) && demo::start(client);
    demo::choose_interface(client);
    demo::use_everything(client);
    fine = fine && client.as_expected && client.notifications == 1 && client.answers == demo::answered_methods;
    fine = send_more(service.user, client.user) && fine;
    fine = gorvanet_loopback_tear_down() == 0 && fine;
    return fclose(file) == 0 && fine ? 0 : 1;
}
