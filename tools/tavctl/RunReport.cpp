#include "RunReport.h"

#include "Presentation.h"
#include "TextTable.h"

#include <QJsonObject>

namespace
{
QString sizeText(const QSize &size)
{
    return size.isEmpty() ? "missing" : QString("%1×%2").arg(size.width()).arg(size.height());
}
}

QJsonArray picturesJson(const QVector<IconPicture> &pictures)
{
    QJsonArray rows;
    for (const IconPicture &picture : pictures) {
        rows.append(QJsonObject{{"directory", picture.directory},
                                {"name", picture.name},
                                {"width", picture.size.width()},
                                {"height", picture.size.height()}});
    }
    return rows;
}

void printPictures(const QVector<IconPicture> &pictures)
{
    printHeading(QString("Pictures: %1 looked up").arg(pictures.size()));
    TextTable table({{"directory"}, {"picture"}, {"pixels"}});
    for (const IconPicture &picture : pictures) {
        table.addRow({picture.directory, picture.name, sizeText(picture.size)});
    }
    table.print();
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

void printDeliveries(const QVector<PageDelivery> &deliveries)
{
    printHeading(QString("Page changes: %1 deliveries").arg(deliveries.size()));
    TextTable table({{"page"}, {"subscriber"}, {"thread"}, {"µs to arrive", TextTable::Right}});
    for (const PageDelivery &delivery : deliveries) {
        table.addRow({delivery.page, delivery.subscriber, delivery.thread, microseconds(delivery.nanoseconds)});
    }
    table.print();
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

QJsonArray sectionsJson(const QVector<PageSection> &sections)
{
    QJsonArray tables;
    for (const PageSection &section : sections) {
        QJsonArray rows;
        for (const QStringList &cells : section.rows) {
            QJsonObject row;
            for (int column = 0; column < section.columns.size(); ++column) {
                row.insert(section.columns[column].title, cells[column]);
            }
            rows.append(row);
        }
        tables.append(QJsonObject{{"title", section.title}, {"rows", rows}});
    }
    return tables;
}

void printSections(const QVector<PageSection> &sections, int mostRows)
{
    for (const PageSection &section : sections) {
        if (section.rows.isEmpty()) {
            printLine("  " + section.title + dimmed(": nothing"));
            continue;
        }
        const bool isCut = section.isList && mostRows > 0 && section.rows.size() > mostRows;
        const int shown = isCut ? mostRows : section.rows.size();
        printLine("  " + section.title + (section.isList ? QString(" (%1)").arg(section.rows.size()) : QString()));
        QVector<TextTable::Column> columns;
        for (const PageSection::Column &column : section.columns) {
            columns.append({column.title, column.kind == CellKind::Number ? TextTable::Right : TextTable::Left,
                            column.maximumWidth});
        }
        TextTable table(columns);
        for (int i = 0; i < shown; ++i) {
            table.addRow(section.rows[i]);
        }
        table.print(4);
        if (isCut) {
            printLine("    " + dimmed(QString("… and %1 more").arg(section.rows.size() - shown)));
        }
    }
}

QJsonArray editsJson(const QVector<Edit> &edits)
{
    QJsonArray rows;
    for (const Edit &edit : edits) {
        rows.append(QJsonObject{
            {"kind", edit.kind}, {"operation", edit.operation}, {"before", edit.before}, {"after", edit.after}});
    }
    return rows;
}

void printEdits(const QVector<Edit> &edits)
{
    printHeading("Edits");
    TextTable table({{"kind"}, {"operation"}, {"before"}, {"after"}});
    for (const Edit &edit : edits) {
        table.addRow({edit.kind, edit.operation, edit.before.isEmpty() ? "nothing to edit" : edit.before, edit.after});
    }
    table.print();
}
