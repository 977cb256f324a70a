// Attaching middleware users to the two interfaces, and what can be asked about the registration.

#include "check.h"
#include "gorvanet.h"
#include "middleware.h"

#include <syslog.h>

namespace {

bool selects_cmd(uint32_t selector)
{
    return selector == GORVANET_SELECT_BOTH || selector == GORVANET_SELECT_CMD;
}

bool selects_ntfy(uint32_t selector)
{
    return selector == GORVANET_SELECT_BOTH || selector == GORVANET_SELECT_NTFY;
}

uint32_t attach(void *user, void *value, void *reference, const gorvaNet_interface &interface, Where where = here())
{
    if (interface.num == GORVANET_NUM_NONE)
        return 0;
    int32_t status = zebIntf_regUser_msgMngt(user, value, reference, interface.num, any_number, 0);
    // Shows the command interface's number for both interfaces: kept for compatibility.
    if (status)
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): user(%p): regUser message management failed(%d) -> num(%d) ref(%p)\n",
               where.function, where.line, user, status, int{gorvaNet_base.cmd.num}, reference);
    return static_cast<uint32_t>(status);
}

int32_t detach(void *user, const gorvaNet_interface &interface, Where where = here())
{
    if (interface.num == GORVANET_NUM_NONE)
        return 0;
    int32_t status = zebIntf_unregUser_msgMngt(user, interface.num, any_number, 0);
    if (status)
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): user(%p): unregUser message management failed(%d) -> num(%d)\n",
               where.function, where.line, user, status, int{interface.num});
    return status;
}

// The number stays in the descriptor when the middleware drops an interface, and so do the getters' results.
bool check_number(const gorvaNet_interface &interface, uint16_t number, Where where = here())
{
    if (number == interface.num)
        return true;
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Message management(%d) unknown\n", where.function, where.line, int{number});
    return false;
}

} // namespace

uint32_t gorvaNet_regUser_msgMngt(void *user, void *value, void *reference, uint32_t selector)
{
    uint32_t status = 0;
    if (selects_cmd(selector))
        status = attach(user, value, reference, gorvaNet_base.cmd);
    if (!status && selects_ntfy(selector))
        status = attach(user, value, reference, gorvaNet_base.ntfy);
    return status;
}

int32_t gorvaNet_unregUser_msgMngt(void *user, uint32_t selector)
{
    int32_t status = 0;
    if (selects_cmd(selector))
        status = detach(user, gorvaNet_base.cmd);
    if (!status && selects_ntfy(selector))
        status = detach(user, gorvaNet_base.ntfy);
    return status;
}

uint32_t gorvaNet_findSrvMthdNtfyUser(void *first, void *second, uint32_t number, void *fourth)
{
    return zebIntf_findSrvMthdNtfyUser(first, second, gorvaNet_base.name, static_cast<uint16_t>(number), fourth);
}

uint16_t gorvaNet_getCmdIntfNum()
{
    return gorvaNet_base.cmd.num;
}

uint16_t gorvaNet_getNtfyIntfNum()
{
    return gorvaNet_base.ntfy.num;
}

void gorvaNet_modDebug(uint32_t value)
{
    gorvaNet_base.debug = value;
}

void gorvaNet_cbEvtMsgMngt_unreg_msgCmd(uint16_t number)
{
    if (check_number(gorvaNet_base.cmd, number))
        unset_flag(GORVANET_FLAGS_BASE_REG_CMD, "GORVANET_FLAGS_BASE_REG_CMD");
}

void gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(uint16_t number)
{
    if (check_number(gorvaNet_base.ntfy, number))
        unset_flag(GORVANET_FLAGS_BASE_REG_NTFY, "GORVANET_FLAGS_BASE_REG_NTFY");
}
