#pragma once

#include <QVector>
#include <QWidget>

class QGridLayout;
class QLabel;
class ValueModel;

/// @brief The fields of a record, or a message's own, each with its name: the one row of a model as a form.
///
/// The fields stand in as many columns as the width has room for.
class FactsForm : public QWidget
{
    Q_OBJECT
public:
    /// @p model has its row; it outlives the form.
    explicit FactsForm(const ValueModel &model, QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Fact {
        QLabel *name;
        QLabel *value;
    };

    void arrange(int columns);
    void update();

    const ValueModel &m_model;
    QGridLayout *m_layout;
    QVector<Fact> m_facts;
    int m_columns = 0;
};
