#include "TestWindow.h"

#include "CallLogPanel.h"

#include "CallScenario.h"
#include "TavScenarioPlayer.h"

#include <QAbstractItemModelTester>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonObject>
#include <QLineEdit>
#include <QTableView>
#include <QThread>

namespace
{
/// @brief The panel on a log of its own.
struct TestPanel {
    TestPanel()
    {
        panel.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&panel));
    }

    void note(const QString &operation, const QJsonValue &arguments = QJsonArray(), const QString &returned = {})
    {
        LoggedCall call;
        call.time = QDateTime::currentDateTime();
        call.thread = "agent";
        call.manager = "ITavNetControlMgr";
        call.operation = operation;
        call.arguments = arguments;
        call.returned = returned;
        log.note(call);
    }

    /// Whether @p letters, typed into the filter, leave so many rows.
    bool leaves(const QString &letters, int rows)
    {
        auto &filter = *panel.findChild<QLineEdit *>();
        filter.selectAll();
        QTest::keyClicks(&filter, letters);
        return waitUntil([this, rows] { return view().model()->rowCount() == rows; });
    }

    void emptyFilter()
    {
        const int all = log.from(0).entries.size();
        panel.findChild<QLineEdit *>()->clear();
        EXPECT_TRUE(waitUntil([this, all] { return view().model()->rowCount() == all; }));
    }

    QTableView &view()
    {
        return *panel.findChild<QTableView *>();
    }

    int rows()
    {
        panel.takeOver();
        return view().model()->rowCount();
    }

    CallLog log;
    CallLogPanel panel{log};
    QAbstractItemModelTester tester{view().model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};
}

TEST(CallLogPanel, AppendsWhatHappensAndKeepsTheSelection)
{
    TestPanel test;
    test.note("setNetCount");
    EXPECT_EQ(test.rows(), 1);
    test.view().selectRow(0);
    test.note("getNetCount");
    EXPECT_EQ(test.rows(), 2);
    EXPECT_EQ(test.panel.selectedRows(), QVector<int>{0});
}

TEST(CallLogPanel, ForgetsTheOldestWhenThereAreTooMany)
{
    TestPanel test;
    for (int i = 0; i < 20'001; ++i) {
        test.note(QString::number(i));
    }
    EXPECT_EQ(test.rows(), 20'000);
    EXPECT_EQ(test.view().model()->index(0, 3).data().toString(), "1");
    test.note("last");
    EXPECT_EQ(test.rows(), 20'000);
    EXPECT_EQ(test.view().model()->index(0, 3).data().toString(), "2");
    EXPECT_EQ(test.view().model()->index(19'999, 3).data().toString(), "last");
}

TEST(CallLogPanel, ShowsWhatTheFilterLeaves)
{
    TestPanel test;
    test.note("setNetCount");
    test.note("getNetCount");
    test.note("setState");
    EXPECT_EQ(test.rows(), 3);
    EXPECT_TRUE(test.leaves("COUNT", 2));
    test.note("setNetCount");
    EXPECT_EQ(test.rows(), 3) << "new entries pass the filter, too";
    test.emptyFilter();
}

TEST(CallLogPanel, FiltersByEveryColumnWithWords)
{
    TestPanel test;
    test.note("setState", QJsonArray{QJsonObject{{"path", "/etc/passwd"}}});
    test.note("getState", {}, "{\"path\":\"/etc/hosts\"}");
    LoggedCall refused;
    refused.thread = "worker";
    refused.manager = "ITavAuditMgr";
    refused.error = "out of range";
    test.log.note(refused);
    EXPECT_EQ(test.rows(), 3);
    const QString time = test.view().model()->index(0, 0).data().toString();
    for (const QString &letters : {QStringLiteral("passwd"), QStringLiteral("hosts"), QStringLiteral("getstate"),
                                   QStringLiteral("worker"), QStringLiteral("audit"), QStringLiteral("range")}) {
        EXPECT_TRUE(test.leaves(letters, 1)) << letters.toStdString();
    }
    EXPECT_TRUE(test.leaves(time, 0)) << "times are no words";
}

TEST(CallLogPanel, NarrowsAndWidensWithEachLetterOfTheFilter)
{
    TestPanel test;
    test.note("setNetCount");
    test.note("setState");
    test.note("getNetCount");
    EXPECT_EQ(test.rows(), 3);
    EXPECT_TRUE(test.leaves("s", 2)) << "and the manager's name has none";
    test.note("setState");
    EXPECT_TRUE(test.leaves("se", 3)) << "what has come meanwhile among them";
    EXPECT_TRUE(test.leaves("sets", 2));
    EXPECT_TRUE(test.leaves("set", 3));
}

TEST(CallLogPanel, WaitsForTheEndOfTheTypingBeforeItFilters)
{
    TestPanel test;
    for (int i = 0; i < 100; ++i) {
        test.note(QString::number(i));
    }
    EXPECT_EQ(test.rows(), 100);
    int resets = 0;
    QObject::connect(test.view().model(), &QAbstractItemModel::modelReset, &test.panel, [&resets] { ++resets; });
    EXPECT_TRUE(test.leaves("99", 1));
    EXPECT_EQ(resets, 1);
}

TEST(CallLogPanel, KeepsTheSelectionWhenTheFilterChanges)
{
    TestPanel test;
    test.note("getState");
    test.note("setNetCount");
    test.note("getNetCount");
    EXPECT_EQ(test.rows(), 3);
    test.view().selectRow(2);
    EXPECT_TRUE(test.leaves("count", 2));
    EXPECT_EQ(test.panel.selectedRows(), QVector<int>{1});
    test.emptyFilter();
    EXPECT_EQ(test.panel.selectedRows(), QVector<int>{2});
}

TEST(CallLogPanel, HoldsStillUnderWhoeverHasScrolledUp)
{
    TestPanel test;
    for (int i = 0; i < 20'000; ++i) {
        test.note(QString::number(i));
    }
    EXPECT_EQ(test.rows(), 20'000);
    test.view().scrollTo(test.view().model()->index(10'000, 0), QAbstractItemView::PositionAtTop);
    const auto topText = [&test] {
        const QModelIndex top = test.view().indexAt({0, 0});
        return top.siblingAtColumn(3).data().toString();
    };
    ASSERT_EQ(topText().toStdString(), "10000");
    for (int i = 0; i < 500; ++i) {
        test.note("new");
    }
    EXPECT_EQ(test.rows(), 20'000);
    EXPECT_EQ(topText().toStdString(), "10000");
    QTest::qWait(50);
    EXPECT_EQ(topText().toStdString(), "10000") << "also when it has been laid out anew";
}

TEST(CallLogPanel, TakesCallsFromAnyThread)
{
    TestPanel test;
    std::vector<std::unique_ptr<QThread>> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(QThread::create([&test] {
            for (int call = 0; call < 500; ++call) {
                test.note("setNetCount");
            }
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads) {
        while (!thread->wait(1)) {
            test.rows();
        }
    }
    EXPECT_EQ(test.rows(), 2000);
}

TEST(CallLogPanel, SavesTheSelectionAsAScenarioThatPlays)
{
    TestPanel test;
    test.note("getState");
    test.note("setState", QJsonArray{QJsonObject{{"state", 7}}});
    test.note("setState", QJsonArray{QJsonObject{{"state", 8}}});
    EXPECT_EQ(test.rows(), 3);
    test.view().selectRow(1);
    const QTemporaryDir directory;
    QString error = "not told";
    QObject::connect(&test.panel, &CallLogPanel::saved, &test.panel,
                     [&error](const QString &, const QString &told) { error = told; });
    test.panel.save(directory.filePath("saved.jsonl"), test.panel.selectedCalls());
    ASSERT_TRUE(waitUntil([&] { return error != "not told"; }));
    EXPECT_EQ(error.toStdString(), "");

    TavPluginHost host(TAV_PLUGIN_FILE);
    QFile file(directory.filePath("saved.jsonl"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const TavPlayReport report = TavScenarioPlayer(host, file).wait();
    EXPECT_FALSE(report.error) << report.error->what();
    EXPECT_EQ(report.lines, 1);
    const QJsonValue state
        = TavCall::call(host.managerObject("ITavNetControlMgr"), "ITavNetControlMgr", "getState", QJsonArray());
    EXPECT_EQ(state["state"].toInt(), 7);
}

TEST(CallLogPanel, SavesWhatWasSelectedWhenTheDialogOpened)
{
    TestPanel test;
    test.note("getState");
    test.note("getNetCount");
    EXPECT_EQ(test.rows(), 2);
    test.view().selectRow(0);
    const QTemporaryDir directory;
    const QString file = directory.filePath("saved.jsonl");
    QString error = "not told";
    QObject::connect(&test.panel, &CallLogPanel::saved, &test.panel,
                     [&error](const QString &, const QString &told) { error = told; });
    const QList<QAction *> actions = test.panel.findChildren<QAction *>();
    for (QAction *const action : actions) {
        if (action->text() == "Save Selection…") {
            action->trigger();
        }
    }
    auto *const dialog = test.panel.findChild<QFileDialog *>();
    ASSERT_TRUE(dialog);
    test.log.clear(); // as a log does that has gone on for long
    test.note("setNetCount");
    EXPECT_EQ(test.rows(), 1);
    dialog->selectFile(file);
    static_cast<QDialog *>(dialog)->accept();
    ASSERT_TRUE(waitUntil([&] { return error != "not told"; }));
    EXPECT_EQ(error.toStdString(), "");
    const QByteArray saved = contentOf(file);
    EXPECT_TRUE(saved.contains("getState")) << saved.constData();
    EXPECT_FALSE(saved.contains("NetCount")) << saved.constData();
}

TEST(CallLogPanel, SaysWhyTheSelectionCannotBeSaved)
{
    TestPanel test;
    test.note("getState");
    test.rows();
    test.view().selectRow(0);
    QString error;
    QObject::connect(&test.panel, &CallLogPanel::saved, &test.panel,
                     [&error](const QString &, const QString &told) { error = told; });
    test.panel.save("/proc/no/such/folder.jsonl", test.panel.selectedCalls());
    EXPECT_TRUE(waitUntil([&] { return !error.isEmpty(); }));
}

TEST(CallLogPanel, SaysHowManyRefusedCallsAreNotSaved)
{
    TestPanel test;
    test.note("getState");
    LoggedCall refused;
    refused.error = "out of range";
    test.log.note(refused);
    EXPECT_EQ(test.rows(), 2);
    test.view().selectAll();
    const QTemporaryDir directory;
    int told = -1;
    QObject::connect(&test.panel, &CallLogPanel::saved, &test.panel,
                     [&told](const QString &, const QString &, int leftOut) { told = leftOut; });
    test.panel.save(directory.filePath("saved.jsonl"), test.panel.selectedCalls());
    ASSERT_TRUE(waitUntil([&] { return told >= 0; }));
    EXPECT_EQ(told, 1);
}

TEST(CallLogPanel, LeavesNoFileWhenTheWritingIsStopped)
{
    const QTemporaryDir directory;
    const QString file = directory.filePath("saved.jsonl");
    EXPECT_TRUE(saveAsScenario(file, {LoggedCall()}, true).isStopped);
    EXPECT_FALSE(QFile::exists(file));
}
