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

/// @brief The catalogue's file as it could be read.
struct Catalogue {
    QString path;
    QByteArray content;
    QString error; ///< why it cannot be read; empty when it was
};

Catalogue readCatalogue()
{
    QFile file(TavCommonUtils::pathInSystemRoot(InstallationPaths::catalogue()));
    if (!file.open(QIODevice::ReadOnly)) {
        return {file.fileName(), {}, file.errorString()};
    }
    return {file.fileName(), file.readAll(), {}};
}
}

ProblemView *newCatalogueProblem(QWidget *parent)
{
    const Catalogue catalogue = readCatalogue();
    if (!QFile::exists(catalogue.path)) {
        return new ProblemView(CatalogueProblem::tr("There is no navigation catalogue"),
                               CatalogueProblem::tr("%1 does not exist.").arg(catalogue.path),
                               CatalogueProblem::tr("Put a catalogue there, or name another system root with --root."),
                               parent);
    }
    if (!catalogue.error.isEmpty()) {
        return new ProblemView(CatalogueProblem::tr("The navigation catalogue cannot be read"),
                               CatalogueProblem::tr("%1: %2").arg(catalogue.path, catalogue.error),
                               CatalogueProblem::tr("Make it a file that this user may read, and start again."),
                               parent);
    }
    auto *const view = new ProblemView(
        CatalogueProblem::tr("The navigation catalogue holds no page"),
        CatalogueProblem::tr("No page could be read from %1.").arg(catalogue.path),
        CatalogueProblem::tr(
            "It must be the Base64 text of a JSON array of functions. The findings tell where it is not."),
        parent);
    auto *const findings = new QAction(CatalogueProblem::tr("Show Fi&ndings…"), view);
    QObject::connect(findings, &QAction::triggered, view, [view] { showCatalogueFindings(view->window()); });
    view->addButton(findings);
    return view;
}

void showCatalogueFindings(QWidget *window)
{
    const Catalogue catalogue = readCatalogue();
    const bool isRead = catalogue.error.isEmpty();
    const Findings findings = isRead ? checkCatalogue(catalogue.path, catalogue.content) : Findings();
    const QString heading = !isRead ? CatalogueProblem::tr("%1: %2").arg(catalogue.path, catalogue.error)
        : findings.isEmpty()        ? CatalogueProblem::tr("%1: nothing was found.").arg(catalogue.path)
                                    : catalogue.path;
    auto *const dialog = new FindingsDialog(heading, findings, window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}
