#pragma once

#include <QJsonDocument>
#include <QJsonObject>

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
