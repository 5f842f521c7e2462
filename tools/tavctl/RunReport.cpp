#include "RunReport.h"

#include "CellText.h"
#include "NavigationTree.h"
#include "Presentation.h"
#include "TavCountedText.h"
#include "TextTable.h"
#include "ValueJson.h"

#include <algorithm>

namespace
{
QString sizeText(const QSize &size)
{
    return size.isEmpty() ? "missing" : QString("%1×%2").arg(size.width()).arg(size.height());
}

QJsonValue pixels(int count)
{
    return count > 0 ? QJsonValue(count) : QJsonValue();
}

QString cellText(const ValueTable &table, int row, int column)
{
    return CellText::of(table.columns()[column], table.cell(row, column));
}

/// In one line where there is room for it, otherwise one below the other.
void printFacts(const QString &title, const ValueTable &table)
{
    QStringList facts;
    TextTable lines({{"name"}, {"value", TextTable::Left, 90}});
    for (int column = 0; column < table.columns().size(); ++column) {
        if (const QString text = cellText(table, 0, column); !text.isEmpty()) {
            facts.append(table.columns()[column].title() + ' ' + text);
            lines.addRow({table.columns()[column].title(), text});
        }
    }
    const QString line = title + ": " + printable(facts.join(", "));
    if (facts.isEmpty()) {
        printLine(title + dimmed(": nothing"));
    } else if (displayWidth(line) <= terminalWidth()) {
        printLine(line);
    } else {
        printLine(title);
        lines.print(4);
    }
}

void printList(const QString &title, const ValueTable &table, int mostRows)
{
    if (table.rowCount() == 0) {
        printLine(title + dimmed(": nothing"));
        return;
    }
    printLine(title + QString(" (%1)").arg(table.rowCount()));
    const int shown = mostRows > 0 ? std::min(mostRows, table.rowCount()) : table.rowCount();
    QVector<TextTable::Column> columns;
    for (const ValueColumn &column : table.columns()) {
        columns.append({column.title(), column.isNumber() ? TextTable::Right : TextTable::Left});
    }
    TextTable text(columns);
    for (int row = 0; row < shown; ++row) {
        QStringList cells;
        for (int column = 0; column < columns.size(); ++column) {
            cells.append(cellText(table, row, column));
        }
        text.addRow(cells);
    }
    const QStringList leftOut = text.fitInto(terminalWidth() - 4);
    text.print(4);
    if (shown < table.rowCount()) {
        printLine("    " + dimmed(QString("… and %1 more").arg(table.rowCount() - shown)));
    }
    if (!leftOut.isEmpty()) {
        printLine("    " + dimmed("not shown: " + leftOut.join(", ")));
    }
}
}

QJsonArray picturesJson(const QVector<IconPicture> &pictures)
{
    QJsonArray rows;
    for (const IconPicture &picture : pictures) {
        rows.append(QJsonObject{{"directory", picture.directory},
                                {"name", picture.name},
                                {"width", pixels(picture.size.width())},
                                {"height", pixels(picture.size.height())}});
    }
    return rows;
}

void printPictures(const QVector<IconPicture> &pictures, bool isInFull)
{
    int missing = 0;
    TextTable table({{"directory"}, {"picture"}, {"pixels"}});
    for (const IconPicture &picture : pictures) {
        const bool isMissing = picture.size.isEmpty();
        missing += isMissing ? 1 : 0;
        if (isInFull || isMissing) {
            table.addRow({picture.directory, picture.name, sizeText(picture.size)});
        }
    }
    printHeading(QString("Pictures of icons: %1 looked up, %2 missing").arg(pictures.size()).arg(missing));
    if (table.rowCount() > 0) {
        table.print();
    }
}

QJsonArray deliveriesJson(const QVector<PageDelivery> &deliveries)
{
    QJsonArray rows;
    for (const PageDelivery &delivery : deliveries) {
        rows.append(QJsonObject{
            {"page", delivery.page},
            {"subscriber", delivery.subscriber},
            {"thread", delivery.thread},
            {"microseconds", static_cast<double>(delivery.nanoseconds) / 1000},
        });
    }
    return rows;
}

void printDeliveries(const QVector<PageDelivery> &deliveries, bool isInFull)
{
    printHeading("Page changes: " + countedText(deliveries.size(), "delivery"));
    TextTable table({{"page"}, {"subscriber"}, {"thread"}, {"µs to arrive", TextTable::Right}});
    QVector<qint64> times;
    for (const PageDelivery &delivery : deliveries) {
        table.addRow({delivery.page, delivery.subscriber, delivery.thread, microseconds(delivery.nanoseconds)});
        times.append(delivery.nanoseconds);
    }
    std::sort(times.begin(), times.end());
    if (isInFull) {
        table.print();
    } else if (!times.isEmpty()) {
        printLine(QString("%1 to %2 µs to arrive, half of them at most %3 µs")
                      .arg(microseconds(times.first()), microseconds(times.last()),
                           microseconds(times[(times.size() - 1) / 2])));
    }
}

QJsonArray backendJson(const AgentReport &report)
{
    QJsonArray readings;
    for (const AgentReading &reading : report.readings) {
        QJsonArray notes;
        for (const ReadingNote &note : reading.notes) {
            notes.append(QJsonObject{{"source", note.source}, {"reason", note.reason}});
        }
        readings.append(QJsonObject{{"reading", reading.name},
                                    {"manager", reading.manager},
                                    {"fed", reading.fed},
                                    {"entries", reading.entries},
                                    {"microseconds", reading.microseconds},
                                    {"notes", notes}});
    }
    return readings;
}

void printBackend(const AgentReport &report)
{
    printHeading("Backend: this machine");
    TextTable readings({{"reading"}, {"manager"}, {"entries", TextTable::Right}, {"µs", TextTable::Right}});
    TextTable notes({{"not read"}, {"reason", TextTable::Left, 100}});
    for (const AgentReading &reading : report.readings) {
        readings.addRow({reading.name, reading.manager, reading.fed ? QString::number(reading.entries) : "not fed",
                         QString::number(reading.microseconds)});
        for (const ReadingNote &note : reading.notes) {
            notes.addRow({note.source, note.reason});
        }
    }
    readings.print();
    if (notes.rowCount() > 0) {
        printLine(QString());
        notes.print();
    }
}

QJsonObject pageJson(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
    QJsonArray tables;
    for (const PageValue &value : valuesOf(page)) {
        const QVector<PartTable> parts = value.read();
        for (const PartTable &part : parts) {
            tables.append(QJsonObject{{"title", value.title},
                                      {"manager", value.manager},
                                      {"getter", value.getter},
                                      {"part", part.part},
                                      {"list", part.table->isList()},
                                      {"columns", ValueJson::columns(*part.table)},
                                      {"rows", ValueJson::rows(*part.table)}});
        }
    }
    return {{"type", pageKey(page)}, {"tables", tables}};
}

QJsonObject pagesJson(const QJsonArray &pages)
{
    return {{"tavPages", 1}, {"pages", pages}};
}

void printValues(const QVector<PageValue> &values, int mostRows)
{
    for (const PageValue &value : values) {
        const QVector<PartTable> parts = value.read();
        for (const PartTable &part : parts) {
            const QString title = "  " + QString(value.title) + (part.part.isEmpty() ? QString() : ": " + part.part);
            if (part.table->isList()) {
                printList(title, *part.table, mostRows);
            } else {
                printFacts(title, *part.table);
            }
        }
    }
}

QJsonArray editsJson(const QVector<Edit> &edits)
{
    QJsonArray rows;
    for (const Edit &edit : edits) {
        rows.append(QJsonObject{{"kind", edit.kind},
                                {"operation", edit.operation},
                                {"target", edit.target},
                                {"field", edit.field},
                                {"before", QJsonValue::fromVariant(edit.before)},
                                {"after", QJsonValue::fromVariant(edit.after)}});
    }
    return rows;
}

void printEdits(const QVector<Edit> &edits)
{
    printHeading("Edits: of what the managers hold; nothing of this machine is changed");
    TextTable table({{"kind"}, {"operation"}, {"target"}, {"field"}, {"before"}, {"after"}});
    for (const Edit &edit : edits) {
        table.addRow({edit.kind, edit.operation, edit.target.isEmpty() ? "nothing to edit" : edit.target, edit.field,
                      edit.before.toString(), edit.after.toString()});
    }
    table.print();
}
