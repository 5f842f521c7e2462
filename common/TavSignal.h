#pragma once

#include "TavBaseEvent.h"
#include "TavEventNotifyMgr.h"

#include <QMutex>
#include <QThread>
#include <QVector>

#include <algorithm>
#include <functional>
#include <memory>

/**
 * @brief A list of (callback, thread) subscribers and a value announced to all of them.
 *
 * Every delivery travels over the event bus to the subscriber's own thread, also when that is the emitting one, so
 * no callback ever runs inside Emit. All operations may be called from any thread, also while another one emits.
 */
template<class T>
class TavSignal
{
public:
    TavSignal() = default;
    Q_DISABLE_COPY(TavSignal) // a copy would share neither its subscribers nor their ids

    /**
     * @brief Adds a subscriber at the end of the list: @p callback is called in @p thread, which must run an event
     * loop.
     *
     * Returns the subscription's id, which is positive and never reused.
     *
     * An emission that took its list before unsubscribe() may hand its event to @p thread after it: the QThread object
     * must outlive every emission that began before unsubscribe() returned.
     *
     * The code of @p callback must stay loaded for good: lists in use, posted events and what the callback has put
     * into other objects refer to it also after unsubscribe(). A plugin that has subscribed is never unloaded.
     */
    int subscribe(std::function<void(T)> callback, QThread *thread)
    {
        QMutexLocker lock(&m_mutex);
        change([&](QVector<Subscriber> &subscribers) {
            subscribers.append({++m_lastId, std::move(callback), thread});
        });
        return m_lastId;
    }

    /// Ends the subscription @p id: later emissions leave it out. A delivery that was posted before still arrives, and
    /// one of an emission that is under way may still be posted. False when there is no such subscription.
    bool unsubscribe(int id)
    {
        std::shared_ptr<const QVector<Subscriber>> before; // ends after the lock: a dying callback may use the signal
        QMutexLocker lock(&m_mutex);
        before = change([id](QVector<Subscriber> &subscribers) {
            const auto isMeant = [id](const Subscriber &subscriber) { return subscriber.id == id; };
            subscribers.erase(std::remove_if(subscribers.begin(), subscribers.end(), isMeant), subscribers.end());
        });
        return subscriberCount() < before->size();
    }

    /// Number of subscriptions.
    int subscriberCount() const
    {
        return std::atomic_load(&m_subscribers)->size();
    }

    /// Posts one event to each subscriber, in list order, and returns before any callback has run.
    void Emit(T value) const
    {
        // A list is never changed once it is published, so the walk needs no lock.
        const std::shared_ptr<const QVector<Subscriber>> subscribers = std::atomic_load(&m_subscribers);
        for (const Subscriber &subscriber : *subscribers) {
            auto *const event = new TavBaseEvent(nullptr);
            event->moveToThread(subscriber.thread);
            event->setFunc([callback = subscriber.callback, value] { callback(value); });
            TavEventNotifyMgr::getInstance()->addEventNotify(event);
        }
    }

private:
    struct Subscriber {
        int id;
        std::function<void(T)> callback;
        QThread *thread;
    };

    /// Publishes a changed copy of the list and returns the list before. Called with the mutex held.
    template<class Change>
    std::shared_ptr<const QVector<Subscriber>> change(Change apply)
    {
        std::shared_ptr<const QVector<Subscriber>> before = std::atomic_load(&m_subscribers);
        auto next = std::make_shared<QVector<Subscriber>>(*before);
        apply(*next);
        std::atomic_store(&m_subscribers, std::shared_ptr<const QVector<Subscriber>>(std::move(next)));
        return before;
    }

    QMutex m_mutex; // serialises changes; emissions do not take it
    int m_lastId = 0;
    std::shared_ptr<const QVector<Subscriber>> m_subscribers = std::make_shared<const QVector<Subscriber>>();
};
