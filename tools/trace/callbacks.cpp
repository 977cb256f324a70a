// The functions that stand before the library's: the words that a host finds in the library's tables lead here, whether
// the process is linked with the library or loads it later.

#include "real.h"
#include "trace.h"

using namespace trace;

// ---- SetOsIfc ---------------------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setOsIfc(uint32_t type, const void *body, void **buffer,
                                                             uint32_t *size)
{
    return serialize(command(0), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setOsIfc(uint32_t type, const void *buffer, void **body,
                                                              uint32_t *size)
{
    return unserialize(command(0), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_setOsIfc(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(0), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- SetDhcp ----------------------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setDhcp(uint32_t type, const void *body, void **buffer,
                                                            uint32_t *size)
{
    return serialize(command(1), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setDhcp(uint32_t type, const void *buffer, void **body,
                                                             uint32_t *size)
{
    return unserialize(command(1), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_setDhcp(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(1), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- SetRdisc6 --------------------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setRdisc6(uint32_t type, const void *body, void **buffer,
                                                              uint32_t *size)
{
    return serialize(command(2), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setRdisc6(uint32_t type, const void *buffer, void **body,
                                                               uint32_t *size)
{
    return unserialize(command(2), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_setRdisc6(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(2), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- GetIPv4Props -----------------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv4Props(uint32_t type, const void *body, void **buffer,
                                                                 uint32_t *size)
{
    return serialize(command(3), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_getIPv4Props(uint32_t type, const void *buffer, void **body,
                                                                  uint32_t *size)
{
    return unserialize(command(3), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_getIPv4Props(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(3), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- GetIPv6Props -----------------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv6Props(uint32_t type, const void *body, void **buffer,
                                                                 uint32_t *size)
{
    return serialize(command(4), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_getIPv6Props(uint32_t type, const void *buffer, void **body,
                                                                  uint32_t *size)
{
    return unserialize(command(4), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_getIPv6Props(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(4), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- SetIPv4Address ---------------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setIPv4Address(uint32_t type, const void *body, void **buffer,
                                                                   uint32_t *size)
{
    return serialize(command(5), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setIPv4Address(uint32_t type, const void *buffer, void **body,
                                                                    uint32_t *size)
{
    return unserialize(command(5), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_setIPv4Address(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(5), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- SetMtu -----------------------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setMtu(uint32_t type, const void *body, void **buffer,
                                                           uint32_t *size)
{
    return serialize(command(6), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setMtu(uint32_t type, const void *buffer, void **body,
                                                            uint32_t *size)
{
    return unserialize(command(6), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_setMtu(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(6), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- SetIPv6PrefixAndAddress ------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setIPv6PrefixAndAddress(uint32_t type, const void *body,
                                                                            void **buffer, uint32_t *size)
{
    return serialize(command(7), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setIPv6PrefixAndAddress(uint32_t type, const void *buffer,
                                                                             void **body, uint32_t *size)
{
    return unserialize(command(7), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_setIPv6PrefixAndAddress(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(7), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- AskStateRenotification -------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_askStateRenotification(uint32_t type, const void *body,
                                                                           void **buffer, uint32_t *size)
{
    return serialize(command(8), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_askStateRenotification(uint32_t type, const void *buffer,
                                                                            void **body, uint32_t *size)
{
    return unserialize(command(8), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_askStateRenotification(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(8), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- RegisterPrefixStatus ---------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_registerPrefixStatus(uint32_t type, const void *body, void **buffer,
                                                                         uint32_t *size)
{
    return serialize(command(9), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_registerPrefixStatus(uint32_t type, const void *buffer,
                                                                          void **body, uint32_t *size)
{
    return unserialize(command(9), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_registerPrefixStatus(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(9), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- Configure --------------------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_configure(uint32_t type, const void *body, void **buffer,
                                                              uint32_t *size)
{
    return serialize(command(10), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configure(uint32_t type, const void *buffer, void **body,
                                                               uint32_t *size)
{
    return unserialize(command(10), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_configure(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(10), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- ConfigureAllIPv6Intf ---------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_configureAllIPv6Intf(uint32_t type, const void *body, void **buffer,
                                                                         uint32_t *size)
{
    return serialize(command(11), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configureAllIPv6Intf(uint32_t type, const void *buffer,
                                                                          void **body, uint32_t *size)
{
    return unserialize(command(11), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_configureAllIPv6Intf(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(command(11), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- PrefixStatus -----------------------------------------------------------------------------------------------------

uint32_t gorvaNet_cbEvtMsgMngt_serializeBody_msgNtfy_prefixStatus(uint32_t type, const void *body, void **buffer,
                                                                  uint32_t *size)
{
    return serialize(notification(0), real<gorvaNet_serializeBody>(), type, body, buffer, size);
}

int32_t gorvaNet_cbEvtMsgMngt_unserializeBody_msgNtfy_prefixStatus(uint32_t type, const void *buffer, void **body,
                                                                   uint32_t *size)
{
    return unserialize(notification(0), real<gorvaNet_unserializeBody>(), type, buffer, body, size);
}

void gorvaNet_recvReq_ntfyPrefixStatus(void *message, void *body, gorvaNet_function *handler, void *data)
{
    receive(notification(0), real<gorvaNet_recvReq>(), message, body, handler, data);
}

// ---- The start ------------------------------------------------------------------------------------------------------

// The look-up alone puts the tracer between the library and the bus, before the first request leaves.
uint32_t gorvaNet_addBase()
{
    return real<uint32_t()>()();
}
