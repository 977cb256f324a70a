#include "stub_bus.h"

StubBus stub_bus;

uint32_t zebCore_sendMsgReq_toNameUser(void *, void *body, Receiver *receiver, gorvaNet_function *callback, void *,
                                       void *pass2, const char *, uint32_t, uint32_t, uint32_t, uint32_t)
{
    stub_bus.request = body;
    stub_bus.receiver = receiver;
    stub_bus.context = {callback, pass2};
    return 0;
}

uint32_t zebIntf_sendReq_ntfy(void *, void *body, uint32_t, uint32_t, uint32_t, void *, void *, const char *, uint32_t,
                              uint32_t, uint32_t, uint32_t, uint32_t)
{
    stub_bus.request = body;
    return 0;
}

void zebCore_sendMsgRes(void *, void *body, uint32_t, uint32_t)
{
    stub_bus.response = body;
}

int32_t zebCore_isMsg_needRes(void *)
{
    return 0;
}

void *zebIntf_getCore_user(void *user)
{
    return user;
}

// The rest is never reached, but a program that links the library has it.

int32_t ruvo_addEvtBase(void (*)(void *, int32_t), void *)
{
    return 0;
}

uint16_t zebCore_getBase_msgMngt(const char *, MessageManagement **, uint32_t)
{
    return GORVANET_NUM_NONE;
}

int32_t zebCore_putBase_msgMngt(uint32_t, uint32_t)
{
    return 0;
}

int32_t zebIntf_regUser_msgMngt(void *, void *, void *, uint32_t, uint32_t, uint32_t)
{
    return 0;
}

int32_t zebIntf_unregUser_msgMngt(void *, uint32_t, uint32_t, uint32_t)
{
    return 0;
}

uint32_t zebIntf_findSrvMthdNtfyUser(void *, void *, const char *, uint32_t, void *)
{
    return 0;
}

int32_t zebIntf_modSrv_mthd(void *, gorvaNet_function *, void *, void *, uint32_t, const char *, gorvaNet_interface *,
                            gorvaNet_interface *, uint32_t, uint32_t, uint32_t)
{
    return 0;
}

int32_t zebIntf_modCliNtfyUser_mthd(void *, gorvaNet_function *, void *, void *, uint32_t, const char *, const char *,
                                    const char *, gorvaNet_interface *, gorvaNet_interface *, uint32_t)
{
    return 0;
}
