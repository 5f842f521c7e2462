#pragma once

#include "TavCall.h"

#include <QJsonArray>
#include <QWidget>

#include <functional>

class QFormLayout;
class QPlainTextEdit;
class RecordEdit;

/// @brief One field for each argument of an operation, which takes JSON; a plain record can be filled in by its fields.
class ArgumentForm : public QWidget
{
    Q_OBJECT
public:
    explicit ArgumentForm(QWidget *parent = nullptr);

    /// Makes the fields for @p arguments, each with a value to begin with.
    void setArguments(const QVector<TavCall::Argument> &arguments);

    /// Writes @p value into the field of the argument at @p place.
    void setValue(int place, const QJsonValue &value);

    /// What reads that which stands in the fields now, on any thread: a text may be long. Both throw
    /// std::runtime_error, which names the argument that is no JSON.
    std::function<QJsonArray()> values() const;

signals:
    /// What stands in a field cannot be shown in another way.
    void refused(const QString &problem);

private:
    /// @brief Where an argument is filled in: one of both.
    struct Field {
        RecordEdit *record; ///< for a plain record
        QPlainTextEdit *json; ///< for all else
    };

    Field newField(const TavCall::Argument &argument);

    QVector<TavCall::Argument> m_arguments;
    QVector<Field> m_fields;
    QFormLayout *m_layout;
};
