#include "CommandHelp.h"
#include "PrintQString.h"
#include "TestFiles.h"

#include <gtest/gtest.h>

TEST(Manual, NamesEveryCommandAndItsOptions)
{
    const QString page = QString::fromUtf8(contentOf(TAV_SOURCE_DIR "/share/man/tavctl.1")).remove('\\');
    for (const QStringList &command : commands) {
        const QStringList words = wordsInHelp(command);
        if (!words.filter(QRegularExpression("^[a-z]")).isEmpty()) {
            continue; // its commands have sections of their own
        }
        const QString section = page.section("\n.SS " + command.join(' ') + '\n', 1).section("\n.S", 0, 0);
        EXPECT_FALSE(section.isEmpty()) << command.join(' ').toStdString();
        for (const QString &word : words) {
            EXPECT_TRUE(word == "--help" || section.contains(word))
                << command.join(' ').toStdString() << ' ' << word.toStdString();
        }
    }
}

TEST(Manual, SetsNoBlankBeforeAComma)
{
    const QString page = QString::fromUtf8(contentOf(TAV_SOURCE_DIR "/share/man/tavctl.1"));
    const QStringList lines = page.split('\n').filter(QRegularExpression("^\\.[BI] .* [,.;]$"));
    EXPECT_EQ(lines, QStringList());
}

TEST(Manual, CanBeTypesetWithoutAWarning)
{
    const Program groff({"groff", "-man", "-Tutf8", "-ww", "-z", TAV_SOURCE_DIR "/share/man/tavctl.1"});
    EXPECT_EQ(groff.exitCode, 0);
    EXPECT_EQ(groff.errors, "");
}
