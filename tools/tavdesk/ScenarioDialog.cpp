#include "ScenarioDialog.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>

namespace
{
const QString folderSetting = QStringLiteral("scenarios/folder");

/// @brief The context of the texts.
struct ScenarioDialog {
    Q_DECLARE_TR_FUNCTIONS(ScenarioDialog)
};
}

QFileDialog *newScenarioDialog(QWidget *parent, const QString &title, QFileDialog::AcceptMode mode)
{
    const QString scenarios = ScenarioDialog::tr("Scenarios (*.jsonl)");
    const bool isToOpen = mode == QFileDialog::AcceptOpen;
    const QString filter = isToOpen ? scenarios + QLatin1String(";;") + ScenarioDialog::tr("All files (*)") : scenarios;
    auto *const dialog = new QFileDialog(parent, title, QSettings().value(folderSetting).toString(), filter);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(mode);
    dialog->setFileMode(isToOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog->setDefaultSuffix(isToOpen ? QString() : QStringLiteral("jsonl"));
    QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                     [](const QString &file) { QSettings().setValue(folderSetting, QFileInfo(file).absolutePath()); });
    return dialog;
}
