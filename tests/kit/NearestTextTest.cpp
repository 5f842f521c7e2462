#include "TavNearestText.h"

#include "PrintQString.h"

#include <gtest/gtest.h>

TEST(NearestText, IsTheSameInOtherCase)
{
    EXPECT_EQ(nearestText("GETSTATE", {"getStats", "getState"}), "getState");
    EXPECT_EQ(nearestText("A", {"b", "a"}), "a");
}

TEST(NearestText, DiffersInTheFewestLetters)
{
    EXPECT_EQ(nearestText("setStat", {"setStart", "setState", "setStar"}), "setStart") << "the first of equals";
    EXPECT_EQ(nearestText("netControl", {"netControlers", "netKontrol"}), "netKontrol");
    EXPECT_EQ(nearestText("netControl", {"netKontrol", "netControlers"}), "netKontrol");
    EXPECT_EQ(nearestText("abcdef", {"bcdefa"}), "bcdefa") << "one taken out, one put in";
}

TEST(NearestText, DiffersInAThirdOfItsLettersAtMost)
{
    EXPECT_EQ(nearestText("abcdef", {"abcdxy"}), "abcdxy");
    EXPECT_EQ(nearestText("abcdef", {"abcxyz"}), "");
    EXPECT_EQ(nearestText("abc", {"axc"}), "axc");
    EXPECT_EQ(nearestText("ab", {"ax"}), "");
    EXPECT_EQ(nearestText("abcd", {"xxabcd"}), "xxabcd") << "a third of the longer one";
    EXPECT_EQ(nearestText("xxabcd", {"abcd"}), "abcd");
    EXPECT_EQ(nearestText("abxxcd", {"abcd"}), "abcd");
    EXPECT_EQ(nearestText("state", {"taste"}), "") << "one taken out and one put in, of five";
    EXPECT_EQ(nearestText("abcd", {"xxxabcd"}), "");
    EXPECT_EQ(nearestText("xxxabcd", {"abcd"}), "");
}

TEST(NearestText, GoesOnWhereTheOtherEnds)
{
    EXPECT_EQ(nearestText("audi", {"auditRecordCount", "protect"}), "auditRecordCount");
    EXPECT_EQ(nearestText("AUDITrecordCount", {"audi", "protect"}), "audi");
    EXPECT_EQ(nearestText("aud", {"auditRecordCount"}), "") << "of three letters, anything may begin";
    EXPECT_EQ(nearestText("auditRecordCount", {"aud"}), "");
    EXPECT_EQ(nearestText("audi", {"auditRecordCount", "auditRecordContent"}), "") << "which of them?";
    EXPECT_EQ(nearestText("audi", {"auditRecordCount", "audit"}), "audit") << "fewest letters come first";
}

TEST(NearestText, IsEmptyWhereThereIsNone)
{
    EXPECT_EQ(nearestText("audit", {}), "");
    EXPECT_EQ(nearestText("", {"audit"}), "");
    EXPECT_EQ(nearestText("", {"", "audit"}), "");
}

TEST(NearestText, IsNamedInTheWordsOfAnError)
{
    EXPECT_EQ(nearestOrAll("setStat", {"getCount", "setState"}), "nearest: setState");
    EXPECT_EQ(nearestOrAll("xyz", {"getCount", "setState"}), "there are: getCount, setState");
}
