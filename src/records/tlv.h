// The encoding: cursors that write and read tagged, length-prefixed, big-endian items.
//
//     number   tag (4 bytes)   4 (4 bytes)        value (4 bytes)
//     text     tag (4 bytes)   length (4 bytes)   characters, NUL, zeros up to length
//
// A codec is the list of its fields, one call each, in order. Failures stick: after the first one a cursor stays where
// it is, and each later call does nothing but announce its field in the log, where the format asks for that. A codec
// opens a cursor, lists its fields and closes the cursor, which gives the status.
//
// Each call takes its own source line for the log from `line`; give it one line of source, and never an argument.

#ifndef GORVANET_RECORDS_TLV_H
#define GORVANET_RECORDS_TLV_H

#include "../frame/internal.h"

#include <cstdint>
#include <cstring>

constexpr uint32_t header_size = 8;               // tag and length
constexpr uint32_t number_item = header_size + 4; // encoded size of a number
constexpr uint32_t bad_field = 4;                 // status of a field that cannot be encoded or decoded

// The one wide item: tag, length and value of 64 bits each, for a pointer.
constexpr uint32_t wide_header_size = 16;
constexpr uint32_t wide_item = wide_header_size + 8;
constexpr uint32_t bad_pointer = 12; // status of a pointer value that does not fit 32 bits

// Value length of a text of `size` bytes, NUL included: rounded down to a multiple of 4, plus 4. So 1 to 4 zero bytes
// follow the NUL, and 4 where none would do: kept for compatibility. Wraps to 0 for sizes that no text has.
constexpr uint32_t chain_length(uint32_t size)
{
    return (size & ~uint32_t{3}) + 4;
}

// Bytes of a text and its NUL.
inline uint32_t text_size(const char *text)
{
    return static_cast<uint32_t>(strlen(text)) + 1;
}

// Encoded size of a text.
inline uint32_t text_item(const char *text)
{
    return header_size + chain_length(text_size(text));
}

[[gnu::always_inline]] inline uint32_t load_u32(const uint8_t *at)
{
    return uint32_t{at[0]} << 24 | uint32_t{at[1]} << 16 | uint32_t{at[2]} << 8 | uint32_t{at[3]};
}

[[gnu::always_inline]] inline void store_u32(uint8_t *at, uint32_t value)
{
    at[0] = static_cast<uint8_t>(value >> 24);
    at[1] = static_cast<uint8_t>(value >> 16);
    at[2] = static_cast<uint8_t>(value >> 8);
    at[3] = static_cast<uint8_t>(value);
}

inline uint64_t load_u64(const uint8_t *at)
{
    return uint64_t{load_u32(at)} << 32 | load_u32(at + 4);
}

inline void store_u64(uint8_t *at, uint64_t value)
{
    store_u32(at, static_cast<uint32_t>(value >> 32));
    store_u32(at + 4, static_cast<uint32_t>(value));
}

// Copies a text of known size, NUL included. Nothing behind the NUL is read or written.
[[INTERNAL]] void copy_bytes(char *to, const char *from, uint32_t size);

// Copies a text into an array of `capacity` bytes, from another array of that size or from a terminated text of any
// length: what does not fit is cut, the rest of the array is zeroed, and its last byte is always a NUL.
[[INTERNAL]] void copy_bounded(char *to, const char *from, uint32_t capacity);

template <uint32_t Capacity> void copy_text(char (&to)[Capacity], const char *from)
{
    copy_bounded(to, from, Capacity);
}

// What a failure leaves in the log. `start` is where the codec began.
[[INTERNAL, gnu::cold]] void announce(const char *function, int line, const void *start, uint32_t tag);
[[INTERNAL, gnu::cold]] void log_wrong_tag(const char *function, int line, const void *start, const uint8_t *item,
                                           uint32_t tag);
[[INTERNAL, gnu::cold]] void log_text_too_long(const char *function, int line, uint32_t size, uint32_t room);
[[INTERNAL, gnu::cold]] void log_wrong_wide_tag(const char *function, int line, const void *start, const uint8_t *item,
                                                uint32_t tag);
[[INTERNAL, gnu::cold]] void log_invalid_pointer(const char *function, int line, uint64_t value);

// ---- Writing --------------------------------------------------------------------------------------------------------

struct Writer {
    uint8_t *at;          // where the next item goes
    uint8_t *start;       // where the codec began
    uint8_t **cursor;     // the caller's cursor, which nested records move
    const char *function; // name in the log
    uint32_t status;      // 0 until something fails
};

inline Writer open_writer(uint8_t **cursor, const char *function = __builtin_FUNCTION())
{
    return {*cursor, *cursor, cursor, function, 0};
}

inline uint32_t close_writer(const Writer &out)
{
    *out.cursor = out.at;
    return out.status;
}

[[gnu::always_inline]] inline void put_u32(Writer &out, uint32_t tag, uint32_t value, int line = __builtin_LINE())
{
    if (out.status) {
        announce(out.function, line, out.start, tag);
        return;
    }
    store_u32(out.at, tag);
    store_u32(out.at + 4, 4);
    store_u32(out.at + header_size, value);
    out.at += number_item;
}

// Zero-extended.
inline void put_u8(Writer &out, uint32_t tag, uint8_t value, int line = __builtin_LINE())
{
    put_u32(out, tag, value, line);
}

// Sign-extended.
inline void put_s8(Writer &out, uint32_t tag, int8_t value, int line = __builtin_LINE())
{
    put_u32(out, tag, static_cast<uint32_t>(int32_t{value}), line);
}

// Behind numbers only, so nothing can have failed.
inline void put_wide(Writer &out, uint32_t tag, const void *pointer)
{
    store_u64(out.at, tag);
    store_u64(out.at + 8, 8);
    store_u64(out.at + wide_header_size, reinterpret_cast<uintptr_t>(pointer));
    out.at += wide_item;
}

// The padding behind the NUL is left as the buffer holds it, which is zero. Texts do not announce themselves.
inline void put_text(Writer &out, uint32_t tag, const char *text, int line = __builtin_LINE())
{
    if (out.status)
        return;
    uint32_t size = text_size(text);
    uint32_t length = chain_length(size);
    if (size > length) {
        log_text_too_long(out.function, line, size, length);
        out.status = bad_field;
        return;
    }
    store_u32(out.at, tag);
    store_u32(out.at + 4, length);
    copy_bytes(reinterpret_cast<char *>(out.at + header_size), text, size);
    out.at += header_size + length;
}

// The one text that does: kept for compatibility.
inline void put_announced_text(Writer &out, uint32_t tag, const char *text, int line = __builtin_LINE())
{
    if (out.status)
        announce(out.function, line, out.start, tag);
    else
        put_text(out, tag, text, line);
}

// Nested records are written inline, by their own encoder on the caller's cursor. They do not announce themselves.
template <typename Record>
void put_record(Writer &out, const Record &record, uint32_t (*serialize)(const Record *, uint8_t **))
{
    if (out.status)
        return;
    *out.cursor = out.at;
    out.status = serialize(&record, out.cursor);
    out.at = *out.cursor;
}

// The valid elements of a list, behind its count: at most the array's capacity, whatever the count says.
template <typename Record, uint32_t Capacity>
void put_list(Writer &out, const uint32_t &count, const Record (&records)[Capacity],
              uint32_t (*serialize)(const Record *, uint8_t **))
{
    for (uint32_t i = 0; i < count && i < Capacity && !out.status; i++)
        put_record(out, records[i], serialize);
}

// ---- Reading --------------------------------------------------------------------------------------------------------

struct Reader {
    const uint8_t *at;      // the next item
    const uint8_t *start;   // where the codec began
    const uint8_t **cursor; // the caller's cursor, which nested records move
    const char *function;   // name in the log
    uint32_t status;        // 0 until something fails
};

inline Reader open_reader(const uint8_t **cursor, const char *function = __builtin_FUNCTION())
{
    return {*cursor, *cursor, cursor, function, 0};
}

inline uint32_t close_reader(const Reader &in)
{
    *in.cursor = in.at;
    return in.status;
}

// Does the item here carry this tag? Refuses it if not; announces the field if an earlier one has failed.
[[gnu::always_inline]] inline bool expect(Reader &in, uint32_t tag, int line)
{
    if (in.status) {
        announce(in.function, line, in.start, tag);
        return false;
    }
    if (load_u32(in.at) != tag) {
        log_wrong_tag(in.function, line, in.start, in.at, tag);
        in.status = bad_field;
        return false;
    }
    return true;
}

// Moves on by a sum that may wrap, so it is made in integers.
[[gnu::always_inline]] inline void skip(Reader &in, uint32_t size)
{
    in.at = reinterpret_cast<const uint8_t *>(reinterpret_cast<uintptr_t>(in.at) + size);
}

// Moves to the next item. The length is the sender's and is never compared with the one that the field implies.
[[gnu::always_inline]] inline void advance(Reader &in)
{
    skip(in, header_size + load_u32(in.at + 4));
}

inline void get_u32(Reader &in, uint32_t tag, uint32_t &field, int line = __builtin_LINE())
{
    if (!expect(in, tag, line))
        return;
    field = load_u32(in.at + header_size);
    advance(in);
}

// The low 8 bits; no range check.
inline void get_u8(Reader &in, uint32_t tag, uint8_t &field, int line = __builtin_LINE())
{
    if (!expect(in, tag, line))
        return;
    field = static_cast<uint8_t>(load_u32(in.at + header_size));
    advance(in);
}

inline void get_s8(Reader &in, uint32_t tag, int8_t &field, int line = __builtin_LINE())
{
    if (!expect(in, tag, line))
        return;
    field = static_cast<int8_t>(load_u32(in.at + header_size));
    advance(in);
}

// All 64 bits of the tag count; of the length the low 32, again not compared with the one that the field implies.
inline void get_wide(Reader &in, uint32_t tag, void *&field, int line = __builtin_LINE())
{
    if (in.status) {
        announce(in.function, line, in.start, tag);
        return;
    }
    if (load_u64(in.at) != tag) {
        log_wrong_wide_tag(in.function, line, in.start, in.at, tag);
        in.status = bad_field;
        return;
    }
    uint64_t value = load_u64(in.at + wide_header_size);
    if (value > UINT32_MAX) {
        log_invalid_pointer(in.function, line, value);
        in.status = bad_pointer;
        return;
    }
    field = reinterpret_cast<void *>(static_cast<uintptr_t>(value));
    skip(in, wide_header_size + load_u32(in.at + 12));
}

// The text ends at its NUL, whatever the item's length. Bytes of the field behind the NUL stay as they are.
template <uint32_t Capacity>
[[gnu::always_inline]] inline void get_text(Reader &in, uint32_t tag, char (&field)[Capacity],
                                            int line = __builtin_LINE())
{
    if (!expect(in, tag, line))
        return;
    const auto *text = reinterpret_cast<const char *>(in.at + header_size);
    uint32_t size = text_size(text);
    if (size > Capacity) {
        log_text_too_long(in.function, line, size, Capacity);
        in.status = bad_field;
        return;
    }
    copy_bytes(field, text, size);
    advance(in);
}

// Nested records are read by their own decoder on the caller's cursor. They do not announce themselves.
template <typename Record>
void get_record(Reader &in, Record &record, uint32_t (*unserialize)(Record *, const uint8_t **))
{
    if (in.status)
        return;
    *in.cursor = in.at;
    in.status = unserialize(&record, in.cursor);
    in.at = *in.cursor;
}

// The count has been stored as received; it bounds the elements together with the array's capacity, and is read again
// before each of them.
template <typename Record, uint32_t Capacity>
void get_list(Reader &in, const uint32_t &count, Record (&records)[Capacity],
              uint32_t (*unserialize)(Record *, const uint8_t **))
{
    for (uint32_t i = 0; i < count && i < Capacity && !in.status; i++)
        get_record(in, records[i], unserialize);
}

// ---- The other operations, for lists --------------------------------------------------------------------------------

// Encoded size of the valid elements.
template <typename Record, uint32_t Capacity>
uint32_t list_items(const uint32_t &count, const Record (&records)[Capacity], uint32_t (*serialize_lg)(const Record *))
{
    const uint32_t valid = count < Capacity ? count : Capacity;
    uint32_t size = 0;
    for (uint32_t i = 0; i < valid; i++)
        size += serialize_lg(&records[i]);
    return size;
}

// Stops at the first element that fails; gives its status.
template <typename Record, uint32_t Capacity>
uint32_t copy_list(Record (&to)[Capacity], const uint32_t &count, const Record (&from)[Capacity],
                   uint32_t (*copy)(Record *, const Record *))
{
    uint32_t status = 0;
    for (uint32_t i = 0; i < count && i < Capacity && !status; i++)
        status = copy(&to[i], &from[i]);
    return status;
}

template <typename Record, uint32_t Capacity>
void clean_list(const uint32_t &count, Record (&records)[Capacity], void (*clean)(Record *))
{
    for (uint32_t i = 0; i < count && i < Capacity; i++)
        clean(&records[i]);
}

#endif
