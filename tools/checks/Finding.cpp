#include "Finding.h"

#include <algorithm>
#include <tuple>

Finding Finding::ofNoJson(const QString &file, const QByteArray &content, const TavJsonText &text,
                          const QString &effect)
{
    const FindingCode code = content.trimmed().isEmpty() ? FindingCode::EmptyFile
        : isUtf16(content)                               ? FindingCode::Utf16
                                                         : FindingCode::NotJson;
    return atPlace(code, file, text.errorPlace(), "not JSON: " + text.error(), effect,
                   code == FindingCode::Utf16 ? "save it as UTF-8" : "correct the text");
}

Findings located(Findings findings, const QString &file, const TavJsonText &text)
{
    const QSet<QString> doubled = text.doubledKeys();
    for (const QString &path : doubled) {
        findings.append(Finding::ofValue(FindingCode::DoubledKey, path, "the key stands more than once in its object",
                                         "the plugin reads this one alone, the last", "remove the others"));
    }
    if (text.hasByteOrderMark()) {
        findings.append(Finding::ofValue(FindingCode::ByteOrderMark, {}, "the text begins with a byte order mark",
                                         "the plugin's reader passes over it, but JSON has none", "save it without"));
    }
    const QSet<QString> lenient = text.lenientStrings();
    for (const QString &path : lenient) {
        findings.append(
            Finding::ofValue(FindingCode::LenientText, path, "JSON forbids this text",
                             "the plugin's reader takes it, but other readers refuse the whole file",
                             R"(write control characters as escapes such as "\n", and "\\" for a backslash)"));
    }
    const QSet<QString> lenientNumbers = text.lenientNumbers();
    for (const QString &path : lenientNumbers) {
        findings.append(Finding::ofValue(FindingCode::LenientText, path, "JSON forbids this number",
                                         "the plugin's reader takes it, but other readers refuse the whole file",
                                         "write a digit on both sides of the point"));
    }
    return placed(findings, file, text);
}

Findings placed(Findings findings, const QString &file, const TavJsonText &text)
{
    for (Finding &finding : findings) {
        finding.file = file;
        finding.place = text.placeOf(finding.path);
    }
    std::stable_sort(findings.begin(), findings.end(), [](const Finding &one, const Finding &other) {
        return std::tie(one.place.line, one.place.column) < std::tie(other.place.line, other.place.column);
    });
    return findings;
}
