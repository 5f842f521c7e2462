#include "CellText.h"

#include "Calendar.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

#include <limits>

namespace
{
QString text(const char *english)
{
    return QCoreApplication::translate("CellText", english);
}

QString yesOrNo(bool isYes)
{
    return isYes ? text(QT_TRANSLATE_NOOP("CellText", "yes")) : text(QT_TRANSLATE_NOOP("CellText", "no"));
}

QString permissions(int bits)
{
    return QString(bits & 4 ? "r" : "-") + (bits & 2 ? "w" : "-") + (bits & 1 ? "x" : "-");
}

QString bytes(quint64 count)
{
    return text(QT_TRANSLATE_NOOP("CellText", "%1 bytes")).arg(count);
}

QString size(quint64 count)
{
    const bool hasLargerUnit = count >= 1024 && count <= quint64(std::numeric_limits<qint64>::max()); // as Qt counts
    return hasLargerUnit ? QLocale::c().formattedDataSize(qint64(count)) : bytes(count);
}

QString duration(qint64 seconds)
{
    return text(QT_TRANSLATE_NOOP("CellText", "%1 d %2:%3:%4"))
        .arg(seconds / 86400)
        .arg(seconds / 3600 % 24, 2, 10, QLatin1Char('0'))
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}
}

QString CellText::ofKind(TavFields::Kind kind, const QVariant &value)
{
    using TavFields::Kind;
    if (!value.isValid()) {
        return {};
    }
    switch (kind) {
    case Kind::Percent:
        return QString("%1 %").arg(value.toInt());
    case Kind::Permille:
        return QString("%1 %").arg(value.toInt() / 10.0);
    case Kind::Hundredths:
        return QString::number(value.toInt() / 100.0, 'f', 2);
    case Kind::Size:
        return size(value.toULongLong());
    case Kind::Duration:
        return duration(value.toLongLong());
    case Kind::Time:
        return timeText(value.toLongLong());
    case Kind::Permissions:
        return permissions(value.toInt());
    case Kind::FileMode:
        return QString::number(value.toUInt(), 8);
    case Kind::Flag:
        return yesOrNo(value.toInt() != 0);
    case Kind::FlagOrUnknown:
        return value.toInt() < 0 ? "?" : yesOrNo(value.toInt() != 0);
    case Kind::Success:
        return value.toInt() ? text(QT_TRANSLATE_NOOP("CellText", "ok"))
                             : text(QT_TRANSLATE_NOOP("CellText", "failed"));
    case Kind::CheckMark:
        return value.toBool() ? "☑" : "☐";
    case Kind::Texts:
        return value.toStringList().join(", ");
    case Kind::Digest:
        return value.toString().left(16); // enough to tell two of them apart
    case Kind::Bytes:
        return QString("%1 B").arg(value.toByteArray().size());
    case Kind::Number:
    case Kind::Enumeration:
    case Kind::Text:
        break;
    }
    return value.toString();
}

QString CellText::of(const ValueColumn &column, const QVariant &value)
{
    const QString text = ofKind(column.kind, value);
    const QString meaning = value.isValid() ? column.meanings.value(value.toLongLong()) : QString();
    return meaning.isEmpty()
        ? text
        : QString("%1 (%2)").arg(text, QCoreApplication::translate("CodeMeanings", meaning.toUtf8().constData()));
}

QString CellText::inFull(const ValueColumn &column, const QVariant &value)
{
    using TavFields::Kind;
    if (!value.isValid()) {
        return {};
    }
    switch (column.kind) {
    case Kind::Size:
        return bytes(value.toULongLong());
    case Kind::Digest:
        return value.toString();
    case Kind::Bytes:
        return QString::fromLatin1(value.toByteArray().toBase64());
    default:
        return of(column, value);
    }
}

QString CellText::unitOf(TavFields::Kind kind)
{
    // Named here for the translation.
    Q_UNUSED(QT_TRANSLATE_NOOP("CellText", "percent"))
    Q_UNUSED(QT_TRANSLATE_NOOP("CellText", "permille"))
    Q_UNUSED(QT_TRANSLATE_NOOP("CellText", "hundredths"))
    Q_UNUSED(QT_TRANSLATE_NOOP("CellText", "bytes"))
    Q_UNUSED(QT_TRANSLATE_NOOP("CellText", "seconds"))
    Q_UNUSED(QT_TRANSLATE_NOOP("CellText", "seconds since the epoch"))
    return text(TavFields::unitOf(kind));
}

QString CellText::timeText(qint64 secondsSinceEpoch)
{
    if (secondsSinceEpoch == 0) {
        return "-";
    }
    return isInCalendar(secondsSinceEpoch)
        ? QDateTime::fromSecsSinceEpoch(secondsSinceEpoch).toString("yyyy-MM-dd HH:mm:ss")
        : QString::number(secondsSinceEpoch);
}
