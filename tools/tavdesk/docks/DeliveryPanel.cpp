#include "DeliveryPanel.h"

#include "ClientSession.h"
#include "LogModel.h"
#include "LogTexts.h"

#include <QCoreApplication>

namespace
{
/// In the language of the interface.
QString subscriberOf(const LoggedDelivery &entry)
{
    return QCoreApplication::translate("ClientSession", entry.delivery.subscriber.toUtf8().constData());
}

LogTable *newModel(BoundedLog<LoggedDelivery> &log)
{
    return new LogModel<LoggedDelivery>(
        log,
        {{DeliveryPanel::tr("Time"), [](const LoggedDelivery &entry) { return LogTexts::time(entry.time); },
          LogCell::Time},
         {DeliveryPanel::tr("Page"), [](const LoggedDelivery &entry) { return entry.delivery.page; }},
         {DeliveryPanel::tr("Subscriber"), subscriberOf},
         {DeliveryPanel::tr("Thread"), [](const LoggedDelivery &entry) { return entry.delivery.thread; }},
         {DeliveryPanel::tr("Latency in µs"),
          [](const LoggedDelivery &entry) { return LogTexts::microseconds(entry.delivery.nanoseconds); },
          LogCell::Number}});
}
}

DeliveryPanel::DeliveryPanel(BoundedLog<LoggedDelivery> &log, QWidget *parent)
    : LogPanel(newModel(log), tr("Page changes"), 1, {12, 30, 16, 10, 13}, parent)
{
}
