#include "CommandHelp.h"
#include "CTavSubFuncTypeHeader.h"
#include "PrintQString.h"
#include "TestFiles.h"
#include "TypeKeys.h"

#include <gtest/gtest.h>

namespace
{
/// What the shell offers when @p words have been typed and the last one is to be completed.
QStringList offers(const QStringList &words)
{
    const Program bash(QStringList{"bash", "-c",
                                   "source \"$1\" && shift && COMP_WORDS=(tavctl \"$@\") && COMP_CWORD=$# && "
                                   "_tavctl && printf '%s\\n' \"${COMPREPLY[@]}\"",
                                   "bash", TAV_SOURCE_DIR "/share/bash-completion/tavctl"}
                       + words);
    EXPECT_EQ(bash.exitCode, 0);
    EXPECT_EQ(bash.errors, "");
    QStringList offered = QString::fromUtf8(bash.output).split('\n', Qt::SkipEmptyParts);
    offered.sort();
    return offered;
}
}

TEST(Completion, OffersWhatTheHelpOfEachCommandNames)
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
                           "--root"}))
        << "it takes no file";
    EXPECT_EQ(offers({"catalogue", "encode", "-"}), QStringList({"--help", "--output", "--wrap", "-o"}));
    EXPECT_EQ(offers({"catalogue", "decode", "-"}), QStringList({"--help", "--lenient", "--output", "-o"}));
}

TEST(Completion, OffersFilesAndDirectories)
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
}
