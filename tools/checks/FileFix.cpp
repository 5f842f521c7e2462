#include "FileFix.h"

#include "Base64Text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QTextCodec>

#include <algorithm>

namespace
{
bool isOfEncoding(const Finding &finding)
{
    switch (finding.code) {
    case FindingCode::Utf16:
    case FindingCode::NotBase64:
    case FindingCode::StrayInBase64:
    case FindingCode::EncodedTwice:
    case FindingCode::Base64WhereJsonBelongs:
    case FindingCode::PemArmour:
    case FindingCode::ByteOrderMark:
        return true;
    default:
        return false;
    }
}

/// @p bytes as UTF-8 without a byte order mark.
QByteArray inUtf8(const QByteArray &bytes)
{
    QString text;
    if (isUtf16(bytes)) {
        const bool isLittleEndian = bytes.startsWith("\xff\xfe") || bytes.at(1) == '\0';
        text = QTextCodec::codecForName(isLittleEndian ? "UTF-16LE" : "UTF-16BE")->toUnicode(bytes);
    } else if (bytes.startsWith("\xef\xbb\xbf")) {
        return bytes.mid(3);
    } else {
        return bytes;
    }
    return text.startsWith(QChar::ByteOrderMark) ? text.mid(1).toUtf8() : text.toUtf8();
}

QByteArray withoutArmour(const QByteArray &text)
{
    QByteArray inside;
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray &line : lines) {
        inside += line.startsWith("-----") ? QByteArray() : line + '\n';
    }
    return inside.chopped(inside.isEmpty() ? 0 : 1);
}

/// The JSON text that @p content holds, whatever stands around it; empty when none is found.
QByteArray unwrapped(const QByteArray &content)
{
    constexpr int mostLayers = 4;
    QByteArray text = content;
    for (int layer = 0; layer < mostLayers; ++layer) {
        text = inUtf8(text);
        if (TavJsonText(text).error().isEmpty()) {
            return text;
        }
        text = Base64Text::decoded(withoutArmour(text).replace('-', '+').replace('_', '/'));
    }
    return {};
}

/// @p json in Base64, in lines like those of @p before.
QByteArray inBase64(const QByteArray &json, const QByteArray &before)
{
    const QByteArray text = withoutArmour(inUtf8(before));
    const int lineLength = text.left(qMax(0, text.indexOf('\n'))).trimmed().size();
    const bool isInLines = text.trimmed().contains('\n');
    const QByteArray base64 = Base64Text::encoded(json, isInLines ? lineLength : 0);
    return isInLines || !text.endsWith('\n') ? base64 : base64 + '\n';
}

/// The keys of pages and functions that stand in a catalogue; none for any other document.
void addTypes(const QJsonArray &entries, QSet<QString> &types)
{
    for (const QJsonValue &entry : entries) {
        types.insert(entry["funcType"].toString());
        types.insert(entry["subFuncType"].toString());
        addTypes(entry["subFunList"].toArray(), types);
        addTypes(entry["funcList"].toArray(), types);
    }
}

QByteArray inJson(const QString &text)
{
    QJsonArray array;
    array.append(text);
    const QByteArray json = QJsonDocument(array).toJson(QJsonDocument::Compact);
    return json.mid(1, json.size() - 2);
}

/// @brief Gathers the edits of one JSON text.
class Edits
{
public:
    explicit Edits(const QByteArray &json) : m_text(json)
    {
        addTypes(m_text.document().toArray(), m_types);
    }

    /// Adds the edit that mends @p finding; false when there is none that is safe.
    bool add(const Finding &finding)
    {
        const bool isWhole = QString::fromUtf8(finding.fix.toUtf8()) == finding.fix; // no half characters
        if (finding.fix.isEmpty() || !isWhole || m_text.doubledKeys().contains(finding.path)) {
            return false;
        }
        if (finding.code == FindingCode::UnknownEntryType) {
            const bool isParent = finding.path.endsWith("/realParentType");
            if (m_types.contains(finding.fix) != isParent) {
                return false;
            }
            m_types.insert(finding.fix);
        }
        const bool isOfKey = finding.code == FindingCode::MistypedKey;
        m_edits.append({isOfKey ? finding.key : finding.range, inJson(finding.fix)});
        return true;
    }

    QVector<TextEdit> inOrder() const
    {
        QVector<TextEdit> edits = m_edits;
        std::sort(edits.begin(), edits.end(),
                  [](const TextEdit &one, const TextEdit &other) { return one.range.offset < other.range.offset; });
        return edits;
    }

private:
    TavJsonText m_text;
    QSet<QString> m_types;
    QVector<TextEdit> m_edits;
};
}

FixedFile fixedFile(const QString &file, const QByteArray &content,
                    Findings (*check)(const QString &file, const QByteArray &content),
                    const std::set<FindingCode> &ignored)
{
    const auto isIgnored = [&ignored](const Finding &finding) { return ignored.count(finding.code) > 0; };
    FixedFile result{{}, {}, {}, false, !Base64Text::isJsonText(inUtf8(content)), content};
    const QByteArray json = unwrapped(content);
    const Findings asItIs = check(file, content);
    for (const Finding &finding : asItIs) {
        result.isBase64 &= finding.code != FindingCode::Base64WhereJsonBelongs;
        if (isOfEncoding(finding) && !isIgnored(finding) && !json.isEmpty()) {
            result.fixed.append(finding);
            result.isEncodedAnew = true;
        }
    }
    result.json = result.isEncodedAnew ? json : result.isBase64 ? Base64Text::decoded(content) : content;
    Edits edits(result.json);
    const Findings inText = check({}, result.json); // as a text, whatever a file of this name has to be
    for (const Finding &finding : inText) {
        if (!isIgnored(finding) && edits.add(finding)) {
            result.fixed.append(finding);
        }
    }
    result.edits = edits.inOrder();
    if (!result.fixed.isEmpty()) {
        const QByteArray text = edited(result.json, result.edits);
        result.content = result.isBase64 ? inBase64(text, content) : text;
    }
    return result;
}

QByteArray edited(const QByteArray &text, const QVector<TextEdit> &edits)
{
    QByteArray result;
    int copied = 0;
    for (const TextEdit &edit : edits) {
        result += text.mid(copied, edit.range.offset - copied) + edit.text;
        copied = edit.range.offset + edit.range.length;
    }
    return result + text.mid(copied);
}
