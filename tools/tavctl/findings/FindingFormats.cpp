#include "FindingFormats.h"

#include "Presentation.h"
#include "TextTable.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

#include <iostream>

namespace
{
/// Of the JSON that this prints: raised when a reader of it would have to change.
constexpr int version = 1;

/// @p path with long keys cut: a line is for people, and JSON has all of it.
QString shortened(const QString &path)
{
    constexpr int mostLetters = 40;
    QStringList keys = path.split('/');
    for (QString &key : keys) {
        if (key.size() > mostLetters) {
            key = key.left(mostLetters) + "…";
        }
    }
    return keys.join('/');
}

/// What is found, without the file: where in it, what that means and what to do.
QString message(const Finding &finding)
{
    QString text;
    if (finding.inText.line > 0) {
        text += QString("in the JSON text %1:%2: ").arg(finding.inText.line).arg(finding.inText.column);
    }
    if (!finding.path.isEmpty()) {
        text += shortened(finding.path) + ": ";
    }
    return printable(text + QStringList{finding.problem, finding.effect, finding.advice}.join("; "));
}

QJsonObject jsonOf(const Finding &finding)
{
    return {{"code", finding.kind().name()},
            {"severity", nameOf(finding.kind().severity)},
            {"file", finding.file},
            {"line", finding.place.line},
            {"column", finding.place.column},
            {"textLine", finding.inText.line},
            {"textColumn", finding.inText.column},
            {"path", finding.path},
            {"problem", finding.problem},
            {"effect", finding.effect},
            {"advice", finding.advice}};
}

/// Prints @p document, and in its list @p key, which is empty there, a row for each of @p findings. One at a time: as
/// one document they would take several times the memory of the findings.
void printWithRows(const QJsonObject &document, const QByteArray &key, const Findings &findings,
                   QJsonObject (*rowOf)(const Finding &))
{
    const QByteArray text = QJsonDocument(document).toJson();
    const QByteArray start = '"' + key + "\": [\n"; // in a text its quotes would be escaped
    const int inList = text.indexOf(start) + start.size();
    const QByteArray indent(text.indexOf(']', inList) - inList + 4, ' ');
    std::cout << text.left(inList).constData();
    const char *separator = "";
    for (const Finding &finding : findings) {
        const QByteArray row = indent + QJsonDocument(rowOf(finding)).toJson().trimmed().replace('\n', '\n' + indent);
        std::cout << separator << row.constData();
        separator = ",\n";
    }
    std::cout << (findings.isEmpty() ? "" : "\n") << text.mid(inList).constData();
}

void printCompact(const QJsonObject &object)
{
    std::cout << QJsonDocument(object).toJson(QJsonDocument::Compact).constData() << '\n';
}

QString sarifLevel(Severity severity)
{
    return nameOf(severity); // SARIF's levels have the same names
}

QJsonArray sarifRules()
{
    QJsonArray rules;
    for (const FindingKind &kind : findingKinds()) {
        rules.append(QJsonObject{{"id", kind.name()},
                                 {"shortDescription", QJsonObject{{"text", kind.title}}},
                                 {"fullDescription", QJsonObject{{"text", kind.explanation}}},
                                 {"defaultConfiguration", QJsonObject{{"level", sarifLevel(kind.severity)}}}});
    }
    return rules;
}

/// @p file as a URI: relative where it is, with everything in its name that means something else in one escaped.
QString uriOf(const QString &file)
{
    if (QFileInfo(file).isAbsolute()) {
        return QString::fromUtf8(QUrl::fromLocalFile(file).toEncoded());
    }
    QUrl uri;
    // What stands before a colon would be taken for a scheme.
    uri.setPath(file.section('/', 0, 0).contains(':') ? "./" + file : file, QUrl::DecodedMode);
    return QString::fromUtf8(uri.toEncoded());
}

QJsonObject sarifResult(const Finding &finding)
{
    QJsonObject physical{{"artifactLocation", QJsonObject{{"uri", uriOf(finding.file)}}}};
    if (finding.place.line > 0) {
        physical.insert("region",
                        QJsonObject{{"startLine", finding.place.line}, {"startColumn", finding.place.column}});
    }
    QJsonObject location{{"physicalLocation", physical}};
    if (!finding.path.isEmpty()) {
        location.insert("logicalLocations", QJsonArray{QJsonObject{{"fullyQualifiedName", finding.path}}});
    }
    return {{"ruleId", finding.kind().name()},
            {"level", sarifLevel(finding.kind().severity)},
            {"message", QJsonObject{{"text", message(finding)}}},
            {"locations", QJsonArray{location}}};
}

/// @p text as a workflow command takes it.
QString escaped(QString text)
{
    return text.replace('%', "%25").replace('\r', "%0D").replace('\n', "%0A");
}

QString escapedProperty(const QString &text)
{
    return escaped(text).replace(':', "%3A").replace(',', "%2C");
}
}

void FindingFormats::printText(const Findings &findings)
{
    for (const Finding &finding : findings) {
        QString where = finding.file;
        if (finding.place.line > 0) {
            where += QString(":%1:%2").arg(finding.place.line).arg(finding.place.column);
        }
        where = printable(where) + ": ";
        const QString what = nameOf(finding.kind().severity) + ": " + finding.kind().name() + ": " + message(finding);
        printLine(dimmed(where) + wrapped(what, displayWidth(where)));
    }
}

void FindingFormats::printJson(const Findings &findings, const QString &summary, const QJsonObject &others)
{
    QJsonObject document = others;
    document.insert("tavFindings", version);
    document.insert("findings", QJsonArray());
    document.insert("summary", summary);
    printWithRows(document, "findings", findings, jsonOf);
}

void FindingFormats::printJsonLines(const Findings &findings, const QString &summary)
{
    for (const Finding &finding : findings) {
        printCompact(jsonOf(finding));
    }
    printCompact({{"tavFindings", version}, {"summary", summary}});
}

void FindingFormats::printSarif(const Findings &findings, const QString &summary)
{
    const QJsonObject driver{{"name", "tavctl"}, {"version", TAV_VERSION}, {"rules", sarifRules()}};
    const QJsonObject run{{"tool", QJsonObject{{"driver", driver}}},
                          {"columnKind", "unicodeCodePoints"},
                          {"results", QJsonArray()},
                          {"properties", QJsonObject{{"summary", summary}}}};
    printWithRows({{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                   {"version", "2.1.0"},
                   {"runs", QJsonArray({run})}},
                  "results", findings, sarifResult);
}

void FindingFormats::printGithub(const Findings &findings)
{
    for (const Finding &finding : findings) {
        const FindingKind &kind = finding.kind();
        const QString level = kind.severity == Severity::Note ? "notice" : nameOf(kind.severity);
        QString command = "::" + level + " file=" + escapedProperty(finding.file);
        if (finding.place.line > 0) {
            command += QString(",line=%1,col=%2").arg(finding.place.line).arg(finding.place.column);
        }
        printLine(command + ",title=" + escapedProperty(kind.name() + ": " + kind.title)
                  + "::" + escaped(message(finding)));
    }
}
