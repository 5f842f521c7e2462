#pragma once

#include "DeskOptions.h"

#include <QWidget>

#include <memory>

class ClientSession;
class MainWindow;
class TavPluginError;

/// @brief The program: a session with its window, or a window that says why there is no session.
class Desk
{
public:
    explicit Desk(DeskOptions options);
    ~Desk();
    Q_DISABLE_COPY(Desk)

    /// Loads the plugin and shows the window. When that does not work, a window says so and lets another be chosen.
    void show();

    /// Saves pictures instead of showing a window; what the window would show as a problem is printed. Returns the
    /// program's exit code.
    int savePictures();

    /// Shows in the window that something in it has failed.
    void showFailure(const QString &problem);

private:
    /// Makes session and window. Throws TavPluginError.
    void open();
    void showPluginProblem(const TavPluginError &error);
    void choosePlugin();

    DeskOptions m_options;
    bool m_hasProblem = false; ///< one that was printed
    std::unique_ptr<ClientSession> m_session;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<QWidget> m_problem; ///< in the window's place when there is no session
};
