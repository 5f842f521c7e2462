#pragma once

#include "CellText.h"

#include <QStringList>
#include <QVector>

#include <google/protobuf/message.h>

#include <functional>

enum class CellKind {
    Text,
    Number, ///< aligned at its end
};

/// @brief One table of what a page's model holds.
struct PageSection {
    struct Column {
        QString title;
        CellKind kind = CellKind::Text;
        int maximumWidth = 60; ///< in letters of a terminal's width; longer texts are cut where they are shown
    };

    QString title;
    QVector<Column> columns;
    QVector<QStringList> rows;
    bool isList = true; ///< false for names and values, which are few and never cut
};

/// @brief A column of a table of records: its text for a row.
template<class Row>
struct PageField {
    QString title;
    std::function<QString(const Row &)> text;
    CellKind kind = CellKind::Text;
};

/// The column of a field, shown by what its value means: `column<&STStateInfo::itemText>("item")`.
template<auto Member>
PageField<typename TavFields::Field<Member>::Record> column(const QString &title)
{
    using TavFields::Kind;
    constexpr Kind kind = TavFields::fieldOf<Member>().kind;
    constexpr bool isNumber = kind == Kind::Number || kind == Kind::Size || kind == Kind::FileMode;
    return {title, CellText::of<Member>, isNumber ? CellKind::Number : CellKind::Text};
}

/// A table with one line for each of @p rows.
template<class Rows, class Row = typename Rows::value_type>
PageSection tableOf(const QString &title, const Rows &rows, const QVector<PageField<Row>> &fields)
{
    PageSection section{title, {}, {}};
    for (const PageField<Row> &field : fields) {
        section.columns.append({field.title, field.kind});
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

/// A table of a page's rows, whose payloads only their page can read.
PageSection rowsSection(const QString &title, const QVector<STProtoDataContainer> &rows);
