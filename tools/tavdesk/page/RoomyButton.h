#pragma once

#include "LetterWidth.h"

#include <QPushButton>

/// @brief A button whose text keeps a letter's distance from the frame, which styles draw close around long texts.
class RoomyButton : public QPushButton
{
    Q_OBJECT
public:
    using QPushButton::QPushButton;

    QSize sizeHint() const override
    {
        return QPushButton::sizeHint() + QSize(2 * letterWidth(fontMetrics()), 0);
    }
};
