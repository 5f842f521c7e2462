#pragma once

#include <QJsonArray>
#include <QSet>
#include <QString>
#include <QVector>

#include <functional>

class TavPluginHost;

/**
 * @brief What every getter returns when a session has ended, which makes a test of the session's scenario.
 *
 * Getters with arguments are asked for what the session's calls have set. Used by one thread at a time.
 */
class EndState
{
public:
    /// Is told one call of the session. @p arguments is an array by position or an object by name.
    void note(const QString &manager, const QString &operation, const QJsonValue &arguments);

    using Visitor = std::function<void(const QString &manager, const QString &getter, const QJsonArray &arguments,
                                       const QJsonValue &returned)>;

    /// Asks the managers of @p host, and calls @p visit with each call.
    void read(TavPluginHost &host, const Visitor &visit) const;

private:
    /// @brief A call of a getter with arguments.
    struct KeyedCall {
        QString manager;
        QString getter;
        QJsonArray key;
    };

    QSet<QString> m_set; ///< getters whose value was set, behind their manager's name
    QVector<KeyedCall> m_keyed; ///< each once
};
