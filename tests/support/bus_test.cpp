#include "bus.h"

#include <gtest/gtest.h>

namespace {

class Bus : public testing::Test {
protected:
    void SetUp() override
    {
        reset_bus();
    }

    void TearDown() override
    {
        reset_bus();
    }
};

} // namespace

// The bus takes and gives plain words.
extern "C" uintptr_t zebCore_putBase_msgMngt(uintptr_t a, uintptr_t b);
extern "C" uintptr_t zebCore_getBase_msgMngt(uintptr_t a, uintptr_t b, uintptr_t c);
extern "C" uintptr_t zebIntf_getCore_user(uintptr_t a);

TEST_F(Bus, RecordsCallsWithTheirWordsInOrderAndGivesThemOnce)
{
    zebCore_putBase_msgMngt(0xffff1234, 1);
    zebCore_putBase_msgMngt(2, 0x80000000);
    EXPECT_EQ(take_calls(),
              (Calls{{"zebCore_putBase_msgMngt", {0xffff1234, 1}}, {"zebCore_putBase_msgMngt", {2, 0x80000000}}}));
    EXPECT_EQ(take_calls(), Calls{});
}

TEST_F(Bus, AnswersAsTold)
{
    EXPECT_EQ(zebCore_putBase_msgMngt(1, 0), 0u);
    answer("zebCore_putBase_msgMngt", 0xffffffff);
    EXPECT_EQ(zebCore_putBase_msgMngt(1, 0), 0xffffffffu);
    answer("zebCore_putBase_msgMngt", [](const Words &words) { return words[0] + 5; });
    EXPECT_EQ(zebCore_putBase_msgMngt(1, 0), 6u);
    EXPECT_EQ(zebIntf_getCore_user(0x10), 0x1010u);
    reset_bus();
    EXPECT_EQ(zebCore_putBase_msgMngt(1, 0), 0u);
}

TEST_F(Bus, HandsOutGuardedBlocksWhoseNumbersCountAndWhoseAddressesStay)
{
    uintptr_t first = 0;
    uintptr_t next = 0;
    EXPECT_EQ(zebCore_getBase_msgMngt(0, word(&first), 12) & 0xffff, 0x0101u);
    for (uintptr_t number = 0x0102; number < 0x0120; number++)
        EXPECT_EQ(zebCore_getBase_msgMngt(0, word(&next), 1) & 0xffff, number);
    EXPECT_EQ(word(blocks().front().data()), first);
    EXPECT_EQ(word(blocks().back().data()), next);
    EXPECT_EQ(blocks().front(), Words(3 + 72 + 4, untouched));
    EXPECT_EQ(blocks().back(), Words(3 + 6 + 4, untouched));
}

TEST_F(Bus, TheUpperHalfOfANumberIsNeverZero)
{
    uintptr_t block = 0;
    EXPECT_NE(zebCore_getBase_msgMngt(0, word(&block), 1) >> 16, 0u);
}

TEST_F(Bus, CallsDifferInFunctionAndEveryWord)
{
    Call call{"f", {1, 2}};
    EXPECT_TRUE(call == (Call{"f", {1, 2}}));
    EXPECT_FALSE(call == (Call{"g", {1, 2}}));
    EXPECT_FALSE(call == (Call{"f", {1, 3}}));
    EXPECT_FALSE(call == (Call{"f", {1, 2, 0}}));
}
