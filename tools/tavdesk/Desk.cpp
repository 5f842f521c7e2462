#include "Desk.h"

#include "ClientSession.h"
#include "InstallationPaths.h"
#include "MainWindow.h"
#include "PictureTour.h"
#include "ProblemView.h"
#include "ScenarioPlay.h"
#include "TavPluginError.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>

#include <iostream>

namespace
{
void printError(const QString &text)
{
    std::cerr << "tavdesk: " << text.toStdString() << '\n';
}

QString sentence(const QString &text)
{
    return text.isEmpty() ? text : MainWindow::tr("%1.", "a sentence").arg(text.at(0).toUpper() + text.mid(1));
}
}

Desk::Desk(DeskOptions options) : m_options(std::move(options))
{
    if (m_options.plugin.isEmpty()) {
        m_options.plugin = InstallationPaths::pluginBesideProgram();
    }
}

Desk::~Desk() = default;

void Desk::show()
{
    if (m_problem) {
        m_problem.release()->deleteLater(); // its dialog may have led here
    }
    try {
        open();
    } catch (const TavPluginError &error) {
        showPluginProblem(error);
        return;
    }
    m_window->restorePlace();
    m_window->show();
}

int Desk::savePictures()
{
    try {
        open();
    } catch (const TavPluginError &error) {
        printError(QString::fromUtf8(error.what()));
        return usageError;
    }
    m_window->play().setSpeed(TavPlayOptions::fastest);
    m_window->show();
    const QString problem = PictureTour(*m_window, *m_session, m_options.pictures).run();
    if (!problem.isEmpty()) {
        printError(problem);
        return usageError;
    }
    return m_hasProblem ? usageError : 0;
}

void Desk::showFailure(const QString &problem)
{
    if (m_window) {
        m_window->showProblem(MainWindow::tr("A part of the window has failed"), problem);
    }
}

void Desk::open()
{
    m_session = std::make_unique<ClientSession>(m_options.plugin, m_options.root);
    const QVector<TavPluginError> refused = m_session->loadPages(m_options.pages);
    m_window = std::make_unique<MainWindow>(*m_session);
    if (!m_options.pictures.isEmpty()) {
        QObject::connect(m_window.get(), &MainWindow::problemShown, m_window.get(),
                         [this](const QString &what, const QString &problem) {
                             printError(what + QLatin1String(": ") + problem);
                             m_hasProblem = true;
                         });
    }
    for (const TavPluginError &error : refused) {
        m_window->showProblem(MainWindow::tr("%1 is not shown").arg(error.file()),
                              sentence(error.problem()) + QLatin1Char('\n') + sentence(error.advice()));
    }
    if (!m_options.play.isEmpty()) {
        ScenarioPlay *const play = &m_window->play();
        play->open(m_options.play, ScenarioPlay::Opened::Play);
    }
}

void Desk::showPluginProblem(const TavPluginError &error)
{
    auto view = std::make_unique<ProblemView>(MainWindow::tr("There is no data plugin to show"),
                                              error.file() + QLatin1String(": ") + error.problem(),
                                              sentence(error.effect()) + QLatin1Char('\n') + sentence(error.advice()));
    view->setWindowTitle(MainWindow::tr("Security Client for Development"));
    auto *const choose = new QAction(MainWindow::tr("&Choose Another File…"), view.get());
    QObject::connect(choose, &QAction::triggered, view.get(), [this] { choosePlugin(); });
    view->addButton(choose);
    view->resize(760, 360);
    view->show();
    m_problem = std::move(view);
}

void Desk::choosePlugin()
{
    auto *const dialog = new QFileDialog(m_problem.get(), MainWindow::tr("Data Plugin"),
                                         QFileInfo(m_options.plugin).path(), MainWindow::tr("Libraries (*.so)"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    // Queued: the dialog belongs to the window that is about to end.
    QObject::connect(
        dialog, &QFileDialog::fileSelected, m_problem.get(),
        [this](const QString &file) {
            m_options.plugin = file;
            show();
        },
        Qt::QueuedConnection);
    dialog->open();
}
