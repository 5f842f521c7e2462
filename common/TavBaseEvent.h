#pragma once

#include "TavCommonExport.h"

#include <QObject>

#include <functional>

/**
 * @brief A function to be run once in the thread that this object belongs to.
 *
 * Create it, move it to its thread, give it its function and hand it to TavEventNotifyMgr::addEventNotify, which
 * owns it from then on.
 */
class TAV_COMMON_EXPORT TavBaseEvent : public QObject
{
    Q_OBJECT
public:
    /// An event that belongs to the calling thread until it is moved; one with a parent cannot be moved.
    explicit TavBaseEvent(QObject *parent);

    /// Sets what run() calls. Before the event is handed to the bus only.
    void setFunc(std::function<void()> func);

    /// Calls the function. The bus does this, in the event's thread; an exception of the function leaves it, and an
    /// empty function raises std::bad_function_call.
    void run() const;

private:
    std::function<void()> m_func;
};

/**
 * @brief An event whose sender may hold a lock that what its function owns wants as it dies.
 *
 * When the bus finds that it cannot be run, it does not end inside addEventNotify but in the application's event loop.
 */
class TAV_COMMON_EXPORT TavAnnouncement : public TavBaseEvent
{
public:
    using TavBaseEvent::TavBaseEvent;
    ~TavAnnouncement() override;
};
