#pragma once

#include "BoundedLog.h"
#include "LogTable.h"
#include "PlainToolTip.h"

#include <QThreadPool>

#include <algorithm>
#include <deque>
#include <functional>
#include <iterator>
#include <memory>
#include <utility>

/// What the cells of a column hold; a filter looks at words alone.
enum class LogCell { Words, Time, Number };

/// @brief A column of a log: its text for an entry.
template<class Entry>
struct LogColumn {
    QString title;
    std::function<QString(const Entry &)> text;
    LogCell cell = LogCell::Words;

    Qt::Alignment alignment() const
    {
        return Qt::AlignVCenter | (cell == LogCell::Number ? Qt::AlignRight : Qt::AlignLeft);
    }
};

/// @brief The entries of a BoundedLog as rows. GUI thread.
template<class Entry>
class LogModel : public LogTable
{
public:
    /// @p log outlives the model.
    LogModel(BoundedLog<Entry> &log, QVector<LogColumn<Entry>> columns) : m_log(log), m_columns(std::move(columns))
    {
    }

    const Entry &entry(int row) const
    {
        return m_shown[std::size_t(row)].entry;
    }

    void update() override
    {
        const auto part = m_log.from(m_next);
        removeBefore(part.oldest);
        std::deque<Shown> matching = matchingOf(part);
        if (!matching.empty()) {
            const int first = rowCount();
            beginInsertRows({}, first, first + int(matching.size()) - 1);
            m_shown.insert(m_shown.end(), matching.begin(), matching.end());
            endInsertRows();
        }
    }

    void setFilter(const QString &text) override
    {
        beginResetModel();
        m_filter = text;
        release(std::exchange(m_shown, matchingOf(m_log.from(0))));
        endResetModel();
    }

    qint64 number(int row) const override
    {
        return m_shown[std::size_t(row)].number;
    }

    void clearLog() override
    {
        m_log.clear();
        update();
    }

    int held() const override
    {
        return int(m_next - m_oldest);
    }

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : int(m_shown.size());
    }

    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : m_columns.size();
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid()) {
            return {};
        }
        const LogColumn<Entry> &column = m_columns[index.column()];
        if (role == Qt::DisplayRole) {
            return column.text(entry(index.row()));
        }
        if (role == Qt::ToolTipRole) {
            return plainToolTip(column.text(entry(index.row())));
        }
        return role == Qt::TextAlignmentRole ? QVariant(int(column.alignment())) : QVariant();
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || section < 0 || section >= m_columns.size()) {
            return {};
        }
        if (role == Qt::DisplayRole) {
            return m_columns[section].title;
        }
        return role == Qt::TextAlignmentRole ? QVariant(int(m_columns[section].alignment())) : QVariant();
    }

private:
    struct Shown {
        qint64 number;
        Entry entry;
    };

    bool isWanted(const Entry &entry) const
    {
        return m_filter.isEmpty()
            || std::any_of(m_columns.cbegin(), m_columns.cend(), [&](const LogColumn<Entry> &column) {
                   return column.cell == LogCell::Words && column.text(entry).contains(m_filter, Qt::CaseInsensitive);
               });
    }

    /// The entries of @p part that are to be shown; those behind it come next.
    std::deque<Shown> matchingOf(const typename BoundedLog<Entry>::Part &part)
    {
        m_oldest = part.oldest;
        m_next = part.first + part.entries.size();
        std::deque<Shown> matching;
        for (int i = 0; i < part.entries.size(); ++i) {
            if (isWanted(part.entries[i])) {
                matching.push_back({part.first + i, part.entries[i]});
            }
        }
        return matching;
    }

    void removeBefore(qint64 oldest)
    {
        int count = 0;
        while (count < rowCount() && m_shown[std::size_t(count)].number < oldest) {
            ++count;
        }
        if (count > 0) {
            beginRemoveRows({}, 0, count - 1);
            const auto end = m_shown.begin() + count;
            release({std::make_move_iterator(m_shown.begin()), std::make_move_iterator(end)});
            m_shown.erase(m_shown.begin(), end);
            endRemoveRows();
        }
    }

    /// Lets go of the entries on another thread: the arguments of a call may be long lists.
    static void release(std::deque<Shown> entries)
    {
        auto held = std::make_shared<std::deque<Shown>>(std::move(entries));
        QThreadPool::globalInstance()->start([held = std::move(held)] {});
    }

    BoundedLog<Entry> &m_log;
    const QVector<LogColumn<Entry>> m_columns;
    QString m_filter;
    qint64 m_oldest = 0; ///< number of the oldest entry that the log held when it was looked at last
    qint64 m_next = 0; ///< number of the first entry that has not been looked at
    std::deque<Shown> m_shown;
};
