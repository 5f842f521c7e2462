#pragma once

#include <QMainWindow>

#include <memory>

class AgentBar;
class AgentFeeder;
class ClientSession;
class NavigationView;
class PageArea;
class PlayBar;
class Recording;
class ScenarioPlay;
class WorkStatus;

/**
 * @brief The window of a session: the navigation, the page that is open, and around them what the session does.
 *
 * A page that is chosen is only selected in the plugin; it is opened when the page change arrives.
 */
class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    /// @p session outlives the window.
    explicit MainWindow(ClientSession &session);
    ~MainWindow() override;
    Q_DISABLE_COPY(MainWindow)

    PageArea &pages()
    {
        return *m_pages;
    }

    AgentFeeder &feeder()
    {
        return *m_feeder;
    }

    ScenarioPlay &play()
    {
        return *m_play;
    }

    Recording &recording()
    {
        return *m_recording;
    }

    /// Places the window as it was when it was closed last.
    void restorePlace();

    /// Shows what cannot be done in a dialog that keeps nothing waiting.
    void showProblem(const QString &what, const QString &problem);

signals:
    void problemShown(const QString &what, const QString &problem);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void addDocks();
    QDockWidget *addDock(const QString &name, const QString &title, QWidget *content, Qt::DockWidgetArea area);
    void addMenus();

    ClientSession &m_session;
    std::unique_ptr<AgentFeeder> m_feeder;
    std::unique_ptr<ScenarioPlay> m_play;
    std::unique_ptr<Recording> m_recording;
    PageArea *m_pages;
    NavigationView *m_navigation = nullptr;
    AgentBar *m_agentBar;
    PlayBar *m_playBar;
    WorkStatus *m_status;
    QVector<QDockWidget *> m_docks; ///< the navigation is the first
};
