#include "TavBaseEvent.h"

#include <utility>

TavBaseEvent::TavBaseEvent(QObject *parent) : QObject(parent)
{
}

void TavBaseEvent::setFunc(std::function<void()> func)
{
    m_func = std::move(func);
}

void TavBaseEvent::run() const
{
    m_func();
}

TavAnnouncement::~TavAnnouncement() = default;
