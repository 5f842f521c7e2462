#pragma once

#include <QScrollArea>

/// @brief Shows a form that has no room as a whole. It is no stop of the tabulator itself, but follows it: whatever in
/// the form has the focus comes into sight.
class FocusScrollArea : public QScrollArea
{
    Q_OBJECT
public:
    /// @p content becomes the area's own.
    explicit FocusScrollArea(QWidget *content, QWidget *parent = nullptr);
};
