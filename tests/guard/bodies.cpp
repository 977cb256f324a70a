// The bodies in memory: a magic, a 16-bit flag, then the fields, as C lays them out.

#include "guard/model.h"
#include "records/reference_records.h"

#include <cstddef>

namespace model {

namespace {

using reference::Layout;
using enum reference::Kind;

constexpr bool command = false;
constexpr bool notification = true;
constexpr uint32_t request = 0;
constexpr uint32_t response = 1;

struct Empty {
    uint32_t magic;
    uint16_t flag;
};

struct Number {
    uint32_t magic;
    uint16_t flag;
    uint32_t number;
};

struct Name {
    uint32_t magic;
    uint16_t flag;
    char name[50];
};

struct NameAndNumber {
    uint32_t magic;
    uint16_t flag;
    char name[50];
    uint32_t number;
};

struct Registration {
    uint32_t magic;
    uint16_t flag;
    uint32_t first;
    uint32_t pointer;
    uint32_t last;
};

template <typename Record> struct Holder {
    uint32_t magic;
    uint16_t flag;
    Record record;
};

template <typename Record> struct HolderAndResult {
    uint32_t magic;
    uint16_t flag;
    Record record;
    uint32_t result;
};

struct Status {
    uint32_t magic;
    uint16_t flag;
    char name[80];
    ipv6_prefixes prefixes;
};

template <typename Record> const Layout *layout()
{
    return &reference::layout_of(static_cast<const Record *>(nullptr));
}

Layout empty()
{
    return {"", sizeof(Empty), {}, {}, {}};
}

Layout number()
{
    return {"", sizeof(Number), {{u32, 3, offsetof(Number, number)}}, {}, {}};
}

Layout name()
{
    return {"", sizeof(Name), {{text, 3, offsetof(Name, name), 50}}, {}, {}};
}

Layout name_and_number()
{
    using B = NameAndNumber;
    return {"", sizeof(B), {{text, 3, offsetof(B, name), 50}, {u32, 4, offsetof(B, number)}}, {}, {}};
}

Layout registration()
{
    using B = Registration;
    return {"",
            sizeof(B),
            {{u32, 3, offsetof(B, first)}, {u32, 4, offsetof(B, pointer)}, {u32, 5, offsetof(B, last)}},
            {},
            {}};
}

template <typename Record> Layout one()
{
    using B = Holder<Record>;
    return {"", sizeof(B), {{record, 3, offsetof(B, record), 0, layout<Record>()}}, {}, {}};
}

template <typename Record> Layout one_and_result()
{
    using B = HolderAndResult<Record>;
    return {
        "", sizeof(B), {{record, 3, offsetof(B, record), 0, layout<Record>()}, {u32, 4, offsetof(B, result)}}, {}, {}};
}

Layout status()
{
    using B = Status;
    return {"",
            sizeof(B),
            {{text, 3, offsetof(B, name), 80}, {record, 4, offsetof(B, prefixes), 0, layout<ipv6_prefixes>()}},
            {},
            {}};
}

} // namespace

const std::vector<Body> &bodies()
{
    static const std::vector<Body> all = {
        {"SetOsIfcRequest", command, 0, request, 0x39132011, 0, name()},
        {"SetOsIfcResponse", command, 0, response, 0x39132011, 0, number()},
        {"SetDhcpRequest", command, 1, request, 0x39132011, 0, name_and_number()},
        {"SetDhcpResponse", command, 1, response, 0x39132011, 0, empty()},
        {"SetRdisc6Request", command, 2, request, 0x34132011, 0, name()},
        {"SetRdisc6Response", command, 2, response, 0x34132011, 0, empty()},
        {"GetIPv4PropsRequest", command, 3, request, 0x23331110, 1, empty()},
        {"GetIPv4PropsResponse", command, 3, response, 0x23331110, 1, one_and_result<ipv4_properties>()},
        {"GetIPv6PropsRequest", command, 4, request, 0x24331110, 1, empty()},
        {"GetIPv6PropsResponse", command, 4, response, 0x24331110, 1, one_and_result<ipv6_properties>()},
        {"SetIPv4AddressRequest", command, 5, request, 0x23331320, 0, one<ipv4_address>()},
        {"SetIPv4AddressResponse", command, 5, response, 0x23331320, 0, one<ipv4_address_return>()},
        {"SetMtuRequest", command, 6, request, 0x20190222, 0, number()},
        {"SetMtuResponse", command, 6, response, 0x20190222, 0, number()},
        {"SetIPv6PrefixAndAddressRequest", command, 7, request, 0x24331320, 0, one<ipv6_prefix_addr_conf_list>()},
        {"SetIPv6PrefixAndAddressResponse", command, 7, response, 0x24331320, 0, number()},
        {"AskStateRenotificationRequest", command, 8, request, 0x13235326, 0, one<state_info>()},
        {"RegisterPrefixStatusRequest", command, 9, request, 0x20150227, 0, registration(), 4},
        {"RegisterPrefixStatusResponse", command, 9, response, 0x20150227, 0, number()},
        {"ConfigureRequest", command, 10, request, 0x13235326, 1, one<intfConf>()},
        {"ConfigureAllIPv6IntfRequest", command, 11, request, 0x20161209, 0, number()},
        {"PrefixStatusRequest", notification, 0, request, 0x20150226, 0, status()},
    };
    return all;
}

} // namespace model
