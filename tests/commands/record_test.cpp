// The record that some bodies carry: copied in, encoded, decoded and cleaned by its own functions.

#include "commands/method.h"
#include "commands/record.h"

#include <cstdlib>

namespace {

class RecordTest : public BodyTest {
protected:
    const Record &record() const
    {
        return sample().record;
    }

    RecordProbe &probe() const
    {
        return *record().probe;
    }

    static bool request()
    {
        return GetParam().type == GORVANET_BODY_REQUEST;
    }

    // Sends the sample.
    uint32_t send()
    {
        if (request())
            return method().send(user, nullptr, pass1, pass2, server);
        method().respond(message);
        return 0;
    }

    std::string sender() const
    {
        return request() ? "gorvaNet_sendReq_" + method().send_suffix : "gorvaNet_sendRes_" + method().suffix;
    }

    // The lines for the fields behind a record that failed.
    LogLines announcements(const std::string &family, const void *start) const
    {
        LogLines lines;
        for (uint32_t tag : record().announced)
            lines.push_back(logged(3, callbacks->log_name(family).c_str(), "pBody(%p): Type(%d) -> Error Before\n",
                                   start, static_cast<int>(tag)));
        return lines;
    }

    LogLine encoding_failed(const void *buffer, uint32_t status) const
    {
        auto code = static_cast<int>(status);
        std::string name = callbacks->log_name("serializeBody");
        return request() ? logged(3, name.c_str(), "BodyReq(%p): On serialize failed(%d)\n", buffer, code)
                         : logged(3, name.c_str(), "pBodyReq(%p): On serialize failed(%d)\n", buffer, code);
    }

    static void set_flag(void *body, uint16_t flag)
    {
        *reinterpret_cast<uint16_t *>(static_cast<char *>(body) + 4) = flag;
    }

    const std::vector<uint32_t> statuses = {4, 1, 77, 0xffffffff};
};

TEST_P(RecordTest, IsCopiedIntoTheBody)
{
    void *destination = nullptr;
    probe().copy.instead = [&](void *to, const void *from) {
        destination = to;
        EXPECT_EQ(from, record().source);
        return probe().copy.original(to, from);
    };
    send();
    EXPECT_EQ(probe().copy.calls, 1u);
    void *body = sent_body();
    EXPECT_EQ(destination, static_cast<char *>(body) + record().place);
    free(body);
}

TEST_P(RecordTest, AFailedCopyIsLoggedAndTheMessageIsSentAllTheSame)
{
    answer("zebCore_sendMsgReq_toNameUser", 33);
    for (uint32_t status : statuses) {
        // It leaves one byte behind.
        probe().copy.instead = [status](void *to, const void *) {
            *static_cast<char *>(to) = 'x';
            return status;
        };
        EXPECT_EQ(send(), request() && method().message == "msgCmd" ? 33u : 0u);
        const std::string text = record().copy_failed + "\n";
        EXPECT_EQ(
            take_log(),
            (LogLines{{.priority = 3, .function = sender(), .format = "[GORVANET] -> %s(%d): " + text, .text = text}}));
        void *body = sent_body();
        ASSERT_EQ(size_of_block(body), sample().image.size());
        Bytes expected = sample().image;
        for (size_t i = 0; i < record().size; i++)
            expected.at(record().place + i) = 0;
        expected.at(record().place) = 'x';
        EXPECT_EQ(contents(body, size_of_block(body)), expected);
        free(body);
    }
}

TEST_P(RecordTest, AFailedCopyIsLoggedBeforeTheMessageIsSent)
{
    size_t lines = 0;
    for (const char *function : {"zebCore_sendMsgReq_toNameUser", "zebCore_sendMsgRes", "zebIntf_sendReq_ntfy"})
        answer(function, [&lines](const Words &) {
            lines = take_log().size();
            return 0;
        });
    probe().copy.instead = [](void *, const void *) { return 4u; };
    send();
    EXPECT_EQ(lines, 1u);
    free(sent_body());
}

TEST_P(RecordTest, TheBufferIsAsLongAsTheRecordSays)
{
    Bytes body = sample().image;
    probe().serialize_lg.instead = [&](const void *given) {
        EXPECT_EQ(given, body.data() + record().place);
        return probe().serialize_lg.original(given) + 100;
    };
    ASSERT_EQ(encode(body.data()), 0u);
    EXPECT_EQ(probe().serialize_lg.calls, 1u);
    EXPECT_EQ(size, sample().wire.size() + 100);
    EXPECT_EQ(size_of_block(output), size);
    EXPECT_EQ(contents(output, size), sample().wire + Bytes(100, 0));
    free(output);
}

TEST_P(RecordTest, IsEncodedBehindThePrologueAndTheFieldsBeforeIt)
{
    Bytes body = sample().image;
    uint8_t *start = nullptr;
    probe().serialize.instead = [&](const void *given, uint8_t **cursor) {
        EXPECT_EQ(given, body.data() + record().place);
        start = *cursor;
        return probe().serialize.original(given, cursor);
    };
    ASSERT_EQ(encode(body.data()), 0u);
    EXPECT_EQ(probe().serialize.calls, 1u);
    EXPECT_EQ(start, static_cast<uint8_t *>(output) + record().offset);
    free(output);
}

TEST_P(RecordTest, AFailedEncodingEndsWithTheRecordsOwnCodeAndTheBufferStays)
{
    for (uint32_t status : statuses) {
        Bytes body = sample().image;
        probe().serialize.instead = [status](const void *, uint8_t **cursor) {
            *cursor += 4;
            return status;
        };
        EXPECT_EQ(encode(body.data()), status);
        expect_untouched();
        ASSERT_EQ(live_blocks().size(), 1u);
        void *buffer = live_blocks()[0];
        LogLines expected = announcements("serializeBody", buffer);
        expected.push_back(encoding_failed(buffer, status));
        EXPECT_EQ(take_log(), expected);
        // What stands before the record is written, and nothing behind it.
        ASSERT_EQ(size_of_block(buffer), sample().wire.size());
        EXPECT_EQ(contents(buffer, size_of_block(buffer)),
                  contents(sample().wire.data(), record().offset) + Bytes(sample().wire.size() - record().offset, 0));
        EXPECT_EQ(take_freed().size(), 0u);
        free(buffer);
    }
}

TEST_P(RecordTest, IsDecodedFromTheItemBehindThoseBeforeIt)
{
    // The version's item is longer than it need be.
    Bytes wire = with_number(with_more(sample().wire, 24, hex("fedcba98")), 16, 8);
    const void *place = nullptr;
    probe().unserialize.instead = [&](void *given, const uint8_t **cursor) {
        place = given;
        EXPECT_EQ(*cursor, wire.data() + record().offset + 4);
        return probe().unserialize.original(given, cursor);
    };
    ASSERT_EQ(callbacks->unserialize(GetParam().type, wire.data(), &output, &size), 0);
    EXPECT_EQ(probe().unserialize.calls, 1u);
    EXPECT_EQ(place, static_cast<char *>(output) + record().place);
    EXPECT_EQ(contents(output, size), sample().image);
    free(output);
}

TEST_P(RecordTest, AFailedDecodingReturnsTheRecordsOwnCodeAndTheRecordIsNotCleaned)
{
    for (uint32_t status : statuses) {
        probe().unserialize.instead = [status](void *, const uint8_t **) { return status; };
        expect_refused(sample().wire, static_cast<int32_t>(status), method().magic);
        EXPECT_EQ(take_log(), announcements("unserializeBody", sample().wire.data()));
        EXPECT_EQ(probe().clean.calls, 0u);
    }
}

TEST_P(RecordTest, AFailureOfItsOwnIsLoggedFirst)
{
    Bytes wire = with_number(sample().wire, record().offset, 99);
    expect_refused(wire, 4, method().magic);
    LogLines lines = take_log();
    LogLines behind = announcements("unserializeBody", wire.data());
    ASSERT_GT(lines.size(), behind.size());
    // Its lines show where the record begins, not the body.
    const void *start = wire.data() + record().offset;
    EXPECT_EQ(lines[0].text, logged(3, "", "pBody(%p): Tl(%u-%u) expectded(%u)\n", start, 99u, 4u, 3u).text);
    EXPECT_EQ(LogLines(lines.end() - static_cast<LogLines::difference_type>(behind.size()), lines.end()), behind);
}

TEST_P(RecordTest, IsNotDecodedAfterAPrologueThatIsRefused)
{
    expect_refused(with_number(sample().wire, 20, method().version ^ 1), 2, method().magic);
    EXPECT_EQ(probe().unserialize.calls, 0u);
    EXPECT_EQ(probe().clean.calls, 0u);
}

TEST_P(RecordTest, IsCleanedBeforeTheMagicIsOverwritten)
{
    void *body = callbacks->decoded();
    probe().clean.instead = [&](void *given) {
        EXPECT_EQ(given, static_cast<char *>(body) + record().place);
        EXPECT_EQ(*static_cast<uint32_t *>(body), method().magic);
        EXPECT_EQ(take_freed().size(), 0u);
    };
    callbacks->free_body(GetParam().type, body);
    EXPECT_EQ(probe().clean.calls, 1u);
    auto freed = take_freed();
    ASSERT_EQ(freed.size(), 1u);
    EXPECT_EQ(freed[0].words[0], 0xdeadbeefu);
}

TEST_P(RecordTest, IsLeftAloneInABodyThatIsKeptOrForeign)
{
    void *body = callbacks->decoded();
    set_flag(body, 1);
    callbacks->free_body(GetParam().type, body);
    EXPECT_EQ(probe().clean.calls, 0u);

    set_flag(body, 0);
    set_magic(body, 1);
    EXPECT_TRUE(aborts([&] { callbacks->free_body(GetParam().type, body); }));
    EXPECT_EQ(take_log().size(), 1u);
    EXPECT_EQ(probe().clean.calls, 0u);
    free(body);
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RecordTest);
INSTANTIATE_TEST_SUITE_P(Methods, RecordTest, testing::ValuesIn(bodies_with_record()), name_of_body);

} // namespace
