#include "TestWindow.h"

#include "../tavctl/ScenarioFiles.h"
#include "ITavFuncTypeMgr.h"
#include "ITavSelectFuncMgr.h"
#include "PageFrame.h"
#include "ScenarioPlay.h"
#include "TavEvents.h"

#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QPushButton>
#include <QThread>

using Pages = CTavSubFuncTypeHeader;

TEST(Navigation, ShowsTheFunctionsOfTheCatalogueWithTheirPages)
{
    const TestWindow client;
    const QAbstractItemModelTester tester(client.navigation().model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(client.navigation().model()->rowCount(), 5);
    const QModelIndex page = client.entry(Pages::SubFunc_LogAudit);
    ASSERT_TRUE(page.isValid());
    EXPECT_TRUE(page.parent().parent().isValid()) << "its function is nested in another";
}

TEST(Navigation, GivesEachFunctionThreePictures)
{
    const TestWindow client;
    const QIcon icon = client.navigation().model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>();
    const QImage normal = icon.pixmap(24, QIcon::Normal).toImage();
    EXPECT_FALSE(normal.isNull());
    EXPECT_NE(normal, icon.pixmap(24, QIcon::Active).toImage());
    EXPECT_NE(normal, icon.pixmap(24, QIcon::Selected).toImage());
    EXPECT_NE(icon.pixmap(24, QIcon::Active).toImage(), icon.pixmap(24, QIcon::Selected).toImage());
}

TEST(Navigation, SelectsThePageThatIsClickedAndOpensItWhenTheChangeArrives)
{
    TestWindow client;
    client.click(Pages::SubFunc_BaselineScan);
    EXPECT_EQ(client.session.host().manager<ITavSelectFuncMgr>()->getCurSelSubFuncType(), Pages::SubFunc_BaselineScan);
    EXPECT_EQ(client.window->pages().openPage(), Pages::SubFunc_None) << "the click alone opens nothing";
    EXPECT_TRUE(client.waitForPage(Pages::SubFunc_BaselineScan));
}

TEST(Navigation, OpensAndMarksAPageThatSomebodyElseHasSelected)
{
    TestWindow client;
    eventFuncPageUpdate.Emit(Pages::SubFunc_LogAudit);
    EXPECT_TRUE(client.waitForPage(Pages::SubFunc_LogAudit));
    EXPECT_EQ(client.navigation().currentIndex(), client.entry(Pages::SubFunc_LogAudit));
}

TEST(Navigation, MarksTheOpenPageWhateverElseIsClickedOrReachedWithTheKeyboard)
{
    TestWindow client;
    client.click(Pages::SubFunc_BaselineScan);
    ASSERT_TRUE(client.waitForPage(Pages::SubFunc_BaselineScan));
    NavigationView &view = client.navigation();
    const QModelIndexList open{client.entry(Pages::SubFunc_BaselineScan)};
    EXPECT_EQ(view.selectionModel()->selectedIndexes(), open);
    const QModelIndex function = view.model()->index(0, 0);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(function).center());
    EXPECT_EQ(view.selectionModel()->selectedIndexes(), open);
    EXPECT_EQ(view.currentIndex(), function) << "from which the keys go on";
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_NE(view.currentIndex(), function);
    EXPECT_EQ(view.selectionModel()->selectedIndexes(), open);
}

TEST(Navigation, ChoosesThePageWithTheKeyboard)
{
    TestWindow client;
    client.navigation().setFocus();
    client.navigation().setCurrentIndex(client.entry(Pages::SubFunc_SelfProtect));
    QTest::keyClick(&client.navigation(), Qt::Key_Down);
    QTest::keyClick(&client.navigation(), Qt::Key_Return);
    EXPECT_TRUE(client.waitForPage(Pages::SubFunc_ProcessProtect));
}

TEST(Navigation, LeadsToAPageThatStandsAloneAndBack)
{
    TestWindow client;
    EXPECT_FALSE(client.entry(Pages::SubFunc_PrincipalAdd).isValid());
    client.click(Pages::SubFunc_PrincipalSettings);
    ASSERT_TRUE(client.waitForPage(Pages::SubFunc_PrincipalSettings));
    const auto pressFirst = [&client] {
        auto *const frame = client.window->pages().currentWidget();
        auto *const button = frame->findChild<QPushButton *>(QString(), Qt::FindDirectChildrenOnly);
        ASSERT_TRUE(button);
        QTest::mouseClick(button, Qt::LeftButton);
    };
    pressFirst();
    ASSERT_TRUE(client.waitForPage(Pages::SubFunc_PrincipalAdd));
    pressFirst();
    EXPECT_TRUE(client.waitForPage(Pages::SubFunc_PrincipalSettings));
}

TEST(Navigation, LeadsToEachPageOnceWhenTheCatalogueHasBeenReadAgain)
{
    TestWindow client;
    ITavFuncTypeMgr &catalogue = *client.session.host().manager<ITavFuncTypeMgr>();
    catalogue.loadConfig();
    client.session.select(catalogue.getSubFuncInfo(Pages::SubFunc_PrincipalAdd));
    ASSERT_TRUE(client.waitForPage(Pages::SubFunc_PrincipalAdd));
    const QWidget &frame = *client.window->pages().currentWidget();
    EXPECT_EQ(frame.findChildren<QPushButton *>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
}

TEST(Navigation, NotesEveryDeliveryWithItsLatency)
{
    TestWindow client;
    client.click(Pages::SubFunc_LogAudit);
    ASSERT_TRUE(waitUntil([&] { return client.session.deliveries().from(0).entries.size() == 2; }));
    const auto entries = client.session.deliveries().from(0).entries;
    for (const LoggedDelivery &entry : entries) {
        EXPECT_EQ(entry.delivery.page, QString("SubFunc_LogAudit"));
        EXPECT_GT(entry.delivery.nanoseconds, 0);
    }
    EXPECT_NE(entries[0].delivery.thread, entries[1].delivery.thread);
}

TEST(Navigation, KnowsTheLatencyOfAPageThatACallOrAScenarioSelects)
{
    TestWindow client;
    const auto latencies = [&client] {
        QVector<qint64> latencies;
        const auto entries = client.session.deliveries().from(0).entries;
        for (const LoggedDelivery &entry : entries) {
            latencies.append(entry.delivery.nanoseconds);
        }
        return latencies;
    };
    client.session.call("ITavSelectFuncMgr", "setCurSelType", QJsonArray{"Func_SystemAudit", "SubFunc_LogAudit"});
    ASSERT_TRUE(waitUntil([&] { return latencies().size() == 2; }));
    const ScenarioFile file(R"({"thread": "gui", "page": "SubFunc_LogAudit"}
{"manager": "ITavSelectFuncMgr", "operation": "setCurSelType", "arguments": ["Func_SystemAudit", "SubFunc_LogAudit"]}
)");
    client.window->play().open(file.path(), ScenarioPlay::Opened::Play);
    ASSERT_TRUE(waitUntil([&] { return latencies().size() == 6; }));
    for (const qint64 latency : latencies()) {
        EXPECT_GT(latency, 0);
    }
}

TEST(Navigation, MeasuresEachOfTwoSelectionsFromItsOwnBeginning)
{
    TestWindow client;
    const auto select = [&client] {
        client.session.call("ITavSelectFuncMgr", "setCurSelType", QJsonArray{"Func_SystemAudit", "SubFunc_LogAudit"});
    };
    select();
    QThread::msleep(200);
    select();
    ASSERT_TRUE(waitUntil([&] { return client.session.deliveries().from(0).entries.size() == 4; }));
    QVector<qint64> window; // latencies of the subscriber that this thread has kept waiting
    const auto entries = client.session.deliveries().from(0).entries;
    for (const LoggedDelivery &entry : entries) {
        if (entry.delivery.thread == "gui") {
            window.append(entry.delivery.nanoseconds);
        }
    }
    ASSERT_EQ(window.size(), 2);
    EXPECT_GE(window[0], 200'000'000);
    EXPECT_GT(window[1], 0);
    EXPECT_GE(window[0] - window[1], 150'000'000);
}

TEST(Navigation, ExpectsNothingOfASelectionThatIsRefused)
{
    TestWindow client;
    EXPECT_THROW(client.session.call("ITavSelectFuncMgr", "setCurSelType", QJsonArray{"Func_SystemAudit", "Nowhere"}),
                 std::exception);
    eventFuncPageUpdate.Emit(Pages::SubFunc_LogAudit);
    ASSERT_TRUE(waitUntil([&] { return client.session.deliveries().from(0).entries.size() == 2; }));
    const auto entries = client.session.deliveries().from(0).entries;
    for (const LoggedDelivery &entry : entries) {
        EXPECT_EQ(entry.delivery.nanoseconds, -1) << "nobody has told when it was selected";
    }
}

TEST(Navigation, FollowsACatalogueThatIsReadAgain)
{
    const QTemporaryDir root;
    const QString file = root.filePath("etc/tavsec.d/funcTypeConfig.json");
    const QByteArray first = R"({"funcType": "Func_HostInfo", "funcTitle": "host", "funcIcon": "a", "subFunList": [
        {"subFuncType": "SubFunc_serverResourceInfo", "subFuncTitile": "server", "subFuncClassName": "Server"}]})";
    const QByteArray second = R"({"funcType": "Func_SystemAudit", "funcTitle": "audit", "funcIcon": "b", "subFunList": [
        {"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "log", "subFuncClassName": "Log"}]})";
    writeFile(file, ('[' + first + ']').toBase64());
    TestWindow client(root.path());
    const QAbstractItemModelTester tester(client.navigation().model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    client.click(Pages::SubFunc_serverResourceInfo);
    ASSERT_TRUE(client.waitForPage(Pages::SubFunc_serverResourceInfo));
    writeFile(file, ('[' + first + ',' + second + ']').toBase64());
    client.session.call("ITavFuncTypeMgr", "loadConfig", QJsonArray());
    ASSERT_TRUE(waitUntil([&client] { return client.entry(Pages::SubFunc_LogAudit).isValid(); }));
    EXPECT_EQ(client.navigation().selectionModel()->selectedIndexes(),
              QModelIndexList{client.entry(Pages::SubFunc_serverResourceInfo)});
    EXPECT_EQ(client.navigation().model()->rowCount(), 2);
    EXPECT_EQ(client.navigation().model()->rowCount(client.entry(Pages::SubFunc_serverResourceInfo).parent()), 1)
        << "the page of before is listed twice by the manager";
    client.click(Pages::SubFunc_LogAudit);
    EXPECT_TRUE(client.waitForPage(Pages::SubFunc_LogAudit));
}

TEST(Navigation, StaysAsItIsWhenTheCatalogueReadAgainIsTheSame)
{
    TestWindow client;
    client.navigation().collapse(client.navigation().model()->index(0, 0));
    int resets = 0;
    QObject::connect(client.navigation().model(), &QAbstractItemModel::modelReset, client.window.get(),
                     [&resets] { ++resets; });
    client.session.call("ITavFuncTypeMgr", "loadConfig", QJsonArray());
    QTest::qWait(50);
    EXPECT_EQ(resets, 0);
    EXPECT_FALSE(client.navigation().isExpanded(client.navigation().model()->index(0, 0)));
}

TEST(Navigation, ShowsTheAmpersandOfATitle)
{
    const TavSubFuncTypeData_ page;
    TavSubFuncTypeData_ way;
    way.subFuncTitle = "Users & Roles";
    way.subFuncType = Pages::SubFunc_PrincipalAdd;
    const PageFrame frame(page, new QWidget, {way});
    EXPECT_EQ(frame.findChild<QPushButton *>()->text().toStdString(), "Open Users && Roles");
}

TEST(Navigation, SaysOfAPageThatTheCatalogueDoesNotHave)
{
    TestWindow client;
    eventFuncPageUpdate.Emit(Pages::TavSubFuncTypeHeader_(77));
    ASSERT_TRUE(client.waitForPage(Pages::TavSubFuncTypeHeader_(77)));
    EXPECT_TRUE(labelTexts(*client.window->pages().currentWidget()).contains("77 was selected"));
}
