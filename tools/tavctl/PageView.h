#pragma once

#include "CTavSubFuncTypeHeader.h"
#include "TextTable.h"

#include <QJsonObject>

#include <google/protobuf/message.h>

#include <functional>

/// @brief One table of what a page's model holds.
struct PageSection {
    QString title;
    QVector<TextTable::Column> columns;
    QVector<QStringList> rows;
    bool isList = true; ///< false for names and values, which are few and never cut
};

/// @brief How one field of a record is shown: its column, and its text in a row.
template<class Row>
struct PageField {
    QString title;
    std::function<QString(const Row &)> text;
    TextTable::Alignment alignment = TextTable::Left;
};

/// A table with one line for each of @p rows.
template<class Rows, class Row = typename Rows::value_type>
PageSection tableOf(const QString &title, const Rows &rows, const QVector<PageField<Row>> &fields)
{
    PageSection section{title, {}, {}};
    for (const PageField<Row> &field : fields) {
        section.columns.append({field.title, field.alignment});
    }
    for (const Row &row : rows) {
        QStringList cells;
        for (const PageField<Row> &field : fields) {
            cells.append(field.text(row));
        }
        section.rows.append(cells);
    }
    return section;
}

/// A table of names and values.
PageSection factsOf(const QString &title, const QVector<QPair<QString, QString>> &facts);

/// The tables of a message: its plain fields as names and values, then one table for each list of messages in it.
/// Absent fields are left out; a message without any says that it is empty.
QVector<PageSection> messageSections(const QString &title, const google::protobuf::Message &message);

/// What the models behind @p page hold now, read through the managers' getters.
QVector<PageSection> pageSections(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page);

/// Prints @p sections; each list is cut after @p mostRows rows with a count of those left out, 0 for no limit.
void printSections(const QVector<PageSection> &sections, int mostRows);

/// The same as JSON: a list of objects with "title" and "rows", each row an object of texts by column title.
QJsonArray sectionsJson(const QVector<PageSection> &sections);
