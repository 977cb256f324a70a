#include "trip.h"

#include "stub_bus.h"

#include <cstdlib>

namespace {

const gorvaNet_method &method = gorvaNet_base.cmdMethods[5];

void serve(void *message, void *, const ipv4_address *address)
{
    ipv4_address_return outcome = {address->field3};
    gorvaNet_sendRes_setIPv4Address(message, &outcome);
}

void on_outcome(void *, void *user_data, const ipv4_address_return *outcome)
{
    *static_cast<uint32_t *>(user_data) = outcome->result;
}

// The body as the other side gets it.
void *carry(uint32_t type, void *body)
{
    void *buffer = nullptr;
    void *received = nullptr;
    uint32_t size = 0;
    if (method.serializeBody(type, body, &buffer, &size))
        abort();
    method.freeBody(type, body);
    if (method.unserializeBody(type, buffer, &received, &size))
        abort();
    free(buffer);
    return received;
}

} // namespace

uint32_t run_trip(const ipv4_address &address)
{
    uint32_t result = 0;
    gorvaNet_sendReq_setIPv4Address(nullptr, on_outcome, nullptr, &result, "ip-service", &address);
    void *request = carry(GORVANET_BODY_REQUEST, stub_bus.request);
    method.recvReq(nullptr, request, reinterpret_cast<gorvaNet_function *>(serve), nullptr);
    method.freeBody(GORVANET_BODY_REQUEST, request);
    void *response = carry(GORVANET_BODY_RESPONSE, stub_bus.response);
    stub_bus.receiver(nullptr, &stub_bus.context, response);
    method.freeBody(GORVANET_BODY_RESPONSE, response);
    return result;
}
