#include "TestWindow.h"

#include <QAbstractItemView>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>

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
