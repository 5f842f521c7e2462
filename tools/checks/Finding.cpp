#include "Finding.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace
{
/// A finding that shares its effect and advice with the last one of its code where they are the same: of thousands of
/// findings few are unlike that.
Finding made(FindingCode code, const QString &problem, const QString &effect, const QString &advice)
{
    struct Texts {
        QString effect;
        QString advice;
    };
    thread_local QHash<int, Texts> last;
    Texts &texts = last[int(code)];
    if (texts.effect != effect) {
        texts.effect = effect;
    }
    if (texts.advice != advice) {
        texts.advice = advice;
    }
    Finding finding{};
    finding.code = code;
    finding.problem = problem;
    finding.effect = texts.effect;
    finding.advice = texts.advice;
    return finding;
}
}

Finding Finding::ofFile(FindingCode code, const QString &file, const QString &problem, const QString &effect,
                        const QString &advice)
{
    return atPlace(code, file, {}, problem, effect, advice);
}

Finding Finding::atPlace(FindingCode code, const QString &file, const TextPlace &place, const QString &problem,
                         const QString &effect, const QString &advice)
{
    Finding finding = made(code, problem, effect, advice);
    finding.file = file;
    finding.place = place;
    return finding;
}

Finding Finding::ofValue(FindingCode code, const QString &path, const QString &problem, const QString &effect,
                         const QString &advice)
{
    Finding finding = made(code, problem, effect, advice);
    finding.path = path;
    finding.path.squeeze(); // put together from parts, it has room for more
    return finding;
}

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
    return placed(std::move(findings), file, text);
}

Findings placed(Findings findings, const QString &file, const TavJsonText &text)
{
    QSet<QString> paths;
    for (const Finding &finding : qAsConst(findings)) {
        paths.insert(finding.path);
    }
    const QHash<QString, TavJsonText::Value> values = text.valuesAt(paths);
    for (Finding &finding : findings) {
        const TavJsonText::Value value = values.value(finding.path);
        finding.file = file;
        finding.place = value.place;
        finding.range = value.range;
        finding.key = value.key;
    }
    std::stable_sort(findings.begin(), findings.end(), [](const Finding &one, const Finding &other) {
        return std::tie(one.place.line, one.place.column) < std::tie(other.place.line, other.place.column);
    });
    return findings;
}
