#pragma once

#include <QVector>
#include <QWidget>

class FactsForm;
class QHBoxLayout;

/// @brief The forms of a page, one below the other in as many columns as the width has room for.
class FactsPanel : public QWidget
{
    Q_OBJECT
public:
    explicit FactsPanel(QWidget *parent = nullptr);

    void add(FactsForm *form);

    bool isEmpty() const
    {
        return m_forms.isEmpty();
    }

    /// The height that the forms take in this width.
    int heightFor(int width);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void arrange(int width);

    QVector<FactsForm *> m_forms;
    QHBoxLayout *m_layout;
    int m_columns = 0;
};
