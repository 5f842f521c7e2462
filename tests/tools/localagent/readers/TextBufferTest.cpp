#include "TextBuffer.h"

#include <gtest/gtest.h>

#include <cstring>

TEST(TextBuffer, CutsBetweenTwoCharacters)
{
    char buffer[6];
    std::memset(buffer, 'x', sizeof(buffer));
    TextBuffer::copy(buffer, "ab\u4e2d\u6587"); // two letters, two characters of three bytes
    EXPECT_STREQ(buffer, "ab\u4e2d");
    TextBuffer::copy(buffer, "abc\u4e2d");
    EXPECT_STREQ(buffer, "abc");
    EXPECT_EQ(buffer[4], '\0');
    EXPECT_EQ(buffer[5], '\0');
    TextBuffer::copy(buffer, "abcdef");
    EXPECT_STREQ(buffer, "abcde");
    TextBuffer::copy(buffer, "");
    EXPECT_STREQ(buffer, "");
}

TEST(TextBuffer, HoldsOneByteAtLeast)
{
    char buffer[1] = {'x'};
    TextBuffer::copy(buffer, "\u4e2d");
    EXPECT_EQ(buffer[0], '\0');
}

TEST(TextBuffer, ReplacesWhatIsNotUtf8)
{
    char buffer[8];
    TextBuffer::copy(buffer,
                     "a\xff"
                     "b");
    EXPECT_STREQ(buffer, "a\ufffdb");
    EXPECT_EQ(TextBuffer::message("a\xff"
                                  "b"),
              "a\ufffdb");
    EXPECT_EQ(TextBuffer::message(QByteArray("a\0b", 3)), "a");
}
