#include "CatalogueProblem.h"

#include "CatalogueCheck.h"
#include "FindingsDialog.h"
#include "InstallationPaths.h"
#include "ProblemView.h"
#include "TavCommonUtils.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>

namespace
{
/// @brief The texts' context.
struct CatalogueProblem {
    Q_DECLARE_TR_FUNCTIONS(CatalogueProblem)
};

void showFindings(const QString &path, QWidget *parent)
{
    QFile file(path);
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    auto *const dialog = new FindingsDialog(path, checkCatalogue(path, content), parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}
}

ProblemView *newCatalogueProblem(QWidget *parent)
{
    const QString path = TavCommonUtils::pathInSystemRoot(InstallationPaths::catalogue());
    if (!QFile::exists(path)) {
        return new ProblemView(CatalogueProblem::tr("There is no navigation catalogue"),
                               CatalogueProblem::tr("%1 does not exist.").arg(path),
                               CatalogueProblem::tr("Put a catalogue there, or name another system root with --root."),
                               parent);
    }
    auto *const view = new ProblemView(
        CatalogueProblem::tr("The navigation catalogue holds no page"),
        CatalogueProblem::tr("No page could be read from %1.").arg(path),
        CatalogueProblem::tr(
            "It must be the Base64 text of a JSON array of functions. The findings tell where it is not."),
        parent);
    auto *const findings = new QAction(CatalogueProblem::tr("Show Fi&ndings…"), view);
    QObject::connect(findings, &QAction::triggered, view, [path, view] { showFindings(path, view->window()); });
    view->addButton(findings);
    return view;
}
