#include "ClientSession.h"

#include "ITavFuncTypeMgr.h"
#include "ITavSelectFuncMgr.h"
#include "PageValues.h"
#include "TavEvents.h"
#include "TavGlobalInfoMgr.h"
#include "TavJson.h"

#include <QDir>
#include <QFileInfo>

namespace
{
/// @p root as the system root, which is set before the plugin is loaded.
const QString &withRoot(const QString &root, const QString &plugin)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(root);
    return plugin;
}

bool isSelection(const QString &manager, const QString &operation)
{
    return operation == QLatin1String("setCurSelType")
        && manager == QLatin1String(qobject_interface_iid<ITavSelectFuncMgr *>());
}

bool isReadingOfCatalogue(const QString &manager, const QString &operation)
{
    return operation == QLatin1String("loadConfig")
        && manager == QLatin1String(qobject_interface_iid<ITavFuncTypeMgr *>());
}

/// @p names with the libraries of each folder in its place.
QStringList filesOf(const QStringList &names)
{
    QStringList files;
    for (const QString &name : names) {
        if (!QFileInfo(name).isDir()) {
            files.append(name);
            continue;
        }
        const QFileInfoList libraries = QDir(name).entryInfoList({"*.so"}, QDir::Files, QDir::Name);
        for (const QFileInfo &library : libraries) {
            files.append(library.filePath());
        }
    }
    return files;
}
}

ClientSession::ClientSession(const QString &plugin, const QString &root)
    : m_lines(newLogLines())
    , m_host(withRoot(root, plugin))
    , m_worker(QT_TRANSLATE_NOOP("ClientSession", "page on a thread"), "page",
               [this](const PageDelivery &delivery) { takeDelivery(delivery); })
    , m_window(QT_TRANSLATE_NOOP("ClientSession", "window"), {},
               [this](const PageDelivery &delivery) { takeDelivery(delivery); })
    , m_opening(eventFuncPageUpdate, this, [this](auto page) { emit pageChanged(page); })
{
    determineHeldValues();
    m_host.manager<ITavFuncTypeMgr>()->loadConfig();
}

QVector<TavPluginError> ClientSession::loadPages(const QStringList &names)
{
    QVector<TavPluginError> refused;
    const QStringList files = filesOf(names);
    for (const QString &file : files) {
        try {
            m_host.loadPages(file);
        } catch (const TavPluginError &error) {
            refused.append(error);
        }
    }
    return refused;
}

void ClientSession::select(const TavSubFuncTypeData_ &page)
{
    call("ITavSelectFuncMgr", "setCurSelType",
         QJsonArray{TavJson::toJson(page.funcType), TavJson::toJson(page.subFuncType)});
}

QJsonValue ClientSession::call(const QString &manager, const QString &operation, const QJsonValue &arguments)
{
    noteBeginning(manager, operation);
    try {
        QJsonValue returned
            = m_calls.make(m_host.managerObject(manager.toUtf8().constData()), manager, operation, arguments);
        noteEnd(manager, operation, true);
        return returned;
    } catch (...) {
        noteEnd(manager, operation, false);
        throw;
    }
}

void ClientSession::noteBeginning(const QString &manager, const QString &operation)
{
    if (isSelection(manager, operation)) {
        m_worker.expect();
        m_window.expect();
    }
}

void ClientSession::noteEnd(const QString &manager, const QString &operation, bool isMade)
{
    if (!isMade && isSelection(manager, operation)) {
        m_worker.expectNoMore();
        m_window.expectNoMore();
    } else if (isMade && isReadingOfCatalogue(manager, operation)) {
        emit catalogueRead();
    }
}

void ClientSession::takeDelivery(const PageDelivery &delivery)
{
    m_deliveries.append({QDateTime::currentDateTime(), delivery});
}
