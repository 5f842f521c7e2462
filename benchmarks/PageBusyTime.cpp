// How long the GUI thread is busy at a time while a page shows lists of 100,000 rows and a scenario changes them with
// 1,000 calls a second, beside an idle window.

#include "Heartbeat.h"
#include "ITavNetControlMgr.h"
#include "ModelPage.h"
#include "TavPluginHost.h"
#include "TavScenarioPlayer.h"

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <QTabWidget>
#include <QTimer>

#include <cstdio>

namespace
{
constexpr int rowCount = 100'000;
constexpr int callsInSecond = 1000;
constexpr int seconds = 5; // of each phase

/// A scenario that ticks one row after the other, here and there, and every second all of them.
QByteArray scenario()
{
    QByteArray lines = "{\"tavScenario\": 1}\n";
    for (int call = 0; call < seconds * callsInSecond; ++call) {
        const bool isTicked = call / callsInSecond % 2;
        const QByteArray tick = isTicked ? "true" : "false";
        lines += "{\"at\": " + QByteArray::number(double(call) / callsInSecond)
            + R"(, "manager": "ITavNetControlMgr", "operation": )";
        if (call % callsInSecond == callsInSecond - 1) {
            lines += R"("setAllCheck", "arguments": [)" + tick + "]}\n";
        } else {
            lines += R"("updateUIItem", "arguments": [{"index": )" + QByteArray::number(call * 7919 % rowCount)
                + R"(, "isChecked": )" + tick + "}]}\n";
        }
    }
    return lines;
}

void fill(ITavNetControlMgr &manager)
{
    QVector<STProtoDataContainer> rows(rowCount);
    Tav::NetControl::NetDeviceInfos devices;
    for (int row = 0; row < rowCount; ++row) {
        rows[row].index = row;
        rows[row].protoData = "payload";
        auto *const device = devices.add_devices();
        device->set_name("device-" + std::to_string(row));
        device->set_index(row);
        device->set_rx_bytes(quint64(row) * 1024);
    }
    manager.setUIData(rows);
    manager.setDeviceInfo(devices);
}

/// The table of the network rows, brought to the front of the page's other lists.
QTableView &networkRows(const ModelPage &page)
{
    auto &lists = *page.findChild<QTabWidget *>();
    for (int tab = 0; tab < lists.count(); ++tab) {
        if (lists.tabText(tab).startsWith("Network rows")) {
            lists.setCurrentIndex(tab);
            return *lists.currentWidget()->findChild<QTableView *>();
        }
    }
    qFatal("the page shows no network rows");
}

void runLoop(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void report(const QByteArray &phase, const Heartbeat &heartbeat)
{
    std::printf("%-36s %7d", phase.constData(), heartbeat.beats());
    for (const double part : {0.5, 0.99, 1.0}) {
        std::printf(" %8.2f (%6.2f)", heartbeat.worked(part), heartbeat.late(part));
    }
    std::printf("\n");
    std::fflush(stdout);
}

/// What a person does meanwhile: sorts by this column and that, filters, and looks further down.
void use(QTableView &view, QLineEdit &filter, int step)
{
    switch (step % 4) {
    case 0:
        view.sortByColumn(step / 4 % view.model()->columnCount(), step % 8 ? Qt::AscendingOrder : Qt::DescendingOrder);
        break;
    case 1:
        filter.setText(QString::number(step % 10));
        break;
    case 2:
        view.scrollTo(view.model()->index(view.model()->rowCount() * (step % 7) / 7, 0));
        break;
    default:
        filter.clear();
    }
}
}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TavPluginHost host(TAV_PLUGIN_FILE);
    determineHeldValues();
    std::printf("%-36s %7s %17s %17s %17s\n", "ms of own time (and of waiting)", "beats", "median", "p99", "longest");

    QWidget empty;
    empty.show();
    {
        const Heartbeat heartbeat;
        runLoop(seconds * 1000);
        report("idle, an empty window", heartbeat);
    }
    fill(*host.manager<ITavNetControlMgr>());
    ModelPage page(
        CTavSubFuncTypeHeader::SubFunc_serverResourceInfo, host.registry(),
        [](const QString &, const QString &, const QJsonArray &) {},
        [](const QString &, const QString &) { return QVector<QJsonArray>(); });
    page.resize(1000, 700);
    {
        const Heartbeat heartbeat;
        page.show();
        runLoop(seconds * 1000);
        report("a page opens, nothing changes", heartbeat);
    }
    QTableView &view = networkRows(page);
    QLineEdit &filter = *view.parentWidget()->findChild<QLineEdit *>();
    for (const bool isUsed : {false, true}) {
        QByteArray lines = scenario();
        QBuffer buffer(&lines);
        buffer.open(QIODevice::ReadOnly);
        int step = 0;
        QTimer person;
        QObject::connect(&person, &QTimer::timeout, &page, [&] { use(view, filter, step++); });
        if (isUsed) {
            person.start(250);
        }
        const Heartbeat heartbeat;
        TavScenarioPlayer player(host, buffer);
        QElapsedTimer timer;
        timer.start();
        const TavPlayReport played = player.wait();
        const QByteArray rate = QByteArray::number(1000 * played.lines / timer.elapsed()) + " calls/s";
        report(isUsed ? rate + ", sorted and filtered" : rate, heartbeat);
        if (played.error || played.lines != seconds * callsInSecond) {
            qFatal("the scenario was not played to its end");
        }
    }
    return 0;
}
