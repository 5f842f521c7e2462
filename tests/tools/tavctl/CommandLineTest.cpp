#include "PrintQString.h"
#include "Tavctl.h"
#include "TestFiles.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <sys/stat.h>

using CommandLine = TestFiles;

TEST_F(CommandLine, EndsWithTwoAndOneLineWhenItCannotRun)
{
    const QString item = broken + "/baseline/no-name.json";
    const QString pipe = directory.filePath("pipe");
    ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), 0600), 0);
    struct {
        QStringList arguments;
        QString error;
    } const rows[] = {
        {{"catalogue", "check", "/nowhere"}, "/nowhere: there is no such file"},
        {{"catalogue", "check", "/now\033here"}, "/now�here: there is no such file"},
        {{"catalogue", "check", "--json", "/nowhere"}, "/nowhere: there is no such file"},
        {{"catalogue", "check", "/tmp"}, "/tmp: not a regular file"},
        {{"catalogue", "show", pipe}, pipe + ": not a regular file"},
        {{"baseline", "check", pipe}, pipe + ": not a regular file"},
        {{"catalogue", "encode", item, "-o", "/nowhere/x"}, "/nowhere/x: cannot be written: No such file or directory"},
        {{"catalogue", "encode", item, "-o", "/dev/full"}, "/dev/full: cannot be written: No space left on device"},
        {{"catalogue", "decode", item}, item + ":1:1: not Base64; this is JSON already"},
        {{"catalogue", "encode", demoRoot + "/etc/tavsec.d/funcTypeConfig.json"},
         demoRoot + "/etc/tavsec.d/funcTypeConfig.json: this is the Base64 text of JSON already"},
        {{"catalogue", "check", "/proc/self/mem"}, "/proc/self/mem: cannot be read: Input/output error"},
        {{"pictures", "/nowhere"}, "/nowhere: there is no such directory"},
        {{"pictures", item}, item + ": not a directory"},
        {{"catalogue", "checks", "x"},
         "there is no command \"checks\" (nearest: check); \"tavctl catalogue --help\" tells what there is"},
        {{"fly"},
         "there is no command \"fly\" (there are: run, registry, operations, call, record, play, scenario, catalogue, "
         "baseline, pictures, doctor, new-page, explain, help); "
         "\"tavctl --help\" tells what there is"},
        {{"catalogue", "check", ""}, "FILE: the name is empty; \"tavctl catalogue check --help\" tells what there is"},
        {{"catalogue", "encode", item, "-o", ""},
         "--output: the name is empty; \"tavctl catalogue encode --help\" tells what there is"},
        {{"pictures", demoRoot, ""}, "DIR: the name is empty; \"tavctl pictures --help\" tells what there is"},
        {{"doctor", "--plugin", ""}, "--plugin: the name is empty; \"tavctl doctor --help\" tells what there is"},
        {{"baseline", "show", item, "--plugin", "/tmp"},
         "/tmp: not a regular file; name libTavDataPlugin.so with --plugin"},
        {{"catalogue", "show", item},
         item + ": the plugin builds no navigation from it; \"tavctl catalogue check\" says why"},
        {{"baseline", "show", broken + "/baseline/no-items.json"},
         broken
             + "/baseline/no-items.json: the plugin loads no check item from it; \"tavctl baseline check\" says why"},
        {{"baseline", "show", item, "--plugin", "/nowhere"},
         "/nowhere: there is no such file; install the plugin, or name its file with --plugin"},
    };
    for (const auto &row : rows) {
        const Tavctl run(row.arguments);
        EXPECT_EQ(run.exitCode, 2) << row.arguments.join(' ').toStdString();
        EXPECT_EQ(run.errors, "tavctl: " + row.error + '\n');
        EXPECT_EQ(run.output, "");
    }
}

TEST_F(CommandLine, SaysWhatToWriteInPlaceOfWhatItDoesNotTake)
{
    struct {
        QStringList arguments;
        QString error;
        QString command; // whose help tells more
    } const rows[] = {
        {{},
         "a command is missing (there are: run, registry, operations, call, record, play, scenario, catalogue, "
         "baseline, pictures, doctor, new-page, explain, help), as in \"tavctl run\"",
         ""},
        {{"scenario"},
         "a command is missing (there are: check, show, info, end), as in \"tavctl scenario check FILE\"",
         "scenario"},
        {{"--quick"}, "there is no option \"--quick\" (there are: --help, --version)", ""},
        {{"pictures"}, "DIR is missing, as in \"tavctl pictures DIR\"", "pictures"},
        {{"call", "ITavAuditMgr"}, "OPERATION is missing, as in \"tavctl call MANAGER OPERATION\"", "call"},
        {{"new-page", "A"}, "--page is missing, as in \"tavctl new-page NAME --page KEY\"", "new-page"},
        {{"doctor", "--rot", "/"}, "there is no option \"--rot\" (nearest: --root)", "doctor"},
        {{"catalogue", "check", "--fail-onn=note"},
         "there is no option \"--fail-onn=note\" (nearest: --fail-on)",
         "catalogue check"},
        {{"doctor", "here"}, "\"here\" is one word too many for \"tavctl doctor\"", "doctor"},
        {{"doctor", "--root"}, "a value is missing, as in \"--root DIR\"", "doctor"},
        {{"doctor", "--root", "/", "--root", "/tmp"}, "--root stands there more than once", "doctor"},
        {{"doctor", "--root", "/nowhere"}, "--root: there is no directory \"/nowhere\"", "doctor"},
        {{"doctor", "--fail-on", "bad"}, "--fail-on: \"bad\" is not known (there are: error, note, warning)", "doctor"},
        {{"doctor", "--format", "sarf"}, "--format: \"sarf\" is not known (nearest: sarif)", "doctor"},
        {{"doctor", "--format", "jsonl", "--json"}, "--format and --json exclude each other", "doctor"},
        {{"catalogue", "check", "a", "--dry-run"}, "--dry-run is taken together with --fix alone", "catalogue check"},
        {{"catalogue", "encode", "a", "--wrap", "-1"},
         "--wrap: expected 0 or a whole number, not \"-1\"",
         "catalogue encode"},
        {{"record", "a", "--for", "long"},
         "--for: expected a time such as 500ms, 60s, 2m or 1h, not \"long\"",
         "record"},
    };
    for (const auto &row : rows) {
        const Tavctl run(row.arguments);
        EXPECT_EQ(run.exitCode, 2) << row.arguments.join(' ').toStdString();
        const QString help = QString("tavctl %1 --help").arg(row.command).simplified();
        EXPECT_EQ(run.errors, QString("tavctl: %1; \"%2\" tells what there is\n").arg(row.error, help));
        EXPECT_EQ(run.output, "");
    }
}

TEST_F(CommandLine, DoesNotTakeAnUnreadableStandardInputForAnEmptyFile)
{
    const Tavctl ofDirectory({"catalogue", "check", "-"}, "/tmp");
    EXPECT_EQ(ofDirectory.exitCode, 2);
    EXPECT_EQ(ofDirectory.errors, "tavctl: -: cannot be read: Is a directory\n");
    const Program closed(QStringList{"sh", "-c", "exec \"$@\" <&-", "sh"} + tavctlCommand({"catalogue", "check", "-"}));
    EXPECT_EQ(closed.exitCode, 2);
    EXPECT_EQ(closed.errors, "tavctl: -: cannot be read: Bad file descriptor\n");
}

TEST_F(CommandLine, DoesNotCallLostOutputSuccess)
{
    const QString item = broken + "/baseline/no-name.json";
    for (const QStringList &arguments :
         {QStringList{"--help"}, QStringList{"registry"}, QStringList{"baseline", "check", item}}) {
        for (const char *const redirected : {"exec \"$@\" >/dev/full", "exec \"$@\" >&-"}) {
            const Program run(QStringList{"sh", "-c", redirected, "sh"} + tavctlCommand(arguments));
            EXPECT_EQ(run.exitCode, 2) << redirected << arguments.join(' ').toStdString();
            EXPECT_EQ(run.errors, "tavctl: standard output: cannot be written\n");
        }
    }
}

TEST_F(CommandLine, UseNoColoursWhenPiped)
{
    const QStringList commands[] = {
        {"catalogue", "show", demoRoot + "/etc/tavsec.d/funcTypeConfig.json"},
        {"catalogue", "check", broken + "/catalogue/no-icon.json"},
        {"baseline", "show", demoRoot + "/etc/tavsec.d/baselineConfig/baseline.json"},
        {"baseline", "check", broken + "/baseline/no-name.json"},
        {"pictures", broken + "/pictures/undecodable"},
        {"doctor", "--root", brokenRoot},
    };
    for (const QStringList &command : commands) {
        const Tavctl run(command);
        EXPECT_FALSE(run.output.isEmpty());
        EXPECT_FALSE(run.output.contains('\033')) << command.join(' ').toStdString();
    }
}

TEST_F(CommandLine, TellsItsVersion)
{
    const QRegularExpression version("^tavctl " TAV_VERSION "\n"
                                     "commit ([0-9a-f]{12}( with changes)?|unknown), [A-Za-z]* build\n"
                                     "built with Qt " QT_VERSION_STR ", running with Qt 5\\.[0-9.]+\n$");
    const QString output = Tavctl({"--version"}).output;
    EXPECT_TRUE(output.contains(version)) << output.toStdString();
    EXPECT_EQ(Tavctl({"-V"}).output, output);
}

TEST_F(CommandLine, TellsInItsVersionWhichCommitWasBuilt)
{
    const Program git({"git", "-C", TAV_SOURCE_DIR, "rev-parse", "--short=12", "HEAD"});
    if (git.exitCode != 0) {
        GTEST_SKIP() << "not built in a repository";
    }
    EXPECT_TRUE(Tavctl({"--version"}).output.contains("\ncommit " + QString::fromUtf8(git.output).trimmed()))
        << git.output.constData();
}

TEST_F(CommandLine, HelpsAsTheOptionOfTheCommandDoes)
{
    EXPECT_EQ(Tavctl({"help"}).output, Tavctl({"--help"}).output);
    EXPECT_EQ(Tavctl({"help", "run"}).output, Tavctl({"run", "--help"}).output);
    EXPECT_EQ(Tavctl({"help", "catalogue"}).output, Tavctl({"catalogue", "--help"}).output);
    EXPECT_EQ(Tavctl({"help", "catalogue", "check"}).output, Tavctl({"catalogue", "check", "--help"}).output);
}

TEST_F(CommandLine, HelpsOnEveryCommandThatAWordNames)
{
    EXPECT_EQ(Tavctl({"help", "check"}).output,
              Tavctl({"scenario", "check", "--help"}).output + Tavctl({"catalogue", "check", "--help"}).output
                  + Tavctl({"baseline", "check", "--help"}).output);
    const Tavctl unknown({"help", "catalogue", "checks"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_EQ(
        unknown.errors,
        "tavctl: there is no command \"checks\" (nearest: check); \"tavctl catalogue --help\" tells what there is\n");
}

TEST_F(CommandLine, AWrongCommandLineEndsWithTwo)
{
    EXPECT_EQ(Tavctl({}).exitCode, 2);
    EXPECT_EQ(Tavctl({"fly"}).exitCode, 2);
    EXPECT_EQ(Tavctl({"run", "--root", "/nowhere"}).exitCode, 2);
    EXPECT_EQ(Tavctl({"--help"}).exitCode, 0);
}
