// The message-management blocks that the library fills for the middleware, word by word.

#include "frame_test.h"

namespace {

class Block : public FrameTest {};

// Gives every word of the rows a value of its own.
void number_rows()
{
    for (size_t i = 0; i < 12 * row_words; i++)
        set_word_of_base(cmd_rows + i, static_cast<uint32_t>(0x10000 + i));
    for (size_t i = 0; i < row_words; i++)
        set_word_of_base(ntfy_rows + i, static_cast<uint32_t>(0x20000 + i));
}

} // namespace

TEST_F(Block, HoldsNameUnregAndTheRecordsOfAllMethods)
{
    start();
    ASSERT_EQ(blocks().size(), 2u);
    EXPECT_EQ(blocks()[0], filled(words_of_base(), cmd_block, 12));
    EXPECT_EQ(blocks()[1], filled(words_of_base(), ntfy_block, 1));
}

TEST_F(Block, EachIsFilledBeforeTheNextCallOfTheBus)
{
    answer("zebCore_getBase_msgMngt", [](const Words &words) {
        if (words[2] == 1) {
            EXPECT_EQ(blocks().at(0), filled(words_of_base(), cmd_block, 12));
        }
        return hand_out_block(words);
    });
    answer("ruvo_addEvtBase", [](const Words &) {
        EXPECT_EQ(blocks().at(1), filled(words_of_base(), ntfy_block, 1));
        return 0;
    });
    start();
    EXPECT_EQ(blocks().size(), 2u);
}

TEST_F(Block, TheHeadNamesTheInterfaceAndItsUnregCallback)
{
    start();
    EXPECT_STREQ(reinterpret_cast<const char *>(blocks()[0][0]), "GorvaNetCmd");
    EXPECT_STREQ(reinterpret_cast<const char *>(blocks()[1][0]), "GorvaNetNtfy");
    EXPECT_EQ(blocks()[0][1], word(gorvaNet_cbEvtMsgMngt_unreg_msgCmd));
    EXPECT_EQ(blocks()[1][1], word(gorvaNet_cbEvtMsgMngt_unreg_msgNtfy));
}

TEST_F(Block, TheThirdWordIsLeftAsTheMiddlewareSetIt)
{
    start();
    EXPECT_EQ(blocks()[0][2], untouched);
    EXPECT_EQ(blocks()[1][2], untouched);
}

TEST_F(Block, NothingIsWrittenBehindTheLastRecord)
{
    start();
    const Words guard(guard_words, untouched);
    ASSERT_EQ(blocks()[0].size(), 3 + 6 * 12 + guard_words);
    ASSERT_EQ(blocks()[1].size(), 3 + 6 * 1 + guard_words);
    EXPECT_EQ(Words(blocks()[0].begin() + 75, blocks()[0].end()), guard);
    EXPECT_EQ(Words(blocks()[1].begin() + 9, blocks()[1].end()), guard);
}

// Numbers in place of pointers: every word of a record is seen to come from its own member, `reserved` included, and
// neither the receiver nor the index is among them.
TEST_F(Block, RecordsAreCopiedMemberByMemberFromTheRowsAsTheyAreNow)
{
    number_rows();
    start();
    Words expected = {word(gorvaNet_base.cmd.name), word(gorvaNet_base.cmd.unreg), untouched};
    for (uintptr_t row = 0x10000; row < 0x10000 + 96; row += 8)
        expected.insert(expected.end(), {row + 1, row + 2, row + 3, row + 4, row + 5, row + 6});
    expected.insert(expected.end(), guard_words, untouched);
    EXPECT_EQ(blocks()[0], expected);
    EXPECT_EQ(blocks()[1],
              (Words{word(gorvaNet_base.ntfy.name), word(gorvaNet_base.ntfy.unreg), untouched, 0x20001, 0x20002,
                     0x20003, 0x20004, 0x20005, 0x20006, untouched, untouched, untouched, untouched}));
}

TEST_F(Block, NameAndUnregComeFromTheDescriptorAsItIsNow)
{
    gorvaNet_base.cmd.name = "OtherCmd";
    gorvaNet_base.cmd.unreg = gorvaNet_cbEvtMsgMngt_unreg_msgNtfy;
    gorvaNet_base.ntfy.name = "OtherNtfy";
    gorvaNet_base.ntfy.unreg = nullptr;
    EXPECT_EQ(gorvanet_initialize(), 0u);
    EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
    EXPECT_STREQ(reinterpret_cast<const char *>(blocks()[0][0]), "OtherCmd");
    EXPECT_EQ(blocks()[0][1], word(gorvaNet_cbEvtMsgMngt_unreg_msgNtfy));
    EXPECT_STREQ(reinterpret_cast<const char *>(blocks()[1][0]), "OtherNtfy");
    EXPECT_EQ(blocks()[1][1], 0u);
}

// The counts in the descriptor say whether an interface is registered; how many records are written is fixed.
TEST_F(Block, HoldsTwelveAndOneRecordsWhateverTheCountsSay)
{
    for (uint16_t count : std::initializer_list<uint16_t>{1, 5, 13, 0xffff}) {
        SetUp();
        gorvaNet_base.cmd.count = count;
        gorvaNet_base.ntfy.count = count;
        EXPECT_EQ(gorvanet_initialize(), 0u);
        EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
        EXPECT_EQ(blocks()[0], filled(words_of_base(), cmd_block, 12));
        EXPECT_EQ(blocks()[1], filled(words_of_base(), ntfy_block, 1));
    }
}

TEST_F(Block, ABlockThatComesWithoutANumberIsNotFilled)
{
    answer("zebCore_getBase_msgMngt", [](const Words &words) {
        hand_out_block(words);
        return uintptr_t{0xffff};
    });
    EXPECT_EQ(gorvaNet_addBase(), 1u);
    EXPECT_EQ(calls_made(), Calls{asks_for_cmd()});
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvaNet_addBase", "Add command message management failed\n")});
    ASSERT_EQ(blocks().size(), 1u);
    EXPECT_EQ(blocks()[0], Words(3 + 6 * 12 + guard_words, untouched));
}

TEST_F(Block, FillingABlockLeavesTheRowsAsTheyAre)
{
    BaseWords before = words_of_base();
    start();
    BaseWords after = words_of_base();
    for (size_t place = 0; place < base_words; place++) {
        if (place == 5 || place == 105 || place == 115)
            continue;
        EXPECT_EQ(after[place], before[place]) << "word " << place;
    }
}
