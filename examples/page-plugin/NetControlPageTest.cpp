#include "IPage.h"
#include "ITavDataPlugin.h"
#include "ITavSelectFuncMgr.h"
#include "NetControlController.h"
#include "TavEvents.h"
#include "TavObjectMgr.h"

#include <QElapsedTimer>
#include <QLayout>
#include <QPluginLoader>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QtTest>

#include <memory>
#include <string>
#include <thread>
#include <vector>

#ifdef NDEBUG
#error "The package must keep the messages' bounds checks: compile with -UNDEBUG"
#endif

namespace
{
QByteArray answer(std::initializer_list<std::pair<const char *, int>> namesAndStates)
{
    Tav::NetControl::NetDeviceInfos devices;
    for (const auto &[name, state] : namesAndStates) {
        auto &device = *devices.add_devices();
        device.set_name(name);
        device.set_state(state);
    }
    return QByteArray::fromStdString(devices.SerializeAsString());
}

template<class Interface>
Interface *load(const char *file)
{
    QPluginLoader loader(QString::fromUtf8(file));
    auto *const plugin = qobject_cast<Interface *>(loader.instance());
    if (!plugin) {
        qCritical("%s: %s", file, qPrintable(loader.errorString()));
    }
    return plugin;
}

/// Null, with the reason in the log, when the plugin cannot be loaded.
std::unique_ptr<QWidget> newPage()
{
    auto *const plugin = load<IPagePlugin>(PAGE_PLUGIN_FILE);
    return std::unique_ptr<QWidget>(plugin ? plugin->createPage(nullptr) : nullptr);
}

void receive(QWidget &page, const QByteArray &answer)
{
    qobject_cast<IPage *>(&page)->receiveAnswer(answer);
}

std::vector<std::string> deviceNames(ITavNetControlMgr &model)
{
    const Tav::NetControl::NetDeviceInfos devices = model.getDeviceInfo();
    std::vector<std::string> names;
    for (const auto &device : devices.devices()) {
        names.push_back(device.name());
    }
    return names;
}
}

/// Every test has the installed data plugin register fresh managers in a registry of its own.
class NetControlPageTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_registry = std::make_unique<TavObjectMgr>();
        TavGlobalInfoMgr::setObjectMgr(m_registry.get());
        auto *const plugin = load<ITavDataPlugin>(TAV_PLUGIN_FILE);
        QVERIFY2(plugin, TAV_PLUGIN_FILE " is not installed; it is in the package tav-data-plugin");
        plugin->registerObj();
        m_model = tavObject<ITavNetControlMgr>();
        QVERIFY(m_model);
    }

    void cleanup()
    {
        QCOMPARE(eventFuncPageUpdate.subscriberCount(), 0); // nobody has left a subscription behind
        TavGlobalInfoMgr::setObjectMgr(nullptr);
        m_registry.reset();
    }

    void showsAnAnswerThatCameInOnAnotherThread()
    {
        const std::unique_ptr<QWidget> page = newPage();
        QVERIFY(page);
        auto *const list = page->findChild<QTreeWidget *>();
        QCOMPARE(list->topLevelItemCount(), 0);

        auto *const receiver = qobject_cast<IPage *>(page.get());
        std::thread([receiver] { receiver->receiveAnswer(answer({{"eth0", 1}, {"wlan0", 0}})); }).join();
        QTRY_COMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(list->topLevelItem(1)->text(0), QStringLiteral("wlan0"));
        QCOMPARE(list->topLevelItem(1)->text(1), QStringLiteral("blocked"));
    }

    void editsOfTheUserEndInTheModelAndOnThePage()
    {
        const std::unique_ptr<QWidget> page = newPage();
        QVERIFY(page);
        auto *const list = page->findChild<QTreeWidget *>();
        receive(*page, answer({{"eth0", 1}, {"wlan0", 1}}));
        QTRY_COMPARE(list->topLevelItemCount(), 2);

        list->topLevelItem(1)->setCheckState(0, Qt::Checked);
        QVERIFY(m_model->getUIData().at(1).isChecked);
        QVERIFY(!m_model->getUIData().at(0).isChecked);

        list->setCurrentItem(list->topLevelItem(1));
        page->findChild<QPushButton *>()->click();
        QCOMPARE(m_model->getDeviceInfo().devices(1).state(), 0);
        QTRY_COMPARE(list->topLevelItem(1)->text(1), QStringLiteral("blocked"));
        QCOMPARE(list->topLevelItem(1)->checkState(0), Qt::Checked);
    }

    void togglesTheDeviceThatIsShownAlsoWhenItStandsElsewhereByThen()
    {
        const std::unique_ptr<QWidget> page = newPage();
        QVERIFY(page);
        auto *const list = page->findChild<QTreeWidget *>();
        receive(*page, answer({{"eth0", 1}, {"wlan0", 1}}));
        QTRY_COMPARE(list->topLevelItemCount(), 2);
        list->setCurrentItem(list->topLevelItem(1));

        receive(*page, answer({{"eth1", 1}, {"eth0", 1}, {"wlan0", 1}}));
        waitWithoutShowing({"eth1", "eth0", "wlan0"});
        QCOMPARE(list->topLevelItemCount(), 2); // what the user sees is the older answer
        list->topLevelItem(1)->setCheckState(0, Qt::Checked);
        page->findChild<QPushButton *>()->click();

        const Tav::NetControl::NetDeviceInfos devices = m_model->getDeviceInfo();
        QCOMPARE(devices.devices(0).state(), 1);
        QCOMPARE(devices.devices(1).state(), 1);
        QCOMPARE(devices.devices(2).state(), 0);
        QTRY_COMPARE(list->topLevelItemCount(), 3);
        QCOMPARE(list->topLevelItem(2)->text(1), QStringLiteral("blocked"));
        QCOMPARE(list->topLevelItem(1)->checkState(0), Qt::Unchecked);
        QCOMPARE(list->topLevelItem(2)->checkState(0), Qt::Checked);
    }

    void keepsSelectionAndCheckMarksWithTheirDevices()
    {
        const std::unique_ptr<QWidget> page = newPage();
        QVERIFY(page);
        auto *const list = page->findChild<QTreeWidget *>();
        receive(*page, answer({{"eth0", 1}, {"wlan0", 1}}));
        QTRY_COMPARE(list->topLevelItemCount(), 2);
        list->setCurrentItem(list->topLevelItem(1));
        list->topLevelItem(0)->setCheckState(0, Qt::Checked);

        receive(*page, answer({{"eth1", 1}, {"eth0", 1}, {"wlan0", 1}}));
        QTRY_COMPARE(list->topLevelItemCount(), 3);
        QVERIFY(list->currentItem());
        QCOMPARE(list->currentItem()->text(0), QStringLiteral("wlan0"));
        QCOMPARE(list->selectedItems(), QList<QTreeWidgetItem *>{list->currentItem()});
        QCOMPARE(list->topLevelItem(0)->checkState(0), Qt::Unchecked);
        QCOMPARE(list->topLevelItem(1)->checkState(0), Qt::Checked);

        receive(*page, answer({{"eth1", 1}, {"eth0", 1}}));
        QTRY_COMPARE(list->topLevelItemCount(), 2);
        QVERIFY(!list->currentItem());
        page->findChild<QPushButton *>()->click(); // with nothing selected
        QCOMPARE(m_model->getDeviceInfo().devices(0).state(), 1);
    }

    void saysWhatWasToggled()
    {
        NetControlController controller;
        QSignalSpy changed(&controller, &NetControlController::changed);
        QSignalSpy toggled(&controller, &NetControlController::deviceToggled);
        controller.receiveAnswer(answer({{"eth0", 1}, {"wlan0", 0}}));
        QVERIFY(changed.wait());
        controller.toggleDevice(QStringLiteral("wlan0"));
        controller.toggleDevice(QStringLiteral("eth0"));
        QCOMPARE(toggled.count(), 2);
        QCOMPARE(toggled[0], (QVariantList{QStringLiteral("wlan0"), true}));
        QCOMPARE(toggled[1], (QVariantList{QStringLiteral("eth0"), false}));
    }

    void leavesDevicesAloneThatAreNoLongerThere()
    {
        NetControlController controller;
        QSignalSpy changed(&controller, &NetControlController::changed);
        QSignalSpy toggled(&controller, &NetControlController::deviceToggled);
        controller.receiveAnswer(answer({{"eth0", 1}}));
        QVERIFY(changed.wait());
        for (const QString &name : {QString(), QStringLiteral("eth"), QStringLiteral("wlan0")}) {
            controller.toggleDevice(name); // unguarded, this would end the process
            controller.setChecked(name, true);
        }
        QCOMPARE(changed.count(), 1);
        QCOMPARE(toggled.count(), 0);
        QCOMPARE(m_model->getDeviceInfo().devices(0).state(), 1);
    }

    void sharesItsLockWithTheOtherControllersOfTheModel()
    {
        NetControlController edits;
        NetControlController answers;
        const QByteArray one = answer({{"eth0", 1}});
        const QByteArray none = answer({});
        // Were the list emptied between look and edit, the edit would end the process.
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < 2000) {
            for (int i = 0; i < 100; ++i) {
                answers.receiveAnswer(one);
                answers.receiveAnswer(none);
            }
            for (int i = 0; i < 200; ++i) {
                edits.toggleDevice(QStringLiteral("eth0"));
            }
        }
    }

    void doesNotTakeAnAnswerThatIsNoMessage()
    {
        NetControlController controller;
        QSignalSpy changed(&controller, &NetControlController::changed);
        controller.receiveAnswer("\xff\xff\xff");
        controller.receiveAnswer(answer({{"eth0", 1}}));
        QVERIFY(changed.wait());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(controller.lines().size(), 1);
    }

    void readsTheModelAgainWhenItsPageIsSelected()
    {
        NetControlController controller;
        QSignalSpy changed(&controller, &NetControlController::changed);
        auto *const selection = tavObject<ITavSelectFuncMgr>();
        selection->setCurSelType(CTavFuncTypeHeader::Func_SystemAudit, CTavSubFuncTypeHeader::SubFunc_LogAudit);
        selection->setCurSelType(CTavFuncTypeHeader::Func_HostInfo, CTavSubFuncTypeHeader::SubFunc_serverResourceInfo);
        QCOMPARE(changed.count(), 0); // never inside the call
        QVERIFY(changed.wait());
        QCOMPARE(changed.count(), 1);
    }

    void isNotCalledAfterItsEnd()
    {
        for (int i = 0; i < 100; ++i) {
            NetControlController controller;
            controller.receiveAnswer(answer({{"eth0", 1}}));
            tavObject<ITavSelectFuncMgr>()->setCurSelType(CTavFuncTypeHeader::Func_HostInfo,
                                                          CTavSubFuncTypeHeader::SubFunc_serverResourceInfo);
        }
        QCoreApplication::processEvents(); // what was posted to the dead must not be delivered
    }

    void doesNotWorkOffWhatWaitsWhenItEnds()
    {
        Tav::NetControl::NetDeviceInfos many;
        for (int i = 0; i < 10000; ++i) {
            many.add_devices()->set_name(std::to_string(i));
        }
        const QByteArray first = QByteArray::fromStdString(many.SerializeAsString());
        many.add_devices()->set_name("waited");
        const QByteArray waiting = QByteArray::fromStdString(many.SerializeAsString());
        {
            NetControlController controller;
            QSignalSpy changed(&controller, &NetControlController::changed);
            controller.receiveAnswer(answer({{"eth0", 1}}));
            QVERIFY(changed.wait()); // the thread runs, and waits
            controller.receiveAnswer(first);
            QThread::msleep(1); // while it is at this one, all others come in, which its loop then takes up at once
            for (int i = 0; i < 50; ++i) {
                controller.receiveAnswer(waiting);
            }
            controller.receiveAnswer(answer({{"last", 1}}));
            QTRY_COMPARE(m_model->getDeviceInfo().devices_size(), many.devices_size());
        }
        QVERIFY(deviceNames(*m_model) != std::vector<std::string>{"last"});
    }

    void isNotReachedByItsDyingWidgets()
    {
        std::unique_ptr<QWidget> page = newPage();
        QVERIFY(page);
        auto *const list = page->findChild<QTreeWidget *>();
        receive(*page, answer({{"eth0", 1}}));
        QTRY_COMPARE(list->topLevelItemCount(), 1);
        list->setCurrentItem(list->topLevelItem(0));
        // The layout is the first that the page's base class deletes, when the page's own members are gone.
        connect(page->layout(), &QObject::destroyed, page->findChild<QPushButton *>(), &QPushButton::click);
        page.reset();
        QCOMPARE(m_model->getDeviceInfo().devices(0).state(), 1);
    }

    void isEmptyWithoutTheDataPlugin()
    {
        TavObjectMgr empty;
        TavGlobalInfoMgr::setObjectMgr(&empty);
        NetControlController controller;
        controller.receiveAnswer(answer({{"eth0", 1}}));
        controller.toggleDevice(QStringLiteral("eth0"));
        controller.setChecked(QStringLiteral("eth0"), true);
        QVERIFY(controller.lines().isEmpty());
        TavGlobalInfoMgr::setObjectMgr(m_registry.get());
    }

private:
    /// Until the model holds these devices; no event of this thread is handled meanwhile, so no page shows them yet.
    void waitWithoutShowing(const std::vector<std::string> &names)
    {
        QElapsedTimer time;
        time.start();
        while (deviceNames(*m_model) != names && time.elapsed() < 5000) {
            QThread::msleep(1);
        }
        QVERIFY(deviceNames(*m_model) == names);
    }

    std::unique_ptr<TavObjectMgr> m_registry;
    ITavNetControlMgr *m_model = nullptr; // as long as the registry
};

QTEST_MAIN(NetControlPageTest)

#include "NetControlPageTest.moc"
