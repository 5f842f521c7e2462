#pragma once

#include "RecordType.h"

#include <QTabWidget>

class QPlainTextEdit;
class RecordForm;

/// @brief A plain record to fill in, field by field or as JSON: two tabs, of which each takes over what stands in the
/// other.
class RecordEdit : public QTabWidget
{
    Q_OBJECT
public:
    /// @p name is what the record is called where it is wanted.
    RecordEdit(const QString &name, const RecordType &type, QWidget *parent = nullptr);

    /// Shows @p value in fields, or as JSON where they cannot show it.
    void setValue(const QJsonValue &value);

    /// The record that stands in the tab in front. Throws std::runtime_error, which names the field in error.
    QJsonValue value();

signals:
    /// The other tab cannot take over what stands in this one, which stays in front.
    void refused(const QString &problem);

private:
    void goTo(int tab);
    void showFields(const QJsonValue &value);
    QJsonValue jsonValue() const;

    const QString m_name;
    const RecordType &m_type;
    RecordForm *m_form;
    QPlainTextEdit *m_json;
    int m_inFront = 0; ///< the tab whose content counts
};
