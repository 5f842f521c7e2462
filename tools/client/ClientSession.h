#pragma once

#include "CallLog.h"
#include "CTavSubFuncTypeHeader.h"
#include "LogLines.h"
#include "PageSubscriber.h"
#include "TavPluginHost.h"

#include <QObject>

struct TavSubFuncTypeData_;

/// @brief A page change as it was delivered.
struct LoggedDelivery {
    QDateTime time;
    PageDelivery delivery;
};

/**
 * @brief The client without its window: the plugin with its managers, and what happens with them.
 *
 * Used in the GUI thread, which runs the event loop; the logs in any. There may be several, but the registry in which
 * pages look their managers up is the newest one's.
 */
class ClientSession : public QObject
{
    Q_OBJECT
public:
    using Page = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

    /// Loads the plugin in the file @p plugin, and has it read its configuration within @p root, which stands for "/".
    /// Throws TavPluginError.
    ClientSession(const QString &plugin, const QString &root);

    TavPluginHost &host()
    {
        return m_host;
    }

    CallLog &calls()
    {
        return m_calls;
    }

    BoundedLog<LoggedDelivery> &deliveries()
    {
        return m_deliveries;
    }

    BoundedLog<LogLine> &lines()
    {
        return *m_lines;
    }

    /// Takes page plugins in; @p names are files, or folders of which every library is taken. Returns why some are not.
    QVector<TavPluginError> loadPages(const QStringList &names);

    /// Selects a page, as the navigation does; pageChanged() follows. Opens nothing.
    void select(const TavSubFuncTypeData_ &page);

    /// As CallLog::make(), on the manager of this session with this interface. Any thread that the operation allows.
    QJsonValue call(const QString &manager, const QString &operation, const QJsonValue &arguments);

    /// What others than call() tell of each call on a manager of this session, on the thread that makes it: just before
    /// it, and when it was made or refused. The log is not written by that.
    void noteBeginning(const QString &manager, const QString &operation);
    void noteEnd(const QString &manager, const QString &operation, bool isMade);

signals:
    /// The page-change signal has arrived: a client opens this page now.
    void pageChanged(ClientSession::Page page);

    /// A call has had the manager read its catalogue again. Emitted on the thread of the call.
    void catalogueRead();

private:
    void takeDelivery(const PageDelivery &delivery);

    std::shared_ptr<BoundedLog<LogLine>> m_lines; ///< before the host: it logs while it loads
    TavPluginHost m_host;
    CallLog m_calls;
    BoundedLog<LoggedDelivery> m_deliveries;
    PageSubscriber m_worker; ///< a page that is called on a thread of its own
    PageSubscriber m_window;
    TavSubscription m_opening;
};
