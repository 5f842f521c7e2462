#include "BaselineScript.h"

#include "GlobalStateGuard.h"
#include "RootedPath.h"
#include "TavGlobalInfoMgr.h"
#include "TextFile.h"

#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
/// @brief A system root with a script directory.
class BaselineScript : public testing::Test
{
protected:
    BaselineScript()
    {
        TavGlobalInfoMgr::getInstance()->setSystemRoot(root.path());
        QDir(root.path()).mkpath(directory.mid(1));
    }

    QString put(const QString &path, const QByteArray &content)
    {
        const QString file = root.path() + path;
        writeFile(file, content);
        QFile::setPermissions(file, QFile::ReadOwner | QFile::ExeOwner);
        return file;
    }

    /// The kinds of the flaws of the script with this name.
    std::vector<int> flaws(const QString &name) const
    {
        std::vector<int> kinds;
        for (const ScriptFlaw &flaw : scriptFlaws(directory + name)) {
            kinds.push_back(flaw.kind);
        }
        return kinds;
    }

    const GlobalStateGuard guard;
    const QTemporaryDir root;
    const QString directory = "/opt/tavsec/script/baselineScript";
};
}

TEST_F(BaselineScript, RunsWhenAnybodyMayExecuteIt)
{
    const QString file = put(directory + "/check.sh", "#!/bin/sh\n");
    for (const auto execute : {QFile::ExeOwner, QFile::ExeGroup, QFile::ExeOther}) {
        ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | execute));
        EXPECT_THAT(flaws("/check.sh"), IsEmpty()) << execute;
    }
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));
    EXPECT_THAT(flaws("/check.sh"), ElementsAre(ScriptFlaw::NotExecutable));
}

TEST_F(BaselineScript, MustBeAFileBelowTheSystemRoot)
{
    EXPECT_THAT(flaws("/../../../../bin/sh"), ElementsAre(ScriptFlaw::Missing))
        << "that of this machine does not count";
    EXPECT_THAT(flaws(""), ElementsAre(ScriptFlaw::NotAFile));
    EXPECT_THAT(flaws(QString("/check.sh") + QChar::Null), ElementsAre(ScriptFlaw::Missing));
    put(directory + "/check.sh", "#!/bin/sh\n");
    EXPECT_THAT(flaws("/check.sh/"), ElementsAre(ScriptFlaw::Missing)) << "only a directory has a slash at its end";
    EXPECT_THAT(flaws("/check.sh/../check.sh"), ElementsAre(ScriptFlaw::Missing)) << "it leads through a file";
}

TEST_F(BaselineScript, MustNotLieElsewhere)
{
    put("/opt/tavsec/script/check.sh", "#!/bin/sh\n");
    ASSERT_TRUE(QFile::link("../check.sh", root.path() + directory + "/linked.sh"));
    ASSERT_TRUE(QFile::link("/opt/tavsec/script/check.sh", root.path() + directory + "/absolute.sh"));
    EXPECT_THAT(flaws("/../check.sh"), ElementsAre(ScriptFlaw::Outside));
    EXPECT_THAT(flaws("/linked.sh"), ElementsAre(ScriptFlaw::Outside));
    EXPECT_THAT(flaws("/absolute.sh"), ElementsAre(ScriptFlaw::Outside)) << "followed inside the root";
}

TEST_F(BaselineScript, NamesAnInterpreterThatExistsInARootWithPrograms)
{
    put(directory + "/shell.sh", "#! /bin/sh -e\n");
    put(directory + "/bare.sh", "exit 0\n");
    put(directory + "/none.sh", "#!\n");
    put(directory + "/program",
        "\x7f"
        "ELF");
    put(directory + "/foreign.sh", "#!/bin/sh\r\n");
    put(directory + "/empty.sh", "");
    put("/usr/bin/tavctl", "");
    EXPECT_THAT(flaws("/shell.sh"), IsEmpty()) << "a root without a system: nothing is run there";
    EXPECT_THAT(flaws("/bare.sh"), ElementsAre(ScriptFlaw::NoInterpreter));
    EXPECT_THAT(flaws("/none.sh"), ElementsAre(ScriptFlaw::NoInterpreter));
    EXPECT_THAT(flaws("/program"), IsEmpty());
    EXPECT_THAT(flaws("/foreign.sh"), ElementsAre(ScriptFlaw::ForeignLineEnd));
    EXPECT_THAT(flaws("/empty.sh"), ElementsAre(ScriptFlaw::Empty));
    put("/usr/bin/env", "");
    EXPECT_THAT(flaws("/shell.sh"), ElementsAre(ScriptFlaw::NoInterpreter));
    const QString shell = put("/usr/bin/sh", "");
    ASSERT_TRUE(QFile::link("/usr/bin", root.path() + "/bin"));
    EXPECT_THAT(flaws("/shell.sh"), IsEmpty()) << "the link is absolute, and means the root's own";
    ASSERT_TRUE(QFile::setPermissions(shell, QFile::ReadOwner));
    EXPECT_THAT(flaws("/shell.sh"), ElementsAre(ScriptFlaw::NoInterpreter)) << "nobody may execute it";
    ASSERT_TRUE(QFile::remove(shell) && QDir().mkdir(shell));
    EXPECT_THAT(flaws("/shell.sh"), ElementsAre(ScriptFlaw::NoInterpreter)) << "a directory";
}

TEST_F(BaselineScript, IsNotFollowedForEver)
{
    ASSERT_TRUE(QFile::link("round.sh", root.path() + directory + "/round.sh"));
    EXPECT_EQ(followInRoot(directory + "/round.sh").error, ELOOP);
    EXPECT_EQ(followInRoot("/../../opt/./tavsec//").path, "/opt/tavsec") << "nothing leads out of the root";
}
