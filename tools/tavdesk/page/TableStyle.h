#pragma once

#include <QProxyStyle>

/// @brief The application's style with more room at the sides of cells: a number at the end of one does not touch the
/// text in the next.
class TableStyle : public QProxyStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        constexpr int margin = 6;
        return metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin
            ? margin
            : QProxyStyle::pixelMetric(metric, option, widget);
    }
};
