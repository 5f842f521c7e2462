#include "TavCommonUtils.h"

#include "ChildProcess.h"
#include "Deadline.h"
#include "GlobalStateGuard.h"
#include "PrintQString.h"
#include "TextFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/// A directory for the files of one test.
class CommonUtils : public testing::Test
{
    GlobalStateGuard m_guard;
    QTemporaryDir m_directory;

protected:
    QString path(const char *name) const
    {
        return m_directory.filePath(QString::fromUtf8(name));
    }

    QString file(const char *name, const QByteArray &content) const
    {
        writeFile(path(name), content);
        return path(name);
    }

    static void setSystemRoot(const QString &root)
    {
        TavGlobalInfoMgr::getInstance()->setSystemRoot(root);
    }
};

const QByteArray byteOrderMark = QByteArrayLiteral("\xEF\xBB\xBF");
}

TEST_F(CommonUtils, ReadsTheWholeTextOfAFile)
{
    EXPECT_EQ(TavCommonUtils::readAll(file("f", "one\ntwo\r\n\nend")), QStringLiteral("one\ntwo\r\n\nend"));
}

TEST_F(CommonUtils, ReadsWhatIsGivenForAPathInPlaceOfTheFile)
{
    const QString name = file("f", R"({"from": "disk"})");
    TavCommonUtils::setContent(name, R"({"from": "host"})");
    EXPECT_EQ(TavCommonUtils::readAll(name), R"({"from": "host"})");
    EXPECT_EQ(TavCommonUtils::readJsonFromFile(name)["from"].toString(), "host");
    EXPECT_EQ(TavCommonUtils::readAll(path("other")), "");
    TavCommonUtils::setContent(name, "");
    EXPECT_EQ(TavCommonUtils::readAll(name), "");
    TavCommonUtils::setContent(name, {});
    EXPECT_EQ(TavCommonUtils::readAll(name), R"({"from": "disk"})");
}

TEST_F(CommonUtils, ReadsUtf8)
{
    EXPECT_EQ(TavCommonUtils::readAll(file("f", "主机信息 ä €")), QStringLiteral("主机信息 ä €"));
}

TEST_F(CommonUtils, LeavesOutAByteOrderMark)
{
    EXPECT_EQ(TavCommonUtils::readAll(file("f", byteOrderMark + "text")), QStringLiteral("text"));
}

TEST_F(CommonUtils, ReadsThroughALinkToAFile)
{
    ASSERT_TRUE(QFile::link(file("f", "text"), path("link")));
    EXPECT_EQ(TavCommonUtils::readAll(path("link")), QStringLiteral("text"));
}

TEST_F(CommonUtils, AMissingFileIsEmpty)
{
    EXPECT_EQ(TavCommonUtils::readAll(path("missing")), QString());
    EXPECT_EQ(TavCommonUtils::readJsonFromFile(path("missing")), QJsonObject());
}

TEST_F(CommonUtils, ADanglingLinkIsEmpty)
{
    ASSERT_TRUE(QFile::link(path("missing"), path("link")));
    EXPECT_EQ(TavCommonUtils::readAll(path("link")), QString());
}

TEST_F(CommonUtils, ADirectoryIsEmpty)
{
    EXPECT_EQ(TavCommonUtils::readAll(path(".")), QString());
    EXPECT_EQ(TavCommonUtils::readJsonFromFile(path(".")), QJsonObject());
}

TEST_F(CommonUtils, APipeIsEmptyAndNotWaitedFor)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    const Deadline deadline;
    EXPECT_EQ(TavCommonUtils::readAll(path("pipe")), QString());
    EXPECT_EQ(TavCommonUtils::readJsonFromFile(path("pipe")), QJsonObject());
}

TEST_F(CommonUtils, WhatWaitsInAPipeIsLeftThere)
{
    const QByteArray pipe = QFile::encodeName(path("pipe"));
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    const int descriptor = open(pipe.constData(), O_RDWR | O_NONBLOCK);
    char waiting[] = "text";
    ASSERT_EQ(write(descriptor, waiting, 4), 4);
    EXPECT_EQ(TavCommonUtils::readAll(path("pipe")), QString());
    EXPECT_EQ(read(descriptor, waiting, 4), 4);
    close(descriptor);
}

TEST_F(CommonUtils, ADeviceIsEmptyAndNotWaitedFor)
{
    const QString terminal = QStringLiteral("/dev/ptmx");
    ASSERT_TRUE(QFileInfo::exists(terminal));
    const Deadline deadline;
    EXPECT_EQ(TavCommonUtils::readAll(terminal), QString());
}

TEST_F(CommonUtils, ReadsWhereNoSystemFilesAreMounted)
{
    file("f", R"({"n": 1})");
    const QByteArray root = QFile::encodeName(path("."));
    const auto read = [&root] {
        changeRoot(root.constData());
        EXPECT_EQ(TavCommonUtils::readAll(QStringLiteral("/f")), QStringLiteral(R"({"n": 1})"));
        EXPECT_EQ(TavCommonUtils::readJsonFromFile(QStringLiteral("/f")).size(), 1);
    };
    EXPECT_TRUE(runInChild(read).passed);
}

TEST_F(CommonUtils, LeavesNoFileOpen)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    const QString paths[]
        = {file("f", "text"), file("empty", ""),           path("pipe"), path("."),
           path("missing"),   QStringLiteral("/dev/null"), QString(),    QStringLiteral("/proc/self/mem")};
    const auto openFiles = [] { return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::System).size(); };
    const int before = openFiles();
    ASSERT_GT(before, 2);
    for (const QString &path : paths) {
        static_cast<void>(TavCommonUtils::readAll(path));
        static_cast<void>(TavCommonUtils::readJsonFromFile(path));
        EXPECT_EQ(openFiles(), before) << qPrintable(path);
    }
}

TEST_F(CommonUtils, LeavesNoFileOpenInPlaceOfTheStandardInput)
{
    const auto read = [name = file("f", "text")] {
        close(STDIN_FILENO);
        EXPECT_EQ(TavCommonUtils::readAll(name), QStringLiteral("text"));
        EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1);
    };
    EXPECT_TRUE(runInChild(read).passed);
}

TEST_F(CommonUtils, ReadsAJsonObject)
{
    const QJsonObject object{{QStringLiteral("名"), QStringLiteral("值")}, {QStringLiteral("n"), 1}};
    EXPECT_EQ(TavCommonUtils::readJsonFromFile(file("f", R"({ "名": "值", "n": 1 })")), object);
}

TEST_F(CommonUtils, ReadsAJsonObjectAfterAByteOrderMark)
{
    const QJsonObject object{{QStringLiteral("n"), 1}};
    EXPECT_EQ(TavCommonUtils::readJsonFromFile(file("f", byteOrderMark + R"({"n": 1})")), object);
}

TEST_F(CommonUtils, WhatIsNoJsonObjectIsAnEmptyOne)
{
    for (const char *const content : {"", " ", R"([{"n": 1}])", "1", R"({"n": 1)", R"({"n": 1} x)", "text"}) {
        EXPECT_EQ(TavCommonUtils::readJsonFromFile(file("f", content)), QJsonObject()) << content;
    }
}

TEST_F(CommonUtils, WithoutASystemRootPathsAreTakenAsTheyAre)
{
    EXPECT_EQ(TavCommonUtils::pathInSystemRoot(QStringLiteral("/etc/../x")), QStringLiteral("/etc/../x"));
}

TEST_F(CommonUtils, AnAbsolutePathLiesInsideTheSystemRoot)
{
    setSystemRoot(QStringLiteral("/srv/root"));
    EXPECT_EQ(TavCommonUtils::pathInSystemRoot(QStringLiteral("/etc/x")), QStringLiteral("/srv/root/etc/x"));
}

TEST_F(CommonUtils, ARelativePathIsTheSameWithASystemRoot)
{
    setSystemRoot(QStringLiteral("/srv/root"));
    EXPECT_EQ(TavCommonUtils::pathInSystemRoot(QStringLiteral("etc/../x")), QStringLiteral("etc/../x"));
}

TEST_F(CommonUtils, TheFormOfTheSystemRootDoesNotMatter)
{
    const std::pair<const char *, const char *> rows[] = {
        {"/srv/root/", "/srv/root/etc/x"}, {"/srv//root", "/srv/root/etc/x"}, {"/", "/etc/x"}, {"root", "root/etc/x"},
        {"../root/", "../root/etc/x"},
    };
    for (const auto &[root, expected] : rows) {
        setSystemRoot(QString::fromUtf8(root));
        EXPECT_EQ(TavCommonUtils::pathInSystemRoot(QStringLiteral("/etc/x")), QString::fromUtf8(expected)) << root;
    }
}

TEST_F(CommonUtils, NoPathClimbsOutOfTheSystemRoot)
{
    setSystemRoot(QStringLiteral("/srv/root"));
    const std::pair<const char *, const char *> rows[] = {
        {"/../x", "/srv/root/x"},           {"/../../etc/x", "/srv/root/etc/x"},
        {"/etc/../../../x", "/srv/root/x"}, {"/./../x", "/srv/root/x"},
        {"//../x", "/srv/root/x"},          {"/..", "/srv/root"},
        {"/etc/../..", "/srv/root"},        {"/../", "/srv/root"},
        {"/..//..//../x", "/srv/root/x"},   {"/../root/x", "/srv/root/root/x"},
    };
    for (const auto &[path, expected] : rows) {
        EXPECT_EQ(TavCommonUtils::pathInSystemRoot(QString::fromUtf8(path)), QString::fromUtf8(expected)) << path;
    }
}

TEST_F(CommonUtils, ANameThatOnlyBeginsWithDotsIsKept)
{
    setSystemRoot(QStringLiteral("/srv/root"));
    EXPECT_EQ(TavCommonUtils::pathInSystemRoot(QStringLiteral("/..x")), QStringLiteral("/srv/root/..x"));
}

TEST_F(CommonUtils, FilesAreReadInsideTheSystemRoot)
{
    file("f", R"({"from": "outside"})");
    file("root/f", R"({"from": "inside"})");
    setSystemRoot(path("root"));
    const QJsonObject inside{{QStringLiteral("from"), QStringLiteral("inside")}};
    for (const char *const path : {"/f", "/../f"}) {
        EXPECT_EQ(TavCommonUtils::readAll(QString::fromUtf8(path)), QStringLiteral(R"({"from": "inside"})")) << path;
        EXPECT_EQ(TavCommonUtils::readJsonFromFile(QString::fromUtf8(path)), inside) << path;
    }
}

TEST_F(CommonUtils, AFileOutsideTheSystemRootIsNotFound)
{
    const QString outside = file("f", "text");
    file("root/other", "text");
    setSystemRoot(path("root"));
    EXPECT_EQ(TavCommonUtils::readAll(outside), QString());
}
