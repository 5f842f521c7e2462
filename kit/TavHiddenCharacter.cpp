#include "TavHiddenCharacter.h"

#include <QVector>

namespace
{
QString kindOf(QChar::Category category)
{
    switch (category) {
    case QChar::Other_Control:
        return "a control character";
    case QChar::Other_Format:
        return "a character without a width";
    case QChar::Other_Surrogate:
        return "half a character";
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return "a line separator";
    default:
        return {};
    }
}

QString kindOf(uint character)
{
    switch (character) {
    case 0x00a0:
    case 0x202f:
        return "a no-break space";
    case 0x00ad:
        return "a soft hyphen";
    case 0x115f: // fillers of Hangul
    case 0x1160:
    case 0x3164:
    case 0xffa0:
    case 0x2800: // of Braille
        return "a character that looks blank";
    case 0x200e:
    case 0x200f:
    case 0x061c:
        return "a mark of the direction of writing";
    case 0x202a:
    case 0x202b:
    case 0x202c:
    case 0x202d:
    case 0x202e:
    case 0x2066:
    case 0x2067:
    case 0x2068:
    case 0x2069:
        return "an override of the direction of writing";
    case 0xfeff:
        return "a byte order mark";
    case 0xfffd:
        return "a replaced character";
    default:
        return kindOf(QChar::category(character));
    }
}

/// The code points of @p text; unlike those of toUcs4(), surrogates by themselves are left as they are.
QVector<uint> codePoints(const QString &text)
{
    QVector<uint> points;
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        points.append(isPair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : text[i].unicode());
        if (isPair) {
            ++i;
        }
    }
    return points;
}

/// Whether the letters of the script, such as Arabic, are joined in writing.
bool isJoinedLetter(uint character)
{
    const QChar::JoiningType type = QChar::joiningType(character);
    return type == QChar::Joining_Dual || type == QChar::Joining_Right || type == QChar::Joining_Left;
}

/// Whether a picture is made of this and of what is joined to it.
bool isPicturePart(uint character)
{
    constexpr uint asPicture = 0xfe0f; // chooses the coloured form of what is before it
    const QChar::Category category = QChar::category(character);
    return category == QChar::Symbol_Other || category == QChar::Symbol_Modifier || character == asPicture;
}

/// Whether @p character changes how what stands around it is written.
bool isSeenByItsEffect(uint before, uint character, uint after)
{
    constexpr uint nonJoiner = 0x200c;
    constexpr uint joiner = 0x200d;
    if (character != joiner && character != nonJoiner) {
        return false;
    }
    constexpr uchar virama = 9; // in Indic scripts, what joins two consonants
    return (isJoinedLetter(before) && isJoinedLetter(after))
        || (QChar::combiningClass(before) == virama && QChar::isLetter(after))
        || (character == joiner && isPicturePart(before) && isPicturePart(after));
}
}

QString hiddenCharacterName(uint character)
{
    const QString kind = kindOf(character);
    return kind.isEmpty() ? kind
                          : kind + " (U+" + QString("%1").arg(character, 4, 16, QLatin1Char('0')).toUpper() + ')';
}

QString hiddenCharacterIn(const QString &text)
{
    const QVector<uint> points = codePoints(text);
    for (int i = 0; i < points.size(); ++i) {
        QString name = hiddenCharacterName(points[i]);
        if (!name.isEmpty() && !isSeenByItsEffect(points.value(i - 1), points[i], points.value(i + 1))) {
            return name;
        }
    }
    return {};
}
