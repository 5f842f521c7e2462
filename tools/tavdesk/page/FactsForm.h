#pragma once

#include <QVector>
#include <QWidget>

class QLabel;
class ValueModel;

/// @brief The fields of a record, or a message's own, each with its name: the one row of a model as a form.
///
/// With the keyboard the form has the focus as a whole, and is copied as a whole.
class FactsForm : public QWidget
{
    Q_OBJECT
public:
    /// @p model has its row; it outlives the form.
    FactsForm(const QString &title, const ValueModel &model, QWidget *parent = nullptr);

    /// Lines that it takes.
    int lineCount() const
    {
        return m_values.size() + 1;
    }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showValues();

    const ValueModel &m_model;
    QVector<QLabel *> m_values;
};
