#pragma once

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

/// Whether @p value conforms to the JSON schema.
inline bool conforms(const QJsonObject &schema, const QJsonValue &value)
{
    using valijson::adapters::QtJsonAdapter;
    const QJsonValue rules = schema;
    valijson::Schema compiled;
    valijson::SchemaParser().populateSchema(QtJsonAdapter(rules), compiled);
    return valijson::Validator().validate(compiled, QtJsonAdapter(value), nullptr);
}

/// What @p document breaks of the schema with this name in share/schemas, a line each; empty for nothing.
inline std::string schemaFindings(const QString &schemaName, const QJsonObject &document)
{
    using valijson::adapters::QtJsonAdapter;
    QFile file(TAV_SOURCE_DIR "/share/schemas/" + schemaName + ".schema.json");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << schemaName.toStdString();
    const QJsonValue rules = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonValue value = document;
    valijson::Schema schema;
    valijson::SchemaParser().populateSchema(QtJsonAdapter(rules), schema);
    valijson::ValidationResults results;
    valijson::Validator().validate(schema, QtJsonAdapter(value), &results);
    std::string findings;
    for (valijson::ValidationResults::Error error; results.popError(error);) {
        for (const std::string &step : error.context) {
            findings += step;
        }
        findings += ": " + error.description + '\n';
    }
    return findings;
}
