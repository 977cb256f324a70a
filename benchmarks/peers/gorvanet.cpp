// The library itself: a new zeroed buffer of the exact size for each message.

#include "harness.h"

namespace {

template <typename Workload> struct Gorvanet {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = true;

    uint8_t *message = nullptr;

    void encode(const Record &record)
    {
        free(message);
        message = static_cast<uint8_t *>(calloc(1, Workload::serialize_lg(&record)));
        uint8_t *cursor = message;
        Workload::serialize(&record, &cursor);
    }

    void decode(Record &record)
    {
        const uint8_t *cursor = message;
        Workload::unserialize(&record, &cursor);
    }
};

const Timed<Gorvanet> timed("libGorvanet");

} // namespace
