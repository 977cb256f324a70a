#include "text.h"

#include <gtest/gtest.h>

#include <cstring>

TEST(TextLength, IsTheTextsOwn)
{
    EXPECT_EQ(strlen(""), 0u);
    EXPECT_EQ(strlen("a\0b"), 1u);
    EXPECT_EQ(strlen("abcdefgh"), 8u);
}

TEST(TextLength, IsPretendedForOneAddressOnly)
{
    static const char text[] = "abc";
    pretend_length(text, 0xfffffffb);
    EXPECT_EQ(strlen(text), 0xfffffffbu);
    EXPECT_EQ(strlen(text + 1), 2u);
    pretend_length(nullptr, 0);
    EXPECT_EQ(strlen(text), 3u);
}
