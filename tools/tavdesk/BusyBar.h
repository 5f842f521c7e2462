#pragma once

#include <QVector>
#include <QWidget>

#include <functional>

class QProgressBar;

/// @brief Shows in the status bar what has been going on for longer than a second, each with a way to stop it.
class BusyBar : public QWidget
{
    Q_OBJECT
public:
    explicit BusyBar(QWidget *parent = nullptr);

    /// @p what goes on from now on, in the words of @p text, which may change. @p stop ends it, or at least the waiting
    /// for it where nothing can break it off.
    void begin(const QObject *what, const QString &text, const std::function<void()> &stop);

    /// @p what has ended; nothing when it had not begun.
    void end(const QObject *what);

private:
    class Work;

    void showWhetherBusy();

    QVector<Work *> m_works; ///< one for all that has ever begun
    QProgressBar *m_progress;
};
