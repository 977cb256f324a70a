// The table of layouts against what the library really writes: two independent readings of the same bodies.

#include "annotate.h"
#include "loopback_test.h"

namespace {

using LayoutsTest = LoopbackTest;

// Room for the largest body. With zeroes behind its magic every text is empty and every list without elements.
constexpr size_t room = 1 << 17;

// How many texts a body has when its lists are empty; a text and a number look alike otherwise.
size_t texts_in(const std::string &method, uint32_t direction)
{
    static const std::map<std::pair<std::string, uint32_t>, size_t> texts = {
        {{"SetOsIfc", demo::request}, 1},
        {{"SetDhcp", demo::request}, 1},
        {{"SetRdisc6", demo::request}, 1},
        {{"GetIPv4Props", demo::response}, 7},
        {{"GetIPv6Props", demo::response}, 5},
        {{"SetIPv4Address", demo::request}, 5},
        {{"AskStateRenotification", demo::request}, 1},
        {{"Configure", demo::request}, 2},
        {{"PrefixStatus", demo::request}, 1},
    };
    auto found = texts.find({method, direction});
    return found == texts.end() ? 0 : found->second;
}

size_t count_texts(const std::vector<demo::Row> &rows)
{
    size_t found = 0;
    for (const demo::Row &row : rows)
        found += row.meaning.starts_with('"');
    return found;
}

void expect_sound(const demo::Layout &layout, std::span<const uint8_t> bytes)
{
    for (const demo::Row &row : demo::annotate(&layout, bytes)) {
        EXPECT_EQ(row.problem, "") << layout.method << " at " << row.offset;
        EXPECT_NE(row.header, 0u) << layout.method << " at " << row.offset << ": " << row.meaning;
    }
}

void expect_sound(const gorvaNet_method &row)
{
    EXPECT_NE(demo::find_layout(row.name, demo::request), nullptr) << row.name;
    for (uint32_t type : {GORVANET_BODY_REQUEST, GORVANET_BODY_RESPONSE}) {
        const demo::Layout *layout = demo::find_layout(row.name, type);
        std::vector<uint32_t> body(room / sizeof(uint32_t));
        body[0] = layout ? layout->magic : 0;
        void *buffer = nullptr;
        uint32_t size = 0;
        uint32_t status = row.serializeBody(type, body.data(), &buffer, &size);
        EXPECT_EQ(status, layout ? 0u : 1u) << row.name << ": only a one-way method has no response";
        if (status == 0) {
            std::span<const uint8_t> bytes(static_cast<const uint8_t *>(buffer), size);
            expect_sound(*layout, bytes);
            EXPECT_EQ(count_texts(demo::annotate(layout, bytes)), texts_in(row.name, type)) << row.name;
        }
        free(buffer);
    }
    log_lines.clear();
    ledger.open.clear(); // these bodies are the test's own
}

TEST_F(LayoutsTest, FitEmptyBodiesOfEveryMethod)
{
    for (const gorvaNet_method &row : gorvaNet_base.cmdMethods)
        expect_sound(row);
    for (const gorvaNet_method &row : gorvaNet_base.ntfyMethods)
        expect_sound(row);
}

// ---- With lists in them, on their way through the bus ---------------------------------------------------------------

void expect_sent_sound(const Seen &event, size_t elements)
{
    const demo::Layout *layout = demo::find_layout(event.method, event.direction);
    ASSERT_NE(layout, nullptr);
    std::span<const uint8_t> bytes(reinterpret_cast<const uint8_t *>(event.bytes.data()), event.bytes.size());
    expect_sound(*layout, bytes);
    size_t in_lists = 0;
    for (const demo::Row &row : demo::annotate(layout, bytes))
        in_lists += row.field.find("].") != std::string::npos && row.field.ends_with("].field3");
    EXPECT_EQ(in_lists, elements);
}

TEST_F(LayoutsTest, FitListsOfPrefixes)
{
    start();
    ipv6_prefixes prefixes = {};
    prefixes.field3 = 10;
    prefixes.prefixes[9].field3[0] = 'a';
    gorvaNet_sendReq_ntfyPrefixStatus(service, nullptr, nullptr, "name", &prefixes);
    expect_sent_sound(only(GORVANET_LOOPBACK_SENT), 10);
}

TEST_F(LayoutsTest, FitIPv4Properties)
{
    start();
    static ipv4_properties properties;
    properties.field3 = -1;
    properties.infoCount = 3;
    auto take = [](void *message, void *) { gorvaNet_sendRes_getIPv4Props(message, &properties, 5); };
    ASSERT_EQ(gorvaNet_modSrv_recvMsg_getIPv4Props(service, take, nullptr, nullptr), 0);
    gorvaNet_sendReq_getIPv4Props(
        client, [](void *, void *, const ipv4_properties *, uint32_t) {}, nullptr, nullptr, "service");
    gorvanet_loopback_run();
    expect_sent_sound(only(GORVANET_LOOPBACK_ANSWERED), 3);
}

TEST_F(LayoutsTest, FitIPv6Properties)
{
    start();
    static ipv6_properties properties;
    properties.field3 = -128;
    properties.field10 = 1;
    properties.field12 = 2;
    properties.field14 = 4;
    properties.field17 = 6;
    auto take = [](void *message, void *) { gorvaNet_sendRes_getIPv6Props(message, &properties, 5); };
    ASSERT_EQ(gorvaNet_modSrv_recvMsg_getIPv6Props(service, take, nullptr, nullptr), 0);
    gorvaNet_sendReq_getIPv6Props(
        client, [](void *, void *, const ipv6_properties *, uint32_t) {}, nullptr, nullptr, "service");
    gorvanet_loopback_run();
    expect_sent_sound(only(GORVANET_LOOPBACK_ANSWERED), 1 + 2 + 4 + 6);
}

} // namespace
