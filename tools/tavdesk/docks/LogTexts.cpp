#include "LogTexts.h"

QString LogTexts::time(const QDateTime &time)
{
    return time.toString(QStringLiteral("HH:mm:ss.zzz"));
}

QString LogTexts::microseconds(qint64 nanoseconds)
{
    return nanoseconds < 0 ? QStringLiteral("–") : QString::number(double(nanoseconds) / 1000, 'f', 1);
}
