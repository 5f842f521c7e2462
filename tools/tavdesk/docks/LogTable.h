#pragma once

#include <QAbstractTableModel>

/// @brief The entries of a log as rows, of which a filter may leave out some. New ones are appended, old ones removed.
class LogTable : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Takes over what has happened in the log since the last time.
    virtual void update() = 0;

    /// Shows only the entries with @p text in a column of words, whatever its case; all for an empty one.
    virtual void setFilter(const QString &text) = 0;

    /// Has the log forget its entries.
    virtual void clearLog() = 0;

    /// The number of the entry in a row, which it keeps when other rows go.
    virtual qint64 number(int row) const = 0;

    /// How many entries there are, the filtered ones included.
    virtual int held() const = 0;
};
