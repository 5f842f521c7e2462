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
#include <vector>

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
        Lists unused; // ends after the lock: a dying callback may use the signal
        QMutexLocker lock(&m_mutex);
        const auto next = copyWithout(0);
        next->append({++m_lastId, std::move(callback), thread});
        unused = publish(next);
        return m_lastId;
    }

    /// Ends the subscription @p id: later emissions leave it out. A delivery that was posted before still arrives, and
    /// one of an emission that is under way may still be posted. What the callback owns ends here, or with a later
    /// change of the list when an emission is under way: never inside an emission, whose caller may hold a lock that
    /// it wants. False when there is no such subscription.
    bool unsubscribe(int id)
    {
        Lists unused; // as above
        QMutexLocker lock(&m_mutex);
        const auto next = copyWithout(id);
        const bool isFound = next->size() < m_subscribers->size();
        unused = publish(next);
        return isFound;
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
        const List subscribers = std::atomic_load(&m_subscribers);
        for (const Subscriber &subscriber : *subscribers) {
            std::function<void(T)> callback = subscriber.callback; // before the event, for the copy may throw
            auto event = std::make_unique<TavBaseEvent>(nullptr);
            event->moveToThread(subscriber.thread);
            event->setFunc([callback = std::move(callback), value] { callback(value); });
            event->setDeletedLater(); // what dies with the callback may want a lock that the emitter holds
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
    using Lists = std::vector<List>;

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

    /// Puts @p next in the list's place and returns the lists of before that no emission walks any more. Called with
    /// the mutex held.
    Lists publish(List next)
    {
        m_retired.push_back(m_subscribers);
        std::atomic_store(&m_subscribers, std::move(next));
        // A list that is held here alone is walked by nobody, nor will be.
        const auto isWalked = [](const List &list) { return list.use_count() > 1; };
        const auto unused = std::partition(m_retired.begin(), m_retired.end(), isWalked);
        Lists result(std::make_move_iterator(unused), std::make_move_iterator(m_retired.end()));
        m_retired.erase(unused, m_retired.end());
        return result;
    }

    QMutex m_mutex; // serialises changes; emissions do not take it
    int m_lastId = 0;
    Lists m_retired; // so that no emission is the last to hold a list
    List m_subscribers = std::make_shared<const QVector<Subscriber>>();
};
