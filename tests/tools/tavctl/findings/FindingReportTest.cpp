#include "FindingLines.h"
#include "JsonSchema.h"
#include "PrintQString.h"
#include "TerminalProgram.h"

#include <gtest/gtest.h>

namespace
{
QJsonObject schemaIn(const QString &file)
{
    return QJsonDocument::fromJson(contentOf(QString(TAV_SOURCE_DIR) + '/' + file)).object();
}

/// @brief Checks one list of check items in which there is an error and a warning.
class FindingReport : public TestFiles
{
protected:
    FindingReport()
    {
        put("opt/tavsec/script/baselineScript/check.sh", "#!/bin/sh\n");
        QFile::setPermissions(directory.filePath("opt/tavsec/script/baselineScript/check.sh"),
                              QFile::ReadOwner | QFile::ExeOwner);
        file = put("items.json", R"({"enableConfig": [
    {"itemId": "7", "name": "a", "checkValueScript": "/check.sh", "colour": 1}]})");
    }

    Tavctl check(const QStringList &options) const
    {
        return Tavctl(QStringList{"baseline", "check", file, "--root", directory.path()} + options);
    }

    QString checked() const
    {
        return "1 file checked with the scripts below " + directory.path();
    }

    QString file;
};
}

TEST_F(FindingReport, FailsOnTheSeverityThatIsAskedFor)
{
    EXPECT_EQ(check({}).exitCode, 1);
    EXPECT_EQ(check({"--ignore", "TAV110"}).exitCode, 1) << "a warning is left";
    EXPECT_EQ(check({"--ignore", "TAV110", "--fail-on", "error"}).exitCode, 0);
    EXPECT_EQ(check({"--ignore", "TAV110", "--fail-on", "note"}).exitCode, 1);
    EXPECT_EQ(check({"--fail-on", "error"}).exitCode, 1);
    EXPECT_EQ(check({"--fail-on", "fatal"}).exitCode, 2);
}

TEST_F(FindingReport, LeavesOutWhatIsIgnoredAndCountsIt)
{
    const Tavctl run = check({"--ignore", "TAV110,TAV111"});
    EXPECT_EQ(run.output, checked() + ", no findings, 2 ignored\n");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(check({"--ignore", "TAV110", "--ignore", "TAV111"}).output, run.output);
    EXPECT_EQ(check({"--ignore", "tav110,tav111"}).output, run.output);
    const Tavctl unknown = check({"--ignore", "TAV999"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_TRUE(unknown.errors.contains("\"TAV999\" is no code of a finding")) << unknown.errors.toStdString();
}

TEST_F(FindingReport, IgnoresWhatTheFileBesideTheConfigurationGivesAReasonFor)
{
    const QString ignoreFile = put("tavctl.json", R"({"ignore": {"TAV111": "read by another program"}})");
    EXPECT_TRUE(check({}).output.endsWith(checked() + ", 1 finding: 1 error, 1 ignored\n"));
    struct {
        QByteArray text;
        QString error;
    } const rows[] = {
        {R"({"ignore": {"TAV111": " "}})", "TAV111: the reason is missing"},
        {R"({"ignore": {"TAV999": "why"}})", R"("TAV999" is no code of a finding; "tavctl explain" lists them)"},
        {R"({"ignored": {}})", R"(expected {"ignore": {"TAV101": "the reason", …}})"},
        {R"({"ignore": ["TAV111"]})", R"(expected {"ignore": {"TAV101": "the reason", …}})"},
        {"{", R"(not JSON: a name, "," or "}" is expected here)"},
    };
    for (const auto &row : rows) {
        put("tavctl.json", row.text);
        const Tavctl run = check({});
        EXPECT_EQ(run.errors, "tavctl: " + ignoreFile + ": " + row.error + '\n');
        EXPECT_EQ(run.exitCode, 2);
    }
}

TEST_F(FindingReport, QuietPrintsTheLastLineAlone)
{
    EXPECT_EQ(check({"--quiet"}).output, checked() + ", 2 findings: 1 error, 1 warning\n");
    const Tavctl doctor({"doctor", "--root", demoRoot, "--quiet"});
    EXPECT_EQ(doctor.output, "5 parts checked, no findings\n");
    EXPECT_EQ(doctor.exitCode, 0);
}

TEST_F(FindingReport, ItsJsonConformsToTheSchema)
{
    const QJsonObject schema = schemaIn("share/schemas/findings.schema.json");
    const QJsonObject document = check({"--json"}).json();
    EXPECT_TRUE(conforms(schema, document));
    EXPECT_EQ(check({"--format", "json"}).json(), document);
    EXPECT_EQ(check({"--json"}).bytes, QJsonDocument(document).toJson()) << "though it is written row by row";
    const Tavctl none = check({"--json", "--ignore", "TAV110,TAV111"});
    EXPECT_EQ(none.bytes, QJsonDocument(none.json()).toJson());
    for (const QStringList &command :
         {QStringList{"doctor", "--root", brokenRoot}, QStringList{"pictures", broken + "/pictures/same-key"},
          QStringList{"catalogue", "check", broken + "/catalogue/syntax.json"}}) {
        EXPECT_TRUE(conforms(schema, Tavctl(command + QStringList{"--json"}).json())) << command[0].toStdString();
    }
    QJsonObject withoutSummary = document;
    withoutSummary.remove("summary");
    EXPECT_FALSE(conforms(schema, withoutSummary)) << "the schema refuses something";
}

TEST_F(FindingReport, JsonLinesAreTheSameFindings)
{
    QJsonArray findings;
    const QList<QByteArray> lines = check({"--format", "jsonl"}).bytes.split('\n');
    ASSERT_EQ(lines.size(), 4) << "two findings, the summary, nothing";
    for (const QByteArray &line : lines.mid(0, 2)) {
        findings.append(QJsonDocument::fromJson(line).object());
    }
    const QJsonObject document = check({"--json"}).json();
    EXPECT_EQ(findings, document["findings"].toArray());
    EXPECT_EQ(QJsonDocument::fromJson(lines[2]).object(),
              (QJsonObject{{"tavFindings", 1}, {"summary", document["summary"]}}));
}

TEST_F(FindingReport, SarifIsWhatScannersRead)
{
    const QJsonObject schema = schemaIn("tests/data/sarif-subset.schema.json");
    const QJsonObject document = check({"--format", "sarif"}).json();
    EXPECT_TRUE(conforms(schema, document));
    const Tavctl ofRoot({"doctor", "--root", brokenRoot, "--format", "sarif"});
    EXPECT_TRUE(conforms(schema, ofRoot.json()));
    EXPECT_EQ(ofRoot.bytes, QJsonDocument(ofRoot.json()).toJson());
    const QJsonValue result = document["runs"][0]["results"][0];
    EXPECT_EQ(result["ruleId"].toString(), "TAV110");
    EXPECT_EQ(result["level"].toString(), "error");
    const QJsonValue location = result["locations"][0]["physicalLocation"];
    EXPECT_EQ(location["artifactLocation"]["uri"].toString(), "file://" + file);
    EXPECT_EQ(location["region"]["startLine"].toInt(), 2);
    EXPECT_EQ(location["region"]["startColumn"].toInt(), 16);
    EXPECT_EQ(result["locations"][0]["logicalLocations"][0]["fullyQualifiedName"].toString(), "/enableConfig/0/itemId");
    EXPECT_EQ(document["runs"][0]["tool"]["driver"]["rules"].toArray().size(), int(findingKinds().size()));
    EXPECT_EQ(document["runs"][0]["properties"]["summary"].toString(), checked() + ", 2 findings: 1 error, 1 warning");
    QJsonObject ofOtherVersion = document;
    ofOtherVersion.insert("version", "2.0.0");
    EXPECT_FALSE(conforms(schema, ofOtherVersion)) << "the schema refuses something";
}

TEST_F(FindingReport, SarifNamesFilesByUri)
{
    struct {
        const char *name;
        const char *uri;
    } const rows[] = {{"a%20b.json", "a%2520b.json"},
                      {"a#b?.json", "a%23b%3F.json"},
                      {"a:b.json", "./a:b.json"},
                      {"甲.json", "%E7%94%B2.json"}};
    for (const auto &row : rows) {
        file = put(row.name, "[]");
        const auto uriIn = [](const Tavctl &run) {
            const QJsonObject document = run.json();
            const QJsonValue location = document["runs"][0]["results"][0]["locations"][0];
            return location["physicalLocation"]["artifactLocation"]["uri"].toString();
        };
        const QStringList command{"baseline", "check", row.name, "--root", directory.path(), "--format", "sarif"};
        const Tavctl relative(command, "/dev/null", {"env", "-C", directory.path()});
        EXPECT_EQ(uriIn(relative), row.uri);
        EXPECT_EQ(uriIn(check({"--format", "sarif"})),
                  "file://" + directory.path() + '/' + QString(row.uri).remove("./"));
    }
}

TEST_F(FindingReport, GithubCommandsAreEscaped)
{
    file = put("a,b:c%.json", "{\"enableConfig\": [\n7]}");
    const QStringList lines = check({"--format", "github"}).output.split('\n');
    EXPECT_EQ(
        lines.value(0),
        "::error file=" + directory.filePath("a%2Cb%3Ac%25.json")
            + ",line=2,col=1,title=TAV110%3A a value of another type::/enableConfig/0: the number 7 where an "
              "object is expected; the plugin stores an item with the id 0 and without any text; write an object");
    EXPECT_EQ(lines.value(1), checked() + ", 1 finding: 1 error");
}

TEST_F(FindingReport, KeepsToTheWidthOfATerminal)
{
    const QStringList command = tavctlCommand({"baseline", "check", file, "--root", directory.path()});
    const TerminalProgram narrow(command, 60);
    EXPECT_TRUE(narrow.output.contains("\033[2m")) << "where it stands is dimmed";
    EXPECT_TRUE(narrow.output.contains("\n    ")) << narrow.output.toStdString();
    const TerminalProgram plain(command, 60, {"NO_COLOR=1"});
    EXPECT_FALSE(plain.output.contains('\033'));
    for (const QString &line : QString::fromUtf8(plain.output).split('\n')) {
        EXPECT_TRUE(line.size() <= 61 || !line.trimmed().contains(' ') || line.startsWith(file)
                    || line.startsWith("1 file"))
            << line.toStdString();
    }
    EXPECT_FALSE(TerminalProgram(command, 60, {"TERM=dumb"}).output.contains('\033'));
}
