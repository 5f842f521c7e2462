#pragma once

#include "PageSubscriber.h"

#include <QString>
#include <QVector>

/// @brief What a walk through all pages has shown.
struct PageWalk {
    static constexpr int patience = 5; ///< seconds that a page change may take to every subscriber

    QVector<PageDelivery> deliveries;
    QString stoppedAt; ///< key of the page whose change did not reach every subscriber in time; empty when all did
};

/// Selects every page in catalogue order, with subscribers on three threads, and waits for each delivery. To be called
/// on the GUI thread, whose event loop it runs.
PageWalk walkPages();
