// What the codecs call: the copying of texts, and what a failure leaves in the log.

#include "tlv.h"

#include <syslog.h>

namespace {

constexpr uint32_t block_size = 16;

inline void copy_word(char *to, const char *from)
{
    uint32_t word;
    __builtin_memcpy(&word, from, sizeof word);
    __builtin_memcpy(to, &word, sizeof word);
}

inline void copy_two_words(char *to, const char *from)
{
    copy_word(to, from);
    copy_word(to + 4, from + 4);
}

inline void copy_block(char *to, const char *from)
{
    copy_two_words(to, from);
    copy_two_words(to + 8, from + 8);
}

} // namespace

// From the end. The block (or two words, or word) at the start may overlap the one behind it.
void copy_bytes(char *to, const char *from, uint32_t size)
{
    if (size >= block_size) {
        for (uint32_t end = size; end > block_size; end -= block_size)
            copy_block(to + end - block_size, from + end - block_size);
        copy_block(to, from);
    } else if (size >= 8) {
        copy_two_words(to, from);
        copy_two_words(to + size - 8, from + size - 8);
    } else if (size >= 4) {
        copy_word(to, from);
        copy_word(to + size - 4, from + size - 4);
    } else {
        for (uint32_t i = 0; i < size; i++)
            to[i] = from[i];
    }
}

void copy_bounded(char *to, const char *from, uint32_t capacity)
{
    strncpy(to, from, capacity);
    to[capacity - 1] = '\0';
}

void announce(const char *function, int line, const void *start, uint32_t tag)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): pBody(%p): Type(%d) -> Error Before\n", function, line, start,
           static_cast<int>(tag));
}

void log_wrong_tag(const char *function, int line, const void *start, const uint8_t *item, uint32_t tag)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): pBody(%p): Tl(%u-%u) expectded(%u)\n", function, line, start, load_u32(item),
           load_u32(item + 4), tag);
}

void log_text_too_long(const char *function, int line, uint32_t size, uint32_t room)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): lgChainIn(%d) lgMaxChainOut(%d)\n", function, line, static_cast<int>(size),
           static_cast<int>(room));
}

void log_wrong_wide_tag(const char *function, int line, const void *start, const uint8_t *item, uint32_t tag)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): pBody(%p): Tl(%llu-%llu) expectded(%u)\n", function, line, start,
           static_cast<unsigned long long>(load_u64(item)), static_cast<unsigned long long>(load_u64(item + 8)), tag);
}

void log_invalid_pointer(const char *function, int line, uint64_t value)
{
    syslog(LOG_ERR, "[GORVANET] -> %s(%d): Invalid pointer value(%llu)\n", function, line,
           static_cast<unsigned long long>(value));
}
