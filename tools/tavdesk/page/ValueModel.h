#pragma once

#include "RowChange.h"

#include <QAbstractTableModel>
#include <QTimer>

/**
 * @brief The rows of a table of values as a view shows them.
 *
 * Sorting and filtering ask for another arrangement; the rows become others by apply() alone, with what changeOf() has
 * made of rows() on a worker. Nothing else changes them, so that the change fits when it comes back.
 */
class ValueModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    /// The check marks of an editable model can be changed by who looks at it.
    explicit ValueModel(bool isEditable, QObject *parent = nullptr);

    const ShownRows &rows() const
    {
        return m_rows;
    }

    /// Takes a change of rows() over; selection and current cell stay with their rows. Returns what rows() was: to let
    /// go of a long list takes time, and so is a worker's.
    ShownRows apply(const RowChange &change);

    /// The arrangement asked for last.
    const Arrangement &arrangement() const
    {
        return m_arrangement;
    }

    void setFilter(const QString &text);
    void setKey(const QJsonArray &key);
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /// Asks for another check mark, and leaves the row as it is until its manager has been asked again.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    /// Milliseconds of the clock that the marks of changed cells go by; on any thread.
    static qint64 now();

    /// What a cell holds, in full and in words where it is a check mark, for the clipboard. Any thread.
    static QString fullText(const ValueColumn &column, const QVariant &value);

    /// The value as its manager gave it, with its field and unit, as a tool tip.
    static QString toolTip(const ValueColumn &column, const QVariant &value);

signals:
    void arrangementChanged();
    void applied(); ///< rows() is another one as a whole: its table, too, which rowsRemoved() comes too early for
    void checkRequested(int row, bool checked); ///< a row of the model

private:
    void move(const QVector<int> &positions, const QVector<int> &order);
    QVariant background(int row, int column) const;

    const bool m_isEditable;
    ShownRows m_rows;
    Arrangement m_arrangement;
    QTimer m_fading; // runs while cells are marked
    qint64 m_markedUntil = 0;
};
