#pragma once

#include <QWidget>

class ITavPicResourceMgr;
class PictureModel;
class QListWidget;

/// @brief The picture manager's pictures with their keys, and the directories that were appended to it.
class PicturePanel : public QWidget
{
    Q_OBJECT
public:
    /// @p pictures outlives the panel; @p directories are those that it has been given before.
    PicturePanel(ITavPicResourceMgr &pictures, const QStringList &directories, QWidget *parent = nullptr);

private:
    void append(const QString &directory);
    void chooseDirectory();

    PictureModel *const m_model;
    QListWidget *m_directories;
};
