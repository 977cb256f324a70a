// Calls what is counted once, under callgrind. Of the codecs that is what `measured_...` calls: the jump through the
// linkage table, the exported function and all that it calls. Of the trip it is all. Buffers are made before, and
// everything has been done before, so that symbols are bound and the heap is as it stays.

#include "trip.h"
#include "workloads.h"

#include <cstdlib>
#include <cstring>

namespace {

constexpr int trips_before = 100;

template <typename Workload> [[gnu::noinline]] uint32_t measured_serialize_lg(const typename Workload::Record &record)
{
    return Workload::serialize_lg(&record);
}

template <typename Workload>
[[gnu::noinline]] uint32_t measured_serialize(const typename Workload::Record &record, uint8_t *buffer)
{
    return Workload::serialize(&record, &buffer);
}

template <typename Workload>
[[gnu::noinline]] uint32_t measured_unserialize(typename Workload::Record &record, const uint8_t *buffer)
{
    return Workload::unserialize(&record, &buffer);
}

void require(bool holds)
{
    if (!holds)
        abort();
}

template <typename Workload> void count_codec()
{
    // Aligned: libc's share depends on where texts lie.
    alignas(64) const auto record = Workload::record();
    alignas(64) uint8_t buffer[largest_record] = {};
    uint32_t size = measured_serialize_lg<Workload>(record);
    require(size <= sizeof buffer);
    require(measured_serialize<Workload>(record, buffer) == 0);
    alignas(64) typename Workload::Record decoded = {};
    require(measured_unserialize<Workload>(decoded, buffer) == 0);

    // The decoded record encodes to the same bytes.
    uint8_t again[largest_record] = {};
    uint8_t *cursor = again;
    require(Workload::serialize(&decoded, &cursor) == 0);
    require(cursor == again + size && memcmp(buffer, again, sizeof buffer) == 0);
}

void count_codecs()
{
    count_codec<W1>();
    count_codec<W2>();
    count_codec<W3>();
    count_codec<W4>();
    count_codec<W5>();
    count_codec<W6>();
}

[[gnu::noinline]] uint32_t measured_trip(const ipv4_address &address)
{
    return run_trip(address);
}

void count_trip()
{
    const ipv4_address address = W2::record();
    require(measured_trip(address) == address.field3);
}

// Callgrind collects while this runs.
[[gnu::noinline]] void collected()
{
    count_codecs();
    count_trip();
}

} // namespace

int main()
{
    count_codecs();
    for (int i = 0; i < trips_before; i++)
        count_trip();
    collected();
    return 0;
}
