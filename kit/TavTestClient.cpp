#include "TavTestClient.h"

#include "TavEvents.h"
#include "TavJson.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>

#include <qtestsupport_core.h>

namespace
{
QString className(const QObject *object)
{
    return QString::fromLatin1(object->metaObject()->className());
}

/// Works off what is posted, and the deletions for which only a running event loop would be the time.
void workOffPosted()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int pendingEvents()
{
    return TavEventNotifyMgr::getInstance()->pendingCount();
}
}

TavTestClient::TavTestClient(const QString &dataPlugin, const QStringList &pagePlugins)
    : m_subscribersBefore(eventFuncPageUpdate.subscriberCount()), m_eventsBefore(pendingEvents())
{
    m_host.emplace(dataPlugin);
    for (const QString &file : pagePlugins) {
        const QVector<TavRegistration> pages = m_host->loadPages(file);
        for (const TavRegistration &row : pages) {
            m_controllers.emplace_back(row.object,
                                       QString("%1, registered as %2").arg(className(row.object), row.key.name));
        }
    }
    m_subscription = TavSubscription(eventFuncPageUpdate, &m_listener, [this](auto page) {
        m_pageChanges.append(TavJson::toJson(page).toVariant().toString());
    });
}

TavTestClient::~TavTestClient()
{
    static_cast<void>(end()); // whoever wants to know has called it
}

QObject *TavTestClient::object(const char *interfaceName)
{
    return m_host ? m_host->managerObject(interfaceName) : nullptr;
}

TavPlayOptions TavTestClient::checkedAtOnce()
{
    TavPlayOptions options;
    options.speed = TavPlayOptions::fastest;
    options.isChecked = true;
    return options;
}

QString TavTestClient::play(const QList<QByteArray> &lines, const TavPlayOptions &options)
{
    QByteArray text = "{\"tavScenario\": 1}\n";
    for (const QByteArray &line : lines) {
        text += line + '\n';
    }
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    return play(buffer, options);
}

QString TavTestClient::playFile(const QString &file, const TavPlayOptions &options)
{
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly)) {
        return QString("%1: %2").arg(file, device.errorString());
    }
    return play(device, options);
}

QString TavTestClient::play(QIODevice &device, const TavPlayOptions &options)
{
    if (!m_host) {
        return "the client has ended";
    }
    const TavPlayReport report = TavScenarioPlayer(*m_host, device, options).wait();
    return report.error ? QString::fromUtf8(report.error->what()) : QString();
}

QString TavTestClient::waitFor(const std::function<bool()> &condition, const QString &what,
                               std::chrono::milliseconds limit)
{
    return QTest::qWaitFor(condition, int(limit.count()))
        ? QString()
        : QString("not within %1 ms: %2").arg(limit.count()).arg(what);
}

QString TavTestClient::end()
{
    if (!m_host) {
        return {};
    }
    QStringList left;
    workOffPosted();
    for (const QPointer<QObject> &page : m_pages) {
        if (page) {
            left += QString("the page %1 has not ended").arg(className(page));
        }
    }
    m_subscription = {};
    m_host.reset();
    workOffPosted();
    for (const auto &[controller, name] : m_controllers) {
        if (controller) {
            left += name + ", is not owned by the registry and has not ended";
        }
    }
    const int subscriptions = eventFuncPageUpdate.subscriberCount() - m_subscribersBefore;
    if (subscriptions > 0) {
        left += QString("subscriptions to the page change that have not ended: %1").arg(subscriptions);
    }
    constexpr int forOtherThreads = 1000; // milliseconds; they may be at work on theirs
    const auto events = [this] { return pendingEvents() - m_eventsBefore; };
    if (!QTest::qWaitFor([&events] { return events() <= 0; }, forOtherThreads)) {
        left += QString("events on the bus that nobody has run: %1").arg(events());
    }
    return left.join("; ");
}
