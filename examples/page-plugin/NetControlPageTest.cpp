#include "IPage.h"
#include "ITavDataPlugin.h"
#include "ITavSelectFuncMgr.h"
#include "NetControlController.h"
#include "TavEvents.h"
#include "TavObjectMgr.h"

#include <QPluginLoader>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QtTest>

#include <memory>
#include <thread>

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
    return qobject_cast<Interface *>(QPluginLoader(QString::fromUtf8(file)).instance());
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
        m_model = tavObject<ITavNetControlMgr>("ITavNetControlMgr");
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
        auto *const plugin = load<IPagePlugin>(PAGE_PLUGIN_FILE);
        QVERIFY(plugin);
        const std::unique_ptr<QWidget> page(plugin->createPage(nullptr));
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
        const std::unique_ptr<QWidget> page(load<IPagePlugin>(PAGE_PLUGIN_FILE)->createPage(nullptr));
        auto *const list = page->findChild<QTreeWidget *>();
        qobject_cast<IPage *>(page.get())->receiveAnswer(answer({{"eth0", 1}, {"wlan0", 1}}));
        QTRY_COMPARE(list->topLevelItemCount(), 2);

        list->topLevelItem(1)->setCheckState(0, Qt::Checked);
        QVERIFY(m_model->getUIData()[1].isChecked);
        QVERIFY(!m_model->getUIData()[0].isChecked);

        list->setCurrentItem(list->topLevelItem(1));
        page->findChild<QPushButton *>()->click();
        QCOMPARE(m_model->getDeviceInfo().devices(1).state(), 0);
        QTRY_COMPARE(list->topLevelItem(1)->text(1), QStringLiteral("blocked"));
        QCOMPARE(list->topLevelItem(1)->checkState(0), Qt::Checked);
    }

    void leavesLinesAloneThatAreNoLongerThere()
    {
        NetControlController controller;
        QSignalSpy changed(&controller, &NetControlController::changed);
        controller.receiveAnswer(answer({{"eth0", 1}}));
        QVERIFY(changed.wait());
        for (const int position : {-1, 1, 99}) {
            controller.toggleDevice(position); // unguarded, this would end the process
            controller.setChecked(position, true);
        }
        QCOMPARE(changed.count(), 1);
        QCOMPARE(m_model->getDeviceInfo().devices(0).state(), 1);
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
        auto *const selection = tavObject<ITavSelectFuncMgr>("ITavSelectFuncMgr");
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
            tavObject<ITavSelectFuncMgr>("ITavSelectFuncMgr")
                ->setCurSelType(CTavFuncTypeHeader::Func_HostInfo, CTavSubFuncTypeHeader::SubFunc_serverResourceInfo);
        }
        QCoreApplication::processEvents(); // what was posted to the dead must not be delivered
    }

    void isEmptyWithoutTheDataPlugin()
    {
        TavObjectMgr empty;
        TavGlobalInfoMgr::setObjectMgr(&empty);
        NetControlController controller;
        controller.receiveAnswer(answer({{"eth0", 1}}));
        controller.toggleDevice(0);
        controller.setChecked(0, true);
        QVERIFY(controller.lines().isEmpty());
        TavGlobalInfoMgr::setObjectMgr(m_registry.get());
    }

private:
    std::unique_ptr<TavObjectMgr> m_registry;
    ITavNetControlMgr *m_model = nullptr; // as long as the registry
};

QTEST_MAIN(NetControlPageTest)

#include "NetControlPageTest.moc"
