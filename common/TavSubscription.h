#pragma once

#include "TavSignal.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <utility>

/**
 * @brief A subscription that ends with this object, and never calls a receiver that is gone.
 *
 * The callback runs in the thread in which the receiver lives.
 *
 * | at its turn, a delivery that was posted before finds | and the callback |
 * |---|---|
 * | receiver and subscription alive | is called |
 * | the subscription ended in the receiver's thread, or with the receiver | is not called |
 * | the subscription being ended in another thread | is called or not; the end does not wait for it |
 *
 * Hold it as a member of the receiver, the last one: it ends first. The receiver must stay in its thread, and the
 * signal must outlive the subscription.
 *
 * An emission that is under way may still post to the receiver's thread after the end: the QThread object must outlive
 * every emission that began before. And the plugin whose code the callback is must never be unloaded: lists in use and
 * posted events refer to that code also after the end.
 *
 * Movable; assigning another one, or `{}`, ends this one.
 */
class TavSubscription
{
public:
    /// No subscription.
    TavSubscription() = default;
    ~TavSubscription() = default;
    /// Takes the subscription over.
    TavSubscription(TavSubscription &&) = default;
    /// Ends this subscription and takes the other over.
    TavSubscription &operator=(TavSubscription &&) = default;
    TavSubscription(const TavSubscription &) = delete; // two holders would end it at two times
    TavSubscription &operator=(const TavSubscription &) = delete;

    /// Subscribes @p callback, which takes the signal's value, for as long as this object and @p receiver live. The
    /// receiver must not be null, its thread must run an event loop, and the callback must not be empty.
    template<class T, class Callback>
    [[nodiscard]] TavSubscription(TavSignal<T> &signal, QObject *receiver, Callback callback)
    {
        const auto link = std::make_shared<Link<T>>(signal);
        const auto deliver = [receiver = QPointer<QObject>(receiver), held = std::weak_ptr<Link<T>>(link),
                              callback = std::move(callback)](T value) {
            if (receiver && !held.expired()) {
                callback(value);
            }
        };
        link->id = signal.subscribe(deliver, receiver->thread());
        m_link = link;
    }

private:
    template<class T>
    struct Link {
        explicit Link(TavSignal<T> &signal) : signal(signal)
        {
        }
        ~Link()
        {
            signal.unsubscribe(id);
        }
        Q_DISABLE_COPY(Link)

        TavSignal<T> &signal;
        int id = 0;
    };

    std::shared_ptr<void> m_link; // held by this object alone
};
