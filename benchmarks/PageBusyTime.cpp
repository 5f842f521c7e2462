// How long the GUI thread is busy at a time while the window shows a page with lists of 100,000 rows, and the log of
// calls, and plays a scenario that changes them with 1,000 calls a second; beside an idle window.

#include "ClientSession.h"
#include "Heartbeat.h"
#include "ITavNetControlMgr.h"
#include "MainWindow.h"
#include "ModelPage.h"
#include "PageArea.h"
#include "ScenarioPlay.h"
#include "TavSubFuncTypeData_.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>
#include <QTabWidget>
#include <QTemporaryFile>
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
    std::printf("%-36s %7s %17s %17s %17s\n", "ms of own time (and of waiting)", "beats", "median", "p99", "longest");

    QWidget empty;
    empty.show();
    {
        const Heartbeat heartbeat;
        runLoop(seconds * 1000);
        report("idle, an empty window", heartbeat);
    }
    ClientSession session(TAV_PLUGIN_FILE, TAV_SOURCE_DIR "/share/demo");
    fill(*session.host().manager<ITavNetControlMgr>());
    MainWindow window(session);
    window.show();
    runLoop(1000);
    {
        const Heartbeat heartbeat;
        TavSubFuncTypeData_ page;
        page.subFuncType = CTavSubFuncTypeHeader::SubFunc_serverResourceInfo;
        session.select(page);
        runLoop(seconds * 1000);
        report("a page opens, nothing changes", heartbeat);
    }
    QTableView &view = networkRows(*window.pages().findChild<ModelPage *>());
    QLineEdit &filter = *view.parentWidget()->findChild<QLineEdit *>();
    QTemporaryFile file;
    file.open();
    file.write(scenario());
    file.flush();
    ScenarioPlay &play = window.play();
    QEventLoop loop;
    QObject::connect(&play, &ScenarioPlay::failed, &loop, [] { qFatal("the scenario was not played to its end"); });
    QObject::connect(&play, &ScenarioPlay::ended, &loop, &QEventLoop::quit);
    play.open(file.fileName());
    while (play.state() != ScenarioPlay::State::Ready) {
        runLoop(100);
    }
    for (const bool isUsed : {false, true}) {
        int step = 0;
        QTimer person;
        QObject::connect(&person, &QTimer::timeout, &view, [&] { use(view, filter, step++); });
        if (isUsed) {
            person.start(250);
        }
        const Heartbeat heartbeat;
        QElapsedTimer timer;
        timer.start();
        play.play();
        loop.exec();
        const QByteArray rate = QByteArray::number(1000LL * seconds * callsInSecond / timer.elapsed()) + " calls/s";
        report(isUsed ? rate + ", sorted and filtered" : rate, heartbeat);
    }
    return 0;
}
