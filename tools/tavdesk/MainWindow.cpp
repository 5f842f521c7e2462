#include "MainWindow.h"

#include "AgentBar.h"
#include "AgentFeeder.h"
#include "BusyBar.h"
#include "CallLogPanel.h"
#include "CallPanel.h"
#include "CatalogueProblem.h"
#include "ClientSession.h"
#include "DeliveryPanel.h"
#include "IconPictures.h"
#include "ITavPicResourceMgr.h"
#include "LinePanel.h"
#include "NavigationModel.h"
#include "NavigationView.h"
#include "PageArea.h"
#include "PicturePanel.h"
#include "PlayBar.h"
#include "Recording.h"
#include "RegistryPanel.h"
#include "ScenarioPlay.h"
#include "WorkStatus.h"

#include <QApplication>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QRegularExpression>
#include <QSettings>
#include <QShortcut>
#include <QStatusBar>
#include <QWidgetAction>

namespace
{
const QString placeSetting = QStringLiteral("window/place");
const QString docksSetting = QStringLiteral("window/docks");

/// The scenario that is dragged; empty when it is anything else.
QString scenarioIn(const QMimeData &data)
{
    const QString file = data.urls().value(0).toLocalFile();
    return file.endsWith(QLatin1String(".jsonl"), Qt::CaseInsensitive) ? file : QString();
}

/// The text without its mnemonic, which some languages put behind it in brackets.
QString withoutMnemonic(QString text)
{
    return text.remove(QRegularExpression(QStringLiteral("\\(&.\\)"))).remove(QLatin1Char('&'));
}

/// Shows what @p panel does when it takes long.
template<class Panel>
void announce(Panel &panel, BusyBar &busy)
{
    QObject::connect(&panel, &Panel::begun, &busy,
                     [&panel, &busy](const QString &text) { busy.begin(&panel, text, [&panel] { panel.stop(); }); });
    QObject::connect(&panel, &Panel::ended, &busy, [&panel, &busy] { busy.end(&panel); });
}

/// Adds the buttons of @p bar to @p menu, where alone their mnemonics have an effect and are shown; its fields have
/// their places in the bar alone.
void addButtons(QMenu &menu, const QToolBar &bar)
{
    const QList<QAction *> actions = bar.actions();
    for (QAction *const action : actions) {
        if (!qobject_cast<QWidgetAction *>(action)) {
            menu.addAction(action);
            const auto showText = [action] { action->setIconText(withoutMnemonic(action->text())); };
            showText();
            QObject::connect(action, &QAction::changed, action, showText);
        }
    }
}
}

MainWindow::MainWindow(ClientSession &session)
    : m_session(session)
    , m_feeder(std::make_unique<AgentFeeder>(session))
    , m_play(std::make_unique<ScenarioPlay>(session))
    , m_recording(std::make_unique<Recording>(session))
    , m_pages(new PageArea(session))
    , m_agentBar(new AgentBar(*m_feeder, *m_recording))
    , m_playBar(new PlayBar(*m_play))
    , m_status(new WorkStatus(*m_feeder, *m_play, *m_recording))
{
    setWindowTitle(tr("Security Client for Development"));
    setAcceptDrops(true);
    qApp->installEventFilter(this);
    resize(1280, 860);

    setCentralWidget(m_pages);
    addToolBar(m_agentBar);
    addToolBar(m_playBar);
    addDocks();
    addMenus();
    statusBar()->addWidget(m_status, 1);
    m_navigation->setFocus();

    connect(m_pages, &PageArea::workBegun, &m_status->busy(), &BusyBar::begin);
    connect(m_pages, &PageArea::workEnded, &m_status->busy(), &BusyBar::end);
    connect(m_pages, &PageArea::pageFailed, this, &MainWindow::problemShown);
    connect(m_pages, &PageArea::pageChosen, &m_session, &ClientSession::select);
    connect(m_navigation, &NavigationView::pageChosen, &m_session, &ClientSession::select);
    connect(&m_session, &ClientSession::pageChanged, this, [this](ClientSession::Page page) {
        m_pages->open(page);
        m_navigation->setOpenPage(page);
    });
    connect(&m_session, &ClientSession::catalogueRead, this, [this] {
        m_navigation->setFunctions(navigationTree());
        m_navigation->setOpenPage(m_pages->openPage());
        m_pages->showBeginning();
    });
    connect(m_play.get(), &ScenarioPlay::failed, this, [this](const QString &file, const QString &problem) {
        showProblem(tr("%1 cannot be played").arg(file), problem);
    });
    connect(m_recording.get(), &Recording::failed, this, [this](const QString &file, const QString &problem) {
        showProblem(tr("%1 cannot be recorded").arg(file), problem);
    });
}

MainWindow::~MainWindow() = default;

void MainWindow::restorePlace()
{
    const QSettings settings;
    restoreGeometry(settings.value(placeSetting).toByteArray());
    restoreState(settings.value(docksSetting).toByteArray());
}

void MainWindow::showProblem(const QString &what, const QString &problem)
{
    auto *const box = new QMessageBox(QMessageBox::Warning, windowTitle(), what, QMessageBox::Close, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(problem);
    box->open();
    emit problemShown(what, problem);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    QSettings settings;
    settings.setValue(placeSetting, saveGeometry());
    settings.setValue(docksSetting, saveState());
    QMainWindow::closeEvent(event);
}

// A scenario is played wherever it is dropped: a field for text would take its name.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::DragEnter && watched != this && isAncestorOf(qobject_cast<QWidget *>(watched))
        && !scenarioIn(*static_cast<QDragEnterEvent *>(event)->mimeData()).isEmpty()) {
        event->ignore(); // goes on to the window
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!scenarioIn(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent *event)
{
    m_play->open(scenarioIn(*event->mimeData()));
    event->acceptProposedAction();
}

void MainWindow::addDocks()
{
    ITavPicResourceMgr &pictures = *m_session.host().manager<ITavPicResourceMgr>();
    const QStringList directories = pictureDirectories();
    // First, since it has the manager load the pictures of the navigation.
    auto *const picturePanel = new PicturePanel(m_session, directories);
    m_navigation = new NavigationView(new NavigationModel(navigationTree(), pictures, directories));
    addDock(QStringLiteral("navigation"), tr("&Navigation"), m_navigation, Qt::LeftDockWidgetArea);

    auto *const calls = new CallLogPanel(m_session.calls());
    connect(calls, &CallLogPanel::saved, this, [this](const QString &file, const QString &error, int leftOut) {
        if (!error.isEmpty()) {
            showProblem(tr("%1 cannot be written").arg(file), error);
            return;
        }
        statusBar()->showMessage(leftOut > 0
                                     ? tr("%1 was written without %n refused call(s).", nullptr, leftOut).arg(file)
                                     : tr("%1 was written.").arg(file),
                                 5000);
    });
    auto *const call = new CallPanel(m_session);
    announce(*calls, m_status->busy());
    announce(*call, m_status->busy());
    const QVector<QDockWidget *> below{
        addDock(QStringLiteral("registry"), tr("&Registry"), new RegistryPanel(m_session.host().registry()),
                Qt::BottomDockWidgetArea),
        addDock(QStringLiteral("calls"), tr("&Calls"), calls, Qt::BottomDockWidgetArea),
        addDock(QStringLiteral("deliveries"), tr("Page C&hanges"), new DeliveryPanel(m_session.deliveries()),
                Qt::BottomDockWidgetArea),
        addDock(QStringLiteral("lines"), tr("&Log"), new LinePanel(m_session.lines()), Qt::BottomDockWidgetArea),
        addDock(QStringLiteral("call"), tr("Call an &Operation"), call, Qt::BottomDockWidgetArea),
        addDock(QStringLiteral("pictures"), tr("&Pictures"), picturePanel, Qt::BottomDockWidgetArea)};
    for (int i = 1; i < below.size(); ++i) {
        tabifyDockWidget(below[i - 1], below[i]);
    }
    below[1]->raise();
    setCorner(Qt::BottomLeftCorner, Qt::BottomDockWidgetArea);
    resizeDocks({m_docks.first()}, {250}, Qt::Horizontal);
    resizeDocks({below.first()}, {270}, Qt::Vertical);
}

QDockWidget *MainWindow::addDock(const QString &name, const QString &title, QWidget *content, Qt::DockWidgetArea area)
{
    auto *const dock = new QDockWidget(withoutMnemonic(title), this);
    dock->setObjectName(name); // under which its place is kept
    dock->setWidget(content);
    // A dock that lies under another is moved off the screen only: its keys and its focus would still have an effect.
    connect(dock, &QDockWidget::visibilityChanged, content, &QWidget::setVisible);
    QSizePolicy policy = content->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // or the docks would jump to the size of the one in front
    content->setSizePolicy(policy);
    addDockWidget(area, dock);
    m_docks.append(dock);
    // The key is no shortcut of the entry, but shown with it: it brings the dock to the front, which a dock that lies
    // under another needs as much as one that is hidden.
    const QKeySequence key(int(Qt::CTRL) + Qt::Key_0 + m_docks.size());
    dock->toggleViewAction()->setText(title + QLatin1Char('\t') + key.toString(QKeySequence::NativeText));
    auto *const toFront = new QShortcut(key, this);
    connect(toFront, &QShortcut::activated, dock, [dock, content] {
        dock->show();
        dock->raise();
        content->setFocus();
    });
    return dock;
}

void MainWindow::addMenus()
{
    QMenu &file = *menuBar()->addMenu(tr("&File"));
    file.addAction(tr("&Findings in the Catalogue…"), this, [this] { showCatalogueFindings(this); });
    file.addSeparator();
    file.addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);
    QMenu &agent = *menuBar()->addMenu(tr("&Agent"));
    addButtons(agent, *m_agentBar);
    QMenu &scenario = *menuBar()->addMenu(tr("&Scenario"));
    addButtons(scenario, *m_playBar);
    QMenu &view = *menuBar()->addMenu(tr("&View"));
    for (QDockWidget *const dock : qAsConst(m_docks)) {
        view.addAction(dock->toggleViewAction());
    }
}
