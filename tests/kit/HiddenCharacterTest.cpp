#include "TavHiddenCharacter.h"

#include "PrintQString.h"

#include <QVector>

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
    EXPECT_EQ(hiddenCharacterIn(QString(QChar(0xd83d)) + 'a'), "half a character (U+D83D)");
    EXPECT_EQ(hiddenCharacterIn(QString(QChar(0xdd2c)) + QChar(0xd83d)), "half a character (U+DD2C)");
    EXPECT_EQ(hiddenCharacterIn(QString(QChar(0xd83d)) + QChar(0xdd2c) + '\n'), "a control character (U+000A)");
    EXPECT_EQ(nameIn(U"a\u00adb\u202e"), "a soft hyphen (U+00AD)") << "the first of them";
}

TEST(HiddenCharacter, IsToldWhateverItIs)
{
    const struct {
        QVector<uint> characters;
        QString kind;
    } rows[] = {
        {{0xa0, 0x202f}, "a no-break space"},
        {{0xad}, "a soft hyphen"},
        {{0x115f, 0x1160, 0x3164, 0xffa0, 0x2800}, "a character that looks blank"},
        {{0x200e, 0x200f, 0x61c}, "a mark of the direction of writing"},
        {{0x202a, 0x202b, 0x202c, 0x202d, 0x202e, 0x2066, 0x2067, 0x2068, 0x2069},
         "an override of the direction of writing"},
        {{0xfeff}, "a byte order mark"},
        {{0xfffd}, "a replaced character"},
        {{0x0, 0x1f, 0x7f, 0x9f}, "a control character"},
        {{0x2060, 0x2064, 0x180e}, "a character without a width"},
        {{0xd800, 0xdfff}, "half a character"},
        {{0x2028, 0x2029}, "a line separator"},
    };
    for (const auto &row : rows) {
        for (const uint character : row.characters) {
            const QString number = QString::number(character, 16).toUpper().rightJustified(4, '0');
            EXPECT_EQ(hiddenCharacterName(character), row.kind + " (U+" + number + ')');
        }
    }
}

TEST(HiddenCharacter, IsNoneThatJoinsOrPartsItsNeighbours)
{
    EXPECT_EQ(nameIn(U"\u0645\u06cc\u200c\u062e\u0648\u0627\u0647\u0645"), "") << "a Persian word";
    EXPECT_EQ(nameIn(U"\u0915\u094d\u200d\u0937"), "") << "a Hindi conjunct";
    EXPECT_EQ(nameIn(U"\u0627\u200c\u0645"), "") << "a letter that is joined to the right only";
    EXPECT_EQ(nameIn(U"\u0645\u200c\u0627"), "");
    EXPECT_EQ(nameIn(U"\ua872\u200d\ua840"), "") << "one that is joined to the left only";
    EXPECT_EQ(nameIn(U"\U0001f469\u200d\U0001f52c"), "") << "one picture of two";
    EXPECT_EQ(nameIn(U"\u2764\ufe0f\u200d\U0001f525"), "") << "the first in its coloured form";
    EXPECT_EQ(nameIn(U"\U0001f469\U0001f3fd\u200d\U0001f52c"), "") << "the first with its colour of skin";
}

TEST(HiddenCharacter, IsOneThatHasNothingToJoinOrPart)
{
    EXPECT_EQ(nameIn(U"a\u200cb"), "a character without a width (U+200C)") << "does nothing there";
    EXPECT_EQ(nameIn(U"\u0645\u200c"), "a character without a width (U+200C)");
    EXPECT_EQ(nameIn(U"\u200c\u0645"), "a character without a width (U+200C)");
    EXPECT_EQ(nameIn(U"\u0645\u2060\u0645"), "a character without a width (U+2060)") << "joins nothing";
    EXPECT_EQ(nameIn(U"\u0915\u094d\u200d1"), "a character without a width (U+200D)");
    EXPECT_EQ(nameIn(U"\u0915\u200d\u0937"), "a character without a width (U+200D)");
    EXPECT_EQ(nameIn(U"\U0001f469\u200c\U0001f52c"), "a character without a width (U+200C)");
    EXPECT_EQ(nameIn(U"\U0001f469\u200da"), "a character without a width (U+200D)");
    EXPECT_EQ(nameIn(U"a\u200d\U0001f52c"), "a character without a width (U+200D)");
}

TEST(HiddenCharacter, IsNoneThatIsSeen)
{
    EXPECT_EQ(nameIn(U"\u4e3b\u673a\u3000Host \U00020000 \u00e9"), "");
}
