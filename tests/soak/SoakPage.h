#pragma once

#include "Contest.h"
#include "TavEvents.h"

#include <array>

/**
 * @brief A page that is open all day: hears of every selection, in a thread of its own.
 *
 * The values of a selecting thread come in order, counted from 0 and each once; anything else is a mistake. Looked at
 * from outside only while nothing is on its way.
 */
class SoakPage
{
public:
    using SubFuncType = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

    explicit SoakPage(QThread *thread)
        : m_id(eventFuncPageUpdate.subscribe([this](SubFuncType value) { take(value); }, thread))
    {
    }

    Q_DISABLE_COPY(SoakPage)

    ~SoakPage()
    {
        eventFuncPageUpdate.unsubscribe(m_id);
    }

    /// The value of the selection number @p number of a thread.
    static SubFuncType value(int thread, int number)
    {
        return static_cast<SubFuncType>(number * threadCount + thread);
    }

    long long received() const
    {
        return m_received;
    }

    /// Deliveries that were out of order, and with that each that was lost or came twice.
    long long mistakes() const
    {
        return m_mistakes;
    }

private:
    void take(int value)
    {
        int &next = m_next[value % threadCount];
        m_mistakes += value / threadCount != next;
        next = value / threadCount + 1;
        ++m_received;
    }

    std::array<int, threadCount> m_next = {};
    long long m_received = 0;
    long long m_mistakes = 0;
    const int m_id;
};
