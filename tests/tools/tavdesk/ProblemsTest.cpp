#include "TestWindow.h"

#include "Desk.h"
#include "FindingsDialog.h"
#include "ProblemView.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>

namespace
{
/// A system root with this text for a catalogue.
class RootWithCatalogue
{
public:
    explicit RootWithCatalogue(const QByteArray &content)
    {
        writeFile(m_directory.filePath("etc/tavsec.d/funcTypeConfig.json"), content);
    }

    QString path() const
    {
        return m_directory.path();
    }

private:
    QTemporaryDir m_directory;
};

DeskOptions optionsFor(const QString &plugin)
{
    DeskOptions options;
    options.plugin = plugin;
    options.root = demoRoot;
    return options;
}

/// The findings of the catalogue, once they are there; null when they do not come.
FindingsDialog *findingsOf(const TestWindow &client)
{
    waitUntil([&client] { return client.window->findChild<FindingsDialog *>() != nullptr; });
    return client.window->findChild<FindingsDialog *>();
}

/// The one top-level widget of this class; null when there is none.
template<class Widget>
Widget *topLevel()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *const widget : widgets) {
        if (auto *const found = qobject_cast<Widget *>(widget); found && found->isVisible()) {
            return found;
        }
    }
    return nullptr;
}
}

TEST(Problems, ThereIsNoPlugin)
{
    const GlobalStateGuard guard;
    Desk desk(optionsFor("/nonexistent/plugin.so"));
    desk.show();
    auto *const view = topLevel<ProblemView>();
    ASSERT_TRUE(view);
    EXPECT_TRUE(labelTexts(*view).contains("/nonexistent/plugin.so: there is no such file"))
        << labelTexts(*view).toStdString();
    EXPECT_EQ(view->findChild<QPushButton *>()->text(), "&Choose Another File…");
    EXPECT_FALSE(topLevel<MainWindow>());
}

TEST(Problems, ItIsAnotherPlugin)
{
    const GlobalStateGuard guard;
    Desk desk(optionsFor(TAV_OTHER_PLUGIN_FILE));
    desk.show();
    auto *const view = topLevel<ProblemView>();
    ASSERT_TRUE(view);
    EXPECT_TRUE(labelTexts(*view).contains("identifier")) << labelTexts(*view).toStdString();
}

TEST(Problems, APagePluginIsRefused)
{
    const GlobalStateGuard guard;
    DeskOptions options = optionsFor(TAV_PLUGIN_FILE);
    options.pages = QStringList{"/nonexistent/page.so"};
    Desk desk(options);
    desk.show();
    auto *const window = topLevel<MainWindow>();
    ASSERT_TRUE(window);
    auto *const box = window->findChild<QMessageBox *>();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text().toStdString(), "/nonexistent/page.so is not shown");
    EXPECT_EQ(box->informativeText().toStdString(), "There is no such file.\nInstall the plugin, or name its file.");
}

TEST(Problems, ThereIsNoCatalogue)
{
    const QTemporaryDir root;
    const TestWindow client(root.path());
    const QString texts = labelTexts(client.window->pages());
    EXPECT_TRUE(texts.contains("There is no navigation catalogue")) << texts.toStdString();
    EXPECT_TRUE(texts.contains(root.path() + "/etc/tavsec.d/funcTypeConfig.json does not exist."));
}

TEST(Problems, TheCatalogueIsBrokenAndTheFindingsStandBehindAButton)
{
    const RootWithCatalogue root("no Base64!");
    const TestWindow client(root.path());
    EXPECT_TRUE(labelTexts(client.window->pages()).contains("holds no page"));
    auto *const button = client.window->pages().findChild<QPushButton *>();
    ASSERT_TRUE(button);
    QTest::mouseClick(button, Qt::LeftButton);
    FindingsDialog *const dialog = findingsOf(client);
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_GT(dialog->findChild<QTreeWidget *>()->topLevelItemCount(), 0);
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return client.window->findChild<FindingsDialog *>() == nullptr; }));
}

TEST(Problems, TheCatalogueCannotBeRead)
{
    const QTemporaryDir root;
    ASSERT_TRUE(QDir(root.path()).mkpath("etc/tavsec.d/funcTypeConfig.json"));
    const TestWindow client(root.path());
    const QString texts = labelTexts(client.window->pages());
    EXPECT_TRUE(texts.contains("cannot be read")) << texts.toStdString();
    EXPECT_TRUE(texts.contains("funcTypeConfig.json: ")) << texts.toStdString();
    EXPECT_FALSE(texts.contains("Base64")) << texts.toStdString();
}

TEST(Problems, TheFindingsOfACatalogueWithPagesStandInTheMenu)
{
    const QByteArray iconTwice
        = R"([{"funcType": "Func_HostInfo", "funcTitle": "host", "funcIcon": "a", "funcIcon": "b",
        "subFunList": [{"subFuncType": "SubFunc_LogAudit", "subFuncTitile": "log", "subFuncClassName": "Log"}]}])";
    const RootWithCatalogue root(iconTwice.toBase64());
    const TestWindow client(root.path());
    EXPECT_TRUE(client.entry(CTavSubFuncTypeHeader::SubFunc_LogAudit).isValid());
    client.action("Findings in the Catalogue…")->trigger();
    FindingsDialog *const dialog = findingsOf(client);
    ASSERT_TRUE(dialog);
    EXPECT_GT(dialog->findChild<QTreeWidget *>()->topLevelItemCount(), 0);
}

TEST(Problems, ACatalogueWithoutFindingsIsSaidToHaveNone)
{
    const TestWindow client;
    client.action("Findings in the Catalogue…")->trigger();
    FindingsDialog *const dialog = findingsOf(client);
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(labelTexts(*dialog).contains("nothing was found")) << labelTexts(*dialog).toStdString();
    EXPECT_EQ(dialog->findChild<QTreeWidget *>()->topLevelItemCount(), 0);
}
