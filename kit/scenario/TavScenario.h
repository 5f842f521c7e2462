#pragma once

#include "TavCall.h"

#include <QFileDevice>
#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <stdexcept>

class TavPluginHost;

/**
 * @brief Scenarios: the calls of a session as a text file of JSON lines, to be read, played and recorded.
 *
 * The first line is `{"tavScenario": 1}`, with any further keys, such as a title. Every further line is one call,
 * `{"at": 1.25, "manager": "ITavNetControlMgr", "operation": "setNetCount", "arguments": [{}]}`, or selects a page,
 * `{"at": 2, "page": "SubFunc_LogAudit"}`. What JSON stands for which type is told in TavJson.h.
 */
namespace TavScenario
{
/// The names that "thread" may have: "agent", "agent2" to "agent8", and "gui" as the last.
[[nodiscard]] const QStringList &threads();

constexpr int agent = 0; ///< place in threads() of the thread on which calls are made that name none
constexpr int gui = 8; ///< place in threads() of the thread that runs the event loop

constexpr double microsecondsInSecond = 1e6; ///< the unit of times in memory

using Managers = QHash<QString, QObject *>; ///< of one host, by the names of their interfaces

/// The managers of @p host, which outlives them.
[[nodiscard]] Managers managersOf(TavPluginHost &host);

/// @brief One line behind the first, read and found in order.
struct Line {
    int number = 0; ///< in the file; the first line has 1
    qint64 at = 0; ///< microseconds from the start
    int thread = agent; ///< place in threads()
    qint64 bytes = 0; ///< length in the file, without the line's end
    QString manager; ///< name of the interface
    QString operation; ///< name of the operation
    QJsonValue arguments = QJsonValue::Undefined; ///< by position or by name; undefined where a page is selected
    QString page; ///< key of the page to select; empty for a call

    /// Makes the call, or selects the page as the navigation does; returns and throws what TavCall::Call does.
    std::function<QJsonValue(const Managers &managers)> call;
    QJsonValue returns = QJsonValue::Undefined; ///< what the call must return, at least; undefined for anything

    /// Whether there is anything to compare in what the call returns: an object without fields names nothing.
    [[nodiscard]] bool isCompared() const;

    /// Manager and operation, or the page: what the line does, in the words of a message.
    [[nodiscard]] QString subject() const;
};

/// @brief The first difference between what a call must return and what it has returned.
struct Difference {
    QString path; ///< JSON pointer into what is returned; empty for the whole
    QString expected; ///< JSON there; "nothing" where there is no such element
    QString actual; ///< JSON there of what was returned; "nothing" likewise

    /// "returned something else at …", and both values below each other in lines of their own.
    [[nodiscard]] QString text() const;
};

/// The first place at which @p actual is not what @p expected names; an empty text() is none: of an object only the
/// named fields are compared, lists in all their elements.
[[nodiscard]] bool isAsExpected(const QJsonValue &expected, const QJsonValue &actual, Difference &first);
}

/// @brief What is wrong with a scenario: in which line, where in its JSON, and what to write instead.
class TavScenarioError : public std::runtime_error
{
public:
    /// What is mistaken.
    enum class Kind {
        Header, ///< the first line, which is not that of a scenario
        Line, ///< the line, which is no JSON object or cannot be read
        Cut, ///< the last line, within which the file ends
        Key, ///< a key of the line: it is unknown, missing, or stands there twice
        Call, ///< what is called: there is no such manager, operation or page
        Arguments,
        Time,
        Thread,
        Returns, ///< what must be returned, which never can be
        Indeterminate, ///< the call, which returns whatever the memory holds until a setter has been called
        Play, ///< nothing in the text: the call was refused, or has returned something else
    };

    /// Says that @p problem is what is wrong at @p path, a JSON pointer, of line @p line; line 0: of the whole file. It
    /// begins with the character @p column of the line; 0 for no certain one.
    TavScenarioError(int line, const QString &path, const QString &problem, Kind kind = Kind::Play, int column = 0);

    /// What is mistaken; Play when nothing in the text is.
    [[nodiscard]] Kind kind() const
    {
        return m_kind;
    }

    /// The line's number, from 1; 0 for the whole file.
    [[nodiscard]] int line() const
    {
        return m_line;
    }

    /// The character of the line, from 1; 0 for the whole line, and in lines beyond 1 MiB.
    [[nodiscard]] int column() const
    {
        return m_column;
    }

    /// JSON pointer of the place in the line; empty for the whole line.
    [[nodiscard]] QString path() const
    {
        return m_path;
    }

    /// What is wrong there, and what to write instead where that is known.
    [[nodiscard]] QString problem() const
    {
        return m_problem;
    }

private:
    int m_line;
    QString m_path;
    QString m_problem;
    Kind m_kind;
    int m_column;
};

/**
 * @brief Reads a scenario line by line, strictly: no more than one line is held in memory.
 *
 * Used by one thread at a time.
 */
class TavScenarioReader
{
public:
    static constexpr qint64 longestLine = 32 << 20; ///< bytes
    static constexpr qint64 latestTime = 1'000'000'000; ///< seconds, some thirty years

    /// What to do when the file ends within its last line, as one does that was not written to its end.
    enum class CutLine { Refuse, LeaveOut };

    /// Reads the first line. @p device is open, and outlives the reader. Throws TavScenarioError.
    explicit TavScenarioReader(QIODevice &device, CutLine cutLine = CutLine::Refuse);

    /// The first line's keys.
    [[nodiscard]] const QJsonObject &header() const
    {
        return m_header;
    }

    /// Reads the next line into @p line; false at the end. Throws TavScenarioError for a mistaken line; the next
    /// call reads the line behind it.
    [[nodiscard]] bool next(TavScenario::Line &line);

    /// Number of the last line that was cut and is left out; 0 for none. Known at the end.
    [[nodiscard]] int cutLine() const
    {
        return m_cutLine;
    }

private:
    QByteArray readLine();
    bool readObject(QJsonObject &object);
    [[noreturn]] void refuse(TavScenarioError::Kind kind, const QString &path, const QString &problem) const;
    [[noreturn]] void refuseCharacter(const QString &problem, int column) const;
    TavScenario::Line lineOf(const QJsonObject &object);

    QIODevice &m_device;
    const CutLine m_cut;
    QJsonObject m_header;
    int m_number = 0; // of the line that was read last
    QByteArray m_text; // it, without its end
    qint64 m_at = 0; // its time, in microseconds
    int m_cutLine = 0;
    QSet<QString> m_determined; // getters whose setter an earlier line has called
};
