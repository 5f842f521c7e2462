#pragma once

#include <QWidget>

class ClientSession;
class PictureModel;
class QListWidget;

/// @brief The picture manager's pictures with their keys, and the directories that were appended to it.
class PicturePanel : public QWidget
{
    Q_OBJECT
public:
    /// Has the manager load @p directories. @p session outlives the panel.
    PicturePanel(ClientSession &session, const QStringList &directories, QWidget *parent = nullptr);

private:
    void append(const QStringList &directories);
    void update();
    void chooseDirectory();

    ClientSession &m_session;
    int m_shown = 0; ///< so many appended directories have been taken over
    PictureModel *const m_model;
    QListWidget *m_directories;
};
