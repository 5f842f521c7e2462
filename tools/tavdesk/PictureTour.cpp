#include "PictureTour.h"

#include "AgentFeeder.h"
#include "ClientSession.h"
#include "ITavFuncTypeMgr.h"
#include "MainWindow.h"
#include "ModelPage.h"
#include "NavigationTree.h"
#include "PageArea.h"
#include "ScenarioPlay.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QDockWidget>
#include <QEventLoop>
#include <QPixmap>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace
{
constexpr int settleTime = 400; // milliseconds in which a page or dock reads what it shows
constexpr int arrangeTime = 50; // in which a page arranges what it has read

void runLoop(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
    QCoreApplication::sendPostedEvents(); // on a busy machine the timer may come before all that was due
}

/// Runs the event loop until @p sender emits @p signal.
template<class Sender, class Signal>
void waitFor(const Sender &sender, Signal signal)
{
    QEventLoop loop;
    QObject::connect(&sender, signal, &loop, &QEventLoop::quit);
    loop.exec();
}
}

PictureTour::PictureTour(MainWindow &window, ClientSession &session, QString directory)
    : m_window(window), m_session(session), m_directory(std::move(directory))
{
}

QString PictureTour::run()
{
    QDir().mkpath(m_directory); // what cannot be written below it says so
    waitForWindow();
    waitForContent();
    savePages();
    saveDocks();
    saveWindow();
    return m_problem;
}

void PictureTour::waitForWindow()
{
    const QWindow &window = *m_window.windowHandle();
    for (QDeadlineTimer patience(5000); !window.isExposed() && !patience.hasExpired();) {
        runLoop(10);
    }
    if (!window.isExposed()) {
        m_problem = QStringLiteral("the window does not show on its display");
    }
}

void PictureTour::waitForContent()
{
    using State = ScenarioPlay::State;
    const ScenarioPlay &play = m_window.play();
    if (play.state() == State::Empty) {
        m_window.feeder().feed();
        waitFor(m_window.feeder(), &AgentFeeder::stateChanged);
    }
    while (play.state() == State::Opening || play.state() == State::Playing) {
        waitFor(play, &ScenarioPlay::stateChanged);
    }
}

void PictureTour::savePages()
{
    const QVector<TavSubFuncTypeData_> pages = m_session.host().manager<ITavFuncTypeMgr>()->getSubFuncInfo();
    for (const TavSubFuncTypeData_ &page : pages) {
        open(page);
        save(m_window.pages(), QStringLiteral("page-") + pageKey(page.subFuncType));
    }
}

void PictureTour::open(const TavSubFuncTypeData_ &page)
{
    m_session.select(page);
    if (m_window.pages().openPage() != page.subFuncType) {
        waitFor(m_session, &ClientSession::pageChanged);
    }
    // What the managers hold is there when it has been read, which takes as long as it takes; another page knows.
    if (const auto *const content = m_window.pages().currentWidget()->findChild<ModelPage *>()) {
        waitFor(*content, &ModelPage::ended);
        runLoop(arrangeTime);
    } else {
        runLoop(settleTime);
    }
}

void PictureTour::saveDocks()
{
    const QList<QDockWidget *> docks = m_window.findChildren<QDockWidget *>();
    for (QDockWidget *const dock : docks) {
        dock->show();
        dock->raise();
        runLoop(settleTime);
        save(*dock, QStringLiteral("dock-") + dock->objectName());
    }
}

/// With the first page, on which there is the most to see, and the calls below it.
void PictureTour::saveWindow()
{
    const QVector<TavSubFuncTypeData_> pages = m_session.host().manager<ITavFuncTypeMgr>()->getSubFuncInfo();
    if (!pages.isEmpty()) {
        open(pages.first());
    }
    m_window.findChild<QDockWidget *>(QStringLiteral("calls"))->raise();
    runLoop(settleTime);
    save(m_window, QStringLiteral("window"));
}

void PictureTour::save(QWidget &widget, const QString &name)
{
    const QString file = QDir(m_directory).filePath(name + QLatin1String(".png"));
    if (!widget.grab().save(file)) {
        m_problem = file + QLatin1String(": cannot be written");
    }
}
