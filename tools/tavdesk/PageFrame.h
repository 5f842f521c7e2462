#pragma once

#include "TavSubFuncTypeData_.h"

#include <QVector>
#include <QWidget>

/// @brief A page with its title, its help, and the way to the pages that are reached from it and back.
class PageFrame : public QWidget
{
    Q_OBJECT
public:
    /// @p content becomes the frame's own; @p ways are the pages that buttons lead to.
    PageFrame(const TavSubFuncTypeData_ &page, QWidget *content, const QVector<TavSubFuncTypeData_> &ways,
              QWidget *parent = nullptr);

signals:
    void pageChosen(const TavSubFuncTypeData_ &page);
};
