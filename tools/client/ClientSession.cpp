#include "ClientSession.h"

#include "ITavFuncTypeMgr.h"
#include "TavEvents.h"
#include "TavGlobalInfoMgr.h"
#include "TavJson.h"

namespace
{
/// @p root as the system root, which is set before the plugin is loaded.
const QString &withRoot(const QString &root, const QString &plugin)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(root);
    return plugin;
}
}

ClientSession::ClientSession(const QString &plugin, const QString &root)
    : m_lines(newLogLines())
    , m_host(withRoot(root, plugin))
    , m_worker("page on a thread", "page", [this](const PageDelivery &delivery) { takeDelivery(delivery); })
    , m_window("window", {}, [this](const PageDelivery &delivery) { takeDelivery(delivery); })
    , m_opening(eventFuncPageUpdate, this, [this](auto page) { emit pageChanged(page); })
{
    m_host.manager<ITavFuncTypeMgr>()->loadConfig();
}

void ClientSession::select(const TavSubFuncTypeData_ &page)
{
    m_worker.expect();
    m_window.expect();
    call("ITavSelectFuncMgr", "setCurSelType",
         QJsonArray{TavJson::toJson(page.funcType), TavJson::toJson(page.subFuncType)});
}

QJsonValue ClientSession::call(const QString &manager, const QString &operation, const QJsonValue &arguments)
{
    return m_calls.make(m_host.managerObject(manager.toUtf8().constData()), manager, operation, arguments);
}

void ClientSession::takeDelivery(const PageDelivery &delivery)
{
    m_deliveries.append({QDateTime::currentDateTime(), delivery});
}
