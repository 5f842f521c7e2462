#include "FactsForm.h"

#include "QuietLabel.h"
#include "ValueModel.h"

#include <QGridLayout>
#include <QLabel>
#include <QResizeEvent>

#include <algorithm>

FactsForm::FactsForm(const ValueModel &model, QWidget *parent)
    : QWidget(parent), m_model(model), m_layout(new QGridLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setHorizontalSpacing(12);
    m_layout->setVerticalSpacing(2);
    for (int column = 0; column < model.columnCount(); ++column) {
        const Fact fact{new QuietLabel(model.headerData(column, Qt::Horizontal).toString()), new QLabel};
        fact.name->setToolTip(model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString());
        fact.value->setTextFormat(Qt::PlainText);
        fact.value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        fact.value->setAccessibleName(fact.name->text());
        fact.value->setAutoFillBackground(true);
        fact.value->setWordWrap(true);
        m_facts.append(fact);
    }
    arrange(1);
    update();
    connect(&model, &ValueModel::dataChanged, this, &FactsForm::update);
}

void FactsForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const int letters = event->size().width() / fontMetrics().averageCharWidth();
    arrange(std::max(1, std::min(letters / 55, m_facts.size() / 3)));
}

void FactsForm::arrange(int columns)
{
    if (columns == m_columns) {
        return;
    }
    for (int column = 0; column < m_columns; ++column) {
        m_layout->setColumnStretch(2 * column + 1, 0);
    }
    m_columns = columns;
    const int rows = (m_facts.size() + columns - 1) / columns;
    for (int i = 0; i < m_facts.size(); ++i) {
        m_layout->addWidget(m_facts[i].name, i % rows, 2 * (i / rows), Qt::AlignRight | Qt::AlignTop);
        m_layout->addWidget(m_facts[i].value, i % rows, 2 * (i / rows) + 1, Qt::AlignTop);
    }
    for (int column = 0; column < columns; ++column) {
        m_layout->setColumnStretch(2 * column + 1, 1);
    }
}

void FactsForm::update()
{
    for (int column = 0; column < m_facts.size(); ++column) {
        QLabel &label = *m_facts[column].value;
        const QModelIndex index = m_model.index(0, column);
        const QString text = index.data().toString();
        label.setText(text.isEmpty() ? QStringLiteral("–") : text);
        label.setEnabled(!text.isEmpty());
        label.setToolTip(index.data(Qt::ToolTipRole).toString());
        const QVariant background = index.data(Qt::BackgroundRole);
        QPalette palette;
        palette.setColor(QPalette::Window, background.isValid() ? background.value<QColor>() : Qt::transparent);
        label.setPalette(palette);
    }
}
