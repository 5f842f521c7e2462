#include "SchemaCheck.h"

#include "CTavFuncTypeHeader.h"
#include "CTavSubFuncTypeHeader.h"
#include "TavHiddenCharacter.h"
#include "TavJsonPath.h"
#include "TavNearestText.h"

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>
#include <QRegularExpression>

#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

#include <memory>
#include <utility>

namespace
{
bool matches(const QString &text, const QString &pattern)
{
    static QHash<QString, QRegularExpression> compiled;
    QRegularExpression &own = compiled[pattern];
    if (own.pattern().isEmpty()) {
        own.setPattern(pattern);
    }
    return own.match(text).hasMatch();
}

bool conforms(const QJsonValue &value, const QJsonValue &schema)
{
    if (schema.toObject().isEmpty()) {
        return true;
    }
    // A rule with a pattern has nothing else. valijson takes those of the C++ library, which a text of some hundred
    // KiB makes run out of stack.
    if (schema["pattern"].isString()) {
        return !value.isString() || matches(value.toString(), schema["pattern"].toString());
    }
    if (schema["not"].isObject()) {
        return !conforms(value, schema["not"]);
    }
    // Kept: compiling a schema takes much longer than validating, and the elements of a list share one.
    static QHash<QByteArray, std::shared_ptr<valijson::Schema>> compiled;
    std::shared_ptr<valijson::Schema> &own = compiled[QJsonDocument(schema.toObject()).toJson(QJsonDocument::Compact)];
    if (!own) {
        own = std::make_shared<valijson::Schema>();
        valijson::SchemaParser().populateSchema(valijson::adapters::QtJsonAdapter(schema), *own);
    }
    return valijson::Validator().validate(*own, valijson::adapters::QtJsonAdapter(value), nullptr);
}

/// The keys that the plugin reads for the type with this title in the schema.
QMetaEnum keysOf(const QString &type)
{
    return type == QLatin1String("function type") ? QMetaEnum::fromType<CTavFuncTypeHeader::TavFuncTypeHeader_>()
                                                  : QMetaEnum::fromType<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>();
}

QString cut(const QString &text)
{
    constexpr int mostLetters = 40;
    return text.size() > mostLetters ? text.left(mostLetters) + "…" : text;
}

QString quoted(const QString &text)
{
    return '"' + cut(text) + '"';
}

/// A list of texts, such as: "a", "b" or "c".
QString anyOf(QStringList texts)
{
    for (QString &text : texts) {
        text = '"' + text + '"';
    }
    const QString last = texts.takeLast();
    return texts.isEmpty() ? last : texts.join(", ") + " or " + last;
}

/// What a schema's type stands for, for people.
QString expected(const QString &type)
{
    static const QHash<QString, QString> names{
        {"array", "an array"},  {"object", "an object"},      {"integer", "a whole number of 32 bits"},
        {"string", "a string"}, {"boolean", "true or false"},
    };
    return names.value(type);
}

QString described(const QJsonValue &value)
{
    if (value.isArray() || value.isObject()) {
        return value.isArray() ? "an array" : "an object";
    }
    QString text = QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    text = cut(text.mid(1, text.size() - 2));
    return (value.isString() ? "the string " : value.isDouble() ? "the number " : "") + text;
}

/// @brief Walks through a document beside its schema. valijson says whether a value conforms; the schema's own
/// annotations, which its "$comment" explains, say what the plugin makes of one that does not.
class SchemaWalk
{
public:
    explicit SchemaWalk(QJsonObject schema) : m_schema(std::move(schema))
    {
    }

    void check(const QJsonObject &written, const QJsonValue &value, const QString &path)
    {
        const QJsonObject schema = resolved(written, value);
        if (schema.isEmpty()) {
            return;
        }
        if (!conforms(value, only({"type", "minimum", "maximum"}, schema))) {
            const QString type = expected(schema["type"].toString());
            add(FindingCode::WrongType, path, described(value) + " where " + type + " is expected", schema["x-wrong"],
                "write " + type);
        } else if (!conforms(value, only({"enum"}, schema))) {
            addWrongKey(schema, value.toString(), path);
        } else if (value.isObject()) {
            checkRules(schema, value, withKeysAsMeant(schema, value.toObject(), path), path);
            checkMembers(schema["properties"].toObject(), value.toObject(), path);
        } else {
            checkRules(schema, value, value, path);
            if (schema["x-shown"].toBool()) {
                checkShown(value.toString(), path);
            }
            checkElements(schema["items"].toObject(), value.toArray(), path);
        }
    }

    Findings findings() const
    {
        return m_findings;
    }

private:
    static QJsonObject only(const QStringList &keywords, const QJsonObject &schema)
    {
        QJsonObject part;
        for (const QString &keyword : keywords) {
            if (schema.contains(keyword)) {
                part.insert(keyword, schema[keyword]);
            }
        }
        return part;
    }

    /// The schema for @p value that @p schema refers to, with the annotations that stand beside the reference.
    QJsonObject resolved(const QJsonObject &schema, const QJsonValue &value) const
    {
        if (schema.contains("$ref")) {
            QJsonObject merged = m_schema["definitions"][schema["$ref"].toString().section('/', -1)].toObject();
            for (auto annotation = schema.begin(); annotation != schema.end(); ++annotation) {
                if (annotation.key() != "$ref") {
                    merged.insert(annotation.key(), annotation.value());
                }
            }
            return resolved(merged, value);
        }
        if (schema.contains("if")) {
            return resolved(schema[conforms(value, schema["if"]) ? "then" : "else"].toObject(), value);
        }
        return schema;
    }

    /// Reports unknown and missing keys. Returns the object with mistyped keys as they are probably meant, so that such
    /// a key is not reported as missing, too.
    QJsonObject withKeysAsMeant(const QJsonObject &schema, const QJsonObject &object, const QString &path)
    {
        const QJsonObject properties = schema["properties"].toObject();
        QJsonObject meant = object;
        const QStringList keys = object.keys();
        for (const QString &key : keys) {
            if (!properties.isEmpty() && !properties.contains(key)) {
                // A key that is there already cannot be what was meant.
                const QString nearest = nearestText(key, properties.keys());
                if (nearest.isEmpty() || meant.contains(nearest)) {
                    add(FindingCode::UnknownKey, TavJson::memberPath(path, key), "unknown key " + quoted(key),
                        "the plugin does not read it", "remove it, or write " + anyOf(properties.keys()));
                } else {
                    add(FindingCode::MistypedKey, TavJson::memberPath(path, key), "unknown key " + quoted(key),
                        "it is not read, and " + missing(properties[nearest].toObject()), "write " + quoted(nearest),
                        nearest);
                    meant.insert(nearest, object[key]);
                }
            }
        }
        const QStringList required = schema["required"].toVariant().toStringList();
        for (const QString &key : required) {
            if (!meant.contains(key)) {
                add(FindingCode::MissingKey, path, "the key " + quoted(key) + " is missing",
                    missing(properties[key].toObject()), "add " + quoted(key));
            }
        }
        return meant;
    }

    /// Reports a text that is none of a type's keys. The plugin may read it all the same: it takes qualified keys, too.
    void addWrongKey(const QJsonObject &schema, const QString &key, const QString &path)
    {
        const QString type = schema["title"].toString();
        const QStringList keys = schema["enum"].toVariant().toStringList();
        const int value = keysOf(type).keyToValue(key.toUtf8().constData());
        if (value > 0) {
            const QString plain = keysOf(type).valueToKey(value);
            add(FindingCode::QualifiedEntryType, path, quoted(key) + " is not the plain key of a " + type,
                "the plugin reads it as " + quoted(plain), "write " + quoted(plain), plain);
        } else if (value == 0) {
            add(FindingCode::EntryTypeNone, path, quoted(key) + " is no " + type, schema["x-none"],
                "write " + anyOf(keys));
        } else {
            const QString nearest = nearestText(key, keys);
            add(FindingCode::UnknownEntryType, path, quoted(key) + " is no " + type, schema["x-wrong"],
                "write " + (nearest.isEmpty() ? anyOf(keys) : quoted(nearest)), nearest);
        }
    }

    static QString missing(const QJsonObject &property)
    {
        return property[property.contains("x-missing") ? "x-missing" : "x-wrong"].toString();
    }

    /// Reports the rules that are broken by @p value and by the value as it is @p meant: what breaks only one of them
    /// follows from a mistyped key, which is reported already.
    void checkRules(const QJsonObject &schema, const QJsonValue &value, const QJsonValue &meant, const QString &path)
    {
        const QJsonArray rules = schema["allOf"].toArray();
        for (const QJsonValue &rule : rules) {
            if (!conforms(value, rule) && !conforms(meant, rule)) {
                const QString member = rule["x-at"].toString();
                add(FindingCode(rule["x-code"].toInt()), member.isEmpty() ? path : TavJson::memberPath(path, member),
                    rule["x-problem"].toString(), rule["x-effect"].toString().replace("{value}", cut(value.toString())),
                    rule["x-advice"].toString(), rule["x-fix"].toString().replace("{value}", value.toString()));
            }
        }
    }

    /// Reports what makes a text that people see, or that others look for, another one than it seems.
    void checkShown(const QString &text, const QString &path)
    {
        const QString hidden = hiddenCharacterIn(text);
        if (!hidden.isEmpty()) {
            add(FindingCode::HiddenCharacter, path, hidden + " stands in the text",
                "the plugin keeps it, and what is shown is not what is written", "remove it");
        } else if (text.trimmed().isEmpty()) {
            add(FindingCode::BlankText, path, text.isEmpty() ? "the text is empty" : "the text is blank",
                "the client shows nothing there, or finds nothing by it", "write a text");
        } else if (text.trimmed() != text) {
            add(FindingCode::TextAmongBlanks, path, "blanks stand around the text",
                "the plugin keeps them, and a look-up without them finds nothing", "remove them");
        }
    }

    void checkMembers(const QJsonObject &properties, const QJsonObject &object, const QString &path)
    {
        for (auto member = object.begin(); member != object.end(); ++member) {
            check(properties[member.key()].toObject(), member.value(), TavJson::memberPath(path, member.key()));
        }
    }

    void checkElements(const QJsonObject &elementSchema, const QJsonArray &array, const QString &path)
    {
        for (int index = 0; index < array.size(); ++index) {
            check(elementSchema, array[index], TavJson::elementPath(path, index));
        }
    }

    void add(FindingCode code, const QString &path, const QString &problem, const QJsonValue &effect,
             const QString &advice, const QString &fix = {})
    {
        m_findings.append(Finding::ofValue(code, path, problem, effect.toString(), advice));
        m_findings.last().fix = fix;
    }

    QJsonObject m_schema;
    Findings m_findings;
};
}

Findings checkAgainstSchema(const QString &schemaName, const QJsonValue &document)
{
    Q_INIT_RESOURCE(schemas); // which a static library does not do by itself
    QFile file(":/schemas/" + schemaName);
    file.open(QIODevice::ReadOnly);
    const QJsonObject schema = QJsonDocument::fromJson(file.readAll()).object();
    SchemaWalk walk(schema);
    walk.check(schema, document, QString());
    return walk.findings();
}
