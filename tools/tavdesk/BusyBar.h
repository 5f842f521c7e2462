#pragma once

#include <QTimer>
#include <QVector>
#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;

/// @brief Shows in the status bar what has been going on for longer than a second, with a way to stop it.
class BusyBar : public QWidget
{
    Q_OBJECT
public:
    explicit BusyBar(QWidget *parent = nullptr);

    /// @p what goes on from now on, in the words of @p text, which may change. An empty @p stop: it cannot be stopped.
    void begin(const QObject *what, const QString &text, std::function<void()> stop);

    /// @p what has ended; nothing when it had not begun.
    void end(const QObject *what);

private:
    struct Work {
        const QObject *what;
        QString text;
        std::function<void()> stop;
    };

    void showFirst();

    QVector<Work> m_works; ///< the one that began first is shown
    QTimer m_patience;
    QLabel *m_text;
    QPushButton *m_stop;
};
