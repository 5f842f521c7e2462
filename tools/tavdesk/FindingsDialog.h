#pragma once

#include "Finding.h"

#include <QDialog>

/// @brief What a check has found in a file: each place with its problem, its effect and what to do.
class FindingsDialog : public QDialog
{
    Q_OBJECT
public:
    FindingsDialog(const QString &heading, const Findings &findings, QWidget *parent = nullptr);
};
