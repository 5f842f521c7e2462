#pragma once

#include "CheckStyle.h"

/// @brief That style with more room at the sides of cells: a number at the end of one does not touch the
/// text in the next.
class TableStyle : public CheckStyle
{
public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        constexpr int margin = 6;
        return metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin
            ? margin
            : CheckStyle::pixelMetric(metric, option, widget);
    }
};
