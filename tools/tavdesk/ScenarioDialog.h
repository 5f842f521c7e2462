#pragma once

#include <QFileDialog>

/// A dialog for a scenario's file, to be opened by the caller; it ends by itself. It begins in the folder of the
/// scenario that was chosen last in any of them, which is kept for the next start, too.
QFileDialog *newScenarioDialog(QWidget *parent, const QString &title, QFileDialog::AcceptMode mode);
