/* A host process that lacks one function of the middleware, zebIntf_sendReq_ntfy. The others do as little as they
 * can. */

#include <stdint.h>

uintptr_t zebCore_getBase_msgMngt(const char *name, void **place, uintptr_t count);
uintptr_t zebCore_putBase_msgMngt(void);
uintptr_t zebCore_sendMsgReq_toNameUser(void);
uintptr_t zebCore_sendMsgRes(void);
uintptr_t zebCore_isMsg_needRes(void);
uintptr_t zebIntf_regUser_msgMngt(void);
uintptr_t zebIntf_unregUser_msgMngt(void);
uintptr_t zebIntf_findSrvMthdNtfyUser(void);
uintptr_t zebIntf_getCore_user(void);
uintptr_t zebIntf_modSrv_mthd(void);
uintptr_t zebIntf_modCliNtfyUser_mthd(void);
uintptr_t ruvo_addEvtBase(void);

static void *block[3 + 6 * 12];

uintptr_t zebCore_getBase_msgMngt(const char *name, void **place, uintptr_t count)
{
    (void)name;
    *place = block;
    return count;
}

uintptr_t zebCore_putBase_msgMngt(void)
{
    return 0;
}

uintptr_t zebCore_sendMsgReq_toNameUser(void)
{
    return 0;
}

uintptr_t zebCore_sendMsgRes(void)
{
    return 0;
}

uintptr_t zebCore_isMsg_needRes(void)
{
    return 0;
}

uintptr_t zebIntf_regUser_msgMngt(void)
{
    return 0;
}

uintptr_t zebIntf_unregUser_msgMngt(void)
{
    return 0;
}

uintptr_t zebIntf_findSrvMthdNtfyUser(void)
{
    return 0;
}

uintptr_t zebIntf_getCore_user(void)
{
    return 0;
}

uintptr_t zebIntf_modSrv_mthd(void)
{
    return 0;
}

uintptr_t zebIntf_modCliNtfyUser_mthd(void)
{
    return 0;
}

uintptr_t ruvo_addEvtBase(void)
{
    return 0;
}
