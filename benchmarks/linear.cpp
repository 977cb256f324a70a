// Calls each codec of a list once for each number of entries, under callgrind, as instructions.cpp does.

#include "workloads.h"

#include <cstdlib>
#include <utility>

namespace {

void require(bool holds)
{
    if (!holds)
        abort();
}

struct Infos : W3 {
    static constexpr uint32_t capacity = 20;
    static Record with(uint32_t count)
    {
        Record record = W3::record();
        record.infoCount = count;
        for (ipv4_info &info : record.infos)
            info = record.infos[0];
        return record;
    }
};

struct Prefixes {
    using Record = ipv6_prefixes;
    static constexpr auto *serialize_lg = gorvaNet_ipv6_prefixes_serialize_lg;
    static constexpr auto *serialize = gorvaNet_ipv6_prefixes_serialize;
    static constexpr auto *unserialize = gorvaNet_ipv6_prefixes_unserialize;
    static constexpr uint32_t capacity = 10;
    static Record with(uint32_t count)
    {
        Record record = {count, {}};
        for (ipv6_prefix &prefix : record.prefixes)
            prefix = W4::record().field18[0];
        return record;
    }
};

struct Confs : W6 {
    static constexpr uint32_t capacity = 5;
    static Record with(uint32_t count)
    {
        Record record = W6::record();
        record.field3 = count;
        return record;
    }
};

template <typename List, uint32_t Count>
[[gnu::noinline]] uint32_t measured_serialize_lg(const typename List::Record &record)
{
    return List::serialize_lg(&record);
}

template <typename List, uint32_t Count>
[[gnu::noinline]] uint32_t measured_serialize(const typename List::Record &record, uint8_t *buffer)
{
    return List::serialize(&record, &buffer);
}

template <typename List, uint32_t Count>
[[gnu::noinline]] uint32_t measured_unserialize(typename List::Record &record, const uint8_t *buffer)
{
    return List::unserialize(&record, &buffer);
}

template <typename List, uint32_t Count> void count_codec()
{
    alignas(64) const auto record = List::with(Count);
    alignas(64) uint8_t buffer[largest_record] = {};
    alignas(64) typename List::Record decoded = {};
    require(measured_serialize_lg<List, Count>(record) <= sizeof buffer);
    require(measured_serialize<List, Count>(record, buffer) == 0);
    require(measured_unserialize<List, Count>(decoded, buffer) == 0);
}

template <typename List, uint32_t... Counts> void count_list(std::integer_sequence<uint32_t, Counts...>)
{
    (count_codec<List, Counts>(), ...);
}

template <typename List> void count_list()
{
    count_list<List>(std::make_integer_sequence<uint32_t, List::capacity + 1>());
}

void count_lists()
{
    count_list<Infos>();
    count_list<Prefixes>();
    count_list<Confs>();
}

// Callgrind collects while this runs.
[[gnu::noinline]] void collected()
{
    count_lists();
}

} // namespace

int main()
{
    count_lists();
    collected();
    return 0;
}
