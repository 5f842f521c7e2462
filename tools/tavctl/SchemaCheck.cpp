#include "SchemaCheck.h"

#include "NearestText.h"

#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

#include <utility>

namespace
{
bool conforms(const QJsonValue &value, const QJsonValue &schema)
{
    valijson::Schema compiled;
    valijson::SchemaParser().populateSchema(valijson::adapters::QtJsonAdapter(schema), compiled);
    return valijson::Validator().validate(compiled, valijson::adapters::QtJsonAdapter(value), nullptr);
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
    texts.replaceInStrings(QRegularExpression("^|$"), "\"");
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

/// @brief Walks through a document beside its schema. Whether a value conforms is valijson's to say; what that means
/// is the schema's, in the annotations that its "$comment" explains.
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
            add(path, described(value) + " where " + type + " is expected", schema["x-wrong"], "write " + type);
        } else if (!conforms(value, only({"enum"}, schema))) {
            add(path, quoted(value.toString()) + " is no " + schema["title"].toString(), schema["x-wrong"],
                "write " + known(value.toString(), schema["enum"].toVariant().toStringList()));
        } else if (value.isObject()) {
            checkRules(schema, withKeysAsMeant(schema, value.toObject(), path), path);
            checkMembers(schema["properties"].toObject(), value.toObject(), path);
        } else {
            checkRules(schema, value, path);
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

    /// The text to write for a mistyped one: the nearest, or any.
    static QString known(const QString &text, const QStringList &texts)
    {
        const QString nearest = nearestText(text, texts);
        return nearest.isEmpty() ? anyOf(texts) : quoted(nearest);
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

    /// The object as it is probably meant: a mistyped key is one mistake, and not a missing key as well.
    QJsonObject withKeysAsMeant(const QJsonObject &schema, const QJsonObject &object, const QString &path)
    {
        const QJsonObject properties = schema["properties"].toObject();
        QJsonObject meant = object;
        const QStringList keys = object.keys();
        for (const QString &key : keys) {
            if (!properties.isEmpty() && !properties.contains(key)) {
                // One that is there already is not what this one was meant to be.
                const QString nearest = nearestText(key, properties.keys());
                if (nearest.isEmpty() || meant.contains(nearest)) {
                    add(memberPath(path, key), "unknown key " + quoted(key), "the plugin does not read it",
                        "remove it, or write " + anyOf(properties.keys()));
                } else {
                    add(memberPath(path, key), "unknown key " + quoted(key),
                        "it is not read, and " + missing(properties[nearest].toObject()), "write " + quoted(nearest));
                    meant.insert(nearest, object[key]);
                }
            }
        }
        const QStringList required = schema["required"].toVariant().toStringList();
        for (const QString &key : required) {
            if (!meant.contains(key)) {
                add(path, "the key " + quoted(key) + " is missing", missing(properties[key].toObject()),
                    "add " + quoted(key));
            }
        }
        return meant;
    }

    static QString missing(const QJsonObject &property)
    {
        return property[property.contains("x-missing") ? "x-missing" : "x-wrong"].toString();
    }

    void checkRules(const QJsonObject &schema, const QJsonValue &value, const QString &path)
    {
        const QJsonArray rules = schema["allOf"].toArray();
        for (const QJsonValue &rule : rules) {
            if (!conforms(value, rule)) {
                const QString member = rule["x-at"].toString();
                add(member.isEmpty() ? path : memberPath(path, member), rule["x-problem"].toString(), rule["x-effect"],
                    rule["x-advice"].toString());
            }
        }
    }

    void checkMembers(const QJsonObject &properties, const QJsonObject &object, const QString &path)
    {
        for (auto member = object.begin(); member != object.end(); ++member) {
            check(properties[member.key()].toObject(), member.value(), memberPath(path, member.key()));
        }
    }

    void checkElements(const QJsonObject &elementSchema, const QJsonArray &array, const QString &path)
    {
        for (int index = 0; index < array.size(); ++index) {
            check(elementSchema, array[index], memberPath(path, QString::number(index)));
        }
    }

    void add(const QString &path, const QString &problem, const QJsonValue &effect, const QString &advice)
    {
        m_findings.append({{}, {}, path, problem, effect.toString(), advice});
    }

    QJsonObject m_schema;
    Findings m_findings;
};
}

Findings checkAgainstSchema(const QString &schemaName, const QJsonValue &document)
{
    QFile file(":/schemas/" + schemaName);
    file.open(QIODevice::ReadOnly);
    const QJsonObject schema = QJsonDocument::fromJson(file.readAll()).object();
    SchemaWalk walk(schema);
    walk.check(schema, document, QString());
    return walk.findings();
}
