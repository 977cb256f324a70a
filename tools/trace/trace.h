// What the tracer does where a message passes: it lets the library do its work, then records.

#ifndef GORVANET_TRACE_TRACE_H
#define GORVANET_TRACE_TRACE_H

#include "gorvanet.h"
#include "message.h"

namespace trace {

constexpr Method command(uint16_t index)
{
    return {layouts::Interface::command, index};
}

constexpr Method notification(uint16_t index)
{
    return {layouts::Interface::notification, index};
}

uint32_t serialize(Method method, gorvaNet_serializeBody *real, uint32_t type, const void *body, void **buffer,
                   uint32_t *size);
int32_t unserialize(Method method, gorvaNet_unserializeBody *real, uint32_t type, const void *buffer, void **body,
                    uint32_t *size);
void receive(Method method, gorvaNet_recvReq *real, void *message, void *body, gorvaNet_function *handler, void *data);

// What the library is about to hand to the bus.
void request_leaves(uint16_t method, const void *body, const char *server, bool awaits_response);
void response_leaves(const void *message, const void *body);
void nobody_handles(const void *message);

} // namespace trace

#endif
