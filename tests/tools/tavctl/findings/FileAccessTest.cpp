#include "FindingLines.h"
#include "PrintQString.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace
{
/// @brief The configuration file that is checked alone, by its own permissions.
class FileAccess : public TestFiles
{
protected:
    QStringList findings() const
    {
        return findingLines(Tavctl({"catalogue", "check", file, "--json"}));
    }

    void give(const QString &owner, const QString &what) const
    {
        ASSERT_EQ(Program({"chown", owner, what}).exitCode, 0);
    }

    void allow(const char *mode, const QString &what) const
    {
        ASSERT_EQ(Program({"chmod", mode, what}).exitCode, 0);
    }

    QString file = putCatalogue(onePage);
};

const QString mayWrite = " may write it; others than its owner decide what the client shows and the agent runs; take "
                         "the right away with \"chmod go-w\"";
const QString belongsToStranger = ": error: TAV703: belongs to the user 4711; this user decides what the client shows "
                                  "and the agent runs; give it to the administrator with \"chown root\"";
}

TEST_F(FileAccess, IsReportedWhenEverybodyMayWriteTheFile)
{
    allow("0644", file);
    EXPECT_EQ(findings(), QStringList());
    allow("0666", file);
    EXPECT_EQ(findings(), QStringList{file + ": error: TAV702: everybody" + mayWrite});
    const QString list
        = put("list", R"({"enableConfig": [{"itemId": 1, "name": "a", "checkValueScript": "/check.sh"}]})");
    allow("0666", list);
    EXPECT_EQ(findingLines(Tavctl({"baseline", "check", list, "--root", brokenRoot, "--json"})),
              QStringList{list + ": error: TAV702: everybody" + mayWrite});
    EXPECT_EQ(findingLines(Tavctl({"catalogue", "check", "-", "--json"}, file)), QStringList())
        << "standard input is nobody's file";
}

TEST_F(FileAccess, IsReportedForAGroupThatIsNotTheOwnersAlone)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the administrator gives files away";
    }
    give("4711:4711", directory.path());
    give("4711:4711", file);
    allow("0664", file);
    EXPECT_EQ(findings(), QStringList()) << "a group of one";
    give("man", directory.path());
    give("man:man", file);
    EXPECT_EQ(findings(), QStringList()) << "by its name, its number is another";
    give("4711", directory.path());
    give("4711:4712", file);
    EXPECT_EQ(findings(), QStringList{file + ": error: TAV702: the group 4712" + mayWrite});
}

TEST_F(FileAccess, NamesAStrangerAmongTheFilesOfOthers)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the administrator gives files away";
    }
    give("4711", file);
    EXPECT_EQ(findings(), QStringList{file + belongsToStranger});
    give("4711", directory.path());
    EXPECT_EQ(findings(), QStringList()) << "somebody's work tree";
}

TEST_F(FileAccess, WantsAnInstalledFileToBelongToTheOwnerOfTheRoot)
{
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the administrator gives files away";
    }
    file = put("etc/tavsec.d/funcTypeConfig.json", onePage.toBase64());
    EXPECT_EQ(findings(), QStringList());
    give("4711", directory.filePath("etc/tavsec.d"));
    give("4711", file);
    EXPECT_EQ(findings(), QStringList{file + belongsToStranger}) << "who owns its directory, too";
    give("4711", directory.path());
    EXPECT_EQ(findings(), QStringList()) << "the whole root is this user's";
}
