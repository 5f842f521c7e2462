#include "FactsPanel.h"

#include "FactsForm.h"
#include "LetterWidth.h"

#include <QHBoxLayout>
#include <QResizeEvent>

#include <algorithm>

namespace
{
constexpr int columnWidth = 28; // letters at least
}

FactsPanel::FactsPanel(QWidget *parent) : QWidget(parent), m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 6, 0);
    m_layout->setSpacing(24);
}

void FactsPanel::add(FactsForm *form)
{
    form->setParent(this);
    m_forms.append(form);
}

int FactsPanel::heightFor(int width)
{
    arrange(width);
    return m_layout->hasHeightForWidth() ? m_layout->heightForWidth(width) : m_layout->sizeHint().height();
}

void FactsPanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrange(event->size().width());
}

void FactsPanel::arrange(int width)
{
    const int letters = width / letterWidth(fontMetrics());
    const int columns = std::clamp(letters / columnWidth, 1, std::max(1, m_forms.size()));
    if (columns == m_columns) {
        return;
    }
    m_columns = columns;
    while (QLayoutItem *const column = m_layout->takeAt(0)) {
        delete column; // the forms stay, since they are this widget's
    }
    int lines = 0;
    for (const FactsForm *const form : qAsConst(m_forms)) {
        lines += form->lineCount();
    }
    int begun = 0;
    QVBoxLayout *column = nullptr;
    for (FactsForm *const form : qAsConst(m_forms)) {
        // The next column begins where this one has its share of the lines, or comes nearer to it without this form.
        const bool isFull = (2 * begun + form->lineCount()) * columns >= 2 * lines * m_layout->count();
        if (!column || (m_layout->count() < columns && isFull)) {
            column = new QVBoxLayout;
            m_layout->addLayout(column, 1);
        }
        column->addWidget(form);
        begun += form->lineCount();
    }
    for (int i = 0; i < m_layout->count(); ++i) {
        static_cast<QVBoxLayout *>(m_layout->itemAt(i)->layout())->addStretch(1);
    }
}
