#include "FindingLines.h"
#include "PrintQString.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace
{
class FileFixing : public TestFiles
{
protected:
    static Tavctl fix(const QString &kind, const QString &file, const QStringList &more = {})
    {
        const QStringList root = kind == "baseline" ? QStringList{"--root", brokenRoot} : QStringList();
        return Tavctl(QStringList{kind, "check", "--fix", file} + root + more);
    }

    /// The text of the file when it is mended.
    QByteArray fixedText(const QString &kind, const QByteArray &text)
    {
        const QString file = put("file", text);
        fix(kind, file);
        return contentOf(file);
    }

    static int countIn(const QString &summary, const QString &what)
    {
        return QRegularExpression("(\\d+) " + what).match(summary).captured(1).toInt();
    }
};

const QByteArray page = R"("subFuncTitile": "t", "subFuncClassName": "I"})";

/// A catalogue of one function with these pages.
QByteArray withPages(const QByteArray &pages)
{
    return R"([{"funcType": "Func_HostInfo", "funcTitle": "t", "funcIcon": "i", "subFunList": [)" + pages + "]}]";
}
}

TEST_F(FileFixing, MendsWhatHasOneSafeAnswerAndLeavesTheRestOfTheTextAlone)
{
    const QByteArray item = R"({"enableConfig": [{"itemId":  1, "name": "\u7532", "checkValueScript": "/check.sh"}]})";
    const QByteArray type = R"({"subFuncType": "SubFunc_LogAudit", )" + page;
    struct {
        const char *kind;
        QByteArray broken;
        QByteArray mended;
    } const rows[] = {
        {"baseline", QByteArray(item).replace("\"name\"", "\"nam\""), item},
        {"baseline", QByteArray(item).replace("/check.sh", "check.sh"), item},
        {"baseline", "\xef\xbb\xbf" + item, item},
        {"baseline", item.toBase64(), item},
        {"catalogue", withPages(QByteArray(type).replace("LogAudit", "logaudit")), withPages(type)},
        {"catalogue", withPages(QByteArray(type).replace("SubFunc_L", "CTavSubFuncTypeHeader::SubFunc_L")),
         withPages(type)},
        {"catalogue", "-----BEGIN DATA-----\n" + withPages(type).toBase64() + "\n-----END DATA-----\n",
         withPages(type).toBase64() + '\n'},
        {"catalogue", withPages(type).toBase64().toBase64(), withPages(type).toBase64()},
        {"catalogue", withPages(type).toBase64().insert(10, '*'), withPages(type).toBase64()},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(fixedText(row.kind, row.broken), row.mended);
    }
}

TEST_F(FileFixing, WritesUtf16AsUtf8)
{
    const QByteArray item = R"({"enableConfig": [{"itemId": 1, "name": "甲", "checkValueScript": "/check.sh"}]})";
    const QString text = QString::fromUtf8(item);
    const QByteArray littleEndian(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    QByteArray bigEndian;
    for (int i = 0; i < littleEndian.size(); i += 2) {
        bigEndian += littleEndian.mid(i + 1, 1) + littleEndian.mid(i, 1);
    }
    for (const QByteArray &bytes :
         {littleEndian, bigEndian, "\xff\xfe" + littleEndian, QByteArray("\xfe\xff") + bigEndian}) {
        EXPECT_EQ(fixedText("baseline", bytes), item);
    }
}

TEST_F(FileFixing, LeavesATypeAloneThatWouldStandTwiceOrBeNoParent)
{
    const QByteArray taken = withPages(R"({"subFuncType": "SubFunc_LogAudit", )" + page
                                       + R"(, {"subFuncType": "SubFunc_LogAudi", )" + page);
    EXPECT_EQ(fixedText("catalogue", taken), taken);
    const QByteArray both = withPages(R"({"subFuncType": "SubFunc_LogAudi", )" + page
                                      + R"(, {"subFuncType": "SubFunc_logAudit", )" + page);
    EXPECT_EQ(fixedText("catalogue", both), QByteArray(both).replace("SubFunc_LogAudi\"", "SubFunc_LogAudit\""));
    const QByteArray orphan = withPages(
        R"({"subFuncType": "SubFunc_LogAudit", "subFuncHasParent": false, "realParentType": "SubFunc_ObjectAd", )"
        + page);
    EXPECT_EQ(fixedText("catalogue", orphan), orphan);
    const QByteArray child = orphan.chopped(3) + R"(, {"subFuncType": "SubFunc_ObjectAdd", )" + page + "]}]";
    EXPECT_EQ(fixedText("catalogue", child), QByteArray(child).replace("SubFunc_ObjectAd\"", "SubFunc_ObjectAdd\""));
}

TEST_F(FileFixing, FindsNothingAgainOfWhatItHasFixed)
{
    int filesFixed = 0;
    for (const char *const kind : {"catalogue", "baseline"}) {
        const QDir files(broken + '/' + kind);
        for (const QString &name : files.entryList(QDir::Files)) {
            const QByteArray before = contentOf(files.filePath(name));
            const QString file = put(name, before);
            const QStringList root = kind == QByteArray("baseline") ? QStringList{"--root", brokenRoot} : QStringList();
            const Tavctl planned = fix(kind, file, {"--dry-run"});
            EXPECT_EQ(contentOf(file), before) << "nothing is changed in a dry run";
            const Tavctl fixed = fix(kind, file);
            EXPECT_EQ(fixed.errors, "");
            const int count = countIn(fixed.output, "fixed");
            EXPECT_EQ(countIn(planned.output, "to fix"), count) << name.toStdString();
            EXPECT_EQ(contentOf(file) != before, count > 0) << name.toStdString();
            EXPECT_EQ(countIn(fix(kind, file).output, "fixed"), 0) << name.toStdString();
            filesFixed += count > 0 ? 1 : 0;
        }
    }
    EXPECT_EQ(filesFixed, 20);
}

TEST_F(FileFixing, KeepsBase64AsItIsWrapped)
{
    const QByteArray text = withPages(R"({"subFuncType": "SubFunc_logAudit", )" + page);
    const QByteArray mended = QByteArray(text).replace("logAudit", "LogAudit");
    for (const int width : {0, 20, 76}) {
        const QByteArray before
            = Tavctl({"catalogue", "encode", "--wrap", QString::number(width), put("a", text)}).bytes;
        const QByteArray after
            = Tavctl({"catalogue", "encode", "--wrap", QString::number(width), put("a", mended)}).bytes;
        EXPECT_EQ(fixedText("catalogue", before), after) << width;
    }
}

TEST_F(FileFixing, LeavesTheModeAndTheLinkThatLeadsToAFile)
{
    const QString file = put("file", R"({"enabelConfig": []})");
    ASSERT_EQ(chmod(QFile::encodeName(file).constData(), 0640), 0);
    if (geteuid() == 0) {
        ASSERT_EQ(chown(QFile::encodeName(file).constData(), 4711, 4712), 0);
    }
    const QString link = directory.filePath("link");
    ASSERT_TRUE(QFile::link(file, link));
    struct stat before = {};
    ASSERT_EQ(stat(QFile::encodeName(file).constData(), &before), 0);
    EXPECT_TRUE(fix("baseline", link).output.contains(", 1 fixed, "));
    struct stat after = {};
    ASSERT_EQ(stat(QFile::encodeName(file).constData(), &after), 0);
    EXPECT_EQ(contentOf(file), R"({"enableConfig": []})");
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden), QStringList({"file", "link"}));
}

TEST_F(FileFixing, LeavesAFileWholeThatItMayNotReplace)
{
    const QString file = put("folder/file", R"({"enabelConfig": []})");
    ASSERT_TRUE(QFile::setPermissions(directory.filePath("folder"), QFile::ReadOwner | QFile::ExeOwner));
    const Tavctl run = Tavctl::boundByPermissions({"baseline", "check", "--fix", file});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.errors.startsWith("tavctl: " + file + ": cannot be written: ")) << run.errors.toStdString();
    EXPECT_EQ(contentOf(file), R"({"enabelConfig": []})");
    ASSERT_TRUE(QFile::setPermissions(directory.filePath("folder"), QFile::Permissions(0x7700)));
}

TEST_F(FileFixing, RefusesStandardInputBeforeItChangesAnything)
{
    const QString file = put("file", R"({"enabelConfig": []})");
    for (const char *const kind : {"catalogue", "baseline"}) {
        const Tavctl run({kind, "check", "--fix", file, "-"});
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_EQ(run.errors, "tavctl: -: --fix mends files, and standard input is none; name the file\n");
        EXPECT_EQ(run.output, "");
    }
    EXPECT_EQ(contentOf(file), R"({"enabelConfig": []})");
}

TEST_F(FileFixing, LeavesAloneWhatIsIgnored)
{
    const QByteArray text = "\xef\xbb\xbf"
                            R"({"enabelConfig": []})";
    const QString file = put("file", text);
    fix("baseline", file, {"--ignore", "TAV112,TAV118"});
    EXPECT_EQ(contentOf(file), text);
    fix("baseline", file, {"--ignore", "TAV118"});
    EXPECT_EQ(contentOf(file), QByteArray(text).replace("enabelConfig", "enableConfig"));
    put("tavctl.json", R"({"ignore": {"TAV112": "another program reads it"}})");
    put("file", text);
    fix("baseline", file);
    EXPECT_EQ(contentOf(file), text.mid(3));
}

TEST_F(FileFixing, ADryRunPrintsADiffWithTheLinesAroundAndTheFindingsThatStay)
{
    const QString file = put("file", R"({"enableConfig": [
{"itemId": 1,
"nam": "a",
"checkValueScript": "check.sh"},
{
"itemId": 2,
"name": "b",
"checkValueScript": "/check.sh"
},
{
"itemId": 3,
"name": "c",
"checkValueScript": "check.sh"}]})");
    const Tavctl run = fix("baseline", file, {"--dry-run"});
    EXPECT_EQ(run.output.section("\n" + file, 0, 0).replace(file, "@"), R"(--- @
+++ @
@@ -1,7 +1,7 @@
 {"enableConfig": [
 {"itemId": 1,
-"nam": "a",
-"checkValueScript": "check.sh"},
+"name": "a",
+"checkValueScript": "/check.sh"},
 {
 "itemId": 2,
 "name": "b",
@@ -10,4 +10,4 @@
 {
 "itemId": 3,
 "name": "c",
-"checkValueScript": "check.sh"}]}
\ No newline at end of file
+"checkValueScript": "/check.sh"}]}
\ No newline at end of file)");
    EXPECT_TRUE(run.output.endsWith(", 3 to fix, 3 findings: 3 errors\n")) << run.output.toStdString();
    EXPECT_EQ(run.exitCode, 1);
    const QString base64 = put("base64", R"([{"funcTyp": "Func_HostInfo"}])");
    EXPECT_TRUE(fix("catalogue", base64, {"--dry-run"}).output.startsWith("--- " + base64 + '\n'));
    put("base64", contentOf(base64).toBase64());
    EXPECT_TRUE(
        fix("catalogue", base64, {"--dry-run"}).output.startsWith("--- " + base64 + " (the JSON text in it)\n"));
    put("base64", contentOf(base64).insert(4, '*'));
    EXPECT_TRUE(fix("catalogue", base64, {"--dry-run"})
                    .output.startsWith(base64 + ": would be written as UTF-8 in Base64\n--- " + base64));
    EXPECT_EQ(Tavctl({"baseline", "check", "--dry-run", file}).exitCode, 2) << "without --fix";
    EXPECT_EQ(fix("baseline", file, {"--dry-run", "--json"}).exitCode, 2);
}
