// The cold half of the encoding: what a failure leaves in the log.

#include "tlv.h"

#include <syslog.h>

void announce(const char *function, int line, const void *start, uint32_t tag)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): pBody(%p): Type(%d) -> Error Before\n", function, line, start,
           static_cast<int>(tag));
}

uint32_t refuse_tag(const char *function, int line, const void *start, const uint8_t *item, uint32_t tag)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): pBody(%p): Tl(%u-%u) expectded(%u)\n", function, line, start, load_u32(item),
           load_u32(item + 4), tag);
    return bad_field;
}

uint32_t refuse_text(const char *function, int line, uint32_t size, uint32_t room)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): lgChainIn(%d) lgMaxChainOut(%d)\n", function, line, static_cast<int>(size),
           static_cast<int>(room));
    return bad_field;
}

uint32_t refuse_wide_tag(const char *function, int line, const void *start, const uint8_t *item, uint32_t tag)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): pBody(%p): Tl(%llu-%llu) expectded(%u)\n", function, line, start,
           static_cast<unsigned long long>(load_u64(item)), static_cast<unsigned long long>(load_u64(item + 8)), tag);
    return bad_field;
}

uint32_t refuse_pointer(const char *function, int line, uint64_t value)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Invalid pointer value(%llu)\n", function, line,
           static_cast<unsigned long long>(value));
    return bad_pointer;
}
