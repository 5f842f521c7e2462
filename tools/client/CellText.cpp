#include "CellText.h"

#include <QDateTime>
#include <QLocale>

QString CellText::text(const char *buffer)
{
    return QString::fromUtf8(buffer);
}

QString CellText::number(qint64 value)
{
    return QString::number(value);
}

QString CellText::check(bool checked)
{
    return checked ? "☑" : "☐";
}

QString CellText::bytes(quint64 count)
{
    return QLocale::c().formattedDataSize(static_cast<qint64>(count));
}

QString CellText::timeText(qint64 secondsSinceEpoch)
{
    return secondsSinceEpoch == 0 ? "-"
                                  : QDateTime::fromSecsSinceEpoch(secondsSinceEpoch).toString("yyyy-MM-dd HH:mm:ss");
}
