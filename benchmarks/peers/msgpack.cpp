// MessagePack: a record is an array of its fields, a list an array of records. Once into a buffer that is reused, and
// as the library has it: the exact size first, then a message of its own from the heap, cleared or not.

#include "fields.h"
#include "harness.h"

#include <algorithm>
#include <msgpuck.h>

namespace {

struct FieldCounter {
    uint32_t count = 0;

    template <typename Field> void number(uint32_t, const Field &)
    {
        count++;
    }

    void text(uint32_t, const char *)
    {
        count++;
    }

    template <typename Record> void record(uint32_t, const Record &)
    {
        count++;
    }

    template <typename Record> void list(uint32_t, uint32_t, const Record *)
    {
        count++;
    }
};

template <typename Record> uint32_t fields_of(const Record &record)
{
    FieldCounter counter;
    visit(counter, record);
    return counter.count;
}

struct Sizer {
    uint32_t size = 0;

    template <typename Number> void number(uint32_t, Number value)
    {
        size += std::is_signed_v<Number> && value < 0 ? mp_sizeof_int(static_cast<int64_t>(value))
                                                      : mp_sizeof_uint(static_cast<uint64_t>(value));
    }

    void text(uint32_t, const char *text)
    {
        size += mp_sizeof_str(static_cast<uint32_t>(strlen(text)));
    }

    template <typename Record> void record(uint32_t, const Record &nested)
    {
        size += mp_sizeof_array(fields_of(nested));
        visit(*this, nested);
    }

    template <typename Record, size_t Capacity>
    void list(uint32_t, const uint32_t &count, const Record (&records)[Capacity])
    {
        uint32_t valid = std::min<uint32_t>(count, Capacity);
        size += mp_sizeof_array(valid);
        for (uint32_t i = 0; i < valid; i++)
            record(0, records[i]);
    }
};

struct Encoder {
    char *at;

    template <typename Number> void number(uint32_t, Number value)
    {
        at = std::is_signed_v<Number> && value < 0 ? mp_encode_int(at, static_cast<int64_t>(value))
                                                   : mp_encode_uint(at, static_cast<uint64_t>(value));
    }

    void text(uint32_t, const char *text)
    {
        at = mp_encode_str(at, text, static_cast<uint32_t>(strlen(text)));
    }

    template <typename Record> void record(uint32_t, const Record &nested)
    {
        at = mp_encode_array(at, fields_of(nested));
        visit(*this, nested);
    }

    template <typename Record, size_t Capacity>
    void list(uint32_t, const uint32_t &count, const Record (&records)[Capacity])
    {
        uint32_t valid = std::min<uint32_t>(count, Capacity);
        at = mp_encode_array(at, valid);
        for (uint32_t i = 0; i < valid; i++)
            record(0, records[i]);
    }
};

struct Decoder {
    const char *at;
    bool failed = false;

    template <typename Number> void number(uint32_t, Number &value)
    {
        if (std::is_signed_v<Number> && mp_typeof(*at) == MP_INT)
            value = static_cast<Number>(mp_decode_int(&at));
        else
            value = static_cast<Number>(mp_decode_uint(&at));
    }

    template <size_t Capacity> void text(uint32_t, char (&text)[Capacity])
    {
        uint32_t length;
        const char *characters = mp_decode_str(&at, &length);
        failed |= length >= Capacity;
        length = std::min<uint32_t>(length, Capacity - 1);
        memcpy(text, characters, length);
        text[length] = '\0';
    }

    template <typename Record> void record(uint32_t, Record &nested)
    {
        failed |= mp_decode_array(&at) != fields_of(nested);
        visit(*this, nested);
    }

    template <typename Record, size_t Capacity> void list(uint32_t, uint32_t &count, Record (&records)[Capacity])
    {
        count = mp_decode_array(&at);
        failed |= count > Capacity;
        for (uint32_t i = 0; i < count && i < Capacity; i++)
            record(0, records[i]);
    }
};

template <typename Record> void decode_message(Record &record, const char *message)
{
    Decoder in = {message};
    in.record(0, record);
    if (in.failed)
        abort();
}

template <typename Workload> struct Reused {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = true;

    char message[largest_record];

    void encode(const Record &record)
    {
        Encoder out = {message};
        out.record(0, record);
    }

    void decode(Record &record)
    {
        decode_message(record, message);
    }
};

void *zeroed(size_t size)
{
    return calloc(1, size);
}

// A message of its own for each record, from the heap.
template <typename Workload, void *(*Allocate)(size_t)> struct ExactSize {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = true;

    char *message = nullptr;

    void encode(const Record &record)
    {
        free(message);
        Sizer sizer;
        sizer.record(0, record);
        message = static_cast<char *>(Allocate(sizer.size));
        Encoder out = {message};
        out.record(0, record);
    }

    void decode(Record &record)
    {
        decode_message(record, message);
    }
};

template <typename Workload> struct FromMalloc : ExactSize<Workload, malloc> {
};

template <typename Workload> struct FromCalloc : ExactSize<Workload, zeroed> {
};

const Timed<Reused> timed_reused("MessagePack");
const Timed<FromMalloc> timed_from_malloc("MessagePack, exact size from malloc");
const Timed<FromCalloc> timed_from_calloc("MessagePack, exact size from calloc");

} // namespace
