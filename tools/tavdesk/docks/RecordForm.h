#pragma once

#include "RecordType.h"

#include <QWidget>

class FieldEdit;

/// @brief The fields of a plain record to fill in, each with what is wrong with it.
class RecordForm : public QWidget
{
    Q_OBJECT
public:
    /// @p name is what the record is called where it is wanted.
    RecordForm(const QString &name, const RecordType &type, QWidget *parent = nullptr);

    /// Writes @p record, the JSON of such a record, into the fields. False when a field cannot show its value, such as
    /// a text that is not UTF-8; then the fields are left as they are.
    bool setValue(const QJsonObject &record);

    /// The record that stands in the fields. Throws std::runtime_error when fields hold what they cannot: each says so,
    /// and the first, which is named, has the focus.
    QJsonObject value();

private:
    QString problemOf(const FieldEdit &field) const;

    const QString m_name;
    const RecordType &m_type;
    QVector<FieldEdit *> m_fields;
};
