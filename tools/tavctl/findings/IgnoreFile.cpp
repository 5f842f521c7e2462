#include "IgnoreFile.h"

#include "TavJsonText.h"
#include "ToolError.h"
#include "WholeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

namespace
{
/// Why @p document is not the text of such a file; empty when it is.
QString mistakeIn(const QJsonObject &document)
{
    if (document.keys() != QStringList{"ignore"} || !document["ignore"].isObject()) {
        return R"(expected {"ignore": {"TAV101": "the reason", …}})";
    }
    const QJsonObject ignored = document["ignore"].toObject();
    for (auto entry = ignored.begin(); entry != ignored.end(); ++entry) {
        if (!kindNamed(entry.key())) {
            return '"' + entry.key() + R"(" is no code of a finding; "tavctl explain" lists them)";
        }
        if (entry.value().toString().trimmed().isEmpty()) {
            return entry.key() + ": the reason is missing";
        }
    }
    return {};
}
}

std::set<FindingCode> IgnoreFile::codesIn(const QString &directory)
{
    const QString file = QDir(directory).filePath("tavctl.json");
    if (directory.isEmpty() || !QFileInfo::exists(file)) {
        return {};
    }
    const TavJsonText text(WholeFile::read(file));
    const QString mistake
        = text.error().isEmpty() ? mistakeIn(text.document().toObject()) : "not JSON: " + text.error();
    if (!mistake.isEmpty()) {
        throw ToolError(ExitCode::Usage, file + ": " + mistake);
    }
    std::set<FindingCode> codes;
    const QStringList names = text.document()["ignore"].toObject().keys();
    for (const QString &name : names) {
        codes.insert(kindNamed(name)->code);
    }
    return codes;
}
