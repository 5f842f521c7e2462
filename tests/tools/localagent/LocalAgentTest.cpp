#include "LocalAgent.h"

#include "ITavAccessControlMgr.h"
#include "ITavAuditMgr.h"
#include "ITavAuthInfoMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavDevCtlMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavLineScanMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavOneReinforceMgr.h"
#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"
#include "ITavSystemConfigMgr.h"
#include "PlantedHost.h"
#include "TavPluginHost.h"

#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include <unistd.h>

using testing::ElementsAre;

namespace
{
/// Stands in a manager's place and notes the thread on which it is fed.
class ThreadWitness : public QObject, public ITavHostInfoMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavHostInfoMgr)
public:
    QObject *getObject() override
    {
        return this;
    }
    void setResourceInfo(const STResourceInfoAsr &) override
    {
        threads.append(QThread::currentThread());
    }
    STResourceInfoAsr getResourceInfo() override
    {
        return {};
    }
    void setKernelSigState(const Tav::HostInfo::SystemFileStateAsr &) override
    {
        threads.append(QThread::currentThread());
    }
    Tav::HostInfo::SystemFileStateAsr getKernelSigState() override
    {
        return {};
    }

    QVector<QThread *> threads; ///< to be read after the feeding
};

constexpr int patience = 120 * 1000; ///< milliseconds; far more than a loaded machine needs

const AgentReading &readingOf(const AgentReport &report, const char *name)
{
    for (const AgentReading &reading : report.readings) {
        if (reading.name == QLatin1String(name)) {
            return reading;
        }
    }
    static const AgentReading none;
    ADD_FAILURE() << "no reading " << name;
    return none;
}
}

TEST(LocalAgent, TheManagersHoldWhatItReports)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    TavGlobalInfoMgr::getInstance()->setSystemRoot(QStringLiteral(TAV_SOURCE_DIR "/share/demo"));
    LocalAgent agent;
    const AgentReport report = agent.feedAndWait(patience);
    TavGlobalInfoMgr::getInstance()->setSystemRoot(QString());
    ASSERT_TRUE(report.complete);
    for (const AgentReading &reading : report.readings) {
        EXPECT_TRUE(reading.fed) << qPrintable(reading.name);
        EXPECT_GE(reading.microseconds, 0);
    }
    const auto entries = [&report](const char *name) { return readingOf(report, name).entries; };

    const STResourceInfoAsr info = host.manager<ITavHostInfoMgr>()->getResourceInfo();
    EXPECT_GT(info.memoryTotal, 0U);
    EXPECT_GE(info.cpuCores, 1);
    EXPECT_GE(info.cpuUsage, 0);
    EXPECT_LE(info.cpuUsage, 1000);
    EXPECT_GT(info.processCount, 0);
    char hostName[TavTextLimits::HostName] = "";
    ASSERT_EQ(::gethostname(hostName, sizeof(hostName)), 0);
    EXPECT_STREQ(info.hostName, hostName);
    EXPECT_TRUE(host.manager<ITavHostInfoMgr>()->getKernelSigState().has_taint());

    auto *const access = host.manager<ITavAccessControlMgr>();
    EXPECT_EQ(access->getSystemUsers().size(), entries("users"));
    EXPECT_EQ(access->getUIUsers().size(), entries("users"));
    EXPECT_EQ(access->getUserDetail().size(), entries("users"));
    EXPECT_TRUE(access->hasUserDetail(QStringLiteral("root")));
    EXPECT_EQ(access->getObjectDetail().size(), entries("access objects"));
    EXPECT_EQ(access->getUIFiles().size(), entries("access objects"));
    EXPECT_EQ(access->getUIPriData().size(), 4);
    EXPECT_EQ(access->getUIObjectData().size(), 4);
    int objectCount = 0;
    for (int level = 0; level < 4; ++level) {
        objectCount += access->getObjectCount(true, level) + access->getObjectCount(false, level);
    }
    EXPECT_EQ(objectCount, entries("access objects"));
    EXPECT_EQ(access->getModeConfig().object_count(), entries("access objects"));

    auto *const net = host.manager<ITavNetControlMgr>();
    EXPECT_EQ(net->getDeviceInfo().devices_size(), entries("network devices"));
    const QVector<STProtoDataContainer> rows = net->getUIData();
    ASSERT_EQ(rows.size(), entries("network devices"));
    for (int i = 0; i < rows.size(); ++i) {
        Tav::NetControl::NetDeviceInfo device;
        ASSERT_TRUE(device.ParseFromString(rows.at(i).protoData));
        EXPECT_EQ(rows.at(i).index, i);
        EXPECT_EQ(device.name(), net->getDeviceInfo().devices(i).name());
    }

    auto *const devices = host.manager<ITavDevCtlMgr>();
    EXPECT_EQ(devices->getUsbInfoList().devices_size() + devices->getFuncEnableInfo().functions_size(),
              entries("USB devices"));

    auto *const protect = host.manager<ITavProtectMgr>();
    EXPECT_EQ(protect->getKernelContent().size(), entries("kernel modules"));
    EXPECT_EQ(protect->getKernelCount().count, entries("kernel modules"));
    EXPECT_EQ(protect->getKernelBlkContent().entries_size(), entries("blocked modules"));
    EXPECT_EQ(protect->getProContentList().size(), entries("processes"));
    EXPECT_EQ(protect->getDirContent().size(), entries("directories"));
    EXPECT_EQ(protect->getFileContent().size(), entries("files"));
    EXPECT_EQ(protect->getSoftUnloadContent().entries_size(), entries("software"));
    EXPECT_EQ(protect->getProtectUIData().size(), entries("protection rows"));
    EXPECT_EQ(protect->getProtectUIData().size(), protect->getProtoCount().total());
    EXPECT_EQ(protect->getSelfState().stateValue, 0);
    const QVector<STProProtectContentAsr> processes = protect->getProContentList();
    const auto self = std::find_if(processes.cbegin(), processes.cend(),
                                   [](const STProProtectContentAsr &process) { return process.pid == ::getpid(); });
    ASSERT_NE(self, processes.cend());
    EXPECT_EQ(self->uid, ::geteuid());

    EXPECT_EQ(host.manager<ITavProExceptionMgr>()->getUIData().size(), entries("process exceptions"));

    auto *const complete = host.manager<ITavCompleteProtectMgr>();
    EXPECT_EQ(complete->getImaList().size(), entries("kernel measurement"));
    EXPECT_EQ(complete->getCredibleVecUI().size(), entries("program measurement"));
    EXPECT_EQ(complete->getCredibleCount().total(), entries("program measurement"));
    EXPECT_STREQ(complete->getCurPathState().path, "");

    auto *const audit = host.manager<ITavAuditMgr>();
    EXPECT_EQ(audit->getAuditContent().size(), entries("audit events"));

    auto *const baseline = host.manager<ITavLineScanMgr>();
    EXPECT_GT(entries("baseline items"), 0);
    EXPECT_EQ(baseline->getLineCount().total(), entries("baseline items"));
    EXPECT_EQ(baseline->getLineScanContent().items_size(), entries("baseline items"));
    EXPECT_EQ(baseline->getItemConfig(101).itemId, 101);

    auto *const hardening = host.manager<ITavOneReinforceMgr>();
    EXPECT_EQ(hardening->getSecswitchContent().switches_size(), entries("hardening"));
    EXPECT_FALSE(hardening->getStateInfo().isEmpty());

    EXPECT_EQ(host.manager<ITavSystemConfigMgr>()->getServerInfo().address(), hostName);
    EXPECT_EQ(host.manager<ITavSystemConfigMgr>()->getOnlineState().state(), 1);
    EXPECT_EQ(host.manager<ITavAuthInfoMgr>()->getPwdChange().result(), 4);
}

TEST(LocalAgent, FeedsOnItsOwnThread)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    ThreadWitness witness;
    // Of two objects under one key the newest is found: the witness stands before the real manager.
    TavGlobalInfoMgr::getObjectMgr()->registerObject(tavManagerKey("ITavHostInfoMgr"), &witness, false);
    const PlantedHost empty;
    LocalAgent agent(empty.root());
    ASSERT_TRUE(agent.feedAndWait(patience).complete);
    EXPECT_THAT(witness.threads, ElementsAre(agent.workerThread(), agent.workerThread()));
    EXPECT_NE(agent.workerThread(), QThread::currentThread());
}

TEST(LocalAgent, TellsEachCallAsItMadeIt)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    const PlantedHost empty;
    QStringList calls;
    QVector<QThread *> threads;
    QJsonValue resources;
    LocalAgent agent(empty.root());
    agent.setObserver([&](const AgentCall &call) {
        calls.append(call.manager + ' ' + call.operation);
        threads.append(QThread::currentThread());
        EXPECT_GT(call.nanoseconds, 0) << qPrintable(calls.last());
        const QJsonArray arguments = call.arguments();
        if (call.operation == "setResourceInfo") {
            resources = arguments.first();
        }
    });
    ASSERT_TRUE(agent.feedAndWait(patience).complete);
    EXPECT_EQ(calls.mid(0, 3),
              (QStringList{"ITavSystemConfigMgr setServerInfo", "ITavSystemConfigMgr setOnlineState",
                           "ITavAuthInfoMgr setLoginCheck"}));
    EXPECT_TRUE(calls.contains("ITavAccessControlMgr getUserDetail")) << "what it reads is told, too";
    EXPECT_EQ(threads.count(agent.workerThread()), threads.size());
    EXPECT_EQ(resources, TavJson::toJson(host.manager<ITavHostInfoMgr>()->getResourceInfo()));
}

TEST(LocalAgent, AnEmptyHostGivesNotesAndNoEntries)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    const PlantedHost empty;
    LocalAgent agent(empty.root());
    const AgentReport report = agent.feedAndWait(patience);
    ASSERT_TRUE(report.complete);
    for (const char *const name : {"users", "access objects", "kernel modules", "blocked modules", "processes",
                                   "software", "process exceptions", "kernel measurement", "audit events"}) {
        EXPECT_EQ(readingOf(report, name).entries, 0) << name;
    }
    for (const char *const name : {"resources", "users", "kernel modules", "processes", "software"}) {
        EXPECT_FALSE(readingOf(report, name).notes.isEmpty()) << name;
    }
    EXPECT_TRUE(host.manager<ITavAuditMgr>()->getAuditMonthCount().isEmpty());
    EXPECT_EQ(host.manager<ITavCompleteProtectMgr>()->getImaInitState().initState, 3);
}

TEST(LocalAgent, ManagersThatAreNotThereAreReported)
{
    TavObjectMgr registry;
    TavGlobalInfoMgr::setObjectMgr(&registry);
    const PlantedHost empty;
    LocalAgent agent(empty.root());
    const AgentReport report = agent.feedAndWait(patience);
    TavGlobalInfoMgr::setObjectMgr(nullptr);
    EXPECT_TRUE(report.complete);
    EXPECT_FALSE(report.readings.isEmpty());
    for (const AgentReading &reading : report.readings) {
        EXPECT_FALSE(reading.fed);
        EXPECT_EQ(reading.notes.size(), 1);
    }
}

TEST(LocalAgent, TellsWhenItHasFinished)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    const PlantedHost empty;
    LocalAgent agent(empty.root());
    QEventLoop loop;
    QThread *thread = nullptr;
    AgentReport received;
    QObject::connect(&agent, &LocalAgent::finished, &loop, [&](const AgentReport &report) {
        thread = QThread::currentThread();
        received = report;
        loop.quit();
    });
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    agent.feed();
    loop.exec();
    EXPECT_TRUE(received.complete);
    EXPECT_EQ(thread, QThread::currentThread());
}

TEST(LocalAgent, ADeadlineGivesAnIncompleteReport)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    LocalAgent agent;
    EXPECT_FALSE(agent.feedAndWait(0).complete);
}

#include "LocalAgentTest.moc"
