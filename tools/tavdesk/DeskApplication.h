#pragma once

#include <QApplication>
#include <QSet>

/**
 * @brief An application that goes on when code of a page throws out of a slot or an event handler.
 *
 * Qt lets no exception through its event loop: it would end the program, and the state that somebody looks at with it.
 */
class DeskApplication : public QApplication
{
    Q_OBJECT
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override;

signals:
    /// Told once for each text, since what throws once may do so whenever it is painted; the log has every time.
    void threw(const QString &problem);

private:
    void report(const QObject &receiver, const QString &what);

    QSet<QString> m_told;
};
