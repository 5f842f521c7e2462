#include "FactsForm.h"

#include "QuietLabel.h"
#include "SelectableLabel.h"
#include "ValueModel.h"

#include <QApplication>
#include <QClipboard>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace
{
QString orDash(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("-") : text;
}
}

FactsForm::FactsForm(const QString &title, const ValueModel &model, QWidget *parent) : QWidget(parent), m_model(model)
{
    setAccessibleName(title);
    setFocusPolicy(Qt::TabFocus);
    auto *const heading = new QLabel(title);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    auto *const layout = new QFormLayout(this);
    layout->setContentsMargins(0, 0, 0, 4);
    layout->setHorizontalSpacing(12);
    layout->setVerticalSpacing(2);
    layout->setLabelAlignment(Qt::AlignRight);
    layout->addRow(heading);
    for (int column = 0; column < model.columnCount(); ++column) {
        auto *const name = new QuietLabel(model.headerData(column, Qt::Horizontal).toString());
        name->setToolTip(model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString());
        name->setAlignment(Qt::AlignRight | Qt::AlignTop); // beside the first line of its value
        auto *const value = new SelectableLabel;
        value->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        value->setAccessibleName(name->text());
        value->setAutoFillBackground(true);
        value->setWordWrap(true);
        layout->addRow(name, value);
        m_values.append(value);
    }
    showValues();
    connect(&model, &ValueModel::dataChanged, this, &FactsForm::showValues);
}

void FactsForm::keyPressEvent(QKeyEvent *event)
{
    if (!event->matches(QKeySequence::Copy)) {
        QWidget::keyPressEvent(event);
        return;
    }
    QStringList lines;
    const ValueTable &table = *m_model.rows().table; // of which the labels show some shortened
    for (int column = 0; column < m_values.size(); ++column) {
        const QString text = ValueModel::fullText(table.columns()[column], table.cell(0, column));
        lines.append(m_values[column]->accessibleName() + QLatin1Char('\t') + orDash(text));
    }
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void FactsForm::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

// Qt's layout remembers the heights of its rows for the width that it was asked about last, which may be another one.
void FactsForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layout()->invalidate();
    layout()->activate();
}

void FactsForm::showValues()
{
    for (int column = 0; column < m_values.size(); ++column) {
        QLabel &value = *m_values[column];
        const QModelIndex index = m_model.index(0, column);
        const QString text = index.data().toString();
        value.setText(orDash(text));
        value.setEnabled(!text.isEmpty());
        value.setToolTip(index.data(Qt::ToolTipRole).toString());
        const QVariant mark = index.data(Qt::BackgroundRole);
        const QColor background = mark.isValid() ? mark.value<QColor>() : QColor(Qt::transparent);
        if (QPalette colors = value.palette(); colors.color(QPalette::Window) != background) {
            colors.setColor(QPalette::Window, background);
            value.setPalette(colors);
        }
    }
}
