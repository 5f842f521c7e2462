#include "Finding.h"

#include <algorithm>
#include <tuple>

Findings located(Findings findings, const QString &file, const TavJsonText &text)
{
    const QSet<QString> doubled = text.doubledKeys();
    for (const QString &path : doubled) {
        findings.append(Finding::ofValue(path, "the key stands more than once in its object",
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
