#include "ValueJson.h"

#include "Calendar.h"

#include <QDateTime>

namespace
{
using TavFields::Kind;

constexpr qint64 mostExact = Q_INT64_C(1) << 53; // beyond, a JSON reader may round

QJsonValue number(const QVariant &value)
{
    if (value.userType() == QMetaType::ULongLong) {
        const quint64 whole = value.toULongLong();
        return whole <= quint64(mostExact) ? QJsonValue(qint64(whole)) : QJsonValue(QString::number(whole));
    }
    const qint64 whole = value.toLongLong();
    return whole >= -mostExact && whole <= mostExact ? QJsonValue(whole) : QJsonValue(QString::number(whole));
}

QJsonValue time(const QVariant &value)
{
    const qint64 seconds = value.toLongLong();
    if (seconds == 0) {
        return QJsonValue::Null;
    }
    if (!isInCalendar(seconds)) {
        return number(value);
    }
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(seconds);
    return moment.toOffsetFromUtc(moment.offsetFromUtc()).toString(Qt::ISODate);
}

QJsonValue flag(const QVariant &value)
{
    return value.toLongLong() < 0 ? QJsonValue(QJsonValue::Null) : QJsonValue(value.toBool());
}
}

QJsonValue ValueJson::ofCell(Kind kind, const QVariant &value)
{
    if (!value.isValid()) {
        return QJsonValue::Null;
    }
    switch (kind) {
    case Kind::Number:
    case Kind::Percent:
    case Kind::Permille:
    case Kind::Hundredths:
    case Kind::Size:
    case Kind::Duration:
    case Kind::Permissions:
    case Kind::FileMode:
    case Kind::Enumeration:
        return number(value);
    case Kind::Time:
        return time(value);
    case Kind::Flag:
    case Kind::FlagOrUnknown:
    case Kind::Success:
    case Kind::CheckMark:
        return flag(value);
    case Kind::Texts:
        return QJsonArray::fromVariantList(value.toList());
    case Kind::Bytes:
        return QString::fromLatin1(value.toByteArray().toBase64());
    case Kind::Text:
    case Kind::Digest:
        break;
    }
    return value.toString();
}

QJsonArray ValueJson::columns(const ValueTable &table)
{
    QJsonArray columns;
    for (const ValueColumn &column : table.columns()) {
        QJsonObject json{{"name", column.name}, {"kind", nameOf(column.kind)}};
        if (const QString unit = TavFields::unitOf(column.kind); !unit.isEmpty() && column.kind != Kind::Time) {
            json.insert("unit", unit);
        }
        if (!column.meanings.isEmpty()) {
            QJsonObject meanings;
            for (auto code = column.meanings.begin(); code != column.meanings.end(); ++code) {
                meanings.insert(QString::number(code.key()), code.value());
            }
            json.insert("meanings", meanings);
        }
        columns.append(json);
    }
    return columns;
}

QJsonArray ValueJson::rows(const ValueTable &table)
{
    QJsonArray rows;
    for (int row = 0; row < table.rowCount(); ++row) {
        QJsonObject json;
        for (int column = 0; column < table.columns().size(); ++column) {
            const ValueColumn &described = table.columns()[column];
            json.insert(described.name, ofCell(described.kind, table.cell(row, column)));
        }
        rows.append(json);
    }
    return rows;
}

QString ValueJson::nameOf(Kind kind)
{
    switch (kind) {
    case Kind::Number:
        return "number";
    case Kind::Percent:
        return "percent";
    case Kind::Permille:
        return "permille";
    case Kind::Hundredths:
        return "hundredths";
    case Kind::Size:
        return "size";
    case Kind::Duration:
        return "duration";
    case Kind::Time:
        return "time";
    case Kind::Permissions:
        return "permissions";
    case Kind::FileMode:
        return "file mode";
    case Kind::Flag:
        return "flag";
    case Kind::FlagOrUnknown:
        return "flag or unknown";
    case Kind::Success:
        return "success";
    case Kind::CheckMark:
        return "check mark";
    case Kind::Enumeration:
        return "enumeration";
    case Kind::Text:
        return "text";
    case Kind::Texts:
        return "list";
    case Kind::Digest:
        return "digest";
    case Kind::Bytes:
        return "bytes";
    }
    return {};
}
