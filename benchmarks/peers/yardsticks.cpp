// What nothing can beat by much: copies of the bytes, the allocation of the message alone, and the same wire format by
// hand with libc, into a buffer that is there already.

#include "fields.h"
#include "harness.h"

#include <algorithm>
#include <arpa/inet.h>

namespace {

// Not known to the compiler, so that it calls memcpy.
volatile size_t no_bytes = 0;

template <typename Workload> struct CopyOfWire {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = false;

    uint8_t wire[largest_record] = {}, sent[largest_record], received[largest_record];
    size_t size;

    CopyOfWire()
    {
        const Record record = Workload::record();
        uint8_t *cursor = wire;
        Workload::serialize(&record, &cursor);
        size = static_cast<size_t>(cursor - wire);
    }

    void encode(const Record &)
    {
        memcpy(sent, wire, size);
    }

    void decode(Record &)
    {
        memcpy(received, sent, size);
    }
};

template <typename Workload> struct CopyOfStruct {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = true;

    uint8_t sent[sizeof(Record)];
    size_t size = sizeof(Record) + no_bytes;

    void encode(const Record &record)
    {
        memcpy(sent, &record, size);
    }

    void decode(Record &record)
    {
        memcpy(&record, sent, size);
    }
};

// What the library's own setting takes before a byte is written.
template <typename Workload> struct AllocationAlone {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = false;

    Record record = Workload::record();
    size_t size = Workload::serialize_lg(&record);
    void *volatile message = nullptr;

    void encode(const Record &)
    {
        free(message);
        message = calloc(1, size);
    }

    void decode(Record &)
    {
    }
};

struct HandWriter {
    uint8_t *at;

    void word(uint32_t value)
    {
        value = htonl(value);
        memcpy(at, &value, sizeof value);
        at += sizeof value;
    }

    template <typename Number> void number(uint32_t tag, Number value)
    {
        word(tag);
        word(sizeof(uint32_t));
        word(static_cast<uint32_t>(value));
    }

    void text(uint32_t tag, const char *text)
    {
        size_t size = strlen(text) + 1;
        size_t length = (size & ~size_t{3}) + 4;
        word(tag);
        word(static_cast<uint32_t>(length));
        memcpy(at, text, size);
        memset(at + size, 0, length - size);
        at += length;
    }

    template <typename Record> void record(uint32_t, const Record &nested)
    {
        visit(*this, nested);
    }

    template <typename Record, size_t Capacity>
    void list(uint32_t tag, const uint32_t &count, const Record (&records)[Capacity])
    {
        number(tag, count);
        for (uint32_t i = 0; i < count && i < Capacity; i++)
            visit(*this, records[i]);
    }
};

struct HandReader {
    const uint8_t *at;
    bool failed = false;

    uint32_t word()
    {
        uint32_t value;
        memcpy(&value, at, sizeof value);
        at += sizeof value;
        return ntohl(value);
    }

    // The item's length; its value is at the cursor then.
    uint32_t header(uint32_t tag)
    {
        failed |= word() != tag;
        return word();
    }

    template <typename Number> void number(uint32_t tag, Number &value)
    {
        header(tag);
        value = static_cast<Number>(word());
    }

    template <size_t Capacity> void text(uint32_t tag, char (&text)[Capacity])
    {
        uint32_t length = header(tag);
        size_t size = strlen(reinterpret_cast<const char *>(at)) + 1;
        memcpy(text, at, std::min(size, Capacity));
        failed |= size > Capacity;
        at += length;
    }

    template <typename Record> void record(uint32_t, Record &nested)
    {
        visit(*this, nested);
    }

    template <typename Record, size_t Capacity> void list(uint32_t tag, uint32_t &count, Record (&records)[Capacity])
    {
        number(tag, count);
        for (uint32_t i = 0; i < count && i < Capacity; i++)
            visit(*this, records[i]);
    }
};

template <typename Workload> struct ByHand {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = true;

    uint8_t message[largest_record];

    void encode(const Record &record)
    {
        HandWriter out = {message};
        visit(out, record);
    }

    void decode(Record &record)
    {
        HandReader in = {message};
        visit(in, record);
        if (in.failed)
            abort();
    }
};

// It is the same format.
template <typename Workload> void require_same_wire()
{
    ByHand<Workload> hand;
    CopyOfWire<Workload> library;
    hand.encode(Workload::record());
    if (memcmp(hand.message, library.wire, library.size) != 0) {
        fprintf(stderr, "by hand, another message results\n");
        exit(1);
    }
}

struct TimedYardsticks {
    TimedYardsticks()
    {
        require_same_wire<W1>();
        require_same_wire<W2>();
        require_same_wire<W3>();
        require_same_wire<W4>();
        require_same_wire<W5>();
        require_same_wire<W6>();
    }
};

const TimedYardsticks same_wire;
const Timed<CopyOfWire> timed_copy_of_wire("memcpy of the wire bytes");
const Timed<CopyOfStruct> timed_copy_of_struct("memcpy of the struct");
const Timed<AllocationAlone> timed_allocation_alone("calloc and free alone");
const Timed<ByHand> timed_by_hand("same format by hand");

} // namespace
