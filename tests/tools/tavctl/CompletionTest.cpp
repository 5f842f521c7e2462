#include "CommandHelp.h"
#include "CTavSubFuncTypeHeader.h"
#include "PrintQString.h"
#include "TestFiles.h"
#include "TypeKeys.h"

#include <QRegularExpression>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace
{
const QString folder = QStringLiteral(TAV_SOURCE_DIR "/share/completion/");

/// @brief A directory in the shells' path, where tavctl notes in a file how it was called, unless by a completion.
class Completion : public TestFiles
{
protected:
    void SetUp() override
    {
        const QString program = put("tavctl",
                                    QString("#!/bin/sh\n"
                                            "[ \"$1\" = complete ] || printf '%s\\n' \"$@\" >\"$0.called\"\n"
                                            "[ \"$1\" != complete ] || exec %1 \"$@\"\n")
                                        .arg(tavctlCommand({}).join(' '))
                                        .toUtf8());
        ASSERT_TRUE(QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }

    /// What bash offers when @p words have been typed and the last one is to be completed.
    QStringList offers(const QStringList &words) const
    {
        const Program bash(QStringList{"bash", "-c",
                                       "source \"$1\" && shift && COMP_WORDS=(\"$@\") && COMP_CWORD=$(($# - 1)) && "
                                       "_tavctl && printf '%s\\n' \"${COMPREPLY[@]}\"",
                                       "bash", folder + "tavctl.bash", directory.filePath("tavctl")}
                           + words);
        EXPECT_EQ(bash.exitCode, 0);
        EXPECT_EQ(bash.errors, "");
        return sortedLines(bash.output);
    }

    /// What fish offers for @p line, without the descriptions.
    QStringList offersOfFish(const QString &line) const
    {
        const Program fish({"fish", "--no-config", "-c",
                            "set -x HOME $argv[1]; set PATH $argv[1] $PATH; source $argv[2]; complete -C $argv[3]",
                            directory.path(), folder + "tavctl.fish", line});
        EXPECT_EQ(fish.errors, "");
        return sortedLines(fish.output).replaceInStrings(QRegularExpression("\t.*"), QString());
    }

    /// With which words zsh calls tavctl when @p line is typed and, behind a tab, the line ended.
    QStringList calledByZsh(const QString &line) const
    {
        const QString called = directory.filePath("tavctl.called");
        QFile::remove(called);
        const Program zsh(
            {"zsh", "-f", "-c",
             "zmodload zsh/zpty && zpty shell zsh -f -i &&"
             "zpty -w shell \"HOME=${(q)1} PATH=${(q)1}:\\$PATH fpath=(${(q)2} \\$fpath) PS1=\" &&"
             "zpty -w shell 'autoload -Uz compinit; compinit -u -D; bindkey \"^I\" complete-word' &&"
             "zpty -w shell \"$3\"$'\\t' &&"
             "repeat 300; do [[ ! -s $1/tavctl.called ]] || break; zpty -r -t shell >/dev/null; sleep 0.1; done;"
             "zpty -d shell",
             "zsh", directory.path(), folder, line});
        EXPECT_EQ(zsh.errors, "");
        return QString::fromUtf8(contentOf(called)).split('\n', Qt::SkipEmptyParts);
    }

    static bool isThere(const QString &shell)
    {
        return !QStandardPaths::findExecutable(shell).isEmpty();
    }

private:
    static QStringList sortedLines(const QByteArray &text)
    {
        QStringList lines = QString::fromUtf8(text).split('\n', Qt::SkipEmptyParts);
        lines.sort();
        return lines;
    }
};
}

TEST_F(Completion, OffersWhatTheHelpOfEachCommandNames)
{
    for (const QStringList &command : commands) {
        const QStringList words = wordsInHelp(command);
        const QStringList subcommands = words.filter(QRegularExpression("^[a-z]"));
        EXPECT_TRUE(words.contains("--help")) << command.join(' ').toStdString();
        EXPECT_EQ(offers(command + QStringList{"--"}), words.filter("--")) << command.join(' ').toStdString();
        if (!subcommands.isEmpty()) {
            EXPECT_EQ(offers(command + QStringList{""}), subcommands) << command.join(' ').toStdString();
        }
    }
    EXPECT_EQ(offers({"cat"}), QStringList{"catalogue"});
    EXPECT_EQ(offers({"doctor", ""}),
              QStringList({"--fail-on", "--format", "--help", "--ignore", "--json", "--no-load", "--plugin", "--quiet",
                           "--root", "-h"}))
        << "it takes no file";
    EXPECT_EQ(offers({"catalogue", "encode", "-"}), QStringList({"--help", "--output", "--wrap", "-h", "-o"}));
    EXPECT_EQ(offers({"catalogue", "decode", "-"}), QStringList({"--help", "--lenient", "--output", "-h", "-o"}));
}

TEST_F(Completion, OffersFilesAndDirectories)
{
    const QString catalogue = broken + "/catalogue/no-icon.json";
    EXPECT_EQ(offers({"catalogue", "check", catalogue.chopped(5)}), QStringList{catalogue});
    EXPECT_EQ(offers({"doctor", "--plugin", catalogue.chopped(5)}), QStringList{catalogue});
    EXPECT_EQ(offers({"catalogue", "encode", "-o", catalogue.chopped(5)}), QStringList{catalogue});
    EXPECT_EQ(offers({"doctor", "--root", demoRoot.chopped(2)}), QStringList{demoRoot});
    EXPECT_EQ(offers({"doctor", "--root", catalogue.chopped(5)}), QStringList());
    EXPECT_EQ(offers({"pictures", broken + "/pictures/undec"}), QStringList{broken + "/pictures/undecodable"});
    QStringList pages = typeKeys<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>();
    pages.sort();
    EXPECT_EQ(offers({"run", "--page", ""}), pages);
    EXPECT_EQ(offers({"doctor", "--fail-on", ""}), QStringList({"error", "note", "warning"}));
    EXPECT_EQ(offers({"doctor", "--format", "s"}), QStringList{"sarif"});
    for (const char *const option : {"--root", "--plugin"}) { // the shell takes "=" for a word of its own
        EXPECT_EQ(offers({"doctor", option, "=", demoRoot.chopped(2)}), QStringList{demoRoot});
    }
    EXPECT_EQ(offers({"doctor", "--fail-on", "="}), QStringList({"error", "note", "warning"}));
}

TEST_F(Completion, OffersWhatTheInterfacesHave)
{
    EXPECT_EQ(offers({"call", "ITavAud"}), QStringList{"ITavAuditMgr"});
    EXPECT_EQ(offers({"call", "--root", "/", "ITavAuditMgr", "setAuditM"}),
              QStringList({"setAuditMonthCount", "setAuditMonthFailCount"}));
    EXPECT_EQ(offers({"explain", "TAV10"}).size(), 9);
    EXPECT_EQ(offers({"doctor", "--ignore", "TAV101,TAV102"}), QStringList{"TAV101,TAV102"});
    EXPECT_EQ(offers({"help", "catalogue", "c"}), QStringList{"check"});
}

TEST_F(Completion, IsTheSameInFish)
{
    if (!isThere("fish")) {
        GTEST_SKIP() << "fish is not installed";
    }
    EXPECT_EQ(offersOfFish("tavctl doc"), QStringList{"doctor"});
    EXPECT_EQ(offersOfFish("tavctl catalogue "), QStringList({"check", "decode", "encode", "show"}));
    EXPECT_EQ(offersOfFish("tavctl doctor --fail-on "), QStringList({"error", "note", "warning"}));
    EXPECT_EQ(offersOfFish("tavctl doctor --fail-on=e"), QStringList{"--fail-on=error"});
    EXPECT_EQ(offersOfFish("tavctl doctor --root=" + demoRoot.chopped(2)), QStringList{"--root=" + demoRoot + '/'});
    const QString catalogue = broken + "/catalogue/no-icon.json";
    EXPECT_EQ(offersOfFish("tavctl catalogue check " + catalogue.chopped(5)), QStringList{catalogue});
}

TEST_F(Completion, IsTheSameInZsh)
{
    if (!isThere("zsh")) {
        GTEST_SKIP() << "zsh is not installed";
    }
    EXPECT_EQ(calledByZsh("tavctl doc"), QStringList{"doctor"});
    EXPECT_EQ(calledByZsh("tavctl doctor --fail-on e"), QStringList({"doctor", "--fail-on", "error"}));
    EXPECT_EQ(calledByZsh("tavctl doctor --fail-on=e"), QStringList({"doctor", "--fail-on=error"}));
    EXPECT_EQ(calledByZsh("tavctl doctor --root=" + demoRoot.chopped(2)),
              QStringList({"doctor", "--root=" + demoRoot}));
    const QString catalogue = broken + "/catalogue/no-icon.json";
    EXPECT_EQ(calledByZsh("tavctl catalogue check " + catalogue.chopped(5)),
              QStringList({"catalogue", "check", catalogue}));
}
