#include "nested_calls.h"

#include "gorvanet.h"
#include "support/interpose.h"

#include <map>
#include <utility>

namespace {

struct Trace {
    Calls calls;
    std::map<std::string, unsigned> counts;
    std::map<std::string, Refusal> refusals;
    std::function<void(const Call &)> watcher;
};

Trace &trace()
{
    static Trace the_trace;
    return the_trace;
}

// Notes a call: is it one that the test lets fail?
const Refusal *note(const char *function, const Words &words)
{
    trace().calls.push_back({function, words});
    if (trace().watcher)
        trace().watcher(trace().calls.back());
    auto found = trace().refusals.find(function);
    bool refused = found != trace().refusals.end() && ++trace().counts[function] == found->second.nth;
    return refused ? &found->second : nullptr;
}

template <typename Record>
uint32_t copy_call(Interposed<uint32_t(Record *, const Record *)> &library, const char *name, Record *destination,
                   const Record *source)
{
    const Refusal *refusal = note(name, {word(destination), word(source)});
    return refusal ? refusal->status : library(destination, source);
}

template <typename Record> void clean_call(Interposed<void(Record *)> &library, const char *name, Record *record)
{
    note(name, {word(record)});
    library(record);
}

template <typename Record>
uint32_t length_call(Interposed<uint32_t(const Record *)> &library, const char *name, const Record *record)
{
    const Refusal *refusal = note(name, {word(record)});
    return refusal ? refusal->status : library(record);
}

// For both directions.
template <typename Record, typename Byte>
uint32_t codec_call(Interposed<uint32_t(Record *, Byte **)> &library, const char *name, Record *record, Byte **cursor)
{
    const Refusal *refusal = note(name, {word(record), word(cursor), word(*cursor)});
    if (!refusal)
        return library(record, cursor);
    *cursor += refusal->moves;
    return refusal->status;
}

} // namespace

Calls take_nested_calls()
{
    return std::exchange(trace().calls, {});
}

void refuse_call(const std::string &function, const Refusal &refusal)
{
    trace().refusals[function] = refusal;
}

void watch_calls(std::function<void(const Call &)> watcher)
{
    trace().watcher = std::move(watcher);
}

void reset_nested_calls()
{
    trace() = {};
}

uint32_t gorvaNet_ipv4_info_copy(ipv4_info *destination, const ipv4_info *source)
{
    static Interposed<decltype(gorvaNet_ipv4_info_copy)> library{__func__};
    return copy_call(library, __func__, destination, source);
}

void gorvaNet_ipv4_info_clean(ipv4_info *record)
{
    static Interposed<decltype(gorvaNet_ipv4_info_clean)> library{__func__};
    clean_call(library, __func__, record);
}

uint32_t gorvaNet_ipv4_info_serialize_lg(const ipv4_info *record)
{
    static Interposed<decltype(gorvaNet_ipv4_info_serialize_lg)> library{__func__};
    return length_call(library, __func__, record);
}

uint32_t gorvaNet_ipv4_info_serialize(const ipv4_info *record, uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv4_info_serialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}

uint32_t gorvaNet_ipv4_info_unserialize(ipv4_info *record, const uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv4_info_unserialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}

uint32_t gorvaNet_ipv6_address_copy(ipv6_address *destination, const ipv6_address *source)
{
    static Interposed<decltype(gorvaNet_ipv6_address_copy)> library{__func__};
    return copy_call(library, __func__, destination, source);
}

void gorvaNet_ipv6_address_clean(ipv6_address *record)
{
    static Interposed<decltype(gorvaNet_ipv6_address_clean)> library{__func__};
    clean_call(library, __func__, record);
}

uint32_t gorvaNet_ipv6_address_serialize_lg(const ipv6_address *record)
{
    static Interposed<decltype(gorvaNet_ipv6_address_serialize_lg)> library{__func__};
    return length_call(library, __func__, record);
}

uint32_t gorvaNet_ipv6_address_serialize(const ipv6_address *record, uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv6_address_serialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}

uint32_t gorvaNet_ipv6_address_unserialize(ipv6_address *record, const uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv6_address_unserialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}

uint32_t gorvaNet_ipv6_prefix_copy(ipv6_prefix *destination, const ipv6_prefix *source)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_copy)> library{__func__};
    return copy_call(library, __func__, destination, source);
}

void gorvaNet_ipv6_prefix_clean(ipv6_prefix *record)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_clean)> library{__func__};
    clean_call(library, __func__, record);
}

uint32_t gorvaNet_ipv6_prefix_serialize_lg(const ipv6_prefix *record)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_serialize_lg)> library{__func__};
    return length_call(library, __func__, record);
}

uint32_t gorvaNet_ipv6_prefix_serialize(const ipv6_prefix *record, uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_serialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}

uint32_t gorvaNet_ipv6_prefix_unserialize(ipv6_prefix *record, const uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_unserialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}

uint32_t gorvaNet_ipv6_prefix_config_copy(ipv6_prefix_config *destination, const ipv6_prefix_config *source)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_config_copy)> library{__func__};
    return copy_call(library, __func__, destination, source);
}

void gorvaNet_ipv6_prefix_config_clean(ipv6_prefix_config *record)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_config_clean)> library{__func__};
    clean_call(library, __func__, record);
}

uint32_t gorvaNet_ipv6_prefix_config_serialize_lg(const ipv6_prefix_config *record)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_config_serialize_lg)> library{__func__};
    return length_call(library, __func__, record);
}

uint32_t gorvaNet_ipv6_prefix_config_serialize(const ipv6_prefix_config *record, uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_config_serialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}

uint32_t gorvaNet_ipv6_prefix_config_unserialize(ipv6_prefix_config *record, const uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_config_unserialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_copy(ipv6_prefix_addr_conf *destination, const ipv6_prefix_addr_conf *source)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_addr_conf_copy)> library{__func__};
    return copy_call(library, __func__, destination, source);
}

void gorvaNet_ipv6_prefix_addr_conf_clean(ipv6_prefix_addr_conf *record)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_addr_conf_clean)> library{__func__};
    clean_call(library, __func__, record);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_serialize_lg(const ipv6_prefix_addr_conf *record)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_addr_conf_serialize_lg)> library{__func__};
    return length_call(library, __func__, record);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_serialize(const ipv6_prefix_addr_conf *record, uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_addr_conf_serialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}

uint32_t gorvaNet_ipv6_prefix_addr_conf_unserialize(ipv6_prefix_addr_conf *record, const uint8_t **cursor)
{
    static Interposed<decltype(gorvaNet_ipv6_prefix_addr_conf_unserialize)> library{__func__};
    return codec_call(library, __func__, record, cursor);
}
