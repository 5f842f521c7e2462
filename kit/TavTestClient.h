#pragma once

#include "ITavPage.h"
#include "TavPluginHost.h"
#include "TavScenarioPlayer.h"
#include "TavSubscription.h"

#include <QPointer>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/**
 * @brief The client around a page under test: fresh managers, page plugins, and scenarios played into them.
 *
 * It belongs to no test framework. What went wrong is returned as a text, which is empty when nothing did:
 *
 * | framework | a check |
 * |---|---|
 * | Qt Test | `QCOMPARE(client.play(lines), QString());` |
 * | GoogleTest | `EXPECT_EQ(client.play(lines).toStdString(), "");` |
 *
 * GUI thread; needs an application object.
 */
class TavTestClient
{
public:
    /// Throws TavPluginError when one of the plugins cannot be loaded.
    explicit TavTestClient(const QString &dataPlugin, const QStringList &pagePlugins = {});

    /// As end().
    ~TavTestClient();

    Q_DISABLE_COPY(TavTestClient) // it owns the managers

    /// The manager with this interface; null after end().
    template<class Interface>
    [[nodiscard]] Interface *manager()
    {
        return qobject_cast<Interface *>(object(qobject_interface_iid<Interface *>()));
    }

    /// What is registered for the interface with this name, a manager or a page's controller; null when nothing is.
    [[nodiscard]] QObject *object(const char *interfaceName);

    /// A new page of the controller with this interface; null when there is none, or it is no ITavPage. It is to end
    /// before end() is called. Include QWidget: the kit itself does without Qt Widgets.
    template<class Widget = QWidget>
    [[nodiscard]] std::unique_ptr<Widget> createPage(const char *controllerName)
    {
        auto *const controller = qobject_cast<ITavPage *>(object(controllerName));
        std::unique_ptr<Widget> page(controller ? controller->createPage(nullptr) : nullptr);
        m_pages.emplace_back(page.get());
        return page;
    }

    /// As fast as it goes, with every `returns` compared.
    [[nodiscard]] static TavPlayOptions checkedAtOnce();

    /// Plays a scenario of these lines, without its first, while the event loop runs. Returns the first mistake.
    [[nodiscard]] QString play(const QList<QByteArray> &lines, const TavPlayOptions &options = checkedAtOnce());

    /// The same with the scenario in @p file.
    [[nodiscard]] QString playFile(const QString &file, const TavPlayOptions &options = checkedAtOnce());

    /// Runs the event loop until @p condition holds. Returns that it has not within @p limit, with @p what, which says
    /// what was waited for: "the list shows both devices".
    [[nodiscard]] static QString waitFor(const std::function<bool()> &condition, const QString &what,
                                         std::chrono::milliseconds limit = std::chrono::seconds(5));

    /// The pages whose selection was delivered to this thread so far, by their keys, in order.
    [[nodiscard]] const QStringList &pageChanges() const
    {
        return m_pageChanges;
    }

    /// Ends the controllers and managers. Returns what outlives them and must not: pages, controllers that the
    /// registry does not own, subscriptions to the page change, events on the bus. What was there before is none of
    /// them.
    [[nodiscard]] QString end();

private:
    QString play(QIODevice &device, const TavPlayOptions &options);

    const int m_subscribersBefore;
    const int m_eventsBefore;
    std::optional<TavPluginHost> m_host;
    QStringList m_pageChanges;
    std::vector<QPointer<QObject>> m_pages;
    std::vector<std::pair<QPointer<QObject>, QString>> m_controllers; // each with its name for a message
    QObject m_listener;
    TavSubscription m_subscription; // last, so that it ends first
};
