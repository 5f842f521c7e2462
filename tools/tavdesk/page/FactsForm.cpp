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
        auto *const value = new SelectableLabel;
        value->setAccessibleName(name->text());
        value->setAutoFillBackground(true);
        value->setWordWrap(true);
        layout->addRow(name, value);
        m_values.append(value);
    }
    update();
    connect(&model, &ValueModel::dataChanged, this, &FactsForm::update);
}

void FactsForm::keyPressEvent(QKeyEvent *event)
{
    if (!event->matches(QKeySequence::Copy)) {
        QWidget::keyPressEvent(event);
        return;
    }
    QStringList lines;
    for (const QLabel *const value : qAsConst(m_values)) {
        lines.append(value->accessibleName() + QLatin1Char('\t') + value->text());
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

void FactsForm::update()
{
    for (int column = 0; column < m_values.size(); ++column) {
        QLabel &value = *m_values[column];
        const QModelIndex index = m_model.index(0, column);
        const QString text = index.data().toString();
        value.setText(text.isEmpty() ? QStringLiteral("–") : text);
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
