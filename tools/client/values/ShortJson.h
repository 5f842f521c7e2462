#pragma once

#include <QJsonValue>
#include <QString>

/// The beginning of @p value as JSON on one line, for whom it is enough to recognise it: of lists the first elements,
/// of all that the first letters. Empty for null and for an undefined value. Quick, whatever the value's size.
QString shortJson(const QJsonValue &value);
