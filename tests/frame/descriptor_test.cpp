// The descriptor as the middleware sees it: raw 32-bit words at fixed places.

#include "frame_test.h"

#include <cstddef>
#include <dlfcn.h>

namespace {

class Descriptor : public FrameTest {};

// The address that a name has in this process, or null.
uint32_t symbol(const std::string &name)
{
    return word(dlsym(RTLD_DEFAULT, name.c_str()));
}

std::string text_at(uint32_t address)
{
    return reinterpret_cast<const char *>(uintptr_t{address});
}

struct Row {
    size_t place;
    uint32_t index;
    const char *name;
    const char *receiver;
    const char *callbacks; // suffix of the four body callbacks
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}

class DescriptorRow : public FrameTest, public testing::WithParamInterface<Row> {};

constexpr Row command_row(uint32_t index, const char *name, const char *suffix)
{
    return {cmd_rows + row_words * index, index, name, suffix, suffix};
}

const Row rows[] = {
    command_row(0, "SetOsIfc", "setOsIfc"),
    command_row(1, "SetDhcp", "setDhcp"),
    command_row(2, "SetRdisc6", "setRdisc6"),
    command_row(3, "GetIPv4Props", "getIPv4Props"),
    command_row(4, "GetIPv6Props", "getIPv6Props"),
    command_row(5, "SetIPv4Address", "setIPv4Address"),
    command_row(6, "SetMtu", "setMtu"),
    command_row(7, "SetIPv6PrefixAndAddress", "setIPv6PrefixAndAddress"),
    command_row(8, "AskStateRenotification", "askStateRenotification"),
    command_row(9, "RegisterPrefixStatus", "registerPrefixStatus"),
    command_row(10, "Configure", "configure"),
    command_row(11, "ConfigureAllIPv6Intf", "configureAllIPv6Intf"),
    {ntfy_rows, 0, "PrefixStatus", "ntfyPrefixStatus", "prefixStatus"},
};

} // namespace

TEST_F(Descriptor, TheObjectIs464BytesLong)
{
    EXPECT_EQ(sizeof gorvaNet_base, 464u);
    EXPECT_EQ(sizeof(gorvaNet_interface), 16u);
    EXPECT_EQ(sizeof(gorvaNet_method), 32u);
}

TEST_F(Descriptor, TheHeaderDeclaresTheMembersWhereTheMiddlewareReadsThem)
{
    EXPECT_EQ(offsetof(gorvaNet_descriptor, magic), 0u);
    EXPECT_EQ(offsetof(gorvaNet_descriptor, name), 4u);
    EXPECT_EQ(offsetof(gorvaNet_descriptor, cmd), 8u);
    EXPECT_EQ(offsetof(gorvaNet_descriptor, cmdMethods), 24u);
    EXPECT_EQ(offsetof(gorvaNet_descriptor, ntfy), 408u);
    EXPECT_EQ(offsetof(gorvaNet_descriptor, ntfyMethods), 424u);
    EXPECT_EQ(offsetof(gorvaNet_descriptor, debug), 456u);
    EXPECT_EQ(offsetof(gorvaNet_descriptor, state), 460u);
    EXPECT_EQ(offsetof(gorvaNet_descriptor, flags), 461u);

    EXPECT_EQ(offsetof(gorvaNet_interface, magic), 0u);
    EXPECT_EQ(offsetof(gorvaNet_interface, name), 4u);
    EXPECT_EQ(offsetof(gorvaNet_interface, unreg), 8u);
    EXPECT_EQ(offsetof(gorvaNet_interface, num), 12u);
    EXPECT_EQ(offsetof(gorvaNet_interface, count), 14u);

    EXPECT_EQ(offsetof(gorvaNet_method, recvReq), 0u);
    EXPECT_EQ(offsetof(gorvaNet_method, reserved), 4u);
    EXPECT_EQ(offsetof(gorvaNet_method, name), 8u);
    EXPECT_EQ(offsetof(gorvaNet_method, freeBody), 12u);
    EXPECT_EQ(offsetof(gorvaNet_method, serializeBody), 16u);
    EXPECT_EQ(offsetof(gorvaNet_method, unserializeBody), 20u);
    EXPECT_EQ(offsetof(gorvaNet_method, logBody), 24u);
    EXPECT_EQ(offsetof(gorvaNet_method, index), 28u);
}

TEST_F(Descriptor, TheHeaderHasTheConstants)
{
    EXPECT_EQ(GORVANET_MAGIC_BASE, 0x24142720u);
    EXPECT_EQ(GORVANET_STATE_BASE_WAIT_INIT, 0u);
    EXPECT_EQ(GORVANET_STATE_BASE_INIT, 1u);
    EXPECT_EQ(GORVANET_FLAGS_BASE_REG_CMD, 0x1u);
    EXPECT_EQ(GORVANET_FLAGS_BASE_REG_NTFY, 0x2u);
}

TEST_F(Descriptor, TheHeadIsMagicAndName)
{
    BaseWords words = words_of_base();
    EXPECT_EQ(words[0], 0x24142720u);
    EXPECT_EQ(text_at(words[1]), "GorvaNet");
}

TEST_F(Descriptor, TheCommandBlockFollows)
{
    BaseWords words = words_of_base();
    EXPECT_EQ(words[2], 0x24142721u);
    EXPECT_EQ(text_at(words[3]), "GorvaNetCmd");
    EXPECT_EQ(words[4], symbol("gorvaNet_cbEvtMsgMngt_unreg_msgCmd"));
    EXPECT_EQ(words[5], word_of_numbers(0xffff, 12));
}

TEST_F(Descriptor, TheNotificationBlockFollowsTheTwelveCommandRows)
{
    BaseWords words = words_of_base();
    EXPECT_EQ(words[102], 0x24142722u);
    EXPECT_EQ(text_at(words[103]), "GorvaNetNtfy");
    EXPECT_EQ(words[104], symbol("gorvaNet_cbEvtMsgMngt_unreg_msgNtfy"));
    EXPECT_EQ(words[105], word_of_numbers(0xffff, 1));
}

TEST_F(Descriptor, DebugStateAndFlagsAreZeroAtFirst)
{
    BaseWords words = words_of_base();
    EXPECT_EQ(words[114], 0u);
    EXPECT_EQ(words[115], 0u);
}

TEST_F(Descriptor, StateAndFlagsAreTheFirstTwoBytesOfTheLastWord)
{
    gorvaNet_base.state = 0x12;
    gorvaNet_base.flags = 0x34;
    EXPECT_EQ(words_of_base()[115], word_of_bytes(0x12, 0x34));
}

TEST_P(DescriptorRow, HoldsTheMethodsFunctionsNameAndIndex)
{
    const Row &row = GetParam();
    std::string interface = row.place < ntfy_block ? "msgCmd_" : "msgNtfy_";
    auto callback = [&](const char *operation) {
        return symbol(std::string("gorvaNet_cbEvtMsgMngt_") + operation + "_" + interface + row.callbacks);
    };
    uint32_t receiver = symbol(std::string("gorvaNet_recvReq_") + row.receiver);
    ASSERT_NE(receiver, 0u);
    for (const char *operation : {"freeBody", "serializeBody", "unserializeBody", "logBody"})
        ASSERT_NE(callback(operation), 0u) << operation;

    BaseWords words = words_of_base();
    EXPECT_EQ(words[row.place], receiver);
    EXPECT_EQ(words[row.place + 1], 0u) << "reserved";
    ASSERT_NE(words[row.place + 2], 0u);
    EXPECT_EQ(text_at(words[row.place + 2]), row.name);
    EXPECT_EQ(words[row.place + 3], callback("freeBody"));
    EXPECT_EQ(words[row.place + 4], callback("serializeBody"));
    EXPECT_EQ(words[row.place + 5], callback("unserializeBody"));
    EXPECT_EQ(words[row.place + 6], callback("logBody"));
    EXPECT_EQ(words[row.place + 7], row.index);
}

INSTANTIATE_TEST_SUITE_P(Method, DescriptorRow, testing::ValuesIn(rows),
                         [](const auto &method) { return std::string(method.param.name); });
