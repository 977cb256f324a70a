// Start and stop of the interface against the middleware and the event loop.

#include "check.h"
#include "gorvanet.h"
#include "middleware.h"

#include <syslog.h>

namespace {

void fill_block(MessageManagement *block, const gorvaNet_interface &interface, const gorvaNet_method *methods,
                uint32_t count)
{
    block->name = interface.name;
    block->unreg = interface.unreg;
    MethodRecord *records = method_records(block);
    for (uint32_t i = 0; i < count; i++) {
        records[i].reserved = methods[i].reserved;
        records[i].name = methods[i].name;
        records[i].freeBody = methods[i].freeBody;
        records[i].serializeBody = methods[i].serializeBody;
        records[i].unserializeBody = methods[i].unserializeBody;
        records[i].logBody = methods[i].logBody;
    }
}

// Asks for a block with a literal count of methods, whatever the interface's own count says. The number is stored on a
// failure too: it is GORVANET_NUM_NONE then, or, where the middleware gave a number and no block, that number.
template <uint32_t Count>
bool register_interface(gorvaNet_interface &interface, const gorvaNet_method (&methods)[Count])
{
    MessageManagement *block = nullptr;
    interface.num = zebCore_getBase_msgMngt(interface.name, &block, Count);
    if (interface.num == GORVANET_NUM_NONE || !block)
        return false;
    fill_block(block, interface, methods, Count);
    return true;
}

} // namespace

uint32_t gorvanet_initialize()
{
    uint32_t status = gorvaNet_addBase();
    if (status)
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Add Base failed(%d)\n", __func__, __LINE__, static_cast<int>(status));
    return status;
}

uint32_t gorvaNet_addBase()
{
    check_base_magic();
    if (!check_state(GORVANET_STATE_BASE_WAIT_INIT, "GORVANET_STATE_BASE_WAIT_INIT"))
        return 3;
    gorvaNet_base.flags = 0;
    if (gorvaNet_base.cmd.count != 0) {
        if (!register_interface(gorvaNet_base.cmd, gorvaNet_base.cmdMethods)) {
            syslog(LOG_ERR, "[GORVANET] -> %s(%d): Add command message management failed\n", __func__, __LINE__);
            return 1;
        }
        set_flag(GORVANET_FLAGS_BASE_REG_CMD, "GORVANET_FLAGS_BASE_REG_CMD");
    }
    if (gorvaNet_base.ntfy.count != 0) {
        if (!register_interface(gorvaNet_base.ntfy, gorvaNet_base.ntfyMethods)) {
            syslog(LOG_ERR, "[GORVANET] -> %s(%d): Add notification message management failed\n", __func__, __LINE__);
            return 1;
        }
        set_flag(GORVANET_FLAGS_BASE_REG_NTFY, "GORVANET_FLAGS_BASE_REG_NTFY");
    }
    int32_t status = ruvo_addEvtBase(gorvaNet_cbEvtBase, &gorvaNet_base);
    if (status) {
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Add event base failed(%d)\n", __func__, __LINE__, status);
        return static_cast<uint32_t>(status);
    }
    set_state(GORVANET_STATE_BASE_INIT, "GORVANET_STATE_BASE_INIT");
    return 0;
}

uint32_t gorvaNet_delBase()
{
    if (!check_state(GORVANET_STATE_BASE_INIT, "GORVANET_STATE_BASE_INIT"))
        return 3;
    if (gorvaNet_base.flags & GORVANET_FLAGS_BASE_REG_CMD) {
        int32_t status = zebCore_putBase_msgMngt(gorvaNet_base.cmd.num, 0);
        if (status) {
            // Shows the notification interface's number: kept for compatibility.
            syslog(LOG_ERR, "[GORVANET] -> %s(%d): Put command message management(%u) failed(%d)\n", __func__, __LINE__,
                   unsigned{gorvaNet_base.ntfy.num}, status);
            return static_cast<uint32_t>(status);
        }
        gorvaNet_base.cmd.num = GORVANET_NUM_NONE;
        unset_flag(GORVANET_FLAGS_BASE_REG_CMD, "GORVANET_FLAGS_BASE_REG_CMD");
    }
    if (gorvaNet_base.flags & GORVANET_FLAGS_BASE_REG_NTFY) {
        int32_t status = zebCore_putBase_msgMngt(gorvaNet_base.ntfy.num, 0);
        if (status) {
            syslog(LOG_ERR, "[GORVANET] -> %s(%d): Put notification message management(%u) failed(%d)\n", __func__,
                   __LINE__, unsigned{gorvaNet_base.ntfy.num}, status);
            return static_cast<uint32_t>(status);
        }
        gorvaNet_base.ntfy.num = GORVANET_NUM_NONE;
        unset_flag(GORVANET_FLAGS_BASE_REG_NTFY, "GORVANET_FLAGS_BASE_REG_NTFY");
    }
    set_state(GORVANET_STATE_BASE_WAIT_INIT, "GORVANET_STATE_BASE_WAIT_INIT");
    return 0;
}

void gorvaNet_cbEvtBase(void *, int32_t event)
{
    if (event != 0) {
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Unknown event(%d)\n", __func__, __LINE__, event);
        return;
    }
    if (gorvaNet_delBase())
        syslog(LOG_ERR, "[GORVANET] -> %s(%d): Delete Base\n", __func__, __LINE__);
}

void gorvaNet_cbEvtMsgError()
{
}
