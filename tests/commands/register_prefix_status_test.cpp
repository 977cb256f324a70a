// RegisterPrefixStatus, command 9, and its wide item.

#include "commands/method.h"

#include <cstdlib>
#include <type_traits>

static_assert(
    std::is_same_v<gorvaNet_registerPrefixStatus_response, void(void *context, void *user_data, uint32_t result)>);
static_assert(std::is_same_v<gorvaNet_registerPrefixStatus_handler,
                             void(void *message, void *data, uint32_t first, void *pointer, uint32_t last)>);
static_assert(GORVANET_MAGIC_MSGCMD_REGISTERPREFIXSTATUS == 0x20150227);

namespace {

void *const pointer = reinterpret_cast<void *>(0xf1e2d3c4);

} // namespace

extern const Method register_prefix_status;
const Method register_prefix_status = {
    .suffix = "registerPrefixStatus",
    .index = 9,
    .magic = 0x20150227,
    .magic_name = "GORVANET_MAGIC_MSGCMD_REGISTERPREFIXSTATUS",
    .accept_magic = 0x20150228,
    .version = 0,
    .request =
        {
            .image =
                Image(20).number(0, 0x20150227).number(8, 0x01020304).number(12, 0xf1e2d3c4).number(16, 0x05060708),
            .wire = hex("00000000 00000004 20150227"
                        "00000001 00000004 00000000"
                        "00000003 00000004 01020304"
                        "0000000000000004 0000000000000008 00000000f1e2d3c4"
                        "00000005 00000004 05060708"),
            .fields = {{.tag = 3, .offset = 24, .announced = {4, 5}}, {.tag = 5, .offset = 60, .announced = {}}},
            .passed =
                [](uintptr_t) {
                    return Words{0x01020304, 0xf1e2d3c4, 0x05060708};
                },
        },
    .response =
        {
            .image = Image(12).number(0, 0x20150227).number(8, 0x11223344),
            .wire = hex("00000000 00000004 20150227"
                        "00000001 00000004 00000000"
                        "00000003 00000004 11223344"),
            .fields = {{.tag = 3, .offset = 24, .announced = {}}},
            .passed = [](uintptr_t) { return Words{0x11223344}; },
        },
    .send =
        [](void *sender, gorvaNet_function *callback, void *first, void *second, const char *name) {
            return gorvaNet_sendReq_registerPrefixStatus(
                sender, reinterpret_cast<gorvaNet_registerPrefixStatus_response *>(callback), first, second, name,
                0x01020304, pointer, 0x05060708);
        },
    .respond = [](void *request) { gorvaNet_sendRes_registerPrefixStatus(request, 0x11223344); },
    .handler = keeper<gorvaNet_registerPrefixStatus_handler>(),
    .callback = keeper<gorvaNet_registerPrefixStatus_response>(),
};

namespace {

constexpr size_t wide_item = 36;
constexpr size_t wide_length = wide_item + 8;
constexpr size_t wide_value = wide_item + 16;

class RegisterPrefixStatusTest : public LibraryTest {
protected:
    static Bytes with_wide(Bytes bytes, size_t offset, uint64_t value)
    {
        bytes = with_number(bytes, offset, static_cast<uint32_t>(value >> 32));
        return with_number(bytes, offset + 4, static_cast<uint32_t>(value));
    }

    int32_t decode(const Bytes &wire)
    {
        return gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_registerPrefixStatus(0, wire.data(), &body, &size);
    }

    void expect_decoded(const Bytes &wire, const Bytes &expected)
    {
        ASSERT_EQ(decode(wire), 0);
        EXPECT_EQ(size, 20u);
        EXPECT_EQ(contents(body, size), expected);
        free(body);
    }

    // `stored` is what the pointer's field of the body that is given up holds.
    void expect_refused(const Bytes &wire, int32_t status, uint32_t stored = 0)
    {
        take_freed();
        EXPECT_EQ(decode(wire), status);
        EXPECT_EQ(body, nullptr);
        EXPECT_EQ(size, 7u);
        auto freed = take_freed();
        ASSERT_EQ(freed.size(), 1u);
        EXPECT_EQ(freed[0].size, 20u);
        EXPECT_EQ(freed[0].words[0], 0x20150227u);
        EXPECT_EQ(freed[0].words[3], stored);
    }

    static LogLine announced(const Bytes &wire, int tag)
    {
        const void *start = wire.data();
        return logged(3, name, "pBody(%p): Type(%d) -> Error Before\n", start, tag);
    }

    static LogLine wide_line(const Bytes &wire, uint64_t tag, uint64_t length)
    {
        const void *start = wire.data();
        return logged(3, name, "pBody(%p): Tl(%llu-%llu) expectded(%u)\n", start, tag, length, 4u);
    }

    static constexpr const char *name = "gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmdReq_registerPrefixStatus";
    const Bytes &sample = register_prefix_status.request.wire;
    const Bytes &image = register_prefix_status.request.image;
    void *body = nullptr;
    uint32_t size = 7;
};

TEST_F(RegisterPrefixStatusTest, AValueOf0x100000000IsRefusedWithResult12)
{
    Bytes wire = with_wide(sample, wide_value, 0x100000000);
    expect_refused(wire, 12);
    LogLines lines = take_log();
    EXPECT_EQ(lines, (LogLines{logged(3, name, "Invalid pointer value(%llu)\n", 4294967296ull), announced(wire, 5)}));
    EXPECT_EQ(lines.at(0).text, "Invalid pointer value(4294967296)\n");
    EXPECT_TRUE(lines_ascend(lines));
}

TEST_F(RegisterPrefixStatusTest, EveryBitOfTheValuesHighHalfIsLookedAt)
{
    for (uint64_t value : {0x8000000000000000u, 0x00010000f1e2d3c4u, 0xffffffffffffffffu}) {
        Bytes wire = with_wide(sample, wide_value, value);
        expect_refused(wire, 12);
        EXPECT_EQ(take_log(),
                  (LogLines{logged(3, name, "Invalid pointer value(%llu)\n", static_cast<unsigned long long>(value)),
                            announced(wire, 5)}));
    }
}

TEST_F(RegisterPrefixStatusTest, ATagOf0x0000000100000004IsRefusedWithTheWideLine)
{
    Bytes wire = with_wide(sample, wide_item, 0x0000000100000004);
    expect_refused(wire, 4);
    LogLines lines = take_log();
    EXPECT_EQ(lines, (LogLines{wide_line(wire, 0x0000000100000004, 8), announced(wire, 5)}));
    EXPECT_TRUE(lines_ascend(lines));
}

TEST_F(RegisterPrefixStatusTest, OnlyAWideTagOfExactly4Passes)
{
    for (uint64_t tag : {0x0u, 0x5u, 0x10004u}) {
        Bytes wire = with_wide(with_wide(sample, wide_item, tag), wide_length, 0xfffffffffffffff1);
        expect_refused(wire, 4);
        EXPECT_EQ(take_log(), (LogLines{wide_line(wire, tag, 0xfffffffffffffff1), announced(wire, 5)}));
    }
    for (uint64_t tag : {0x0000000400000000u, 0x8000000000000004u}) {
        Bytes wire = with_wide(sample, wide_item, tag);
        expect_refused(wire, 4);
        EXPECT_EQ(take_log(), (LogLines{wide_line(wire, tag, 8), announced(wire, 5)}));
    }
}

TEST_F(RegisterPrefixStatusTest, AWrongWideTagIsFoundBeforeAWrongValue)
{
    Bytes wire = with_wide(with_wide(sample, wide_item, 5), wide_value, 0x100000000);
    expect_refused(wire, 4);
    EXPECT_EQ(take_log(), (LogLines{wide_line(wire, 5, 8), announced(wire, 5)}));
}

TEST_F(RegisterPrefixStatusTest, ALengthOf0xFFFFFFFF00000008IsAcceptedAndTheNextItemIs24BytesOn)
{
    expect_decoded(with_wide(sample, wide_length, 0xffffffff00000008), image);
}

TEST_F(RegisterPrefixStatusTest, ALengthOf12MovesTheNextItem4BytesFurther)
{
    Bytes wire = with_more(with_wide(sample, wide_length, 12), wide_item + 24, hex("fedcba98"));
    expect_decoded(wire, image);
}

TEST_F(RegisterPrefixStatusTest, AShorterLengthIsFollowedToo)
{
    // The next item begins where the value's low half stands: its tag is the pointer.
    Bytes wire = with_number(with_wide(sample, wide_length, 4), wide_value + 4, 5);
    expect_decoded(wire, Image(20).number(0, 0x20150227).number(8, 0x01020304).number(12, 5).number(16, 4));
}

TEST_F(RegisterPrefixStatusTest, TheWideAdvanceWrapsIn32Bits)
{
    // 16 + 0xfffffff0 is 0: the last value is looked for where the wide item begins.
    Bytes wire = with_wide(sample, wide_length, 0xfffffff0);
    expect_refused(wire, 4, 0xf1e2d3c4);
    const void *start = wire.data();
    EXPECT_EQ(take_log(), LogLines{logged(3, name, "pBody(%p): Tl(%u-%u) expectded(%u)\n", start, 0u, 4u, 5u)});
}

TEST_F(RegisterPrefixStatusTest, ANullPointerTravelsAs64ZeroBits)
{
    gorvaNet_sendReq_registerPrefixStatus(user, nullptr, pass1, pass2, server, 0x01020304, nullptr, 0x05060708);
    void *request = sent_body();
    void *buffer = nullptr;
    ASSERT_EQ(gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_registerPrefixStatus(0, request, &buffer, &size), 0u);
    EXPECT_EQ(contents(buffer, size), with_wide(sample, wide_value, 0));
    expect_decoded(contents(buffer, size),
                   Image(20).number(0, 0x20150227).number(8, 0x01020304).number(16, 0x05060708));
    free(buffer);
    free(request);
}

TEST_F(RegisterPrefixStatusTest, EveryBitOfAPointerSurvives)
{
    for (uint32_t value : {0x1u, 0x80000000u, 0xffffffffu})
        expect_decoded(with_wide(sample, wide_value, value),
                       Image(20).number(0, 0x20150227).number(8, 0x01020304).number(12, value).number(16, 0x05060708));
}

} // namespace
