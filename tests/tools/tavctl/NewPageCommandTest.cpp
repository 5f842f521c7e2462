#include "PrintQString.h"
#include "Tavctl.h"
#include "TestFiles.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{
/// @brief A place to write projects in.
class NewPageCommand : public testing::Test
{
protected:
    Tavctl newPage(const QStringList &arguments)
    {
        return Tavctl(QStringList{"new-page"} + arguments, "/dev/null", {"env", "-C", directory.path()});
    }

    QTemporaryDir directory;
    const QStringList onDemo{"--root", TAV_SOURCE_DIR "/share/demo"};
};
}

TEST_F(NewPageCommand, LeavesNoNameToReplaceOnAnyPage)
{
    QStringList pages = Tavctl({"catalogue", "show", TAV_SOURCE_DIR "/share/demo/etc/tavsec.d/funcTypeConfig.json"})
                            .output.split(QRegularExpression("[^\\w]"))
                            .filter(QRegularExpression("^SubFunc_"));
    pages.removeDuplicates();
    ASSERT_EQ(pages.size(), 14);
    for (const QString &page : qAsConst(pages)) {
        const QString name = "Page" + page.mid(8);
        const Tavctl run = newPage(QStringList{name, "--page", page} + onDemo);
        EXPECT_EQ(run.exitCode, 0) << run.errors.toStdString();
        QDirIterator files(directory.filePath(name), QDir::Files | QDir::Hidden);
        int count = 0;
        for (; files.hasNext(); ++count) {
            const QString file = files.next();
            const QString text = QString::fromUtf8(contentOf(file));
            EXPECT_FALSE(text.contains(QRegularExpression("@[A-Za-z]+@(?!\\w)|@if "))) << file.toStdString();
            EXPECT_FALSE(text.isEmpty()) << file.toStdString();
        }
        EXPECT_EQ(count, 11) << name.toStdString();
        EXPECT_EQ(Tavctl({"scenario", "check", directory.filePath(name + '/' + name + ".jsonl")}).exitCode, 0)
            << name.toStdString();
    }
}

TEST_F(NewPageCommand, ParsesWhatABackendAnswersWith)
{
    const auto controllerOf = [&](const QString &name, const QString &page) {
        EXPECT_EQ(newPage(QStringList{name, "--page", page} + onDemo).exitCode, 0);
        return contentOf(directory.filePath(name + '/' + name + "Controller.cpp"));
    };
    EXPECT_TRUE(controllerOf("Harden", "SubFunc_OneClickReinforcement").contains(" = tavMessage<Tav::Reinforce::"));
    EXPECT_TRUE(controllerOf("Users", "SubFunc_PrincipalSettings").contains(" = tavRecords<STLookUsersAsr>("));
    const QByteArray host = controllerOf("Host", "SubFunc_serverResourceInfo");
    EXPECT_TRUE(host.contains(" = tavRecord<STResourceInfoAsr>("));
    EXPECT_TRUE(host.contains("m_model->setResourceInfo(STResourceInfoAsr());"))
        << "indeterminate before its first set";
    // Rows are the client's own: there is nothing to parse.
    const QByteArray rows = controllerOf("Files", "SubFunc_ObjectAdd");
    EXPECT_TRUE(rows.contains("m_model->updateUIFiles(value);"));
    EXPECT_FALSE(rows.contains("receiveAnswer"));
}

TEST_F(NewPageCommand, TakesTheManagerThatIsAskedFor)
{
    EXPECT_EQ(
        newPage(QStringList{"Net", "--page", "SubFunc_serverResourceInfo", "--manager", "ITavNetControlMgr"} + onDemo)
            .exitCode,
        0);
    EXPECT_TRUE(contentOf(directory.filePath("Net/NetController.h")).contains("ITavNetControlMgr *const m_model"));

    const Tavctl other
        = newPage(QStringList{"Other", "--page", "SubFunc_LogAudit", "--manager", "ITavNetControlMgr"} + onDemo);
    EXPECT_EQ(other.exitCode, 2);
    EXPECT_TRUE(other.errors.startsWith("tavctl: --manager: the page SubFunc_LogAudit shows nothing of "
                                        "\"ITavNetControlMgr\"; it shows what these hold: "))
        << other.errors.toStdString();
}

TEST_F(NewPageCommand, NamesThePagesThatShareTheModel)
{
    EXPECT_TRUE(
        newPage(QStringList{"Scan", "--page", "SubFunc_StaticMeasurements"} + onDemo)
            .output.endsWith("\nThe model of SubFunc_StaticMeasurements is also that of SubFunc_DynamicMeasurements:"
                             " their controllers belong in this plugin, with one lock.\n"));
    EXPECT_FALSE(newPage(QStringList{"Log", "--page", "SubFunc_LogAudit"} + onDemo).output.contains("is also that of"));
}

TEST_F(NewPageCommand, OverwritesNothing)
{
    ASSERT_EQ(newPage(QStringList{"Log", "--page", "SubFunc_LogAudit"} + onDemo).exitCode, 0);
    const Tavctl again = newPage(QStringList{"Log", "--page", "SubFunc_LogAudit"} + onDemo);
    EXPECT_EQ(again.exitCode, 2);
    EXPECT_EQ(again.errors, "tavctl: Log is already there; choose another name, or move it away\n");
}

TEST_F(NewPageCommand, SaysWhatToWriteInstead)
{
    EXPECT_EQ(newPage(QStringList{"log-page", "--page", "SubFunc_LogAudit"} + onDemo).errors,
              "tavctl: \"log-page\" is no beginning of class names; write letters and digits, a capital first, such as "
              "DiskUsage\n");
    const QString unknown = newPage(QStringList{"Log", "--page", "SubFunc_Log"} + onDemo).errors;
    EXPECT_TRUE(unknown.contains("has no page \"SubFunc_Log\" with a controller; it has SubFunc_"))
        << unknown.toStdString();
    const QString empty = newPage({"Log", "--page", "SubFunc_LogAudit", "--root", directory.path()}).errors;
    EXPECT_TRUE(empty.contains("name an installation with --root")) << empty.toStdString();
    EXPECT_FALSE(QFileInfo::exists(directory.filePath("Log")));
}
