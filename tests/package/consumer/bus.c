/* A bus that refuses everything: the functions that the library takes from the process. Where they are defined for it,
 * their types do not matter to the linker. */

#include <stdint.h>

#define REFUSED 0xffffu

#ifdef __cplusplus
extern "C" {
#endif

uint32_t ruvo_addEvtBase(void);
uint32_t zebCore_getBase_msgMngt(void);
uint32_t zebCore_isMsg_needRes(void);
uint32_t zebCore_putBase_msgMngt(void);
uint32_t zebCore_sendMsgReq_toNameUser(void);
uint32_t zebCore_sendMsgRes(void);
uint32_t zebIntf_findSrvMthdNtfyUser(void);
uint32_t zebIntf_getCore_user(void);
uint32_t zebIntf_modCliNtfyUser_mthd(void);
uint32_t zebIntf_modSrv_mthd(void);
uint32_t zebIntf_regUser_msgMngt(void);
uint32_t zebIntf_sendReq_ntfy(void);
uint32_t zebIntf_unregUser_msgMngt(void);

uint32_t ruvo_addEvtBase(void)
{
    return REFUSED;
}

uint32_t zebCore_getBase_msgMngt(void)
{
    return REFUSED;
}

uint32_t zebCore_isMsg_needRes(void)
{
    return REFUSED;
}

uint32_t zebCore_putBase_msgMngt(void)
{
    return REFUSED;
}

uint32_t zebCore_sendMsgReq_toNameUser(void)
{
    return 0;
}

uint32_t zebCore_sendMsgRes(void)
{
    return REFUSED;
}

uint32_t zebIntf_findSrvMthdNtfyUser(void)
{
    return 0;
}

uint32_t zebIntf_getCore_user(void)
{
    return 0;
}

uint32_t zebIntf_modCliNtfyUser_mthd(void)
{
    return REFUSED;
}

uint32_t zebIntf_modSrv_mthd(void)
{
    return REFUSED;
}

uint32_t zebIntf_regUser_msgMngt(void)
{
    return REFUSED;
}

uint32_t zebIntf_sendReq_ntfy(void)
{
    return 0;
}

uint32_t zebIntf_unregUser_msgMngt(void)
{
    return REFUSED;
}

#ifdef __cplusplus
}
#endif
