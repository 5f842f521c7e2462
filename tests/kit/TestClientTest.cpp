#include "TavTestClient.h"

#include "ITavNetControlMgr.h"
#include "ITavSelectFuncMgr.h"
#include "PrintQString.h"
#include "ScenarioText.h"
#include "TextFile.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>
#include <qtestsupport_core.h>

namespace
{
const QString pluginFile(QStringLiteral(TAV_PLUGIN_FILE));
const QStringList pages{TAV_FIXTURE_DIR "/libTwoPagesPlugin.so"};

QByteArray setState(int state)
{
    return R"({"manager": "ITavNetControlMgr", "operation": "setState", "arguments": [{"state": )"
        + QByteArray::number(state) + "}]}";
}

QByteArray getState(int state)
{
    return R"({"manager": "ITavNetControlMgr", "operation": "getState", "arguments": [], "returns": {"state": )"
        + QByteArray::number(state) + "}}";
}

/// @brief An event on the bus that no thread runs before its end.
class UnrunEvent
{
public:
    UnrunEvent()
    {
        auto *const event = new TavBaseEvent(nullptr);
        event->setFunc([] {});
        event->moveToThread(&m_thread);
        TavEventNotifyMgr::getInstance()->addEventNotify(event);
    }

    ~UnrunEvent()
    {
        m_thread.start();
        EXPECT_TRUE(QTest::qWaitFor([] { return TavEventNotifyMgr::getInstance()->pendingCount() == 0; }));
        m_thread.quit();
        m_thread.wait();
    }

    Q_DISABLE_COPY(UnrunEvent)

private:
    QThread m_thread; ///< not started
};
}

TEST(TestClient, HasFreshManagersThatAreTheClientsCurrentOnes)
{
    TavTestClient client(pluginFile);
    EXPECT_EQ(client.manager<ITavNetControlMgr>(), tavObject<ITavNetControlMgr>());
    EXPECT_EQ(client.play({setState(4)}), "");
    EXPECT_EQ(client.manager<ITavNetControlMgr>()->getState().state(), 4);
    EXPECT_EQ(client.end(), "");
    EXPECT_EQ(TavTestClient(pluginFile).manager<ITavNetControlMgr>()->getState().state(), 0);
}

TEST(TestClient, SaysWhichPluginCannotBeLoaded)
{
    EXPECT_THROW(TavTestClient("/no/such/file"), TavPluginError);
    EXPECT_THROW(TavTestClient(pluginFile, {"/no/such/file"}), TavPluginError);
}

TEST(TestClient, ReturnsTheFirstMistakeOfAPlay)
{
    TavTestClient client(pluginFile);
    EXPECT_EQ(client.play({setState(1), getState(1)}), "");
    EXPECT_EQ(client.play({setState(1), getState(2), setState(3)}),
              "line 3: ITavNetControlMgr getState returned something else at /state\n  expected: 2\n  returned: 1");
    EXPECT_EQ(client.play({R"({"page": "SubFunc_Nowhere"})"}).left(14), "line 2: /page:");
    EXPECT_EQ(client.play({R"({"page")"}), "line 2: the text ends too early (character 7)");
}

TEST(TestClient, PlaysAFile)
{
    const QTemporaryDir directory;
    const QString file = directory.filePath("scenario.jsonl");
    TavTestClient client(pluginFile);
    EXPECT_EQ(client.playFile(file), file + ": No such file or directory");
    writeFile(file, scenarioOf({setState(6), getState(6)}));
    EXPECT_EQ(client.playFile(file), "");
    EXPECT_EQ(client.manager<ITavNetControlMgr>()->getState().state(), 6);
}

TEST(TestClient, PlaysWithoutWaitingAndComparesUnlessToldOtherwise)
{
    const TavPlayOptions options = TavTestClient::checkedAtOnce();
    EXPECT_EQ(options.speed, TavPlayOptions::fastest);
    EXPECT_TRUE(options.isChecked);
}

TEST(TestClient, PlaysNothingBehindItsEnd)
{
    TavTestClient client(pluginFile);
    EXPECT_EQ(client.end(), "");
    EXPECT_EQ(client.play({setState(1)}), "the client has ended");
}

TEST(TestClient, WaitsWhileTheEventLoopRuns)
{
    bool isThere = false;
    QTimer::singleShot(20, [&isThere] { isThere = true; });
    EXPECT_EQ(TavTestClient::waitFor([&isThere] { return isThere; }, "the timer"), "");
}

TEST(TestClient, SaysWhatItHasWaitedForInVain)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(
        TavTestClient::waitFor([] { return false; }, "the list shows both devices", std::chrono::milliseconds(50)),
        "not within 50 ms: the list shows both devices");
    EXPECT_GE(timer.elapsed(), 50);
    EXPECT_LT(timer.elapsed(), 4000);
}

TEST(TestClient, LogsThePageChangesThatWereDelivered)
{
    TavTestClient client(pluginFile);
    EXPECT_EQ(client.play({R"({"page": "SubFunc_LogAudit"})", R"({"page": "SubFunc_BaselineScan"})"}), "");
    EXPECT_EQ(TavTestClient::waitFor([&client] { return client.pageChanges().size() == 2; }, "both changes"), "");
    EXPECT_EQ(client.pageChanges(), QStringList({"SubFunc_LogAudit", "SubFunc_BaselineScan"}));
    EXPECT_EQ(client.end(), "");
}

//! A controller is registered under a wrong name | `createPage`, which makes none | the catalogue's name
TEST(TestClient, MakesThePagesOfControllersThatHaveSome)
{
    TavTestClient client(pluginFile, pages);
    EXPECT_NE(client.createPage("ITavHostInfoController"), nullptr);
    EXPECT_EQ(client.createPage("ITavLogAuditController"), nullptr);
    EXPECT_EQ(client.createPage("ITavNowhereController"), nullptr);
    EXPECT_EQ(client.end(), "");
    EXPECT_EQ(client.object("ITavHostInfoController"), nullptr);
    EXPECT_EQ(client.end(), "");
}

//! A page is left when its controller ends | `TavTestClient::end` | end it before
TEST(TestClient, NamesAPageThatOutlivesItsController)
{
    TavTestClient client(pluginFile, pages);
    const std::unique_ptr<QWidget> page = client.createPage("ITavHostInfoController");
    EXPECT_EQ(client.end(), "the page QWidget has not ended");
}

TEST(TestClient, DoesNotNameAPageThatIsToEndLater)
{
    TavTestClient client(pluginFile, pages);
    client.createPage("ITavHostInfoController").release()->deleteLater();
    QMetaObject::invokeMethod(client.createPage("ITavHostInfoController").release(), &QObject::deleteLater,
                              Qt::QueuedConnection);
    EXPECT_EQ(client.end(), "");
}

TEST(TestClient, EndsWhatIsToEndLaterAlsoUnasked)
{
    QPointer<QWidget> page;
    {
        TavTestClient client(pluginFile, pages);
        page = client.createPage("ITavHostInfoController").release();
        page->deleteLater();
    }
    EXPECT_FALSE(page);
}

TEST(TestClient, KnowsAPageByTheNameOfItsInterface)
{
    EXPECT_STREQ(qobject_interface_iid<ITavPage *>(), "ITavPage");
}

//! A controller is registered and not handed over | `TavTestClient::end` | `registerObject(…, true)`
//! What `subscribe` began is never ended | `TavTestClient::end` | `TavSubscription`
TEST(TestClient, NamesWhatAPagePluginLeavesBehindAndOnlyThat)
{
    TavTestClient client(pluginFile, {TAV_FIXTURE_DIR "/libLeavingPagePlugin.so"});
    EXPECT_EQ(client.end(),
              "QObject, registered as ITavHostInfoController_Tav_ORG, is not owned by the registry and has not ended; "
              "subscriptions to the page change that have not ended: 1");
    EXPECT_EQ(TavTestClient(pluginFile).end(), "");
}

TEST(TestClient, NamesEventsThatNobodyRuns)
{
    TavTestClient client(pluginFile);
    const UnrunEvent event;
    EXPECT_EQ(client.end(), "events on the bus that nobody has run: 1");
}

TEST(TestClient, DoesNotNameAnEventThatWasThereBefore)
{
    const UnrunEvent event;
    EXPECT_EQ(TavTestClient(pluginFile).end(), "");
}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
