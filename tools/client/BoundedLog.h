#pragma once

#include <QMutex>
#include <QVector>

#include <deque>
#include <utility>

/**
 * @brief What has happened, in its order, of which the oldest is forgotten when it takes too much memory.
 *
 * Entries are numbered from 0 on, and keep their numbers. Any thread may call any operation.
 */
template<class Entry>
class BoundedLog
{
public:
    /// @brief Consecutive entries.
    struct Part {
        qint64 oldest = 0; ///< number of the oldest entry that is still held
        qint64 first = 0; ///< number of the first of the entries
        QVector<Entry> entries;
    };

    /// Holds at most @p mostEntries, and at most @p mostBytes unless the newest entry alone takes more.
    explicit BoundedLog(qint64 mostBytes = 64 << 20, int mostEntries = 20000)
        : m_mostBytes(mostBytes), m_mostEntries(std::size_t(mostEntries))
    {
    }
    Q_DISABLE_COPY(BoundedLog) // whoever appends knows it

    /// Appends @p entry, which takes some @p bytes of memory beside its own size.
    void append(Entry entry, qint64 bytes = 0)
    {
        std::deque<Held> forgotten; // ends after the lock
        const QMutexLocker lock(&m_mutex);
        m_held.push_back({std::move(entry), bytes + qint64(sizeof(Held))});
        m_bytes += m_held.back().bytes;
        while (m_held.size() > 1 && (m_held.size() > m_mostEntries || m_bytes > m_mostBytes)) {
            m_bytes -= m_held.front().bytes;
            forgotten.push_back(std::move(m_held.front()));
            m_held.pop_front();
            ++m_oldest;
        }
    }

    /// The entries from number @p first on, as far as they are still held.
    Part from(qint64 first) const
    {
        const QMutexLocker lock(&m_mutex);
        Part part{m_oldest, qMax(first, m_oldest), {}};
        const qint64 end = m_oldest + qint64(m_held.size());
        part.entries.reserve(int(qMax<qint64>(end - part.first, 0)));
        for (qint64 number = part.first; number < end; ++number) {
            part.entries.append(m_held[std::size_t(number - m_oldest)].entry);
        }
        return part;
    }

    /// Forgets all entries; the next one takes the next number.
    void clear()
    {
        std::deque<Held> forgotten; // as above
        const QMutexLocker lock(&m_mutex);
        m_oldest += qint64(m_held.size());
        m_bytes = 0;
        m_held.swap(forgotten);
    }

private:
    struct Held {
        Entry entry;
        qint64 bytes;
    };

    const qint64 m_mostBytes;
    const std::size_t m_mostEntries;
    mutable QMutex m_mutex; ///< for what follows
    std::deque<Held> m_held;
    qint64 m_oldest = 0;
    qint64 m_bytes = 0;
};
