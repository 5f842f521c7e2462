#include "TavCountedText.h"

QString countedText(qint64 count, const QString &noun)
{
    QString plural = noun + (noun.endsWith('s') ? "es" : "s");
    if (noun.endsWith('y')) {
        plural = noun.chopped(1) + "ies";
    }
    return QString::number(count) + ' ' + (count == 1 ? noun : plural);
}
