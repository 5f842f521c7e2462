#include "TestWindow.h"

#include "ArgumentForm.h"
#include "CallPanel.h"
#include "FieldEdit.h"
#include "ITavAccessControlMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavOneReinforceMgr.h"
#include "RecordEdit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonObject>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>

namespace
{
/// @brief The window with its call panel in front.
struct TestCalls : TestWindow {
    TestCalls()
    {
        auto *const dock = window->findChild<QDockWidget *>("call");
        dock->raise();
        EXPECT_TRUE(waitUntil([dock] { return dock->widget()->isVisible() && !dock->visibleRegion().isEmpty(); }));
    }

    void choose(const QString &manager, const QString &operation) const
    {
        named<QComboBox>("Manager")->setCurrentText(manager);
        auto *const list = named<QListWidget>("Operations");
        const auto items = list->findItems(operation, Qt::MatchStartsWith);
        ASSERT_FALSE(items.isEmpty());
        list->setCurrentItem(items.first());
    }

    QPushButton *button(const QString &text) const
    {
        const QList<QPushButton *> buttons = window->findChildren<QPushButton *>();
        for (QPushButton *const button : buttons) {
            if (button->text().remove('&') == text) {
                return button;
            }
        }
        return nullptr;
    }

    QString resultAfterCall() const
    {
        auto *const result = named<QPlainTextEdit>("Result");
        result->setPlainText("waiting");
        QTest::mouseClick(button("Call"), Qt::LeftButton);
        EXPECT_TRUE(waitUntil([result] { return result->toPlainText() != "waiting"; }));
        return result->toPlainText();
    }
};
}

TEST(CallPanel, CallsAnOperationOffTheGuiThreadAndShowsWhatItReturns)
{
    TestCalls client;
    client.choose("ITavNetControlMgr", "setState(");
    client.named<QPlainTextEdit>("state")->setPlainText(R"({"state": 5})");
    EXPECT_EQ(client.resultAfterCall(), "null");
    client.choose("ITavNetControlMgr", "getState(");
    EXPECT_TRUE(client.resultAfterCall().contains("\"state\": 5"));
    const auto calls = client.session.calls().from(0).entries;
    ASSERT_EQ(calls.size(), 2);
    EXPECT_EQ(calls[0].operation, "setState");
    EXPECT_EQ(calls[0].thread, "call");
}

TEST(CallPanel, SaysWhichArgumentIsNoJson)
{
    TestCalls client;
    client.choose("ITavNetControlMgr", "setState(");
    client.named<QPlainTextEdit>("state")->setPlainText("{state: 5}");
    EXPECT_TRUE(client.resultAfterCall().startsWith("state: ")) << client.resultAfterCall().toStdString();
    EXPECT_TRUE(client.session.calls().from(0).entries.isEmpty());
}

TEST(CallPanel, ShowsWhyACallIsRefused)
{
    TestCalls client;
    client.choose("ITavNetControlMgr", "setState(");
    client.named<QPlainTextEdit>("state")->setPlainText(R"({"stat": 5})");
    EXPECT_TRUE(client.resultAfterCall().contains("stat"));
    EXPECT_FALSE(client.session.calls().from(0).entries.value(0).error.isEmpty());
}

TEST(CallPanel, TakesAPlainRecordFieldByField)
{
    TestCalls client;
    client.choose("ITavAccessControlMgr", "updateUIPriData(QVector");
    client.named<QPlainTextEdit>("levels")->setPlainText(R"([{"level": 3}])");
    client.resultAfterCall();
    client.choose("ITavAccessControlMgr", "updateUIPriData(STAccessSetUIData");
    client.named<QLineEdit>("level.level")->setText("3");
    client.named<QLineEdit>("level.labels")->setText(R"(["one", "two"])");
    client.named<QCheckBox>("level.checked")->click();
    EXPECT_EQ(client.resultAfterCall(), "null");
    const STAccessSetUIData held = client.session.host().manager<ITavAccessControlMgr>()->getUIPriData().value(0);
    EXPECT_EQ(held.labels, (QVector<QString>{"one", "two"}));
    EXPECT_TRUE(held.checked);
}

TEST(CallPanel, NamesAnInvalidInputAtItsField)
{
    TestCalls client;
    client.choose("ITavHostInfoMgr", "setResourceInfo(");
    auto *const total = client.named<QLineEdit>("info.memoryTotal");
    total->setText("much");
    EXPECT_TRUE(client.resultAfterCall().startsWith("info.memoryTotal: expected a whole number"))
        << client.named<QPlainTextEdit>("Result")->toPlainText().toStdString();
    EXPECT_TRUE(total->accessibleDescription().contains("expected a whole number"));
    EXPECT_TRUE(total->hasFocus());
    EXPECT_TRUE(labelTexts(*total->parentWidget()).contains("expected a whole number"));
    EXPECT_TRUE(client.session.calls().from(0).entries.isEmpty());
    total->setText("18446744073709551615");
    EXPECT_EQ(client.resultAfterCall(), "null");
    EXPECT_EQ(total->accessibleDescription(), "");
    EXPECT_EQ(client.session.host().manager<ITavHostInfoMgr>()->getResourceInfo().memoryTotal, ~quint64(0));
}

TEST(CallPanel, TakesARecordOverFromItsFieldsIntoJsonAndBack)
{
    TestCalls client;
    client.choose("ITavProtectMgr", "setSelfState(");
    auto *const number = client.named<QLineEdit>("state.stateValue");
    auto *const ways = client.window->findChild<RecordEdit *>();
    number->setText("7");
    ways->setCurrentIndex(1);
    auto *const json = client.named<QPlainTextEdit>("state");
    EXPECT_TRUE(json->toPlainText().contains("\"stateValue\": 7")) << json->toPlainText().toStdString();
    json->setPlainText(R"({"stateValue": 8, "unknown": 1})");
    ways->setCurrentIndex(0);
    EXPECT_EQ(ways->currentIndex(), 1) << "what the fields cannot show stays JSON";
    EXPECT_TRUE(client.named<QPlainTextEdit>("Result")->toPlainText().contains("unknown"));
    json->setPlainText(R"({"stateValue": 8})");
    ways->setCurrentIndex(0);
    EXPECT_EQ(ways->currentIndex(), 0);
    EXPECT_EQ(number->text(), "8");
}

TEST(CallPanel, ShowsARecordAsJsonWhereAFieldCannotShowItsText)
{
    TestCalls client;
    client.session.call("ITavCompleteProtectMgr", "setCurPathState",
                        QJsonArray{QJsonObject{{"path", QJsonObject{{"bytes", "/w=="}}}}});
    client.choose("ITavCompleteProtectMgr", "setCurPathState(");
    QTest::mouseClick(client.button("Fill In What Is Held"), Qt::LeftButton);
    auto *const ways = client.window->findChild<RecordEdit *>();
    ASSERT_TRUE(waitUntil([ways] { return ways->currentIndex() == 1; }));
    EXPECT_TRUE(client.named<QPlainTextEdit>("state")->toPlainText().contains("/w=="));
}

TEST(CallPanel, FillsInWhatTheManagerHolds)
{
    TestCalls client;
    client.session.call("ITavNetControlMgr", "setState", QJsonArray{QJsonObject{{"state", 3}}});
    client.choose("ITavNetControlMgr", "setState(");
    QTest::mouseClick(client.button("Fill In What Is Held"), Qt::LeftButton);
    auto *const field = client.named<QPlainTextEdit>("state");
    EXPECT_TRUE(waitUntil([field] { return field->toPlainText().contains("\"state\": 3"); }));
}

TEST(CallPanel, ShowsTheBeginningOfALargeResult)
{
    TestCalls client;
    client.session.host().manager<ITavOneReinforceMgr>()->setStateInfo({{QString(3 << 20, 'x'), "1"}});
    client.choose("ITavOneReinforceMgr", "getStateInfo(");
    EXPECT_NEAR(client.resultAfterCall().size(), 1 << 20, 1000) << "a long line is broken, which takes some letters";
    EXPECT_TRUE(labelTexts(*client.window).contains("getStateInfo has returned 3,1")) << "and says so";
    client.choose("ITavOneReinforceMgr", "setStateInfo(");
    QTest::mouseClick(client.button("Fill In What Is Held"), Qt::LeftButton);
    auto *const result = client.named<QPlainTextEdit>("Result");
    EXPECT_TRUE(waitUntil([result] { return result->toPlainText().contains("too many to be edited"); }));
}

TEST(CallPanel, ForgetsAResultWhenAnotherOperationIsChosen)
{
    TestCalls client;
    client.choose("ITavNetControlMgr", "getState(");
    EXPECT_NE(client.resultAfterCall(), "");
    EXPECT_TRUE(labelTexts(*client.window).contains("getState has returned:"));
    client.choose("ITavNetControlMgr", "setState(");
    EXPECT_EQ(client.named<QPlainTextEdit>("Result")->toPlainText(), "");
    EXPECT_TRUE(labelTexts(*client.window).contains("setState returns void"));
    client.resultAfterCall();
    client.named<QComboBox>("Manager")->setCurrentText("ITavAuditMgr");
    EXPECT_EQ(client.named<QPlainTextEdit>("Result")->toPlainText(), "");
}

TEST(CallPanel, KeepsItsColumnsWhateverOperationIsChosen)
{
    TestCalls client;
    auto *const list = client.named<QListWidget>("Operations");
    const QRect result = client.named<QPlainTextEdit>("Result")->rect();
    const int left = list->width();
    auto *const managers = client.named<QComboBox>("Manager");
    for (int manager = 0; manager < managers->count(); ++manager) {
        managers->setCurrentIndex(manager);
        for (int row = 0; row < list->count(); ++row) {
            list->setCurrentRow(row);
            QTest::qWait(0);
            const std::string what = list->item(row)->text().toStdString();
            EXPECT_EQ(list->width(), left) << what;
            EXPECT_EQ(client.named<QPlainTextEdit>("Result")->width(), result.width()) << what;
        }
    }
}

TEST(CallPanel, ShowsEachArgumentInItsWidthAndTheFirstInItsHeight)
{
    TestCalls client;
    auto *const list = client.named<QListWidget>("Operations");
    auto *const managers = client.named<QComboBox>("Manager");
    const auto *const form = client.window->findChild<ArgumentForm *>();
    for (int manager = 0; manager < managers->count(); ++manager) {
        managers->setCurrentIndex(manager);
        for (int row = 0; row < list->count(); ++row) {
            list->setCurrentRow(row);
            QTest::qWait(0);
            const std::string what = list->item(row)->text().toStdString();
            EXPECT_LE(form->minimumSizeHint().width(), form->parentWidget()->width()) << what;
            QWidget *field = form->focusProxy();
            if (const auto *const record = qobject_cast<RecordEdit *>(field)) {
                field = record->findChild<FieldEdit *>();
            }
            const auto isSeen = [field] {
                return !field || field->visibleRegion().boundingRect().height() >= field->fontMetrics().height();
            };
            EXPECT_TRUE(QTest::qWaitFor(isSeen, 1000)) << what;
        }
    }
}

TEST(CallPanel, CallsNothingWhenAnOperationIsChosen)
{
    TestCalls client;
    client.choose("ITavNetControlMgr", "setState(");
    auto *const list = client.named<QListWidget>("Operations");
    auto *const first = client.named<QPlainTextEdit>("state");
    ASSERT_TRUE(waitUntil([first] { return first->isVisible(); }));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), first);
    client.choose("ITavNetControlMgr", "getState(");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), client.button("Call"));
    QTest::qWait(100);
    EXPECT_TRUE(client.session.calls().from(0).entries.isEmpty());
}

TEST(CallPanel, CallsThePictureManagerOnTheGuiThread)
{
    TestCalls client;
    client.choose("ITavPicResourceMgr", "getImageRef(");
    client.named<QPlainTextEdit>("dirName")->setPlainText("\"navigation\"");
    client.named<QPlainTextEdit>("imageName")->setPlainText("\"hostIcon\"");
    EXPECT_TRUE(client.resultAfterCall().contains("\"width\": 48")) << client.resultAfterCall().toStdString();
    EXPECT_EQ(client.session.calls().from(0).entries.value(0).thread, "gui");
}

TEST(CallPanel, IsReachedAndUsedWithTheKeyboardAlone)
{
    TestCalls client;
    client.choose("ITavNetControlMgr", "getState(");
    client.named<QListWidget>("Operations")->setFocus();
    QTest::keyClick(client.window.get(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(waitUntil([&] { return client.session.calls().from(0).entries.size() == 1; }));
}

TEST(PicturePanel, AppendsADirectoryAsACallThatIsNoted)
{
    TestCalls client;
    const QTemporaryDir directory;
    client.button("Append…")->click();
    auto *const dialog = client.window->findChild<QFileDialog *>();
    ASSERT_TRUE(dialog);
    emit dialog->filesSelected({directory.path()});
    const auto calls = client.session.calls().from(0).entries;
    ASSERT_EQ(calls.size(), 1);
    EXPECT_EQ(calls[0].operation, "appendPicResourcePath");
    EXPECT_EQ(client.named<QListWidget>("Directories")->findItems(directory.path(), Qt::MatchExactly).size(), 1);
}

TEST(PicturePanel, ListsThePicturesOfTheInstallationByTheirKeys)
{
    TestWindow client;
    const QAbstractItemModel &model = *client.named<QTableView>("Pictures")->model();
    EXPECT_EQ(model.rowCount(), 36);
    EXPECT_EQ(model.index(0, 0).data().toString(), "NAVIGATION/ACCESSICON");
    EXPECT_EQ(model.index(0, 1).data().toString(), "48×48");
}

TEST(CallPanel, DoesNotShowWhatACallReturnsThatNobodyWaitsForAnyMore)
{
    TestCalls client;
    client.choose("ITavNetControlMgr", "getState(");
    auto *const result = client.named<QPlainTextEdit>("Result");
    QTest::mouseClick(client.button("Call"), Qt::LeftButton);
    EXPECT_FALSE(client.button("Call")->isEnabled());
    client.window->findChild<CallPanel *>()->stop();
    EXPECT_TRUE(client.button("Call")->isEnabled());
    EXPECT_TRUE(waitUntil([&client] { return !client.session.calls().from(0).entries.isEmpty(); }));
    QTest::qWait(50);
    EXPECT_EQ(result->toPlainText(), "");
    EXPECT_TRUE(client.resultAfterCall().contains("{")) << "the next one is shown";
}

TEST(CallPanel, KeepsACallUnderWayItsResultWhateverIsChosenMeanwhile)
{
    TestCalls client;
    client.session.call("ITavNetControlMgr", "setState", QJsonArray{QJsonObject{{"state", 3}}});
    client.choose("ITavNetControlMgr", "getState(");
    QTest::mouseClick(client.button("Call"), Qt::LeftButton);
    client.choose("ITavNetControlMgr", "setState(");
    for (const QString &second : {QStringLiteral("Call"), QStringLiteral("Fill In What Is Held")}) {
        QTest::mouseClick(client.button(second), Qt::LeftButton);
        EXPECT_FALSE(client.button(second)->isEnabled()) << second.toStdString();
    }
    auto *const result = client.named<QPlainTextEdit>("Result");
    EXPECT_TRUE(waitUntil([result] { return result->toPlainText().contains("\"state\": 3"); }));
    EXPECT_TRUE(labelTexts(*client.window).contains("getState has returned:"));
    EXPECT_TRUE(client.button("Call")->isEnabled());
    EXPECT_TRUE(client.button("Fill In What Is Held")->isEnabled());
}

TEST(CallPanel, BeginsWithAnOperationThatPeopleCall)
{
    TestCalls client;
    auto *const list = client.named<QListWidget>("Operations");
    auto *const managers = client.named<QComboBox>("Manager");
    for (int manager = 0; manager < managers->count(); ++manager) {
        managers->setCurrentIndex(manager);
        ASSERT_TRUE(list->currentItem()) << managers->currentText().toStdString();
        EXPECT_FALSE(list->currentItem()->text().startsWith("getObject(")) << managers->currentText().toStdString();
    }
}

TEST(CallPanel, ListsOperationsWithoutTheScopesOfTheirTypes)
{
    TestCalls client;
    client.choose("ITavSelectFuncMgr", "setCurSelType(");
    EXPECT_EQ(client.named<QListWidget>("Operations")->currentItem()->text().toStdString(),
              "setCurSelType(TavFuncTypeHeader_ funcType, TavSubFuncTypeHeader_ subFuncType)");
}

TEST(CallPanel, SaysOfAnOperationThatItHasNoArguments)
{
    TestCalls client;
    const auto *const form = client.window->findChild<ArgumentForm *>();
    client.choose("ITavNetControlMgr", "getState(");
    EXPECT_TRUE(labelTexts(*form).contains("no arguments"));
    client.choose("ITavNetControlMgr", "setState(");
    EXPECT_FALSE(labelTexts(*form).contains("no arguments"));
}
