#include "TestWindow.h"

using Pages = CTavSubFuncTypeHeader;

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

TEST(PagePlugin, IsNamedWhenItCannotBeTakenIn)
{
    const TestWindow client(demoRoot, {"/nonexistent.so", TAV_OTHER_PLUGIN_FILE});
    ASSERT_EQ(client.refused.size(), 2);
    EXPECT_EQ(client.refused[0].kind(), TavPluginError::Kind::NoSuchFile);
    EXPECT_EQ(client.refused[1].kind(), TavPluginError::Kind::OtherPlugin);
}
