#include "TavScenario.h"

#include "PrintQString.h"
#include "ScenarioText.h"

#include <QBuffer>
#include <QJsonArray>
#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace
{
using CutLine = TavScenarioReader::CutLine;

const QByteArray count
    = R"({"manager": "ITavNetControlMgr", "operation": "setDeviceInfo", "arguments": [{"devices": [{"state": 1}]}]})";

QVector<TavScenario::Line> linesOf(QByteArray text, CutLine cutLine = CutLine::Refuse, int *cut = nullptr)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TavScenarioReader reader(buffer, cutLine);
    QVector<TavScenario::Line> lines;
    TavScenario::Line line;
    while (reader.next(line)) {
        lines.append(line);
    }
    if (cut) {
        *cut = reader.cutLine();
    }
    return lines;
}

/// What is wrong with a text; empty when nothing is.
QString mistakeIn(const QByteArray &text)
{
    try {
        linesOf(text);
        return {};
    } catch (const TavScenarioError &error) {
        return error.what();
    }
}

/// The same of a text in a file, which is read faster than one in memory.
QString mistakeInFile(const QByteArray &text)
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open());
    EXPECT_EQ(file.write(text), text.size());
    EXPECT_TRUE(file.seek(0));
    try {
        TavScenarioReader reader(file);
        for (TavScenario::Line line; reader.next(line);) { }
        return {};
    } catch (const TavScenarioError &error) {
        return error.what();
    }
}

/// The same with its kind, and its character where that is known.
TavScenarioError errorIn(const QByteArray &text)
{
    try {
        linesOf(text);
    } catch (const TavScenarioError &error) {
        return error;
    }
    ADD_FAILURE() << "no mistake: " << text.left(200).constData();
    return {0, {}, {}};
}

QString mistakeInLine(const QByteArray &line)
{
    return mistakeIn(scenarioOf({line}));
}

/// The line @p text with further keys at its beginning.
QByteArray with(const QByteArray &keys, const QByteArray &text = count)
{
    return '{' + keys + ", " + text.mid(1);
}

bool isAsExpected(const QByteArray &returns, const QJsonValue &actual, QString *difference = nullptr)
{
    const QVector<TavScenario::Line> lines = linesOf(scenarioOf({returns}));
    TavScenario::Difference first;
    const bool same = TavScenario::isAsExpected(lines.first().returns, actual, first);
    if (difference) {
        *difference = first.text();
    }
    return same;
}
}

TEST(Scenario, HasAHeaderOfFreeKeysBehindItsVersion)
{
    QByteArray text = "{\"tavScenario\": 1, \"title\": \"a day\"}\n";
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TavScenarioReader reader(buffer);
    EXPECT_EQ(reader.header()["title"], "a day");
    TavScenario::Line line;
    EXPECT_FALSE(reader.next(line));
}

TEST(Scenario, WithoutAFirstLineOfItsVersionIsNone)
{
    EXPECT_EQ(mistakeIn(""), R"(line 1: the file has no whole line; the first is {"tavScenario": 1})");
    EXPECT_EQ(mistakeIn(count + '\n'), R"(line 1: no scenario: its first line has the key "tavScenario")");
    EXPECT_EQ(mistakeIn("{\"tavScenario\": 2}\n"), "line 1: /tavScenario: the version must be 1, not the number 2");
}

TEST(Scenario, TellsWhenWhereAndWhatALineCalls)
{
    const QVector<TavScenario::Line> lines = linesOf(scenarioOf(
        {with(R"("at": 1.25, "thread": "agent3")"), count, R"({"thread": "gui", "page": "SubFunc_LogAudit"})"}));
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0].at, 1'250'000);
    EXPECT_EQ(TavScenario::threads()[lines[0].thread], "agent3");
    EXPECT_EQ(lines[0].subject(), "ITavNetControlMgr setDeviceInfo");
    EXPECT_EQ(lines[0].number, 2);
    EXPECT_EQ(lines[1].at, 1'250'000) << "without a time: at once after the line before";
    EXPECT_EQ(TavScenario::threads()[lines[1].thread], "agent");
    EXPECT_EQ(lines[2].thread, TavScenario::gui);
    EXPECT_EQ(lines[2].subject(), "page SubFunc_LogAudit");
    EXPECT_EQ(lines[2].manager, "ITavSelectFuncMgr");
}

TEST(Scenario, HasNothingInALineThatHasNotBeenRead)
{
    const TavScenario::Line line;
    EXPECT_EQ(line.number, 0);
    EXPECT_EQ(line.at, 0);
    EXPECT_EQ(line.thread, TavScenario::agent);
    EXPECT_EQ(line.bytes, 0);
}

TEST(Scenario, SelectsNoPageWithoutAManagerForThat)
{
    const QVector<TavScenario::Line> lines = linesOf(scenarioOf({R"({"page": "SubFunc_LogAudit"})"}));
    try {
        lines.first().call({});
        FAIL();
    } catch (const TavCallError &error) {
        EXPECT_EQ(error.path(), "");
        EXPECT_EQ(error.problem(), "there is no selection manager");
    }
}

TEST(Scenario, NamesLineAndPlaceOfAMistake)
{
    const struct {
        QByteArray line;
        QString mistake;
    } mistakes[] = {
        {"", "line 2: the text is empty (character 1)"},
        {"[]", "line 2: an object is expected, not an array"},
        {R"({"at": 1,})", "line 2: nothing stands behind the last comma: remove it (character 10)"},
        {with(R"("time": 1)"),
         "line 2: /time: unknown key (there are: at, thread, manager, operation, "
         "arguments, returns, page)"},
        {with(R"("thraed": "gui")"), "line 2: /thraed: unknown key (nearest: thread)"},
        {R"({"operation": "x", "arguments": []})", "line 2: the key \"manager\" is missing"},
        {R"({"manager": "ITavNetControlMgr", "operation": "getObject"})",
         "line 2: the key \"arguments\" is missing; an operation without any has []"},
        {R"({"manager": "ITavNetMgr", "operation": "getObject", "arguments": []})",
         "line 2: /manager: there is no manager \"ITavNetMgr\" (nearest: ITavAuditMgr)"},
        {R"({"manager": "ITavNetControlMgr", "operation": "getNetCuont", "arguments": []})",
         "line 2: /operation: ITavNetControlMgr has no operation \"getNetCuont\" (nearest: getNetCount)"},
        {R"({"manager": "ITavNetControlMgr", "operation": "getNetCount", "arguments": 7})",
         "line 2: /arguments: expected an array by position or an object by name, not the number 7"},
        {R"({"manager": "ITavNetControlMgr", "operation": "setDeviceInfo", "arguments": [{"devices": [{"stat": 1}]}]})",
         "line 2: /arguments/0/devices/0/stat: unknown key (nearest: state)"},
        {R"({"manager": "ITavNetControlMgr", "operation": "reverseDeviceState", "arguments": {"index": 2147483648}})",
         "line 2: /arguments/index: expected a whole number from -2147483648 to 2147483647, not the number 2147483648"},
        {with(R"("at": -1)"), "line 2: /at: expected seconds from 0 to 1000000000, not the number -1"},
        {with(R"("at": "1")"), "line 2: /at: expected seconds from 0 to 1000000000, not the text \"1\""},
        {with(R"("at": 1e300)"), "line 2: /at: expected seconds from 0 to 1000000000, not the number 1e+300"},
        {with(R"("thread": "agent9")"), "line 2: /thread: there is no thread \"agent9\" (nearest: agent)"},
        {with(R"("thread": "main")"),
         "line 2: /thread: there is no thread \"main\" (there are: agent, agent2, agent3, agent4, agent5, agent6, "
         "agent7, agent8, gui)"},
        {R"({"page": "SubFunc_LogAduit"})",
         "line 2: /page: TavSubFuncTypeHeader_ has no key \"SubFunc_LogAduit\" (nearest: SubFunc_LogAudit)"},
        {R"({"page": 1})", "line 2: /page: expected a text, not the number 1"},
        {R"({"page": "SubFunc_LogAudit", "returns": 1})",
         "line 2: /returns: unknown key (there are: at, "
         "thread, page)"},
        {R"({"manager": "ITavPicResourceMgr", "operation": "getImageRef", "arguments": ["a", "b"]})",
         "line 2: /thread: ITavPicResourceMgr is called on the thread \"gui\" only"},
        {R"({"manager": "ITavHostInfoMgr", "operation": "getResourceInfo", "arguments": []})",
         "line 2: getResourceInfo returns whatever the memory holds until its setter has been called"},
    };
    for (const auto &[line, mistake] : mistakes) {
        EXPECT_EQ(mistakeInLine(line), mistake) << line.constData();
    }
}

TEST(Scenario, TellsTheKindAndTheCharacterOfAMistake)
{
    using Kind = TavScenarioError::Kind;
    const QByteArray head = "{\"tavScenario\": 1}\n";
    const struct {
        QByteArray text;
        Kind kind;
        int column;
    } rows[] = {
        {"", Kind::Header, 0},
        {count + '\n', Kind::Header, 0},
        {"{\"tavScenario\": 2}\n", Kind::Header, 17},
        {head + "[]", Kind::Line, 0},
        {head + R"({"at": 1,})", Kind::Line, 10},
        {head + R"({"at": 1)", Kind::Cut, 0},
        {head + R"({"at": 1, "at": 1})", Kind::Key, 17},
        {head + R"({"time": 1})", Kind::Key, 10},
        {head + R"({"at": 1})", Kind::Key, 0},
        {head + R"({"manager": "M", "operation": "o", "arguments": []})", Kind::Call, 13},
        {head + R"({"manager": "ITavNetControlMgr", "operation": "o", "arguments": []})", Kind::Call, 47},
        {head + R"({"page": 1})", Kind::Call, 10},
        {head + R"({"manager": "ITavNetControlMgr", "operation": "setNetCount", "arguments": [7]})", Kind::Arguments,
         76},
        {head + R"({"at": -1})", Kind::Time, 8},
        {head + R"({"thread": 1})", Kind::Thread, 12},
        {head + with(R"("returns": 1)"), Kind::Returns, 13},
        {head + R"({"manager": "ITavHostInfoMgr", "operation": "getResourceInfo", "arguments": []})",
         Kind::Indeterminate, 0},
    };
    for (const auto &[text, kind, column] : rows) {
        const TavScenarioError error = errorIn(text);
        EXPECT_EQ(int(error.kind()), int(kind)) << error.what();
        EXPECT_EQ(error.column(), column) << error.what();
    }
}

TEST(Scenario, TellsTheCharacterInLinesOfNoMoreThanOneMebibyte)
{
    const QByteArray line = R"({"at": -1})";
    const QByteArray padded = line.chopped(1) + QByteArray((1 << 20) - line.size(), ' ') + '}';
    EXPECT_EQ(errorIn(scenarioOf({padded})).column(), 8);
    EXPECT_EQ(errorIn(scenarioOf({padded + ' '})).column(), 0);
}

TEST(Scenario, NamesNoLineInAMistakeOfTheWholeFile)
{
    EXPECT_STREQ(TavScenarioError(0, {}, "no memory").what(), "no memory");
}

TEST(Scenario, CallsAGetterOfIndeterminateValuesBehindItsSetter)
{
    const QByteArray set = R"({"manager": "ITavHostInfoMgr", "operation": "setResourceInfo", "arguments": [{}]})";
    const QByteArray get = R"({"manager": "ITavHostInfoMgr", "operation": "getResourceInfo", "arguments": []})";
    EXPECT_EQ(mistakeIn(scenarioOf({set, get})), "");
}

TEST(Scenario, GoesOnForThirtyYears)
{
    EXPECT_EQ(mistakeInLine(with(R"("at": 1000000000)")), "");
    EXPECT_NE(mistakeInLine(with(R"("at": 1000000000.1)")), "");
}

TEST(Scenario, NamesAFileThatCannotBeRead)
{
    QFile file("/proc/self/mem"); // has nothing at its beginning
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    try {
        const TavScenarioReader reader(file);
        FAIL();
    } catch (const TavScenarioError &error) {
        EXPECT_EQ(error.what(), "line 1: cannot be read: " + file.errorString().toStdString());
        EXPECT_EQ(int(error.kind()), int(TavScenarioError::Kind::Line));
    }
}

TEST(Scenario, RefusesTimesThatFall)
{
    EXPECT_EQ(mistakeIn(scenarioOf({with("\"at\": 2"), count, with("\"at\": 1.5")})),
              "line 4: /at: the time falls: 1.5 stands behind 2");
}

TEST(Scenario, RefusesAKeyThatStandsTwice)
{
    EXPECT_EQ(mistakeInLine(with(R"("at": 1, "at": 1)")), "line 2: /at: the key stands more than once in its object");
    EXPECT_EQ(mistakeInLine(R"({"manager": "ITavNetControlMgr", "operation": "setDeviceInfo", )"
                            R"("arguments": [{"devices": [{"state": 1, "st\u0061te": 1}]}]})"),
              "line 2: /arguments/0/devices/0/state: the key stands more than once in its object");
}

TEST(Scenario, RefusesWhatIsNoJsonAlthoughQtReadsIt)
{
    EXPECT_EQ(mistakeInLine(with(QByteArray("\"thread\": \"ag\0nt\"", 17))),
              "line 2: a control character must be written as an escape, "
              "such as \\u0000 (character 15)");
    EXPECT_EQ(mistakeInLine(with(R"("thread": "\q")")), "line 2: there is no such escape in JSON (character 14)");
    EXPECT_EQ(mistakeIn("\xef\xbb\xbf" + scenarioOf({})),
              "line 1: only ASCII may stand outside of texts (character 1)");
    EXPECT_EQ(mistakeIn("\x80" + scenarioOf({})), "line 1: only ASCII may stand outside of texts (character 1)");
    EXPECT_EQ(mistakeInLine(with(QByteArray("\0\"at\": 1", 8))), "line 2: a NUL byte stands here (character 2)");
    EXPECT_NE(mistakeInLine(with("\"thread\": \"\xff\"")), "");
}

TEST(Scenario, RefusesDepthAndLengthWithoutHarm)
{
    const QByteArray deep = QByteArray(10000, '[') + QByteArray(10000, ']');
    EXPECT_EQ(mistakeInLine(R"({"manager": "M", "operation": "o", "arguments": )" + deep + '}'),
              "line 2: nested deeper than the reader's 1024 levels (character 1072)");
    EXPECT_EQ(mistakeInFile(scenarioOf({with(R"("thread": ")" + QByteArray(100 << 20, 'x') + '"')})),
              "line 2: longer than 32 MiB");
    const QByteArray page = R"({"page": "SubFunc_LogAudit"})";
    const QByteArray longest = page + QByteArray(int(TavScenarioReader::longestLine) - page.size(), ' ');
    EXPECT_EQ(mistakeInFile(scenarioOf({longest})), "");
    EXPECT_EQ(mistakeInFile(scenarioOf({longest + ' '})), "line 2: longer than 32 MiB");
}

TEST(Scenario, QuotesOnlyTheBeginningOfAVeryLongName)
{
    const QByteArray name(10 << 20, 'x'); // to look for the nearest name would take hours
    const QByteArray lines[] = {R"({"manager": ")" + name + R"(", "operation": "o", "arguments": []})",
                                R"({"manager": "ITavAuditMgr", "operation": ")" + name + R"(", "arguments": []})",
                                R"({"page": ")" + name + "\"}", '{' + ('"' + name + '"') + ": 1}"};
    for (const QByteArray &line : lines) {
        const QString mistake = mistakeInLine(line);
        EXPECT_TRUE(mistake.contains("xxx…")) << mistake.toStdString();
        EXPECT_LT(mistake.size(), 5000);
    }
}

TEST(Scenario, QuotesNoMoreThanAScreenful)
{
    const QString longest(2000, 'x');
    const TavScenarioError whole(7, longest, longest, TavScenarioError::Kind::Line);
    EXPECT_EQ(whole.what(), "line 7: " + longest.toStdString() + ": " + longest.toStdString());
    EXPECT_EQ(whole.path(), longest);
    EXPECT_EQ(whole.problem(), longest);
    const TavScenarioError cut(7, longest + 'y', longest + 'y', TavScenarioError::Kind::Line);
    EXPECT_EQ(cut.path(), longest + "…");
    EXPECT_EQ(cut.problem(), longest + "…");

    TavScenario::Difference difference;
    const QString inQuotes(198, 'x');
    EXPECT_FALSE(TavScenario::isAsExpected(inQuotes, inQuotes + 'y', difference));
    EXPECT_EQ(difference.expected, '"' + inQuotes + '"');
    EXPECT_EQ(difference.actual, '"' + inQuotes + "y…");
}

TEST(Scenario, SaysWhereTheCutLineIsAndReadsWhatIsBeforeItWhenTold)
{
    const QByteArray whole = scenarioOf({with("\"at\": 1"), with("\"at\": 2")});
    const QByteArray cut = whole.chopped(7);
    EXPECT_EQ(mistakeIn(cut),
              "line 3: cut: the file ends within this line; what stands before it can be played as a partial scenario");
    int cutLine = 0;
    EXPECT_EQ(linesOf(cut, CutLine::LeaveOut, &cutLine).size(), 1);
    EXPECT_EQ(cutLine, 3);
}

TEST(Scenario, MayLackTheLastLinesEnd)
{
    int cutLine = -1;
    EXPECT_EQ(linesOf(scenarioOf({count}).chopped(1), CutLine::LeaveOut, &cutLine).size(), 1);
    EXPECT_EQ(cutLine, 0);
}

// Wherever a file ends: its lines up to there are read, and a mistake in a cut line is not taken for another one.
TEST(Scenario, IsReadUpToWhereverItWasCut)
{
    const QByteArray whole = scenarioOf(
        {with("\"at\": 1.5e0"), R"({"page": "SubFunc_LogAudit"})", count,
         R"({"manager": "ITavAccessControlMgr", "operation": "setObjectCount", "arguments": [-7, true, 2]})",
         R"({"manager": "ITavPicResourceMgr", "operation": "appendPicResourcePath", "thread": "gui", )"
         "\"arguments\": [\"/ü\\u00e4\\n\"]}"});
    for (int size = whole.indexOf('\n'); size < whole.size(); ++size) {
        const QByteArray cut = whole.left(size);
        int cutLine = -1;
        const int lines = linesOf(cut, CutLine::LeaveOut, &cutLine).size();
        const bool isWhole = cut.endsWith('\n') || whole[size] == '\n';
        EXPECT_EQ(lines, cut.count('\n') - 1 + (cut.endsWith('}') && isWhole ? 1 : 0)) << size;
        EXPECT_EQ(cutLine != 0, !isWhole) << size;
    }
}

TEST(Scenario, IsCutWithinAWordOrANumberWhateverThatBeginsWith)
{
    for (const char *const cut : {R"({"at":1)", R"({"at": nul)", R"({"at": xyz)", R"({"at": +-.5)"}) {
        EXPECT_EQ(int(errorIn(QByteArray("{\"tavScenario\": 1}\n") + cut).kind()), int(TavScenarioError::Kind::Cut))
            << cut;
    }
}

TEST(Scenario, IsNotCutWhereItsLastLineIsMistakenAndLacksItsEnd)
{
    const struct {
        QByteArray line;
        QString mistake;
    } mistakes[] = {
        {R"({"at": 1,})", "nothing stands behind the last comma: remove it (character 10)"},
        {R"({"at": 1])", "a name, \",\" or \"}\" is expected here (character 9)"},
        {R"({"at" 1)", "\":\" is expected here (character 7)"},
        {R"({"at": 1 "thread": "gu)", "a name, \",\" or \"}\" is expected here (character 10)"},
        {R"({"at": 1 tru)", "a name, \",\" or \"}\" is expected here (character 10)"},
        {R"({"at": 1 "thr)", "a name, \",\" or \"}\" is expected here (character 10)"},
        {R"({"at" "x)", "\":\" is expected here (character 7)"},
        {R"({"at": tru})", "a value is expected here (character 8)"},
        {R"({"at": 1} "page)", "the text goes on behind its end (character 11)"},
        {R"({"thread": "\q)", "there is no such escape in JSON (character 14)"},
    };
    for (const auto &[line, mistake] : mistakes) {
        const QByteArray text = "{\"tavScenario\": 1}\n" + line;
        EXPECT_EQ(mistakeIn(text), "line 2: " + mistake) << line.constData();
        EXPECT_THROW(linesOf(text, CutLine::LeaveOut), TavScenarioError) << line.constData();
    }
}

TEST(ScenarioReturns, NameOnlyTheFieldsToCompare)
{
    const QByteArray get = R"({"manager": "ITavNetControlMgr", "operation": "getDeviceInfo", "arguments": [], )"
                           R"("returns": {"devices": [{"state": 1}]}})";
    const QJsonObject device{{"name", "eth0"}, {"state", 1}};
    EXPECT_TRUE(isAsExpected(get, QJsonObject{{"devices", QJsonArray{device}}}));
    QString difference;
    EXPECT_FALSE(isAsExpected(get, QJsonObject{{"devices", QJsonArray{QJsonObject{{"state", 2}}}}}, &difference));
    EXPECT_EQ(difference, "returned something else at /devices/0/state\n  expected: 1\n  returned: 2");
    EXPECT_FALSE(isAsExpected(get, QJsonObject{{"devices", QJsonArray{device, device}}}, &difference));
    EXPECT_EQ(difference,
              "returned something else at /devices/1\n  expected: nothing\n  returned: "
              "{\"name\":\"eth0\",\"state\":1}");
    EXPECT_FALSE(isAsExpected(get, QJsonObject(), &difference));
    EXPECT_EQ(difference, "returned something else at /devices\n  expected: [{\"state\":1}]\n  returned: nothing");
}

TEST(ScenarioReturns, NameAListWithoutElementsAsAnEmptyOne)
{
    const QByteArray get = R"({"manager": "ITavNetControlMgr", "operation": "getDeviceInfo", "arguments": [], )";
    const QByteArray none = get + R"("returns": {"devices": []}})";
    EXPECT_TRUE(isAsExpected(none, QJsonObject())) << "a message leaves such a list out";
    QString difference;
    EXPECT_FALSE(isAsExpected(none, QJsonObject{{"devices", QJsonArray{QJsonObject()}}}, &difference));
    EXPECT_EQ(difference, "returned something else at /devices/0\n  expected: nothing\n  returned: {}");

    const QByteArray withoutAddress = get + R"("returns": {"devices": [{"addresses": []}]}})";
    EXPECT_TRUE(isAsExpected(withoutAddress, QJsonObject{{"devices", QJsonArray{QJsonObject()}}}));
    const QJsonObject device{{"addresses", QJsonArray{"10.0.0.1/8"}}};
    EXPECT_FALSE(isAsExpected(withoutAddress, QJsonObject{{"devices", QJsonArray{device}}}, &difference));
    EXPECT_FALSE(isAsExpected(withoutAddress, QJsonObject(), &difference));
}

TEST(ScenarioReturns, AreComparedAsValuesWhateverTheirForm)
{
    // Numbers of 64 bits are written as text, and read as numbers, too.
    const QByteArray changed = R"({"manager": "ITavSystemConfigMgr", "operation": "getOnlineState", "arguments": [], )"
                               R"("returns": {"change_time": 5}})";
    EXPECT_TRUE(isAsExpected(changed, QJsonObject{{"change_time", "5"}}));
    EXPECT_FALSE(isAsExpected(changed, QJsonObject{{"change_time", "6"}}));
    EXPECT_TRUE(isAsExpected(R"({"manager": "ITavAccessControlMgr", "operation": "getUserDetail", "arguments": [1], )"
                             R"("returns": [{"userName": {"bytes": "YWJj"}}]})",
                             QJsonArray{QJsonObject{{"userName", "abc"}}}));
}

TEST(ScenarioReturns, NameWhatIsComparedOfAPicture)
{
    const QByteArray get = R"({"thread": "gui", "manager": "ITavPicResourceMgr", "operation": "getImageRef", )"
                           R"("arguments": ["a", "b"], "returns": )";
    const QJsonObject small{{"width", 3}, {"height", 2}, {"format", "Format_ARGB32"}};
    for (const char *const same : {R"({"width": 3}})", R"({"height": 2}})", R"({"format": "Format_ARGB32"}})"}) {
        EXPECT_TRUE(isAsExpected(get + same, small)) << same;
    }
    for (const char *const other : {R"({"width": 2}})", R"({"height": 3}})", R"({"format": "Format_RGB32"}})"}) {
        EXPECT_FALSE(isAsExpected(get + other, small)) << other;
    }
}

TEST(ScenarioReturns, AreReadAsStrictlyAsArguments)
{
    EXPECT_EQ(mistakeInLine(R"({"manager": "ITavNetControlMgr", "operation": "getDeviceInfo", "arguments": [], )"
                            R"("returns": {"device": []}})"),
              "line 2: /returns/device: unknown key (nearest: devices)");
    EXPECT_EQ(mistakeInLine(R"({"manager": "ITavNetControlMgr", "operation": "getObject", "arguments": [], )"
                            R"("returns": 7})"),
              "line 2: /returns: expected the name of a class or null, not the number 7");
    const QByteArray picture = R"({"thread": "gui", "manager": "ITavPicResourceMgr", "operation": "getImageRef", )"
                               R"("arguments": ["a", "b"], "returns": )";
    EXPECT_EQ(mistakeInLine(picture + R"({"width": "16"}})"),
              "line 2: /returns/width: expected a whole number from -2147483648 to 2147483647, not the text \"16\"");
    EXPECT_EQ(mistakeInLine(picture + R"({"format": "Format_ARGB23"}})"),
              "line 2: /returns/format: Format has no key \"Format_ARGB23\" (nearest: Format_ARGB32)");
    EXPECT_EQ(mistakeInLine(picture + R"({"height": 16, "format": "Format_ARGB32"}})"), "");
    EXPECT_EQ(mistakeInLine(picture + "null}"), "");
    EXPECT_EQ(mistakeInLine(with(R"("returns": true)")),
              "line 2: /returns: the operation returns nothing, which is null");
}
