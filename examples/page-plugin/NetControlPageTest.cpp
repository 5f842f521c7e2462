#include "ITavSelectFuncMgr.h"
#include "NetControlController.h"
#include "TavTestClient.h"

#include <QElapsedTimer>
#include <QLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QtTest>

#include <memory>
#include <optional>
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

/// What a line shows: check mark, device, state.
QString shown(const QTreeWidget &list, int line)
{
    const QTreeWidgetItem &item = *list.topLevelItem(line);
    return QStringLiteral("%1 %2 %3").arg(item.checkState(0) == Qt::Checked ? "x" : "-", item.text(0), item.text(1));
}
}

/// Every test has a client with fresh managers, a controller and its page.
class NetControlPageTest : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_client = std::make_unique<TavTestClient>(QStringLiteral(TAV_PLUGIN_FILE));
        m_model = m_client->manager<ITavNetControlMgr>();
        m_controller.emplace();
        m_page.reset(m_controller->createPage(nullptr));
        m_list = m_page->findChild<QTreeWidget *>();
    }

    void cleanup()
    {
        m_page.reset();
        m_controller.reset();
        QCOMPARE(m_client->end(), QString()); // nothing is left behind
    }

    void isShownByTheClientThatLoadsItsPlugin()
    {
        TavTestClient client(QStringLiteral(TAV_PLUGIN_FILE), {QStringLiteral(PAGE_PLUGIN_FILE)});
        const std::unique_ptr<QWidget> page = client.createPage("ITavHostInfoController");
        QVERIFY(page);
        // The bytes are a device's, with the name "eth0" and the state 1.
        QCOMPARE(client.play({R"({"manager": "ITavNetControlMgr", "operation": "setUIData", )"
                              R"("arguments": [[{"isChecked": true, "index": 0, "protoData": "CgRldGgwEAE="}]]})",
                              R"({"page": "SubFunc_serverResourceInfo"})"}),
                 QString());
        const auto *const list = page->findChild<QTreeWidget *>();
        QTRY_COMPARE(list->topLevelItemCount(), 1);
        QCOMPARE(shown(*list, 0), QStringLiteral("x eth0 allowed"));
        QCOMPARE(client.pageChanges(), QStringList{QStringLiteral("SubFunc_serverResourceInfo")});
    }

    void showsAnAnswerThatCameInOnAnotherThread()
    {
        std::thread([this] { m_controller->receiveAnswer(answer({{"eth0", 1}, {"wlan0", 0}})); }).join();
        QTRY_COMPARE(m_list->topLevelItemCount(), 2);
        QCOMPARE(shown(*m_list, 1), QStringLiteral("- wlan0 blocked"));
    }

    void editsOfTheUserEndInTheModelAndOnThePage()
    {
        receive({{"eth0", 1}, {"wlan0", 1}});
        m_list->topLevelItem(1)->setCheckState(0, Qt::Checked);
        QVERIFY(m_model->getUIData().at(1).isChecked);
        QVERIFY(!m_model->getUIData().at(0).isChecked);

        clickOn(1);
        QCOMPARE(m_model->getDeviceInfo().devices(1).state(), 0);
        QTRY_COMPARE(shown(*m_list, 1), QStringLiteral("x wlan0 blocked"));
    }

    void togglesTheDeviceThatIsShownAlsoWhenItStandsElsewhereByThen()
    {
        receive({{"eth0", 1}, {"wlan0", 1}});
        m_controller->receiveAnswer(answer({{"eth1", 1}, {"eth0", 1}, {"wlan0", 1}}));
        waitWithoutShowing(3);
        QCOMPARE(m_list->topLevelItemCount(), 2); // what the user sees is the older answer
        m_list->topLevelItem(1)->setCheckState(0, Qt::Checked);
        clickOn(1);

        QTRY_COMPARE(m_list->topLevelItemCount(), 3);
        QCOMPARE(shown(*m_list, 0), QStringLiteral("- eth1 allowed"));
        QCOMPARE(shown(*m_list, 1), QStringLiteral("- eth0 allowed"));
        QCOMPARE(shown(*m_list, 2), QStringLiteral("x wlan0 blocked"));
    }

    void keepsSelectionAndCheckMarksWithTheirDevices()
    {
        receive({{"eth0", 1}, {"wlan0", 1}});
        m_list->setCurrentItem(m_list->topLevelItem(1));
        m_list->topLevelItem(0)->setCheckState(0, Qt::Checked);

        receive({{"eth1", 1}, {"eth0", 1}, {"wlan0", 1}});
        QCOMPARE(m_list->currentItem(), m_list->topLevelItem(2));
        QCOMPARE(m_list->selectedItems(), QList<QTreeWidgetItem *>{m_list->currentItem()});
        QCOMPARE(shown(*m_list, 1), QStringLiteral("x eth0 allowed"));

        receive({{"eth1", 1}, {"eth0", 1}});
        QVERIFY(!m_list->currentItem());
        m_page->findChild<QPushButton *>()->click(); // with nothing selected
        QCOMPARE(m_model->getDeviceInfo().devices(0).state(), 1);
    }

    void saysWhatWasToggled()
    {
        receive({{"eth0", 1}, {"wlan0", 0}});
        const QSignalSpy toggled(&*m_controller, &NetControlController::deviceToggled);
        m_controller->toggleDevice(QStringLiteral("wlan0"));
        m_controller->toggleDevice(QStringLiteral("eth0"));
        QCOMPARE(toggled.count(), 2);
        QCOMPARE(toggled[0], (QVariantList{QStringLiteral("wlan0"), true}));
        QCOMPARE(toggled[1], (QVariantList{QStringLiteral("eth0"), false}));
    }

    void leavesDevicesAloneThatAreNoLongerThere()
    {
        receive({{"eth0", 1}});
        const QSignalSpy changed(&*m_controller, &NetControlController::changed);
        for (const QString &name : {QString(), QStringLiteral("eth"), QStringLiteral("wlan0")}) {
            m_controller->toggleDevice(name); // unguarded, this would end the process
            m_controller->setChecked(name, true);
        }
        QCOMPARE(changed.count(), 0);
        QCOMPARE(m_model->getDeviceInfo().devices(0).state(), 1);
    }

    void editsWhileAnswersComeIn()
    {
        const QByteArray one = answer({{"eth0", 1}});
        const QByteArray none = answer({});
        // Were the list emptied between look and edit, the edit would end the process.
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < 2000) {
            for (int i = 0; i < 100; ++i) {
                m_controller->receiveAnswer(one);
                m_controller->receiveAnswer(none);
            }
            for (int i = 0; i < 200; ++i) {
                m_controller->toggleDevice(QStringLiteral("eth0"));
            }
        }
    }

    void doesNotTakeAnAnswerThatIsNoMessage()
    {
        QSignalSpy changed(&*m_controller, &NetControlController::changed);
        m_controller->receiveAnswer("\xff\xff\xff");
        m_controller->receiveAnswer(answer({{"eth0", 1}}));
        QVERIFY(changed.wait());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(m_controller->lines().size(), 1);
    }

    void readsTheModelAgainWhenItsPageIsSelected()
    {
        QSignalSpy changed(&*m_controller, &NetControlController::changed);
        auto *const selection = m_client->manager<ITavSelectFuncMgr>();
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
            m_client->manager<ITavSelectFuncMgr>()->setCurSelType(CTavFuncTypeHeader::Func_HostInfo,
                                                                  CTavSubFuncTypeHeader::SubFunc_serverResourceInfo);
        }
        QCoreApplication::processEvents(); // what was posted to the dead must not be delivered
    }

    void doesNotWorkOffWhatWaitsWhenItEnds()
    {
        receive({{"eth0", 1}}); // the thread runs, and waits
        Tav::NetControl::NetDeviceInfos many;
        for (int i = 0; i < 10000; ++i) {
            many.add_devices()->set_name(std::to_string(i));
        }
        const QByteArray first = QByteArray::fromStdString(many.SerializeAsString());
        many.add_devices()->set_name("waited");
        const QByteArray waiting = QByteArray::fromStdString(many.SerializeAsString());
        m_controller->receiveAnswer(first);
        QThread::msleep(1); // while it is at this one, all others come in, which its loop then takes up at once
        for (int i = 0; i < 50; ++i) {
            m_controller->receiveAnswer(waiting);
        }
        m_controller->receiveAnswer(answer({{"last", 1}}));
        waitWithoutShowing(many.devices_size());
        m_page.reset();
        m_controller.reset();
        QVERIFY(m_model->getDeviceInfo().devices_size() != 1);
    }

    void isNotReachedByItsDyingWidgets()
    {
        receive({{"eth0", 1}});
        m_list->setCurrentItem(m_list->topLevelItem(0));
        // The layout is the first that the page's base class deletes, when the page's own part is gone.
        connect(m_page->layout(), &QObject::destroyed, m_page->findChild<QPushButton *>(), &QPushButton::click);
        m_page.reset();
        QCOMPARE(m_model->getDeviceInfo().devices(0).state(), 1);
    }

    void isEmptyWithoutTheDataPlugin()
    {
        TavObjectMgr empty;
        ITavObjectMgr *const registry = TavGlobalInfoMgr::getObjectMgr();
        TavGlobalInfoMgr::setObjectMgr(&empty);
        NetControlController controller;
        TavGlobalInfoMgr::setObjectMgr(registry);
        controller.receiveAnswer(answer({{"eth0", 1}}));
        controller.toggleDevice(QStringLiteral("eth0"));
        controller.setChecked(QStringLiteral("eth0"), true);
        QVERIFY(controller.lines().isEmpty());
    }

private:
    /// Until the page shows this answer.
    void receive(std::initializer_list<std::pair<const char *, int>> namesAndStates)
    {
        m_controller->receiveAnswer(answer(namesAndStates));
        QTRY_COMPARE(m_list->topLevelItemCount(), int(namesAndStates.size()));
    }

    void clickOn(int line)
    {
        m_list->setCurrentItem(m_list->topLevelItem(line));
        m_page->findChild<QPushButton *>()->click();
    }

    /// Until the model holds so many devices; no event of this thread is handled meanwhile, so no page shows them yet.
    void waitWithoutShowing(int devices)
    {
        QElapsedTimer time;
        time.start();
        while (m_model->getDeviceInfo().devices_size() != devices && time.elapsed() < 5000) {
            QThread::msleep(1);
        }
        QCOMPARE(m_model->getDeviceInfo().devices_size(), devices);
    }

    std::unique_ptr<TavTestClient> m_client;
    ITavNetControlMgr *m_model = nullptr; // as long as the client
    std::optional<NetControlController> m_controller;
    std::unique_ptr<QWidget> m_page;
    QTreeWidget *m_list = nullptr; // as long as the page
};

QTEST_MAIN(NetControlPageTest)

#include "NetControlPageTest.moc"
