#pragma once

#include <QObject>

/// @brief A place kept for the system log: no interface, no state, not registered.
class TavSystemLogMgr : public QObject
{
    Q_OBJECT
public:
    explicit TavSystemLogMgr(QObject *parent);
};
