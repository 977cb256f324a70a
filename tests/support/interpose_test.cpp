#include "interpose.h"

#include "library_test.h"

namespace {

class Interposition : public LibraryTest {};

Interposed<decltype(gorvaNet_addBase)> add_base{"gorvaNet_addBase"};

} // namespace

uint32_t gorvaNet_addBase()
{
    return add_base();
}

TEST_F(Interposition, ACallOfTheLibraryArrivesAndGoesOnToItsOwnFunction)
{
    add_base.calls = 0;
    EXPECT_EQ(gorvanet_initialize(), 0u);
    EXPECT_EQ(add_base.calls, 1u);
    EXPECT_EQ(gorvaNet_base.state, 1);
    EXPECT_EQ(take_calls().size(), 3u);
}

TEST_F(Interposition, ATestAnswersInItsPlace)
{
    add_base.instead = [] { return uint32_t{0x77}; };
    EXPECT_EQ(gorvanet_initialize(), 0x77u);
    add_base.instead = nullptr;
    EXPECT_EQ(gorvaNet_base.state, 0);
    EXPECT_EQ(take_log(), LogLines{logged(3, "gorvanet_initialize", "Add Base failed(%d)\n", 0x77)});
}
