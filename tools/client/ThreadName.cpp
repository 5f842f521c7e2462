#include "ThreadName.h"

#include <QCoreApplication>
#include <QThread>

QString currentThreadName()
{
    const QThread *const thread = QThread::currentThread();
    if (qApp && thread == qApp->thread()) {
        return "gui";
    }
    return thread->objectName().isEmpty() ? "thread" : thread->objectName();
}
