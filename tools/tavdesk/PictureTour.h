#pragma once

#include <QString>

class ClientSession;
class MainWindow;
class QWidget;
struct TavSubFuncTypeData_;

/// @brief Saves pictures of a window: of each page, of each dock, and of the whole.
class PictureTour
{
public:
    /// Saves into @p directory.
    PictureTour(MainWindow &window, ClientSession &session, QString directory);

    /// Waits until the window is on its display, and for the scenario that is being played, or feeds from this machine
    /// when there is none, and saves all pictures. Runs the event loop. Returns why not all could be; empty when all
    /// were.
    QString run();

private:
    void waitForWindow();
    void waitForContent();
    void savePages();
    void saveDocks();
    void saveWindow();
    void open(const TavSubFuncTypeData_ &page);
    void save(QWidget &widget, const QString &name);

    MainWindow &m_window;
    ClientSession &m_session;
    const QString m_directory;
    QString m_problem;
};
