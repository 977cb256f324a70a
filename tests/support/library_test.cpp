#include "library_test.h"

namespace {

// The descriptor before any test has touched it.
const gorvaNet_descriptor &pristine()
{
    static const gorvaNet_descriptor copy = gorvaNet_base;
    return copy;
}

} // namespace

void LibraryTest::SetUp()
{
    gorvaNet_base = pristine();
    pretend_length(nullptr, 0);
    take_log();
    reset_bus();
    reset_memory();
}

void LibraryTest::TearDown()
{
    pretend_length(nullptr, 0);
    EXPECT_EQ(take_log(), LogLines{}) << "log lines that the test did not expect";
    EXPECT_EQ(take_calls(), Calls{}) << "calls of the bus that the test did not expect";
    EXPECT_EQ(live_blocks(), std::vector<void *>{}) << "blocks that nobody released";
    reset_memory();
}
