#pragma once

#include "TavBaseEvent.h"
#include "TavEventNotifyMgr.h"

#include <QMutex>
#include <QThread>
#include <QVector>

#include <algorithm>
#include <functional>
#include <iterator>
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
        List before; // ends after the lock: a dying callback may use the signal
        QMutexLocker lock(&m_mutex);
        const auto next = copyWithout(0);
        next->append({++m_lastId, std::move(callback), thread});
        before = publish(next);
        return m_lastId;
    }

    /// Ends the subscription @p id: later emissions leave it out. A delivery that was posted before still arrives, and
    /// one of an emission that is under way may still be posted. What the callback owns ends here or, when deliveries
    /// or emissions are under way, with the last of those deliveries: never inside an emission, whose caller may hold a
    /// lock that it wants. False when there is no such subscription.
    bool unsubscribe(int id)
    {
        List before; // as above
        QMutexLocker lock(&m_mutex);
        const auto next = copyWithout(id);
        before = publish(next);
        return next->size() < before->size();
    }

    /// Number of subscriptions.
    [[nodiscard]] int subscriberCount() const
    {
        return std::atomic_load(&m_subscribers)->size();
    }

    /// Posts one event to each subscriber, in list order, and returns before any callback has run.
    void Emit(T value) const
    {
        // A list is never changed once it is published, so the walk needs no lock.
        List list = std::atomic_load(&m_subscribers);
        for (int i = 0, last = list->size() - 1; i <= last; ++i) {
            std::function<void(T)> callback = list->at(i).callback; // before the event, for the copy may throw
            auto event = std::make_unique<TavAnnouncement>(nullptr);
            event->moveToThread(list->at(i).thread);
            List held;
            if (i == last) {
                held.swap(list); // the last event takes the list along: replaced meanwhile, it would end here
            }
            event->setFunc([callback = std::move(callback), value, held = std::move(held)] { callback(value); });
            TavEventNotifyMgr::getInstance()->addEventNotify(event.release());
        }
    }

private:
    struct Subscriber {
        int id;
        std::function<void(T)> callback;
        QThread *thread;
    };

    using List = std::shared_ptr<const QVector<Subscriber>>;

    /// The list but for the subscription @p id, with room for one more: nothing dies while it is made. Called with the
    /// mutex held.
    std::shared_ptr<QVector<Subscriber>> copyWithout(int id) const
    {
        auto copy = std::make_shared<QVector<Subscriber>>();
        copy->reserve(m_subscribers->size() + 1);
        std::copy_if(m_subscribers->cbegin(), m_subscribers->cend(), std::back_inserter(*copy),
                     [id](const Subscriber &subscriber) { return subscriber.id != id; });
        return copy;
    }

    /// Puts @p next in the list's place and returns the list of before. Called with the mutex held.
    List publish(List next)
    {
        List before = m_subscribers;
        std::atomic_store(&m_subscribers, std::move(next));
        return before;
    }

    QMutex m_mutex; // serialises changes; emissions do not take it
    int m_lastId = 0;
    List m_subscribers = std::make_shared<const QVector<Subscriber>>();
};
