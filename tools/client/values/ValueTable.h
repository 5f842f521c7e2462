#pragma once

#include "CodeMeanings.h"
#include "TavFields.h"

#include <QJsonObject>
#include <QString>
#include <QVariant>
#include <QVector>

#include <memory>

/// @brief A column of a table of values: a field of a record or of a message.
struct ValueColumn {
    QString name; ///< as record or message call it; of a message within a message behind that one's: "system.uid"
    TavFields::Kind kind;
    CodeMeanings meanings = {}; ///< of a number that is a code, as its comment documents them; empty for all others

    /// The column of @p field of @p type, with the meanings that documentedMeanings() finds.
    static ValueColumn of(const QString &type, const QString &field, TavFields::Kind kind);

    /// The name in words, "memory total", in the interface's language.
    QString title() const;

    /// Whether the cells are numbers without words, which stand at the end of their cell.
    bool isNumber() const;
};

/**
 * @brief What a getter has returned, as rows of typed cells.
 *
 * A record, or a message's own fields, is one row; a list is a row for each of its elements. The cells are read from
 * what the getter returned, which the table keeps: a list is shared with its manager until that one changes it.
 *
 * Nothing changes in a table, so any thread may read it.
 */
class ValueTable
{
public:
    virtual ~ValueTable() = default;
    Q_DISABLE_COPY(ValueTable) // it is shared as it is

    const QVector<ValueColumn> &columns() const
    {
        return m_columns;
    }

    /// False for the one row of a record or of a message.
    bool isList() const
    {
        return m_isList;
    }

    /// Place of the column of this name; -1 for none.
    int column(const QString &name) const;

    virtual int rowCount() const = 0;

    /// A number, flag, text, list of these, or bytes as a QByteArray, as the column's kind says; not valid for an
    /// absent field of a message.
    virtual QVariant cell(int row, int column) const = 0;

    /// A number that two rows with the same cells have in common, and others, as good as certainly, not.
    virtual quint64 fingerprint(int row) const = 0;

    /// The row as operations take it, in the JSON of TavJson.h.
    virtual QJsonObject argument(int row) const = 0;

    /// Whether the rows of both lie in the same memory and so are equal; false says nothing.
    virtual bool sharesRowsWith(const ValueTable &other) const = 0;

protected:
    ValueTable(const QVector<ValueColumn> &columns, bool isList) : m_columns(columns), m_isList(isList)
    {
    }

private:
    const QVector<ValueColumn> m_columns;
    const bool m_isList;
};

using ValueTablePointer = std::shared_ptr<const ValueTable>;
