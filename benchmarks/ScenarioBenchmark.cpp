// Reading, playing and recording scenarios against what they stand on.

#include "Comparison.h"
#include "SampleMessages.h"
#include "TavPluginHost.h"
#include "TavScenarioPlayer.h"
#include "TavScenarioRecorder.h"

#include <QBuffer>
#include <QJsonDocument>

#include <memory>

namespace
{
using namespace Comparison;

constexpr int rounds = 9;

const QByteArray header = "{\"tavScenario\":1}\n";

QByteArray lineOf(const char *manager, const char *operation, const QJsonArray &arguments)
{
    const QJsonObject line{{"manager", manager}, {"operation", operation}, {"arguments", arguments}};
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

/// Reads all lines without playing them.
void read(const QByteArray &scenario)
{
    QBuffer buffer;
    buffer.setData(scenario);
    buffer.open(QIODevice::ReadOnly);
    TavScenarioReader reader(buffer);
    for (TavScenario::Line line; reader.next(line);) {
        benchmark::DoNotOptimize(line);
    }
}

void play(TavPluginHost &host, const QByteArray &scenario)
{
    QBuffer buffer;
    buffer.setData(scenario);
    buffer.open(QIODevice::ReadOnly);
    TavPlayOptions options;
    options.speed = TavPlayOptions::fastest;
    if (const TavPlayReport report = TavScenarioPlayer(host, buffer, options).wait(); report.error) {
        qFatal("%s", report.error->what());
    }
}

/// A call of a setter with a small message: played, only read, and made directly.
Row playedCalls()
{
    constexpr int calls = 5000;
    const auto host = std::make_shared<TavPluginHost>(TAV_PLUGIN_FILE);
    auto *const manager = host->manager<ITavNetControlMgr>();
    const auto message = smallMessage();
    const QByteArray scenario
        = header + lineOf("ITavNetControlMgr", "setState", {TavJson::toJson(message)}).repeated(calls);
    return {[=] { return timeOf([&] { play(*host, scenario); }) / calls; },
            {{"only read", [=] { return timeOf([&] { read(scenario); }) / calls; }},
             {"called directly", manyCalls([=] { manager->setState(message); })}}};
}

/// A mebibyte of lines that set lists of records.
Row readRecords()
{
    STPriDetailAsr record{};
    qstrcpy(record.userName, "alice");
    record.uid = 1001;
    record.updateTime = 1767225600;
    const QByteArray line = lineOf("ITavAccessControlMgr", "updateUserDetail",
                                   {1, TavJson::toJson(QVector<STPriDetailAsr>(100, record))});
    const QByteArray scenario = header + line.repeated((1 << 20) / line.size());
    const double mebibytes = double(scenario.size()) / (1 << 20);
    const QList<QByteArray> lines = scenario.split('\n');
    const auto parseAll = [=] {
        for (const QByteArray &text : lines) {
            benchmark::DoNotOptimize(QJsonDocument::fromJson(text));
        }
    };
    return {[=] { return timeOf([&] { read(scenario); }) / mebibytes; },
            {{"QJsonDocument alone", [=] { return timeOf(parseAll) / mebibytes; }}}};
}

/// A call of a setter that is told to a recorder, too.
Row recordedCall()
{
    const auto host = std::make_shared<TavPluginHost>(TAV_PLUGIN_FILE);
    auto *const manager = host->manager<ITavNetControlMgr>();
    const auto recorder
        = std::make_shared<TavScenarioRecorder>("/dev/null", QJsonObject(), TavScenarioRecorder::Calls::All);
    const auto message = smallMessage();
    const auto call = [=, plugin = host] { manager->setState(message); };
    return {manyCalls([=] {
                call();
                recorder->record<&ITavNetControlMgr::setState>(message);
            }),
            {{"the call alone", manyCalls(call)}}};
}
}

void Comparison::addRows()
{
    addRow("call played at full speed", rounds, playedCalls);
    addRow("1 MiB of records read", rounds, readRecords);
    addRow("call recorded", rounds, recordedCall);
}
