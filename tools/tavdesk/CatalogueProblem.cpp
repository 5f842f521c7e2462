#include "CatalogueProblem.h"

#include "CatalogueCheck.h"
#include "FindingsDialog.h"
#include "InstallationPaths.h"
#include "ProblemView.h"
#include "TavCommonUtils.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QPointer>
#include <QProgressDialog>
#include <QThreadPool>
#include <QTimer>

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

void openFindings(const Catalogue &catalogue, const Findings &findings, QWidget *window)
{
    const QString heading = !catalogue.error.isEmpty()
        ? CatalogueProblem::tr("%1: %2").arg(catalogue.path, catalogue.error)
        : findings.isEmpty() ? CatalogueProblem::tr("%1: nothing was found.").arg(catalogue.path)
                             : catalogue.path;
    auto *const dialog = new FindingsDialog(heading, findings, window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
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
    auto *const waiting = new QProgressDialog(CatalogueProblem::tr("Checking the catalogue"),
                                              CatalogueProblem::tr("Stop"), 0, 0, window);
    QTimer::singleShot(1000, waiting, &QWidget::show);
    QObject::connect(waiting, &QProgressDialog::canceled, waiting, &QObject::deleteLater);
    // Nothing breaks a check off: whoever stops it does not wait for it any longer.
    QThreadPool::globalInstance()->start([waiting = QPointer<QProgressDialog>(waiting)] {
        const Catalogue catalogue = readCatalogue();
        const bool isRead = catalogue.error.isEmpty();
        const Findings findings = isRead ? checkCatalogue(catalogue.path, catalogue.content) : Findings();
        QMetaObject::invokeMethod(qApp, [waiting, catalogue, findings] {
            if (waiting) {
                openFindings(catalogue, findings, waiting->parentWidget());
                waiting->deleteLater();
            }
        });
    });
}
