#include "memory.h"

#include "library_test.h"

#include <cstdlib>

namespace {

class MemoryBooks : public LibraryTest {
protected:
    // A small block of the library, or null.
    static char *allocated()
    {
        char *text = nullptr;
        gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setOsIfc(0, nullptr, 0, &text);
        return text;
    }

    static void *sent_body()
    {
        gorvaNet_sendReq_setOsIfc(nullptr, nullptr, nullptr, nullptr, "service", "eth0");
        Calls calls = take_calls();
        return calls.size() == 2 ? reinterpret_cast<void *>(calls[1].words[1]) : nullptr;
    }

    static void free_body(void *body)
    {
        gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setOsIfc(0, body);
    }
};

} // namespace

TEST_F(MemoryBooks, KnowTheBlocksOfTheLibraryAndNoOthers)
{
    void *own = malloc(100);
    char *text = allocated();
    EXPECT_EQ(live_blocks(), std::vector<void *>{text});
    EXPECT_GE(size_of_block(text), 1u);
    EXPECT_EQ(size_of_block(own), 0u);
    EXPECT_EQ(allocations(), 1u);
    free(text);
    free(own);
    EXPECT_EQ(live_blocks(), std::vector<void *>{});
}

TEST_F(MemoryBooks, AnAllocationIsRefusedWhenItsTurnComes)
{
    refuse_allocation(2);
    char *first = allocated();
    char *second = allocated();
    char *third = allocated();
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_NE(third, nullptr);
    EXPECT_EQ(allocations(), 3u);
    EXPECT_EQ(take_log().size(), 1u);
    free(first);
    free(third);
}

TEST_F(MemoryBooks, TheRestIsRefusedWhenAskedFor)
{
    refuse_allocation(1, true);
    EXPECT_EQ(allocated(), nullptr);
    EXPECT_EQ(allocated(), nullptr);
    refuse_allocation(0);
    char *text = allocated();
    EXPECT_NE(text, nullptr);
    free(text);
    EXPECT_EQ(take_log().size(), 2u);
}

TEST_F(MemoryBooks, AnyOfTheNextAreRefused)
{
    refuse_allocations(0b1010);
    char *blocks[6];
    for (char *&block : blocks)
        block = allocated();
    EXPECT_EQ(allocations(), 6u);
    EXPECT_EQ(take_log().size(), 2u);
    for (size_t i = 0; i < 6; i++) {
        EXPECT_EQ(blocks[i] == nullptr, i == 1 || i == 3);
        free(blocks[i]);
    }
    refuse_allocations(0x80000000);
    for (int i = 0; i < 31; i++)
        free(allocated());
    EXPECT_EQ(take_log().size(), 0u);
    EXPECT_EQ(allocated(), nullptr);
    free(allocated());
    EXPECT_EQ(take_log().size(), 1u);
}

TEST_F(MemoryBooks, TheBlocksOfTheProcessAreCountedToo)
{
    const long before = blocks_of_process();
    void *own = malloc(100);
    void *other = calloc(1, 100);
    EXPECT_EQ(blocks_of_process() - before, 2);
    free(own);
    free(nullptr);
    EXPECT_EQ(blocks_of_process() - before, 1);
    free(other);
    EXPECT_EQ(blocks_of_process() - before, 0);
}

TEST_F(MemoryBooks, OnlyTheLibraryIsRefused)
{
    refuse_allocation(1, true);
    void *own = malloc(100);
    EXPECT_NE(own, nullptr);
    free(own);
}

TEST_F(MemoryBooks, AFreedBlockIsSeenWithItsFirstWordsAndSize)
{
    void *body = sent_body();
    ASSERT_NE(body, nullptr);
    size_t size = size_of_block(body);
    EXPECT_GE(size, 6u);
    EXPECT_EQ(take_freed().size(), 0u);
    free_body(body);
    std::vector<Freed> freed = take_freed();
    ASSERT_EQ(freed.size(), 1u);
    EXPECT_EQ(freed[0].block, body);
    EXPECT_EQ(freed[0].size, size);
    EXPECT_EQ(freed[0].words[0], 0xdeadbeefu);
    EXPECT_EQ(take_freed().size(), 0u);
}

TEST_F(MemoryBooks, BlocksFreedByTheTestAreNoLongerLiveAndNotSeenAsTheLibrarys)
{
    free(allocated());
    EXPECT_EQ(live_blocks(), std::vector<void *>{});
    EXPECT_EQ(take_freed().size(), 0u);
}

TEST_F(MemoryBooks, ABlockThatTheLibraryDidNotAllocateIsFreedWithoutASize)
{
    auto *body = static_cast<uint32_t *>(calloc(16, 4));
    body[0] = 0x39132011;
    free_body(body);
    std::vector<Freed> freed = take_freed();
    ASSERT_EQ(freed.size(), 1u);
    EXPECT_EQ(freed[0].block, body);
    EXPECT_EQ(freed[0].size, 0u);
}
