#include "BaselineScript.h"

#include "GlobalStateGuard.h"
#include "TavGlobalInfoMgr.h"
#include "TextFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(BaselineScript, RunsWhenAnybodyMayExecuteIt)
{
    const GlobalStateGuard guard;
    const QTemporaryDir root;
    TavGlobalInfoMgr::getInstance()->setSystemRoot(root.path());
    const QString file = root.filePath("check.sh");
    writeFile(file, "");
    for (const auto execute : {QFile::ExeOwner, QFile::ExeGroup, QFile::ExeOther}) {
        ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner | execute));
        EXPECT_EQ(scriptState("/check.sh"), ScriptState::Runnable) << execute;
    }
    ASSERT_TRUE(QFile::setPermissions(file, QFile::ReadOwner));
    EXPECT_EQ(scriptState("/check.sh"), ScriptState::NotExecutable);
}

TEST(BaselineScript, MustBeAFileBelowTheSystemRoot)
{
    const GlobalStateGuard guard;
    const QTemporaryDir root;
    TavGlobalInfoMgr::getInstance()->setSystemRoot(root.path());
    EXPECT_EQ(scriptState("/bin/sh"), ScriptState::Missing) << "the one of this machine does not count";
    EXPECT_EQ(scriptState("/"), ScriptState::NotAFile);
    EXPECT_EQ(scriptState(QString("/check.sh") + QChar::Null), ScriptState::Missing);
}
