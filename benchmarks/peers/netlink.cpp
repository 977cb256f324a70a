// Netlink attributes through libmnl: an attribute for each field, records and lists nested. A decoder sorts the
// attributes into a table by type, then takes the fields from it.

#include "fields.h"
#include "harness.h"

extern "C" {
#include <libmnl/libmnl.h>
}

namespace {

constexpr uint16_t highest_tag = 19;

struct Putter {
    nlmsghdr *message;

    template <typename Number> void number(uint16_t tag, Number value)
    {
        mnl_attr_put_u32(message, tag, static_cast<uint32_t>(value));
    }

    void text(uint16_t tag, const char *text)
    {
        mnl_attr_put_strz(message, tag, text);
    }

    template <typename Record> void record(uint16_t tag, const Record &nested)
    {
        nlattr *nest = mnl_attr_nest_start(message, tag);
        visit(*this, nested);
        mnl_attr_nest_end(message, nest);
    }

    template <typename Record, size_t Capacity>
    void list(uint16_t tag, const uint32_t &count, const Record (&records)[Capacity])
    {
        nlattr *nest = mnl_attr_nest_start(message, tag);
        for (uint32_t i = 0; i < count && i < Capacity; i++)
            record(1, records[i]);
        mnl_attr_nest_end(message, nest);
    }
};

int sort_by_type(const nlattr *attribute, void *table)
{
    uint16_t type = mnl_attr_get_type(attribute);
    if (type <= highest_tag)
        static_cast<const nlattr **>(table)[type] = attribute;
    return MNL_CB_OK;
}

struct Getter {
    const nlattr *table[highest_tag + 1] = {};
    bool failed = false;

    template <typename Number> void number(uint16_t tag, Number &value)
    {
        if (mnl_attr_validate(table[tag], MNL_TYPE_U32) < 0)
            failed = true;
        else
            value = static_cast<Number>(mnl_attr_get_u32(table[tag]));
    }

    template <size_t Capacity> void text(uint16_t tag, char (&text)[Capacity])
    {
        uint16_t size = mnl_attr_get_payload_len(table[tag]);
        if (mnl_attr_validate(table[tag], MNL_TYPE_NUL_STRING) < 0 || size > Capacity)
            failed = true;
        else
            memcpy(text, mnl_attr_get_str(table[tag]), size);
    }

    template <typename Record> void record(uint16_t tag, Record &record)
    {
        nested(table[tag], record);
    }

    template <typename Record, size_t Capacity> void list(uint16_t tag, uint32_t &count, Record (&records)[Capacity])
    {
        count = 0;
        for (auto *at = static_cast<const nlattr *>(mnl_attr_get_payload(table[tag]));
             mnl_attr_ok(at, payload_end(table[tag]) - reinterpret_cast<const char *>(at)) && count < Capacity;
             at = mnl_attr_next(at))
            nested(at, records[count++]);
    }

    template <typename Record> void nested(const nlattr *attribute, Record &record)
    {
        Getter inner;
        mnl_attr_parse_nested(attribute, sort_by_type, inner.table);
        visit(inner, record);
        failed |= inner.failed;
    }

    static const char *payload_end(const nlattr *attribute)
    {
        return static_cast<const char *>(mnl_attr_get_payload(attribute)) + mnl_attr_get_payload_len(attribute);
    }
};

template <typename Workload> struct Netlink {
    using Record = typename Workload::Record;
    static constexpr bool round_trips = true;

    alignas(4) char buffer[2 * largest_record];

    void encode(const Record &record)
    {
        Putter out = {mnl_nlmsg_put_header(buffer)};
        visit(out, record);
    }

    void decode(Record &record)
    {
        Getter in;
        mnl_attr_parse(reinterpret_cast<const nlmsghdr *>(buffer), 0, sort_by_type, in.table);
        visit(in, record);
        if (in.failed)
            abort();
    }
};

const Timed<Netlink> timed("netlink attributes");

} // namespace
