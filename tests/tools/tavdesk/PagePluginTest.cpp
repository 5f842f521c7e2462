#include "TestWindow.h"

#include "CommandLine.h"
#include "Desk.h"
#include "ITavNetControlMgr.h"
#include "TavObjectMgr.h"

#include <QTreeWidget>

using Pages = CTavSubFuncTypeHeader;

namespace
{
/// The options that these words of a command line give.
DeskOptions optionsOf(const QStringList &words)
{
    QVector<QByteArray> texts{"tavdesk"};
    for (const QString &word : words) {
        texts.append(QFile::encodeName(word));
    }
    QVector<char *> arguments;
    for (QByteArray &text : texts) {
        arguments.append(text.data());
    }
    DeskOptions options;
    EXPECT_FALSE(readCommandLine(arguments.size(), arguments.data(), options));
    return options;
}

MainWindow *shownWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *const window : windows) {
        if (auto *const shown = qobject_cast<MainWindow *>(window); shown && shown->isVisible()) {
            return shown;
        }
    }
    return nullptr;
}
}

TEST(PagePlugin, ShowsItsOwnPage)
{
    TestWindow client(demoRoot, {TAV_PAGES_PLUGIN_FILE});
    EXPECT_TRUE(client.refused.isEmpty());
    client.click(Pages::SubFunc_serverResourceInfo);
    ASSERT_TRUE(client.waitForPage(Pages::SubFunc_serverResourceInfo));
    EXPECT_TRUE(client.window->pages().currentWidget()->findChild<QWidget *>("own page"));
}

TEST(PagePlugin, IsTakenFromAFolder)
{
    TestWindow client(demoRoot, {QFileInfo(TAV_THROWING_PAGE_FILE).path()});
    EXPECT_TRUE(client.refused.isEmpty());
    client.click(Pages::SubFunc_serverResourceInfo);
    ASSERT_TRUE(client.waitForPage(Pages::SubFunc_serverResourceInfo));
    const QString texts = labelTexts(*client.window->pages().currentWidget());
    EXPECT_TRUE(texts.contains("no chart today")) << "the page throws, and the window says so:\n"
                                                  << texts.toStdString();
}

TEST(PagePlugin, OfTheExampleIsShownWhenItsFileOrItsFolderIsGiven)
{
    const QString file = QStringLiteral(TAV_EXAMPLE_PAGE_FILE);
    for (const QString &given : {file, QFileInfo(file).path()}) {
        SCOPED_TRACE(given.toStdString());
        const GlobalStateGuard guard;
        Desk desk(optionsOf({"--root", demoRoot, "--plugin", TAV_PLUGIN_FILE, "--page", given}));
        desk.show();
        MainWindow *const window = shownWindow();
        ASSERT_TRUE(window);
        Tav::NetControl::NetDeviceInfo device;
        device.set_name("eth0");
        tavObject<ITavNetControlMgr>()->setUIData({{false, 0, device.SerializeAsString()}});
        auto &navigation = *window->findChild<NavigationView *>();
        navigation.setCurrentIndex(
            static_cast<NavigationModel *>(navigation.model())->indexOf(Pages::SubFunc_serverResourceInfo));
        QTest::keyClick(&navigation, Qt::Key_Return);
        ASSERT_TRUE(waitUntil([&] { return window->pages().openPage() == Pages::SubFunc_serverResourceInfo; }));
        auto *const list = window->pages().currentWidget()->findChild<QTreeWidget *>();
        ASSERT_TRUE(list) << labelTexts(window->pages()).toStdString();
        EXPECT_STREQ(list->parentWidget()->metaObject()->className(), "NetControlPage");
        EXPECT_EQ(list->topLevelItemCount(), 1);
        EXPECT_EQ(list->topLevelItem(0)->text(0), "eth0");
    }
}

TEST(PagePlugin, IsNamedWhenItCannotBeTakenIn)
{
    const TestWindow client(demoRoot, {"/nonexistent.so", TAV_OTHER_PLUGIN_FILE});
    ASSERT_EQ(client.refused.size(), 2);
    EXPECT_EQ(client.refused[0].kind(), TavPluginError::Kind::NoSuchFile);
    EXPECT_EQ(client.refused[1].kind(), TavPluginError::Kind::OtherPlugin);
}
