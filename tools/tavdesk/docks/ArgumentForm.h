#pragma once

#include "TavCall.h"

#include <QJsonArray>
#include <QWidget>

class QFormLayout;
class QPlainTextEdit;

/// @brief One field for each argument of an operation, which takes JSON.
class ArgumentForm : public QWidget
{
    Q_OBJECT
public:
    explicit ArgumentForm(QWidget *parent = nullptr);

    /// Makes the fields for @p arguments, each with a value to begin with.
    void setArguments(const QVector<TavCall::Argument> &arguments);

    /// Writes @p value into the field of the argument at @p place.
    void setValue(int place, const QJsonValue &value);

    /// What stands in the fields. Throws std::runtime_error, which names the argument that is no JSON.
    QJsonArray values() const;

private:
    QVector<TavCall::Argument> m_arguments;
    QVector<QPlainTextEdit *> m_fields;
    QFormLayout *m_layout;
};
