#include "ValueText.h"

#include "TavJsonText.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <stdexcept>

namespace
{
/// @brief The texts' context.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ValueText)
};
}

QJsonValue ValueText::read(const QByteArray &text)
{
    const TavJsonText list('[' + text + ']'); // in brackets, since the reader takes arrays and objects only
    if (!list.error().isEmpty()) {
        throw std::runtime_error(Texts::tr("%1 at character %2; a text has its own quotes: '\"text\"'")
                                     .arg(list.error())
                                     .arg(std::max(1, list.errorPlace().column - 1))
                                     .toStdString());
    }
    const QJsonArray values = list.document().toArray();
    if (values.size() != 1) {
        throw std::runtime_error(Texts::tr("one JSON value is expected").toStdString());
    }
    if (!list.doubledKeys().isEmpty()) {
        throw std::runtime_error(Texts::tr("%1: the key stands more than once")
                                     .arg(list.doubledKeys().values().first().mid(2))
                                     .toStdString());
    }
    return values.first();
}

QByteArray ValueText::write(const QJsonValue &value)
{
    if (value.isObject()) {
        return QJsonDocument(value.toObject()).toJson().chopped(1);
    }
    if (value.isArray()) {
        return QJsonDocument(value.toArray()).toJson().chopped(1);
    }
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).mid(1).chopped(1);
}
