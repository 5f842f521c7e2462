#include "TestWindow.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>

namespace
{
/// Has @p look look at each widget that @p key leads to, from the navigation until that has the focus again.
template<class Look>
void walk(const TestWindow &client, Qt::Key key, Look look)
{
    client.navigation().setFocus();
    for (int steps = 0; steps < 200; ++steps) {
        QTest::keyClick(QApplication::focusWidget(), key);
        if (client.navigation().hasFocus()) {
            return;
        }
        look(*QApplication::focusWidget());
    }
    ADD_FAILURE() << "it does not come back to the navigation";
}

/// What a widget is called where it cannot be seen.
QString nameOf(QWidget &widget)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

bool isField(const QWidget &widget)
{
    return qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QComboBox *>(&widget)
        || qobject_cast<const QAbstractButton *>(&widget) || qobject_cast<const QAbstractItemView *>(&widget);
}
}

TEST(Docks, TheTabulatorLeadsToWhatIsInSightAndHasAName)
{
    const TestWindow client;
    client.click(CTavSubFuncTypeHeader::SubFunc_serverResourceInfo);
    ASSERT_TRUE(client.waitForPage(CTavSubFuncTypeHeader::SubFunc_serverResourceInfo));
    ASSERT_TRUE(waitUntil([&] { return client.window->pages().findChild<QAbstractItemView *>(); }));
    const QList<QDockWidget *> docks = client.window->findChildren<QDockWidget *>();
    for (QDockWidget *const dock : docks) {
        dock->raise();
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            walk(client, key, [dock](QWidget &stop) {
                const QString what = dock->objectName() + ": " + stop.metaObject()->className() + ' ' + nameOf(stop);
                EXPECT_FALSE(stop.visibleRegion().isEmpty()) << what.toStdString();
                EXPECT_NE(nameOf(stop), "") << what.toStdString();
            });
        }
    }
}

TEST(Docks, TheTabulatorLeadsToEveryField)
{
    const TestWindow client;
    const QList<QDockWidget *> docks = client.window->findChildren<QDockWidget *>();
    for (QDockWidget *const dock : docks) {
        dock->raise();
        QSet<const QWidget *> stops{&client.navigation()};
        walk(client, Qt::Key_Tab, [&stops](const QWidget &stop) { stops.insert(&stop); });
        const QList<QWidget *> widgets = dock->findChildren<QWidget *>();
        for (QWidget *const widget : widgets) {
            const bool takesFocus = widget->isVisible() && widget->isEnabled() && widget->focusPolicy() & Qt::TabFocus;
            EXPECT_TRUE(!isField(*widget) || !takesFocus || stops.contains(widget))
                << dock->objectName().toStdString() << ": " << nameOf(*widget).toStdString();
        }
    }
}

TEST(Docks, WhatLiesUnderAnotherOneIsNotVisible)
{
    const TestWindow client;
    const QList<QDockWidget *> docks = client.window->findChildren<QDockWidget *>();
    for (QDockWidget *const front : docks) {
        front->raise();
        for (const QDockWidget *const dock : docks) {
            const bool isInFront
                = dock == front || dock == docks.first() || (front == docks.first() && dock->objectName() == "calls");
            EXPECT_EQ(dock->widget()->isVisible(), isInFront)
                << dock->objectName().toStdString() << " with " << front->objectName().toStdString() << " in front";
        }
    }
}

TEST(Docks, TheOneThatWasInFrontIsVisibleWhenTheWindowHasItsPlaceAgain)
{
    const TestWindow client;
    const auto *const calls = client.window->findChild<QDockWidget *>("calls");
    auto *const pictures = client.window->findChild<QDockWidget *>("pictures");
    const QByteArray first = client.window->saveState();
    pictures->raise();
    const QByteArray second = client.window->saveState();
    for (const QByteArray &place : {first, second}) {
        client.window->hide();
        EXPECT_TRUE(client.window->restoreState(place));
        client.window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(client.window.get()));
        EXPECT_EQ(calls->widget()->isVisible(), place == first);
        EXPECT_EQ(pictures->widget()->isVisible(), place == second);
    }
}

TEST(Docks, KeepTheirHeightWhenAnotherOneComesToTheFront)
{
    const TestWindow client;
    const int height = client.window->pages().height();
    const QList<QDockWidget *> docks = client.window->findChildren<QDockWidget *>();
    for (QDockWidget *const dock : docks) {
        dock->raise();
        QTest::qWait(1);
        EXPECT_EQ(client.window->pages().height(), height) << dock->objectName().toStdString();
    }
}

TEST(Docks, KeysHaveNoEffectInOnesWithoutTheFocus)
{
    TestWindow client;
    client.navigation().setFocus();
    QTest::keyClick(&client.navigation(), Qt::Key_P, Qt::AltModifier);
    EXPECT_FALSE(client.window->findChild<QFileDialog *>()) << "Append… of the pictures, which lie under the calls";
    client.window->findChild<QDockWidget *>("call")->raise();
    client.navigation().setFocus();
    QTest::keyClick(&client.navigation(), Qt::Key_Return, Qt::ControlModifier);
    QTest::qWait(300);
    EXPECT_TRUE(client.session.calls().from(0).entries.isEmpty());
}

TEST(Docks, TheNavigationHasTheFirstFocus)
{
    const TestWindow client;
    EXPECT_EQ(QApplication::focusWidget(), &client.navigation());
}

TEST(Docks, EachIsReachedWithItsKeyWhereKeysHaveAnEffect)
{
    const TestWindow client;
    const QStringList names{"navigation", "registry", "calls", "deliveries", "lines", "call", "pictures"};
    for (int i = 0; i < names.size(); ++i) {
        QTest::keyClick(client.window.get(), Qt::Key(Qt::Key_1 + i), Qt::ControlModifier);
        const auto *const dock = client.window->findChild<QDockWidget *>(names[i]);
        const QWidget *const focus = QApplication::focusWidget();
        ASSERT_TRUE(focus) << names[i].toStdString();
        EXPECT_TRUE(dock->isAncestorOf(focus)) << names[i].toStdString();
        EXPECT_TRUE(qobject_cast<const QAbstractItemView *>(focus)) << names[i].toStdString();
        EXPECT_NE(focus->accessibleName().toStdString(), "") << names[i].toStdString();
    }
}

TEST(Docks, TheirKeysStandInTheMenu)
{
    const TestWindow client;
    QStringList entries;
    const QList<QAction *> menus = client.window->menuBar()->actions();
    const QList<QAction *> views = menus.last()->menu()->actions();
    for (const QAction *const view : views) {
        entries.append(view->text());
    }
    EXPECT_TRUE(entries.contains("&Registry\tCtrl+2")) << entries.join('|').toStdString();
}

TEST(Docks, TheFilterOfALogIsReachedAndEmptiedWithTheKeyboard)
{
    const TestWindow client;
    QTest::keyClick(client.window.get(), Qt::Key_5, Qt::ControlModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
    auto *const filter = client.named<QLineEdit>("Filter of Log");
    ASSERT_EQ(QApplication::focusWidget(), filter);
    QTest::keyClicks(filter, "abc");
    EXPECT_EQ(filter->text().toStdString(), "abc");
    QTest::keyClick(filter, Qt::Key_Escape);
    EXPECT_EQ(filter->text().toStdString(), "");
}
