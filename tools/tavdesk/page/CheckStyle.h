#pragma once

#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

/// @brief The application's style with check boxes whose frames are seen on a dark ground, too.
class CheckStyle : public QProxyStyle
{
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck) {
            const bool isSelected = option->state.testFlag(State_Selected);
            QColor colour = option->palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
            colour.setAlphaF(0.5);
            painter->save();
            painter->setPen(colour);
            painter->setBrush(Qt::NoBrush);
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
            painter->restore();
        }
    }
};
