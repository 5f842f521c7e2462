#include "DeskApplication.h"

#include "TavNanolog.h"

bool DeskApplication::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception &error) {
        report(*receiver, QString::fromUtf8(error.what()));
    } catch (...) {
        report(*receiver, tr("not a std::exception"));
    }
    return true;
}

void DeskApplication::report(const QObject &receiver, const QString &what)
{
    const QString problem = tr("%1 threw: %2").arg(QString::fromUtf8(receiver.metaObject()->className()), what);
    TavNanolog::TavNanoLogLine line(1, "desk", __func__, __LINE__);
    line.encode(problem);
    TavNanolog::NanoLog(line);
    // Queued: events are delivered on every thread, and a dialog is not to open in the middle of one.
    QMetaObject::invokeMethod(
        this,
        [this, problem] {
            if (!m_told.contains(problem)) {
                m_told.insert(problem);
                emit threw(problem);
            }
        },
        Qt::QueuedConnection);
}
