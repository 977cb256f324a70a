#include "loopback_test.h"

#include <cstdarg>
#include <cstdio>
#include <malloc.h>
#include <syslog.h>

std::vector<Seen> seen;
bool records_events = true;
std::vector<std::string> log_lines;
Ledger ledger;
uint32_t open_letters;

extern "C" void syslog(int, const char *pattern, ...)
{
    char text[512];
    va_list arguments;
    va_start(arguments, pattern);
    vsnprintf(text, sizeof(text), pattern, arguments);
    va_end(arguments);
    log_lines.push_back(text);
}

namespace {

void record(void *, const gorvanet_loopback_event *event)
{
    if (!records_events)
        return;
    std::string bytes(static_cast<const char *>(event->bytes), event->bytes ? event->size : 0);
    seen.push_back({event->kind, event->message, event->method, event->sender, event->receiver, event->direction, bytes,
                    event->status, event->text});
}

// ---- The ledger -----------------------------------------------------------------------------------------------------

uint32_t serialize(uint32_t type, const void *body, void **buffer, uint32_t *size)
{
    ledger.encoded[type]++;
    ledger.open[body] = type;
    if (ledger.encode_status || ledger.gives_nothing)
        return ledger.encode_status;
    return gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setOsIfc(type, body, buffer, size);
}

int32_t unserialize(uint32_t type, const void *buffer, void **body, uint32_t *size)
{
    ledger.decoded[type]++;
    if (ledger.decode_status)
        return ledger.decode_status;
    int32_t status = gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setOsIfc(type, buffer, body, size);
    if (status == 0)
        ledger.open[*body] = type;
    return status;
}

void free_body(uint32_t type, void *body)
{
    ledger.freed[type]++;
    auto found = ledger.open.find(body);
    if (found == ledger.open.end())
        ledger.freed_unseen++;
    else if (found->second != type)
        ledger.freed_wrong_type++;
    ledger.open.erase(body);
    gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setOsIfc(type, body);
}

void *new_body(size_t size)
{
    void *body = calloc(1, size);
    *static_cast<uint32_t *>(body) = GORVANET_MAGIC_MSGCMD_SETOSIFC;
    return body;
}

// ---- The interface made by hand -------------------------------------------------------------------------------------

void free_letter(uint32_t, void *body)
{
    open_letters--;
    free(body);
}

uint32_t serialize_letter(uint32_t, const void *body, void **buffer, uint32_t *size)
{
    auto *bytes = static_cast<char *>(malloc(1));
    *bytes = static_cast<const Letter *>(body)->letter;
    *buffer = bytes;
    *size = 1;
    return 0;
}

// '!' is damaged.
int32_t unserialize_letter(uint32_t, const void *buffer, void **body, uint32_t *size)
{
    char letter = *static_cast<const char *>(buffer);
    if (letter == '!')
        return 2;
    *body = new_letter(letter);
    *size = sizeof(Letter);
    return 0;
}

void log_letter(uint32_t, const void *, uint32_t, char **)
{
}

// As the library does: without a handler, status 20 with the body that was received.
void receive_letter(void *message, void *body, gorvaNet_function *handler, void *data)
{
    if (!handler) {
        zebCore_sendMsgRes(message, body, answer_unhandled_message, send_options);
        return;
    }
    auto *take = reinterpret_cast<void (*)(void *, void *, char)>(handler);
    take(message, data, static_cast<Letter *>(body)->letter);
}

const gorvaNet_method letter_row = {receive_letter,     0,          "Letter", free_letter, serialize_letter,
                                    unserialize_letter, log_letter, 0};

void register_rows(gorvaNet_interface &block, const gorvaNet_method &row)
{
    MessageManagement *head = nullptr;
    block.num = zebCore_getBase_msgMngt(block.name, &head, 1);
    ASSERT_NE(head, nullptr);
    head->name = block.name;
    head->unreg = block.unreg;
    method_records(head)[0] = {row.reserved,        row.name,   row.freeBody, row.serializeBody,
                               row.unserializeBody, row.logBody};
}

} // namespace

Letter *new_letter(char letter)
{
    auto *body = static_cast<Letter *>(calloc(1, sizeof(Letter)));
    body->letter = letter;
    open_letters++;
    return body;
}

TestInterface::TestInterface()
    : cmd{1, "TestNetCmd", nullptr, GORVANET_NUM_NONE, 1}, cmd_rows{letter_row},
      ntfy{2, "TestNetNtfy", nullptr, GORVANET_NUM_NONE, 1}, ntfy_rows{letter_row}
{
    register_rows(cmd, cmd_rows[0]);
    register_rows(ntfy, ntfy_rows[0]);
}

// The host is torn down after this, or was before: only what is still registered is released.
TestInterface::~TestInterface()
{
    gorvanet_loopback_observe([](void *, const gorvanet_loopback_event *) {}, nullptr);
    zebCore_putBase_msgMngt(cmd.num, 0);
    zebCore_putBase_msgMngt(ntfy.num, 0);
    gorvanet_loopback_observe(record, nullptr);
}

void TestInterface::attach(void *user) const
{
    EXPECT_EQ(zebIntf_regUser_msgMngt(user, nullptr, nullptr, cmd.num, any_number, 0), 0);
    EXPECT_EQ(zebIntf_regUser_msgMngt(user, nullptr, nullptr, ntfy.num, any_number, 0), 0);
}

// ---- The fixture ----------------------------------------------------------------------------------------------------

LoopbackTest::LoopbackTest() : saved_(gorvaNet_base)
{
    seen.clear();
    log_lines.clear();
    ledger = {};
    records_events = true;
    gorvanet_loopback_observe(record, nullptr);
    gorvaNet_base.cmdMethods[0].freeBody = free_body;
    gorvaNet_base.cmdMethods[0].serializeBody = serialize;
    gorvaNet_base.cmdMethods[0].unserializeBody = unserialize;
}

// Whatever a test does: in the end no body, no letter and no message is left.
LoopbackTest::~LoopbackTest()
{
    gorvanet_loopback_tear_down();
    EXPECT_EQ(gorvanet_loopback_open_messages(), 0u);
    EXPECT_TRUE(ledger.open.empty());
    EXPECT_EQ(ledger.freed_wrong_type, 0u);
    EXPECT_EQ(open_letters, 0u);
    gorvanet_loopback_observe(nullptr, nullptr);
    gorvaNet_base = saved_;
}

void LoopbackTest::start()
{
    service = gorvanet_loopback_add_user("service");
    client = gorvanet_loopback_add_user("client");
    ASSERT_EQ(gorvanet_initialize(), 0u);
    ASSERT_EQ(gorvaNet_regUser_msgMngt(service, nullptr, nullptr, GORVANET_SELECT_BOTH), 0u);
    ASSERT_EQ(gorvaNet_regUser_msgMngt(client, nullptr, nullptr, GORVANET_SELECT_BOTH), 0u);
}

void LoopbackTest::serve(bool defers)
{
    defers_answers = defers;
    ASSERT_EQ(gorvaNet_modSrv_recvMsg_setOsIfc(service, handler, this, nullptr), 0);
}

void LoopbackTest::handler(void *message, void *data, const char *ifName)
{
    auto *test = static_cast<LoopbackTest *>(data);
    test->handled.push_back(ifName);
    if (test->in_handler)
        test->in_handler(message);
    if (test->defers_answers)
        test->deferred.push_back(message);
    else
        gorvaNet_sendRes_setOsIfc(message, test->result);
}

void LoopbackTest::callback(void *context, void *user_data, uint32_t result)
{
    auto *test = static_cast<LoopbackTest *>(user_data);
    test->results.push_back(result);
    if (test->in_callback)
        test->in_callback(context);
}

void LoopbackTest::answer_deferred()
{
    for (void *message : deferred)
        gorvaNet_sendRes_setOsIfc(message, result);
    deferred.clear();
}

uint32_t LoopbackTest::send(const char *server, const char *ifName)
{
    return gorvaNet_sendReq_setOsIfc(client, callback, nullptr, this, server, ifName);
}

std::vector<gorvanet_loopback_kind> LoopbackTest::kinds()
{
    std::vector<gorvanet_loopback_kind> found;
    found.reserve(seen.size());
    for (const Seen &event : seen)
        found.push_back(event.kind);
    return found;
}

uint32_t LoopbackTest::count(gorvanet_loopback_kind kind)
{
    uint32_t found = 0;
    for (const Seen &event : seen)
        found += event.kind == kind;
    return found;
}

Seen LoopbackTest::only(gorvanet_loopback_kind kind)
{
    EXPECT_EQ(count(kind), 1u);
    for (const Seen &event : seen)
        if (event.kind == kind)
            return event;
    return {};
}

void LoopbackTest::expect_misuse(const std::string &part) const
{
    ASSERT_EQ(count(GORVANET_LOOPBACK_MISUSE), 1u) << part;
    std::string text = only(GORVANET_LOOPBACK_MISUSE).text;
    EXPECT_NE(text.find(part), std::string::npos) << text;
    seen.clear();
}

void *LoopbackTest::new_request()
{
    return new_body(56);
}

void *LoopbackTest::new_response()
{
    return new_body(12);
}

// A leaked block takes 16 bytes at least. Under a sanitizer the heap cannot be asked; there leaks are found at the end.
void LoopbackTest::expect_no_growth(uint32_t times, const std::function<void()> &action)
{
    auto repeat = [&] {
        action();
        seen.clear();
        log_lines.clear();
        handled.clear();
        results.clear();
    };
    for (int i = 0; i < 100; i++)
        repeat();
    size_t before = mallinfo2().uordblks;
    for (uint32_t i = 0; i < times; i++)
        repeat();
    size_t after = mallinfo2().uordblks;
    EXPECT_LT(after, before + 8 * size_t{times});
}
