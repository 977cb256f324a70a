// Counts what the library allocates: the most that any codec, send, answer, serializeBody, unserializeBody and logBody
// of any method does in one call.

#include "stub_bus.h"
#include "workloads.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

extern "C" {
void *__libc_malloc(size_t);
void *__libc_calloc(size_t, size_t);
void *__libc_realloc(void *, size_t);
}

namespace {

unsigned allocations;

} // namespace

// The library's calls arrive here, before libc.

void *malloc(size_t size) noexcept
{
    allocations++;
    return __libc_malloc(size);
}

void *calloc(size_t count, size_t size) noexcept
{
    allocations++;
    return __libc_calloc(count, size);
}

void *realloc(void *block, size_t size) noexcept
{
    allocations++;
    return __libc_realloc(block, size);
}

namespace {

struct Most {
    unsigned codec, send, answer, serialize, unserialize, log;
};

Most most;

template <typename Function> void count(unsigned &most_of_kind, Function call)
{
    unsigned before = allocations;
    call();
    most_of_kind = std::max(most_of_kind, allocations - before);
}

void require(bool holds)
{
    if (!holds)
        abort();
}

template <typename Workload> void count_codec()
{
    const auto record = Workload::record();
    uint8_t buffer[largest_record] = {};
    uint8_t *out = buffer;
    const uint8_t *in = buffer;
    typename Workload::Record decoded = {};
    count(most.codec, [&] { Workload::serialize_lg(&record); });
    count(most.codec, [&] { require(Workload::serialize(&record, &out) == 0); });
    count(most.codec, [&] { require(Workload::unserialize(&decoded, &in) == 0); });
    require(in == out);
}

// The body callbacks on a body that the library has made.
void count_body(const gorvaNet_method &method, uint32_t type, void *body)
{
    void *buffer = nullptr;
    void *received = nullptr;
    char *text = nullptr;
    uint32_t size = 0;
    require(body);
    count(most.serialize, [&] { require(method.serializeBody(type, body, &buffer, &size) == 0); });
    count(most.unserialize, [&] { require(method.unserializeBody(type, buffer, &received, &size) == 0); });
    count(most.log, [&] { method.logBody(type, body, size, &text); });
    free(text);
    free(buffer);
    method.freeBody(type, received);
    method.freeBody(type, body);
}

template <typename Send> void count_request(const gorvaNet_method &method, Send send)
{
    stub_bus.request = nullptr;
    count(most.send, send);
    count_body(method, GORVANET_BODY_REQUEST, stub_bus.request);
}

template <typename Answer> void count_response(const gorvaNet_method &method, Answer answer)
{
    stub_bus.response = nullptr;
    count(most.answer, answer);
    count_body(method, GORVANET_BODY_RESPONSE, stub_bus.response);
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

void count_requests()
{
    const char *server = "ip-service";
    const auto *methods = gorvaNet_base.cmdMethods;
    const state_info state = W1::record();
    const ipv4_address address = W2::record();
    const ipv6_prefix_addr_conf_list list = W6::record();
    const intfConf configuration = {};
    const ipv6_prefixes prefixes = {10, {}};
    count_request(methods[0], [&] { gorvaNet_sendReq_setOsIfc({}, {}, {}, {}, server, "eth0"); });
    count_request(methods[1], [&] { gorvaNet_sendReq_setDhcp({}, {}, {}, {}, server, "eth0", 1); });
    count_request(methods[2], [&] { gorvaNet_sendReq_setRdisc6({}, {}, {}, {}, server, "eth0"); });
    count_request(methods[3], [&] { gorvaNet_sendReq_getIPv4Props({}, {}, {}, {}, server); });
    count_request(methods[4], [&] { gorvaNet_sendReq_getIPv6Props({}, {}, {}, {}, server); });
    count_request(methods[5], [&] { gorvaNet_sendReq_setIPv4Address({}, {}, {}, {}, server, &address); });
    count_request(methods[6], [&] { gorvaNet_sendReq_setMtu({}, {}, {}, {}, server, 1500); });
    count_request(methods[7], [&] { gorvaNet_sendReq_setIPv6PrefixAndAddress({}, {}, {}, {}, server, &list); });
    count_request(methods[8], [&] { gorvaNet_sendReq_askStateRenotification({}, {}, server, &state); });
    count_request(methods[9], [&] { gorvaNet_sendReq_registerPrefixStatus({}, {}, {}, {}, server, 1, {}, 2); });
    count_request(methods[10], [&] { gorvaNet_sendReq_configure({}, {}, server, &configuration); });
    count_request(methods[11], [&] { gorvaNet_sendReq_configureAllIPv6Intf({}, {}, server, 1); });
    count_request(gorvaNet_base.ntfyMethods[0],
                  [&] { gorvaNet_sendReq_ntfyPrefixStatus({}, {}, {}, "eth0", &prefixes); });
}

void count_responses()
{
    const auto *methods = gorvaNet_base.cmdMethods;
    const ipv4_properties ipv4 = W3::record();
    const ipv6_properties ipv6 = W5::record();
    const ipv4_address_return outcome = {1};
    count_response(methods[0], [&] { gorvaNet_sendRes_setOsIfc({}, 1); });
    count_response(methods[1], [&] { gorvaNet_sendRes_setDhcp({}); });
    count_response(methods[2], [&] { gorvaNet_sendRes_setRdisc6({}); });
    count_response(methods[3], [&] { gorvaNet_sendRes_getIPv4Props({}, &ipv4, 1); });
    count_response(methods[4], [&] { gorvaNet_sendRes_getIPv6Props({}, &ipv6, 1); });
    count_response(methods[5], [&] { gorvaNet_sendRes_setIPv4Address({}, &outcome); });
    count_response(methods[6], [&] { gorvaNet_sendRes_setMtu({}, 1); });
    count_response(methods[7], [&] { gorvaNet_sendRes_setIPv6PrefixAndAddress({}, 1); });
    count_response(methods[9], [&] { gorvaNet_sendRes_registerPrefixStatus({}, 1); });
}

} // namespace

int main()
{
    count_codecs();
    count_requests();
    count_responses();
    printf("codec %u\nsend %u\nanswer %u\nserializeBody %u\nunserializeBody %u\nlogBody %u\n", most.codec, most.send,
           most.answer, most.serialize, most.unserialize, most.log);
    return 0;
}
