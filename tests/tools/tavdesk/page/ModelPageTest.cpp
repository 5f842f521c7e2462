#include "ModelPage.h"

#include "FactsForm.h"
#include "ITavAccessControlMgr.h"
#include "ITavAuthInfoMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavOneReinforceMgr.h"
#include "ITavProtectMgr.h"
#include "ITavSystemConfigMgr.h"
#include "KnownKeys.h"
#include "PrintQString.h"
#include "SelectableLabel.h"
#include "ShownToolTip.h"
#include "TavCall.h"
#include "TavPluginHost.h"
#include "ValueModel.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSemaphore>
#include <QTableView>
#include <QTabWidget>
#include <QtTest>

#include <gtest/gtest.h>

namespace
{
using Types = CTavSubFuncTypeHeader;

class ModelPageWindow : public testing::Test
{
protected:
    ModelPageWindow()
    {
        determineHeldValues();
    }

    /// Shows the page, and waits until it has been read. @p call happens with each call that the page makes.
    void open(
        ModelPage::Page type, const std::function<void()> &call = [] {})
    {
        page = std::make_unique<ModelPage>(
            type, host.registry(),
            [this, call](const QString &manager, const QString &operation, const QJsonArray &arguments) {
                call();
                TavCall::call(host.managerObject(manager.toUtf8().constData()), manager, operation, arguments);
            },
            [this](const QString &manager, const QString &getter) { return keys.of(manager, getter); });
        page->resize(900, 700);
        page->show();
        page->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(page.get()));
        EXPECT_TRUE(QTest::qWaitFor([this] { return page->layout() != nullptr; }));
    }

    /// The table of the list with this title, brought to the front.
    QTableView *table(const QString &title)
    {
        auto &lists = *page->findChild<QTabWidget *>();
        for (int tab = 0; tab < lists.count(); ++tab) {
            if (lists.tabText(tab).startsWith(title + " (")) {
                lists.setCurrentIndex(tab);
                QTableView *view = nullptr;
                const auto isShown = [&] {
                    view = lists.currentWidget()->findChild<QTableView *>();
                    return view && view->isVisible();
                };
                EXPECT_TRUE(QTest::qWaitFor(isShown));
                EXPECT_EQ(view->accessibleName(), title);
                view->setFocus();
                return view;
            }
        }
        throw std::runtime_error("no list " + title.toStdString());
    }

    template<class Widget>
    Widget *in(QTableView *view, const QString &text = {})
    {
        const auto widgets = view->parentWidget()->findChildren<Widget *>();
        for (Widget *const widget : widgets) {
            if (text.isEmpty() || widget->text() == text) {
                return widget;
            }
        }
        throw std::runtime_error("no " + text.toStdString());
    }

    /// Whether the page shows this text.
    bool hasLabel(const QString &text)
    {
        const auto labels = page->findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(),
                           [&text](const QLabel *label) { return label->isVisible() && label->text() == text; });
    }

    void fillProtections(int count)
    {
        QVector<STSystemProUIData> rows;
        for (int i = 0; i < count; ++i) {
            STSystemProUIData row;
            row.itemKey = QString::number(i);
            rows.append(row);
        }
        manager<ITavProtectMgr>().setProtectUIData(rows);
    }

    QString cell(QTableView *view, int row, int column)
    {
        return view->model()->index(row, column).data().toString();
    }

    QLabel *fact(const QString &name)
    {
        const auto labels = page->findChildren<QLabel *>();
        for (QLabel *const label : labels) {
            if (label->accessibleName() == name) {
                return label;
            }
        }
        throw std::runtime_error("no fact " + name.toStdString());
    }

    template<class Interface>
    Interface &manager()
    {
        return *host.manager<Interface>();
    }

    TavPluginHost host{TAV_PLUGIN_FILE};
    KnownKeys keys;
    std::unique_ptr<ModelPage> page;
};

STAccessSetUIData level(int value, bool checked)
{
    STAccessSetUIData level;
    level.level = value;
    level.checked = checked;
    return level;
}

STSystemProUIData protection(const QString &key, bool checked = false)
{
    STSystemProUIData row;
    row.itemKey = key;
    row.title = key;
    row.isChecked = checked;
    return row;
}
}

TEST_F(ModelPageWindow, ShowsWhatWasSetAndWhatIsSetLater)
{
    manager<ITavOneReinforceMgr>().setStateInfo({{"first", "1"}});
    open(Types::SubFunc_OneClickReinforcement);
    QTableView *const states = table("States");
    EXPECT_EQ(cell(states, 0, 0), "first");
    manager<ITavOneReinforceMgr>().setStateInfo({{"first", "1"}, {"second", "2"}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return states->model()->rowCount() == 2; }));
    EXPECT_EQ(cell(states, 1, 0), "second");
    EXPECT_TRUE(states->model()->index(1, 0).data(Qt::BackgroundRole).isValid());
}

TEST_F(ModelPageWindow, ShowsARecordAsAForm)
{
    open(Types::SubFunc_serverResourceInfo);
    EXPECT_EQ(fact("memory total")->text(), "0 bytes");
    STResourceInfoAsr info{};
    info.memoryTotal = 1 << 20;
    manager<ITavHostInfoMgr>().setResourceInfo(info);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fact("memory total")->text() == "1.00 MiB"; }));
    EXPECT_EQ(shownToolTip(fact("memory total")->toolTip()), "memoryTotal: 1048576 bytes");
    EXPECT_EQ(fact("secure boot")->text(), "-") << "an absent field of a message";
}

TEST_F(ModelPageWindow, LeavesEachColumnOfFactsItsPlaceBesideLongWords)
{
    const std::string word(4000, 'w');
    Tav::SystemConfig::SystemServerInfo server;
    server.set_address(word);
    manager<ITavSystemConfigMgr>().setServerInfo(server);
    Tav::SystemConfig::PasswdChangeAsr change;
    change.set_user_name(word);
    manager<ITavAuthInfoMgr>().setPwdChange(change);
    open(Types::SubFunc_serverResourceInfo);
    const auto *const area = page->findChild<QScrollArea *>();
    const auto forms = page->findChildren<FactsForm *>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return forms.last()->isVisible(); }));
    EXPECT_GT(forms.last()->mapTo(area, QPoint()).x(), 0) << "there is more than one column";
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
    EXPECT_LT(fact("user name")->height(), 100);
}

TEST_F(ModelPageWindow, LeavesEachFactAllLinesThatItTakes)
{
    open(Types::SubFunc_serverResourceInfo);
    ASSERT_TRUE(QTest::qWaitFor([&] { return fact("password days left")->isVisible(); }));
    for (const int width : {850, 900, 950, 1000, 1050, 1100}) {
        page->resize(width, 700);
        Tav::SystemConfig::PasswdChangeAsr change;
        change.set_result(4);
        change.set_user_name("root");
        change.set_change_time(1'700'000'000 + width);
        change.set_password_days_left(-1);
        manager<ITavAuthInfoMgr>().setPwdChange(change);
        QTest::qWait(500);
        const auto labels = page->findChildren<SelectableLabel *>();
        for (const QLabel *const label : labels) {
            EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                << width << ' ' << label->accessibleName().toStdString() << ": " << label->text().toStdString();
        }
    }
}

TEST_F(ModelPageWindow, BringsTheFirstListThatHoldsAnythingToTheFront)
{
    open(Types::SubFunc_serverResourceInfo);
    auto &lists = *page->findChild<QTabWidget *>();
    EXPECT_EQ(lists.currentIndex(), 0);
    manager<ITavNetControlMgr>().setUIData({{false, 0, "a"}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return lists.tabText(lists.currentIndex()) == "Network rows (1)"; }));
    manager<ITavNetControlMgr>().setUIData({});
    QTest::qWait(500);
    EXPECT_EQ(lists.tabText(lists.currentIndex()), "Network rows (0)") << "once, and no more";
}

TEST_F(ModelPageWindow, LeavesTheListInFrontThatSomebodyHasChosen)
{
    open(Types::SubFunc_serverResourceInfo);
    auto &lists = *page->findChild<QTabWidget *>();
    lists.setCurrentIndex(1);
    manager<ITavNetControlMgr>().setUIData({{false, 0, "a"}});
    const auto isShown = [&] { return lists.tabText(lists.count() - 1) == "Network rows (1)"; };
    ASSERT_TRUE(QTest::qWaitFor(isShown));
    EXPECT_EQ(lists.currentIndex(), 1);
}

TEST_F(ModelPageWindow, LeavesTheListsMostOfTheHeight)
{
    open(Types::SubFunc_serverResourceInfo);
    const auto *const lists = page->findChild<QTabWidget *>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return 2 * page->height() < 3 * lists->height() + 30; })) << lists->height();
}

TEST_F(ModelPageWindow, LetsAFactBeSelectedUnderTheMouse)
{
    open(Types::SubFunc_serverResourceInfo);
    QLabel *const value = fact("memory total");
    ASSERT_TRUE(QTest::qWaitFor([value] { return value->isVisible(); }));
    QEvent entered(QEvent::Enter);
    QApplication::sendEvent(value, &entered);
    QTest::mouseDClick(value, Qt::LeftButton, {}, QPoint(2, value->height() / 2));
    EXPECT_EQ(value->selectedText(), "0");
}

TEST_F(ModelPageWindow, CopiesARecordInFullWithTheKeyboard)
{
    STResourceInfoAsr info{};
    info.memoryTotal = 1537;
    info.cpuCores = 4;
    manager<ITavHostInfoMgr>().setResourceInfo(info);
    Tav::SystemConfig::SystemServerInfo server;
    server.set_address(std::string(5000, 'w'));
    manager<ITavSystemConfigMgr>().setServerInfo(server);
    open(Types::SubFunc_serverResourceInfo);
    QWidget *const form = fact("memory total")->parentWidget();
    ASSERT_TRUE(QTest::qWaitFor([form] { return form->isVisible(); }));
    page->setFocus();
    for (int i = 0; i < 20 && !form->hasFocus(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    ASSERT_TRUE(form->hasFocus());
    QApplication::clipboard()->clear();
    QTest::keySequence(form, QKeySequence::Copy);
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    EXPECT_EQ(lines.first(), "memory total\t1537 bytes");
    EXPECT_TRUE(lines.contains("host name\t-")) << lines.join('|').toStdString();
    QTest::keySequence(fact("address")->parentWidget(), QKeySequence::Copy);
    EXPECT_TRUE(QApplication::clipboard()->text().contains(QString(5000, 'w')));
}

TEST_F(ModelPageWindow, MakesAListWhenItsTabComesToTheFront)
{
    manager<ITavNetControlMgr>().setUIData({{false, 0, "a"}});
    open(Types::SubFunc_serverResourceInfo);
    EXPECT_TRUE(QTest::qWaitFor([&] { return page->findChildren<QTableView *>().size() == 1; }));
    table("Network: devices");
    EXPECT_EQ(page->findChildren<QTableView *>().size(), 2);
    table("Network rows");
    EXPECT_EQ(page->findChildren<QTableView *>().size(), 2) << "the first one is still there";
}

TEST_F(ModelPageWindow, SortsAndFiltersByMouseAndKeyboard)
{
    manager<ITavOneReinforceMgr>().setStateInfo({{"b", "1"}, {"a", "2"}, {"c", "1"}});
    open(Types::SubFunc_OneClickReinforcement);
    QTableView *const states = table("States");
    QHeaderView *const header = states->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(header->sectionViewportPosition(0) + 5, 5));
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell(states, 0, 0) == "a"; }));

    QTest::keySequence(states, QKeySequence::Find);
    auto *const filter = in<QLineEdit>(states);
    EXPECT_TRUE(filter->hasFocus());
    QTest::keyClicks(filter, "1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return states->model()->rowCount() == 2; }));
    EXPECT_EQ(cell(states, 0, 0), "b");
    EXPECT_EQ(in<QLabel>(states)->text(), "2 of 3 row(s)");
    QTest::keyClick(filter, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return states->model()->rowCount() == 3; }));
}

TEST_F(ModelPageWindow, CountsTheRowsAsTheyAreNow)
{
    auto &states = manager<ITavOneReinforceMgr>();
    states.setStateInfo({{"a", "1"}, {"b", "1"}, {"c", "2"}});
    open(Types::SubFunc_OneClickReinforcement);
    QTableView *const view = table("States");
    const auto *const count = in<QLabel>(view);
    states.setStateInfo({{"a", "1"}, {"b", "1"}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->model()->rowCount() == 2; }));
    EXPECT_EQ(count->text(), "2 row(s)");
    in<QLineEdit>(view)->setText("1");
    states.setStateInfo({{"a", "1"}, {"b", "1"}, {"c", "2"}, {"d", "2"}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return count->text() == "2 of 4 row(s)"; })) << count->text().toStdString();
}

TEST_F(ModelPageWindow, ChecksTheRowThatTheTabulatorHasLedTo)
{
    manager<ITavProtectMgr>().setProtectUIData({protection("one"), protection("two")});
    open(Types::SubFunc_SelfProtect);
    QTableView *const rows = table("Protections");
    ASSERT_FALSE(rows->selectionModel()->hasSelection());
    QTest::keyClick(rows, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return manager<ITavProtectMgr>().getProtectUIData()[0].isChecked; }));
    EXPECT_FALSE(manager<ITavProtectMgr>().getProtectUIData()[1].isChecked);
}

TEST_F(ModelPageWindow, ChecksARowByItsKeyAndReadsItBack)
{
    manager<ITavProtectMgr>().setProtectUIData({protection("one"), protection("two")});
    open(Types::SubFunc_SelfProtect);
    QTableView *const rows = table("Protections");
    rows->setCurrentIndex(rows->model()->index(1, 1));
    QTest::keyClick(rows, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return manager<ITavProtectMgr>().getProtectUIData()[1].isChecked; }));
    EXPECT_FALSE(manager<ITavProtectMgr>().getProtectUIData()[0].isChecked);
    const QModelIndex mark = rows->model()->index(1, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return mark.data(Qt::CheckStateRole).toInt() == Qt::Checked; }));
}

TEST_F(ModelPageWindow, ChecksARowWithTheMouse)
{
    manager<ITavProtectMgr>().setProtectUIData({protection("one"), protection("two")});
    open(Types::SubFunc_SelfProtect);
    QTableView *const rows = table("Protections");
    const QRect box = rows->visualRect(rows->model()->index(0, 0));
    QTest::mouseClick(rows->viewport(), Qt::LeftButton, {}, QPoint(box.left() + 10, box.center().y()));
    EXPECT_TRUE(QTest::qWaitFor([&] { return manager<ITavProtectMgr>().getProtectUIData()[0].isChecked; }));
}

TEST_F(ModelPageWindow, ChecksAndUnchecksAll)
{
    manager<ITavProtectMgr>().setProtectUIData({protection("one"), protection("two", true)});
    open(Types::SubFunc_SelfProtect);
    QTableView *const rows = table("Protections");
    in<QPushButton>(rows, "Check all")->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return manager<ITavProtectMgr>().getProtectUIData()[0].isChecked; }));
    in<QPushButton>(rows, "Uncheck all")->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !manager<ITavProtectMgr>().getProtectUIData()[1].isChecked; }));
}

TEST_F(ModelPageWindow, ChecksOneLevelAlone)
{
    auto &access = manager<ITavAccessControlMgr>();
    access.updateUIPriData({level(1, true), level(2, true), level(3, false)});
    open(Types::SubFunc_PrincipalSettings);
    QTableView *const levels = table("Principal levels");
    levels->setCurrentIndex(levels->model()->index(2, 0));
    QTest::keyClick(levels, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return access.getCheckPriLevel() == 3; }));
}

TEST_F(ModelPageWindow, FindsARowByItsPositionWhereItsManagerDoes)
{
    auto &net = manager<ITavNetControlMgr>();
    net.setUIData({{false, 9, "a"}, {false, 9, "b"}});
    open(Types::SubFunc_serverResourceInfo);
    QTableView *const rows = table("Network rows");
    rows->setCurrentIndex(rows->model()->index(1, 0));
    QTest::keyClick(rows, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return net.getUIData()[1].isChecked; }));
    EXPECT_EQ(net.getUIData()[1].protoData, "b");
    EXPECT_FALSE(net.getUIData()[0].isChecked);
}

TEST_F(ModelPageWindow, ShowsWhatIsHeldUnderTheChosenKey)
{
    auto &access = manager<ITavAccessControlMgr>();
    const auto hold = [&](int key, const QVector<int> &levels) {
        QVector<STPriDetailAsr> details(levels.size());
        for (int i = 0; i < levels.size(); ++i) {
            details[i].level = levels[i];
        }
        access.updateUserDetail(key, details);
        keys.note("ITavAccessControlMgr", "updateUserDetail", QJsonArray{key, QJsonArray()});
    };
    hold(10, {3, 4});
    hold(9, {5});
    open(Types::SubFunc_PrincipalSettings);
    QTableView *const details = table("Principal details");
    auto *const chosen = details->parentWidget()->findChild<QComboBox *>();
    ASSERT_TRUE(chosen->isVisible());
    EXPECT_EQ(details->model()->rowCount(), 3);
    EXPECT_EQ(chosen->itemText(1), "key 9");
    QTest::keyClick(chosen, Qt::Key_Down);
    QTest::keyClick(chosen, Qt::Key_Down);
    EXPECT_EQ(chosen->currentText(), "key 10");
    EXPECT_TRUE(QTest::qWaitFor([&] { return details->model()->rowCount() == 2; }));
    EXPECT_FALSE(details->model()->index(0, 0).data(Qt::BackgroundRole).isValid()) << "no row has changed";
    hold(8, {});
    hold(10, {6});
    EXPECT_TRUE(QTest::qWaitFor([&] { return details->model()->rowCount() == 1; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return chosen->count() == 4; }));
    EXPECT_EQ(chosen->currentText(), "key 10") << "a new key leaves the choice";

    access.clearCacheData();
    keys.note("ITavAccessControlMgr", "clearCacheData", {});
    hold(9, {5, 5, 5});
    EXPECT_TRUE(QTest::qWaitFor([&] { return details->model()->rowCount() == 3; }));
    EXPECT_EQ(chosen->currentText(), "all keys");
}

TEST_F(ModelPageWindow, TogglesDevices)
{
    auto &net = manager<ITavNetControlMgr>();
    Tav::NetControl::NetDeviceInfos devices;
    devices.add_devices()->set_name("eth0");
    devices.add_devices()->set_name("eth1");
    net.setDeviceInfo(devices);
    open(Types::SubFunc_serverResourceInfo);
    QTableView *const view = table("Network: devices");
    view->setCurrentIndex(view->model()->index(1, 0));
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return net.getDeviceInfo().devices(1).state() == 1; }));
    EXPECT_EQ(net.getDeviceInfo().devices(0).state(), 0);
    in<QPushButton>(view, "Toggle all")->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return net.getDeviceInfo().devices(0).state() == 1; }));
    EXPECT_EQ(net.getDeviceInfo().devices(1).state(), 0);
}

TEST_F(ModelPageWindow, KeepsTheTextsOfButtonsAwayFromTheirFrames)
{
    open(Types::SubFunc_serverResourceInfo);
    const auto *const toggle = in<QPushButton>(table("Network: devices"), "Toggle selected");
    const int text = toggle->fontMetrics().horizontalAdvance(toggle->text());
    ASSERT_GT(text, 80) << "shorter ones have the width that the style gives all buttons";
    EXPECT_GE(toggle->width(), text + 16);
}

TEST_F(ModelPageWindow, DoesNotEditARowThatHasBecomeAnother)
{
    auto &net = manager<ITavNetControlMgr>();
    Tav::NetControl::NetDeviceInfos devices;
    devices.add_devices()->set_name("eth0");
    net.setDeviceInfo(devices);
    open(Types::SubFunc_serverResourceInfo);
    QTableView *const view = table("Network: devices");
    view->setCurrentIndex(view->model()->index(0, 0));
    net.setDeviceInfo({});
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasLabel("The list has changed meanwhile; nothing was edited."); }));
}

TEST_F(ModelPageWindow, DoesNotEditTheRowThatHasMovedIntoThePlace)
{
    auto &net = manager<ITavNetControlMgr>();
    Tav::NetControl::NetDeviceInfos devices;
    devices.add_devices()->set_name("eth0");
    devices.add_devices()->set_name("eth1");
    net.setDeviceInfo(devices);
    open(Types::SubFunc_serverResourceInfo);
    QTableView *const view = table("Network: devices");
    view->setCurrentIndex(view->model()->index(0, 0));
    devices.mutable_devices()->DeleteSubrange(0, 1);
    net.setDeviceInfo(devices);
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasLabel("The list has changed meanwhile; nothing was edited."); }));
    EXPECT_EQ(net.getDeviceInfo().devices(0).state(), 0);
}

TEST_F(ModelPageWindow, EndsInTheMiddleOfALongEdit)
{
    std::atomic<int> calls{0};
    fillProtections(1000);
    open(Types::SubFunc_SelfProtect, [&calls] {
        ++calls;
        QThread::msleep(10);
    });
    QTableView *const rows = table("Protections");
    rows->selectAll();
    QTest::keyClick(rows, Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&calls] { return calls > 0; }));
    QElapsedTimer clock;
    clock.start();
    page.reset();
    EXPECT_LT(clock.elapsed(), 2000) << "all calls would take ten seconds";
}

TEST_F(ModelPageWindow, StopsALongEditAndSaysHowFarItCame)
{
    std::atomic<int> calls{0};
    fillProtections(1000);
    open(Types::SubFunc_SelfProtect, [&calls] {
        ++calls;
        QThread::msleep(1);
    });
    QTableView *const rows = table("Protections");
    rows->selectAll();
    QTest::keyClick(rows, Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&calls] { return calls > 0; }));
    page->stop();
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasLabel(QString("Stopped after %1 of 1000 calls.").arg(calls)); }));
}

TEST_F(ModelPageWindow, LeavesAReadingThatIsStoppedAndReadsAgain)
{
    QSemaphore mayAnswer;
    std::atomic<bool> isAsked{false};
    page = std::make_unique<ModelPage>(Types::SubFunc_PrincipalSettings, host.registry(), ModelPage::Call(),
                                       [&](const QString &, const QString &) {
                                           isAsked = true;
                                           mayAnswer.acquire();
                                           return QVector<QJsonArray>();
                                       });
    QSignalSpy ended(page.get(), &ModelPage::ended);
    page->show();
    ASSERT_TRUE(QTest::qWaitFor([&isAsked] { return isAsked.load(); }));
    page->stop();
    mayAnswer.release(1000);
    ASSERT_TRUE(QTest::qWaitFor([&ended] { return ended.size() == 1; }));
    EXPECT_FALSE(page->findChild<QTabWidget *>()) << "the rest was not read";
    EXPECT_TRUE(QTest::qWaitFor([this] { return page->findChild<QTabWidget *>() != nullptr; }));
}

TEST_F(ModelPageWindow, CountsObjectsUnderTheKeysThatWereSet)
{
    auto &access = manager<ITavAccessControlMgr>();
    open(Types::SubFunc_ObjectSetting);
    QTableView *const counts = table("Object counts");
    EXPECT_EQ(counts->model()->rowCount(), 0);
    access.setObjectCount(8, true, 3);
    keys.note("ITavAccessControlMgr", "setObjectCount", QJsonArray{8, true, 3});
    ASSERT_TRUE(QTest::qWaitFor([counts] { return counts->model()->rowCount() == 1; }));
    EXPECT_EQ(counts->model()->index(0, 0).data(), "yes");
    EXPECT_EQ(counts->model()->index(0, 1).data(), "3");
    EXPECT_EQ(counts->model()->index(0, 2).data(), "8");
}

TEST_F(ModelPageWindow, ChecksTheCurrentLevelAloneWhenSeveralAreSelected)
{
    auto &access = manager<ITavAccessControlMgr>();
    access.updateUIPriData({level(1, false), level(2, false), level(3, false)});
    open(Types::SubFunc_PrincipalSettings);
    QTableView *const levels = table("Principal levels");
    levels->selectAll();
    levels->selectionModel()->setCurrentIndex(levels->model()->index(1, 0), QItemSelectionModel::NoUpdate);
    QTest::keyClick(levels, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return access.getUIPriData()[1].checked; }));
    EXPECT_FALSE(access.getUIPriData()[0].checked);
    EXPECT_FALSE(access.getUIPriData()[2].checked);
}

TEST_F(ModelPageWindow, SortsWithTheKeyboardAndBackToItsOwnOrder)
{
    manager<ITavOneReinforceMgr>().setStateInfo({{"b", "2"}, {"c", "1"}, {"a", "3"}});
    open(Types::SubFunc_OneClickReinforcement);
    QTableView *const states = table("States");
    states->setCurrentIndex(states->model()->index(0, 0));
    const auto order = [&] { return cell(states, 0, 0) + cell(states, 1, 0) + cell(states, 2, 0); };
    const char *const orders[]{"abc", "cba", "bca"};
    for (const char *const expected : orders) {
        QTest::keyClick(states, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return order() == expected; })) << order().toStdString();
    }
}

TEST_F(ModelPageWindow, FitsItsColumnsToTheFirstRowsUnlessSomebodyHas)
{
    open(Types::SubFunc_OneClickReinforcement);
    QTableView *const states = table("States");
    const int empty = states->columnWidth(0);
    manager<ITavOneReinforceMgr>().setStateInfo({{QString(40, 'w'), "1"}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return states->columnWidth(0) > empty; }));
    const int fitting = states->columnWidth(0);
    manager<ITavOneReinforceMgr>().setStateInfo({});
    EXPECT_TRUE(QTest::qWaitFor([&] { return states->model()->rowCount() == 0; }));
    manager<ITavOneReinforceMgr>().setStateInfo({{"w", "1"}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return states->model()->rowCount() == 1; }));
    EXPECT_EQ(states->columnWidth(0), fitting) << "later rows make no columns jump";
}

TEST_F(ModelPageWindow, LeavesAColumnAsSomebodyHasMadeIt)
{
    open(Types::SubFunc_OneClickReinforcement);
    QTableView *const states = table("States");
    states->setColumnWidth(0, 77); // as the mouse does it
    manager<ITavOneReinforceMgr>().setStateInfo({{QString(40, 'w'), "1"}});
    EXPECT_TRUE(QTest::qWaitFor([&] { return states->model()->rowCount() == 1; }));
    EXPECT_EQ(states->columnWidth(0), 77);
}

TEST_F(ModelPageWindow, CopiesTheSelectedRows)
{
    manager<ITavProtectMgr>().setProtectUIData({protection("one"), protection("two", true)});
    open(Types::SubFunc_SelfProtect);
    QTableView *const rows = table("Protections");
    for (const int row : {1, 0}) {
        rows->selectionModel()->select(rows->model()->index(row, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    QApplication::clipboard()->clear();
    QTest::keySequence(rows, QKeySequence::Copy);
    ASSERT_TRUE(QTest::qWaitFor([] { return !QApplication::clipboard()->text().isEmpty(); }));
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    ASSERT_EQ(lines.size(), 2) << lines.join("|").toStdString();
    EXPECT_TRUE(lines[1].startsWith("checked\ttwo\t")) << lines[1].toStdString();
}

TEST_F(ModelPageWindow, CopiesADigestWithAllItsDigits)
{
    STImaContentAsr measured{};
    qstrncpy(measured.fileDigest, QByteArray(60, 'a') + "beef", sizeof measured.fileDigest);
    manager<ITavCompleteProtectMgr>().setImaList({measured});
    open(Types::SubFunc_StaticMeasurements);
    QTableView *const rows = table("Measurements");
    rows->selectAll();
    QApplication::clipboard()->clear();
    QTest::keySequence(rows, QKeySequence::Copy);
    ASSERT_TRUE(QTest::qWaitFor([] { return !QApplication::clipboard()->text().isEmpty(); }));
    EXPECT_TRUE(QApplication::clipboard()->text().split('\t').contains(QString(60, 'a') + "beef"))
        << QApplication::clipboard()->text().toStdString();
}

TEST_F(ModelPageWindow, SaysWhatAReadingHasThrownUntilOneSucceeds)
{
    std::atomic<bool> throws{true};
    page = std::make_unique<ModelPage>(Types::SubFunc_PrincipalSettings, host.registry(), ModelPage::Call(),
                                       [&throws](const QString &, const QString &) {
                                           if (throws) {
                                               throw std::runtime_error("out of keys");
                                           }
                                           return QVector<QJsonArray>();
                                       });
    page->show();
    const QString problem = "ITavAccessControlMgr: out of keys";
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasLabel(problem); }));
    throws = false;
    ASSERT_TRUE(QTest::qWaitFor([this] { return page->findChild<QTableView *>() != nullptr; }));
    EXPECT_FALSE(hasLabel(problem));
    throws = true;
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasLabel(problem); }));
    EXPECT_TRUE(page->findChild<QTableView *>()->isVisible()) << "what was read before stays";
    throws = false;
    EXPECT_TRUE(QTest::qWaitFor([&] { return !hasLabel(problem); }));
}

TEST_F(ModelPageWindow, SaysWhatAnEditHasThrownUntilTheNextEdit)
{
    std::atomic<bool> throws{true};
    manager<ITavProtectMgr>().setProtectUIData({protection("one")});
    open(Types::SubFunc_SelfProtect, [&throws] {
        if (throws) {
            throw std::runtime_error("no memory");
        }
    });
    QTableView *const rows = table("Protections");
    QTest::keyClick(rows, Qt::Key_Space);
    const QString problem = "ITavProtectMgr: no memory";
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasLabel(problem); }));
    QTest::qWait(500); // it is read again
    EXPECT_TRUE(hasLabel(problem));
    throws = false;
    QTest::keyClick(rows, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return manager<ITavProtectMgr>().getProtectUIData()[0].isChecked; }));
    EXPECT_FALSE(hasLabel(problem));
}

TEST_F(ModelPageWindow, RestsWhileItIsHidden)
{
    manager<ITavOneReinforceMgr>().setStateInfo({{"first", "1"}});
    open(Types::SubFunc_OneClickReinforcement);
    QTableView *const states = table("States");
    page->hide();
    QTest::qWait(300); // a reading that was under way
    manager<ITavOneReinforceMgr>().setStateInfo({});
    QTest::qWait(600);
    EXPECT_EQ(states->model()->rowCount(), 1);
    page->show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return states->model()->rowCount() == 0; }));
}

TEST_F(ModelPageWindow, EndsAtAnyMoment)
{
    for (int moment = 0; moment < 40; ++moment) {
        page = std::make_unique<ModelPage>(
            Types::SubFunc_serverResourceInfo, host.registry(),
            [](const QString &, const QString &, const QJsonArray &) {},
            [](const QString &, const QString &) { return QVector<QJsonArray>(); });
        page->show();
        QTest::qWait(moment);
        page.reset();
    }
}

TEST_F(ModelPageWindow, SaysWhenNothingIsBehindIt)
{
    open(Types::SubFunc_None);
    QTest::qWait(500); // it is read again
    ASSERT_EQ(page->findChildren<QLabel *>().size(), 1);
    EXPECT_EQ(page->findChild<QLabel *>()->text(), "No manager holds anything for this page.");
}
