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
    for (Finding &finding : findings) {
        finding.file = file;
        finding.place = text.placeOf(finding.path);
    }
    std::stable_sort(findings.begin(), findings.end(), [](const Finding &one, const Finding &other) {
        return std::tie(one.place.line, one.place.column) < std::tie(other.place.line, other.place.column);
    });
    return findings;
}
