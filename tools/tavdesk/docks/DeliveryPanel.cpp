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
    const auto matches = [](const LoggedDelivery &entry, const QString &text) {
        const PageDelivery &delivery = entry.delivery;
        return delivery.page.contains(text, Qt::CaseInsensitive)
            || subscriberOf(entry).contains(text, Qt::CaseInsensitive)
            || delivery.thread.contains(text, Qt::CaseInsensitive);
    };
    return new LogModel<LoggedDelivery>(
        log,
        {{DeliveryPanel::tr("Time"), [](const LoggedDelivery &entry) { return LogTexts::time(entry.time); }},
         {DeliveryPanel::tr("Page"), [](const LoggedDelivery &entry) { return entry.delivery.page; }},
         {DeliveryPanel::tr("Subscriber"), subscriberOf},
         {DeliveryPanel::tr("Thread"), [](const LoggedDelivery &entry) { return entry.delivery.thread; }},
         {DeliveryPanel::tr("Latency in µs"),
          [](const LoggedDelivery &entry) { return LogTexts::microseconds(entry.delivery.nanoseconds); },
          Qt::AlignRight}},
        matches, nullptr);
}
}

DeliveryPanel::DeliveryPanel(BoundedLog<LoggedDelivery> &log, QWidget *parent)
    : LogPanel(newModel(log), tr("Page changes"), 1, {14, 30, 20, 12, 16}, parent)
{
}
