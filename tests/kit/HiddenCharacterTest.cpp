#include "TavHiddenCharacter.h"

#include "PrintQString.h"

#include <gtest/gtest.h>

namespace
{
QString nameIn(const std::u32string &text)
{
    return hiddenCharacterIn(QString::fromStdU32String(text));
}
}

TEST(HiddenCharacter, IsNamedWithItsNumber)
{
    EXPECT_EQ(nameIn(U"a\u202eb"), "an override of the direction of writing (U+202E)");
    EXPECT_EQ(nameIn(U"a\u2063b"), "a character without a width (U+2063)");
    EXPECT_EQ(nameIn(U"a\U000e0041b"), "a character without a width (U+E0041)") << "a tag, which is a pair";
    EXPECT_EQ(nameIn(U"a\nb"), "a control character (U+000A)");
    EXPECT_EQ(hiddenCharacterIn(QString(QChar(0xd83d))), "half a character (U+D83D)");
}

TEST(HiddenCharacter, MayBeALetterThatLooksBlank)
{
    EXPECT_EQ(nameIn(U"\u3164"), "a character that looks blank (U+3164)");
    EXPECT_EQ(nameIn(U"\u2800"), "a character that looks blank (U+2800)");
}

TEST(HiddenCharacter, IsNoneThatJoinsOrPartsItsNeighbours)
{
    EXPECT_EQ(nameIn(U"\u0645\u06cc\u200c\u062e\u0648\u0627\u0647\u0645"), "") << "a Persian word";
    EXPECT_EQ(nameIn(U"\u0915\u094d\u200d\u0937"), "") << "a Hindi conjunct";
    EXPECT_EQ(nameIn(U"\U0001f469\u200d\U0001f52c"), "") << "one picture of two";
    EXPECT_EQ(nameIn(U"a\u200cb"), "a character without a width (U+200C)") << "does nothing there";
    EXPECT_EQ(nameIn(U"\u0645\u200c"), "a character without a width (U+200C)");
}

TEST(HiddenCharacter, IsNoneThatIsSeen)
{
    EXPECT_EQ(nameIn(U"\u4e3b\u673a\u3000Host \U00020000 \u00e9"), "");
}
