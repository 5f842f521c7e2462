#pragma once

#include <QScrollArea>

/// @brief Shows a form that has no room as a whole. It is no stop of the tabulator itself, but follows the keyboard:
/// what has been given the focus in the form comes into sight.
class FocusScrollArea : public QScrollArea
{
    Q_OBJECT
public:
    /// @p content becomes the area's own.
    explicit FocusScrollArea(QWidget *content, QWidget *parent = nullptr);
};
