#pragma once

#include "RecordType.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;

/// @brief One field of a record to fill in: a check mark, a number, a text, or the JSON of a list.
class FieldEdit : public QWidget
{
    Q_OBJECT
public:
    /// @p name is what accessibility calls it; @p field outlives it.
    FieldEdit(const QString &name, const RecordField &field, QWidget *parent = nullptr);

    const RecordField &field() const
    {
        return m_field;
    }

    /// Whether it can show @p value; not, for instance, an object that stands for a text that is not UTF-8.
    bool canShow(const QJsonValue &value) const;

    void setValue(const QJsonValue &value);

    /// What stands in it. Throws std::runtime_error when that is no JSON, where it takes JSON.
    QJsonValue value() const;

    /// Says below the field what is wrong with it; an empty text: nothing is.
    void setProblem(const QString &problem);

signals:
    /// The person has changed it, and is done with it.
    void edited();

protected:
    void changeEvent(QEvent *event) override;

private:
    void takeProblemColor();

    const RecordField &m_field;
    QCheckBox *m_check = nullptr; ///< for a flag
    QLineEdit *m_text = nullptr; ///< for all else
    QLabel *m_problem;
};
