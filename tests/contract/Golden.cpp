#include "Golden.h"

#include <QFile>
#include <QTextStream>

#include <algorithm>

std::string described(const std::vector<SlotTable> &tables)
{
    QString text;
    for (SlotTable table : tables) {
        std::sort(table.operations.begin(), table.operations.end(),
                  [](const Slot &a, const Slot &b) { return a.index < b.index; });
        text += table.name + '\n';
        for (const Slot &slot : table.operations) {
            text += QString("%1  %2\n").arg(slot.index, 4).arg(slot.declaration);
        }
    }
    return text.toStdString();
}

std::string described(const std::vector<RecordLayout> &records)
{
    QString text;
    for (const RecordLayout &record : records) {
        text += QString("%1: %2 bytes\n").arg(record.name).arg(record.size);
        for (const FieldLayout &field : record.fields) {
            text += QString("%1  %2: %3 bytes\n").arg(field.offset, 6).arg(field.name).arg(field.size);
        }
    }
    return text.toStdString();
}

std::string golden(const char *fileName)
{
    QFile file(QString(TAV_SOURCE_DIR "/tests/contract/") + fileName);
    file.open(QIODevice::ReadOnly);
    QString text;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine());
        if (!line.startsWith('#')) {
            text += line;
        }
    }
    return text.toStdString();
}
