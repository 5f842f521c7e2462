#include "TavHiddenCharacter.h"

namespace
{
QString kindOf(QChar character)
{
    switch (character.unicode()) {
    case 0x00a0:
    case 0x202f:
        return "a no-break space";
    case 0x00ad:
        return "a soft hyphen";
    case 0x200b:
    case 0x200c:
    case 0x200d:
    case 0x2060:
        return "a character without a width";
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
        break;
    }
    switch (character.category()) {
    case QChar::Other_Control:
        return "a control character";
    case QChar::Other_Surrogate:
        return "half a character";
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return "a line separator";
    default:
        return {};
    }
}
}

QString hiddenCharacterName(QChar character)
{
    const QString kind = kindOf(character);
    return kind.isEmpty()
        ? kind
        : kind + " (U+" + QString("%1").arg(character.unicode(), 4, 16, QLatin1Char('0')).toUpper() + ')';
}

QString hiddenCharacterIn(const QString &text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            ++i; // a whole character
            continue;
        }
        QString name = hiddenCharacterName(text[i]);
        if (!name.isEmpty()) {
            return name;
        }
    }
    return {};
}
