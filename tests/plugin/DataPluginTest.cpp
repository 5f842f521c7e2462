#include "GlobalStateGuard.h"
#include "ITavAccessControlMgr.h"
#include "ITavAuditMgr.h"
#include "ITavAuthInfoMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavDataPlugin.h"
#include "ITavDevCtlMgr.h"
#include "ITavFuncTypeMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavLineScanMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavOneReinforceMgr.h"
#include "ITavPicResourceMgr.h"
#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"
#include "ITavSelectFuncMgr.h"
#include "ITavSystemConfigMgr.h"
#include "Program.h"
#include "TavPluginHost.h"
#include "TextFile.h"

#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QThread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>
#include <vector>

using testing::HasSubstr;
using testing::Not;
using testing::UnorderedElementsAre;

namespace
{
/// What getObject() answers when it is called through the interface.
template<class Interface>
QObject *selfThrough(QObject *manager)
{
    auto *const interface = qobject_cast<Interface *>(manager);
    return interface ? interface->getObject() : nullptr;
}

/// Where the interface's part of the object lies.
template<class Interface>
void *interfaceOf(QObject *manager)
{
    return qobject_cast<Interface *>(manager);
}

struct ExpectedManager {
    const char *className;
    const char *interfaceName;
    const char *key;
    QObject *(*self)(QObject *);
    void *(*interface)(QObject *);
};

template<class Interface>
constexpr ExpectedManager expect(const char *className, const char *interfaceName, const char *key)
{
    return {className, interfaceName, key, selfThrough<Interface>, interfaceOf<Interface>};
}

// In the order of registration.
const ExpectedManager expectedManagers[] = {
    expect<ITavFuncTypeMgr>("TavFuncTypeMgr", "ITavFuncTypeMgr", "ITavFuncTypeMgr_Tav_ORG"),
    expect<ITavPicResourceMgr>("TavPicResourceMgr", "ITavPicResourceMgr", "ITavPicResourceMgr_Tav_ORG"),
    expect<ITavSelectFuncMgr>("TavSelectFuncMgr", "ITavSelectFuncMgr", "ITavSelectFuncMgr_Tav_ORG"),
    expect<ITavAccessControlMgr>("TavAccessControlMgr", "ITavAccessControlMgr", "ITavAccessControlMgr_Tav_ORG"),
    expect<ITavCompleteProtectMgr>("TavCompleteProtectMgr", "ITavCompleteProtectMgr", "ITavCompleteProtectMgr_Tav_ORG"),
    expect<ITavProtectMgr>("TavProtectMgr", "ITavProtectMgr", "ITavProtectMgr_Tav_ORG"),
    expect<ITavAuditMgr>("TavAuditMgr", "ITavAuditMgr", "ITavAuditMgr_Tav_ORG"),
    expect<ITavHostInfoMgr>("TavHostInfoMgr", "ITavHostInfoMgr", "ITavHostInfoMgr_Tav_ORG"),
    expect<ITavOneReinforceMgr>("TavOneReinforceMgr", "ITavOneReinforceMgr", "ITavOneReinforceMgr_Tav_ORG"),
    expect<ITavLineScanMgr>("TavLineScanMgr", "ITavLineScanMgr", "ITavLineScanMgr_Tav_ORG"),
    expect<ITavNetControlMgr>("TavNetControlMgr", "ITavNetControlMgr", "ITavNetControlMgr_Tav_ORG"),
    expect<ITavAuthInfoMgr>("TavAuthInfoMgr", "ITavAuthInfoMgr", "ITavAuthInfoMgr_Tav_ORG"),
    expect<ITavSystemConfigMgr>("TavSystemConfigMgr", "ITavSystemConfigMgr", "ITavSystemConfigMgr_Tav_ORG"),
    expect<ITavDevCtlMgr>("TavDevCtlMgr", "ITavDevCtlMgr", "ITavDevCtlMgr_Tav_ORG"),
    expect<ITavProExceptionMgr>("TavProExceptionMgr", "ITavProExceptionMgr", "ITavProExceptionMgr_Tav_ORG"),
};

constexpr std::size_t managerCount = 15;
static_assert(std::size(expectedManagers) == managerCount);

/// @brief A registry of the client's own that writes down each call as it comes.
class RecordingRegistry : public ITavObjectMgr
{
public:
    struct Record {
        STObjectKey key;
        std::unique_ptr<QObject> object;
        bool owned;
        QObject *parent;
        std::string className;
        QThread *objectThread;
        QThread *callingThread;
    };

    void registerObject(const STObjectKey &key, QObject *object, const bool &owned) override
    {
        ASSERT_NE(object, nullptr);
        records.push_back({key, std::unique_ptr<QObject>(object), owned, object->parent(),
                           object->metaObject()->className(), object->thread(), QThread::currentThread()});
        if (afterCall) {
            afterCall();
        }
    }

    QObject *getObject(const STObjectKey &) override
    {
        return nullptr;
    }

    QVector<STObjectKey> getObjectKeys() override
    {
        return {};
    }

    std::vector<Record> records;
    std::function<void()> afterCall;
};

/// Expects @p count calls, those of the table from position @p first on.
void expectTableRows(const RecordingRegistry &registry, std::size_t first, std::size_t count)
{
    ASSERT_EQ(registry.records.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
        const ExpectedManager &expected = expectedManagers[(first + i) % managerCount];
        const RecordingRegistry::Record &record = registry.records[i];
        SCOPED_TRACE(expected.className);
        EXPECT_EQ(record.className, expected.className);
        EXPECT_EQ(record.key.name.toStdString(), expected.key);
        EXPECT_EQ(record.key.id, -9999);
        EXPECT_TRUE(record.owned);
        EXPECT_EQ(record.parent, nullptr);
        EXPECT_EQ(record.objectThread, QThread::currentThread());
        EXPECT_EQ(record.callingThread, QThread::currentThread());
    }
}

using InstanceFunction = QObject *(*)();

InstanceFunction instanceFunction()
{
    QLibrary library(QStringLiteral(TAV_PLUGIN_FILE));
    const auto function = reinterpret_cast<InstanceFunction>(library.resolve("qt_plugin_instance"));
    EXPECT_NE(function, nullptr) << qPrintable(library.errorString());
    return function;
}

QObject *pluginObject()
{
    return QPluginLoader(QStringLiteral(TAV_PLUGIN_FILE)).instance();
}

ITavDataPlugin *dataPlugin()
{
    return qobject_cast<ITavDataPlugin *>(pluginObject());
}

/// What one of the binary tools prints about the plugin's file.
std::string toolOutput(const QString &program, const QStringList &arguments)
{
    const Program tool(QStringList{QStringLiteral("env"), QStringLiteral("-u"), QStringLiteral("LD_PRELOAD"),
                                   QStringLiteral("LC_ALL=C"), program}
                       + arguments + QStringList{QStringLiteral(TAV_PLUGIN_FILE)});
    EXPECT_EQ(tool.exitCode, 0) << tool.errors.constData();
    return tool.output.toStdString();
}

/// The lines of @p output that match @p pattern.
std::vector<std::string> linesMatching(const std::string &output, const char *pattern)
{
    const QRegularExpression expression(QString::fromLatin1(pattern));
    const QStringList lines = QString::fromStdString(output).split(QLatin1Char('\n')).filter(expression);
    std::vector<std::string> matches;
    for (const QString &line : lines) {
        matches.push_back(line.toStdString());
    }
    return matches;
}

std::string programHeaders()
{
    return toolOutput(QStringLiteral("readelf"), {QStringLiteral("-lWd")});
}

class DataPlugin : public testing::Test
{
protected:
    GlobalStateGuard guard;
};
}

TEST_F(DataPlugin, MetadataNamesTheInterfaceAndTheClassAndCarriesNoFile)
{
    const QJsonObject metaData = QPluginLoader(QStringLiteral(TAV_PLUGIN_FILE)).metaData();
    EXPECT_EQ(metaData.value(QLatin1String("IID")).toString().toStdString(), "Tav_ORG_ITavDtaPlugin");
    EXPECT_EQ(metaData.value(QLatin1String("className")).toString().toStdString(), "TavDataPlugin");
    EXPECT_FALSE(metaData.contains(QLatin1String("MetaData")));
}

TEST_F(DataPlugin, MetadataAsksForQt515AndNothingOfTheProcessor)
{
    const QJsonObject metaData = QPluginLoader(QStringLiteral(TAV_PLUGIN_FILE)).metaData();
    EXPECT_EQ(metaData.value(QLatin1String("version")).toInt(), QT_VERSION_CHECK(5, 15, 0));
    // The lowest bit only says that the build is one for debugging.
    EXPECT_EQ(metaData.value(QLatin1String("archreq")).toInt(-1) & ~1, 0);
}

TEST_F(DataPlugin, InstanceIsTheSameObjectOnEveryCall)
{
    const InstanceFunction instance = instanceFunction();
    QObject *const first = instance();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(instance(), first);
    EXPECT_EQ(pluginObject(), first);
}

TEST_F(DataPlugin, InstanceIsMadeAfreshAfterItsDeletion)
{
    const InstanceFunction instance = instanceFunction();
    const QString mark = QStringLiteral("the one deleted");
    instance()->setObjectName(mark);
    delete instance();
    const QPointer<QObject> fresh = instance();
    ASSERT_FALSE(fresh.isNull());
    EXPECT_NE(fresh->objectName(), mark);
    EXPECT_STREQ(fresh->metaObject()->className(), "TavDataPlugin");
    EXPECT_EQ(instance(), fresh.data());
}

TEST_F(DataPlugin, InstanceNeverHasAParent)
{
    const InstanceFunction instance = instanceFunction();
    EXPECT_EQ(instance()->parent(), nullptr);
    delete instance();
    EXPECT_EQ(instance()->parent(), nullptr);
}

TEST_F(DataPlugin, CastsToItselfByItsClassName)
{
    QObject *const plugin = pluginObject();
    EXPECT_EQ(plugin->qt_metacast("TavDataPlugin"), plugin);
    EXPECT_EQ(plugin->qt_metacast("QObject"), plugin);
}

TEST_F(DataPlugin, CastsToTheSameInterfaceByItsNameAndByItsIdentifier)
{
    QObject *const plugin = pluginObject();
    void *const byName = plugin->qt_metacast("ITavDataPlugin");
    ASSERT_NE(byName, nullptr);
    EXPECT_EQ(plugin->qt_metacast("Tav_ORG_ITavDtaPlugin"), byName);
    EXPECT_EQ(qobject_cast<ITavDataPlugin *>(plugin), byName);
    EXPECT_NE(byName, plugin);
}

TEST_F(DataPlugin, CastsToNothingByAnyOtherName)
{
    QObject *const plugin = pluginObject();
    for (const char *const name : {"", "Tav_ORG_ITavDataPlugin", "itavdataplugin", "ITavAuditMgr", "QWidget"}) {
        EXPECT_EQ(plugin->qt_metacast(name), nullptr) << name;
    }
    EXPECT_EQ(plugin->qt_metacast(nullptr), nullptr);
}

TEST_F(DataPlugin, RegistersTheFifteenManagersInTheirOrder)
{
    RecordingRegistry registry;
    TavGlobalInfoMgr::setObjectMgr(&registry);
    dataPlugin()->registerObj();
    expectTableRows(registry, 0, managerCount);
}

TEST_F(DataPlugin, RegistersNothingForTheSystemLog)
{
    RecordingRegistry registry;
    TavGlobalInfoMgr::setObjectMgr(&registry);
    dataPlugin()->registerObj();
    for (const RecordingRegistry::Record &record : registry.records) {
        EXPECT_THAT(record.className, Not(HasSubstr("SystemLog")));
        EXPECT_THAT(record.key.name.toStdString(), Not(HasSubstr("SystemLog")));
    }
}

TEST_F(DataPlugin, RegistersOnTheThreadThatCalls)
{
    RecordingRegistry registry;
    TavGlobalInfoMgr::setObjectMgr(&registry);
    ITavDataPlugin *const plugin = dataPlugin();
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        plugin->registerObj();
        expectTableRows(registry, 0, managerCount);
    }));
    thread->start();
    thread->wait();
    ASSERT_EQ(registry.records.size(), managerCount);
    EXPECT_EQ(registry.records.front().callingThread, thread.get());
}

TEST_F(DataPlugin, AsksForTheRegistryAnewBeforeEachRegistration)
{
    RecordingRegistry first;
    RecordingRegistry second;
    first.afterCall = [&] {
        if (first.records.size() == 3) {
            TavGlobalInfoMgr::setObjectMgr(&second);
        }
    };
    TavGlobalInfoMgr::setObjectMgr(&first);
    dataPlugin()->registerObj();
    expectTableRows(first, 0, 3);
    expectTableRows(second, 3, 12);
}

TEST_F(DataPlugin, RegistersASecondSetWhenCalledAgain)
{
    RecordingRegistry registry;
    TavGlobalInfoMgr::setObjectMgr(&registry);
    dataPlugin()->registerObj();
    dataPlugin()->registerObj();
    expectTableRows(registry, 0, 2 * managerCount);
    std::set<QObject *> objects;
    for (const RecordingRegistry::Record &record : registry.records) {
        objects.insert(record.object.get());
    }
    EXPECT_EQ(objects.size(), 2 * managerCount);
}

TEST_F(DataPlugin, ReachesItsManagersThroughTheClientsRegistry)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    for (const ExpectedManager &expected : expectedManagers) {
        QObject *const manager = host.managerObject(expected.interfaceName);
        ASSERT_NE(manager, nullptr) << expected.interfaceName;
        EXPECT_STREQ(manager->metaObject()->className(), expected.className);
    }
}

TEST_F(DataPlugin, LeavesTheEndOfItsManagersToTheRegistry)
{
    QPointer<QObject> manager;
    {
        TavPluginHost host{TAV_PLUGIN_FILE};
        manager = host.managerObject("ITavAuditMgr");
        delete pluginObject();
        EXPECT_FALSE(manager.isNull());
    }
    EXPECT_TRUE(manager.isNull());
}

TEST_F(DataPlugin, ManagersCastToTheirClassAndToTheirInterface)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    for (const ExpectedManager &expected : expectedManagers) {
        SCOPED_TRACE(expected.className);
        QObject *const manager = host.managerObject(expected.interfaceName);
        ASSERT_NE(manager, nullptr);
        EXPECT_EQ(manager->qt_metacast(expected.className), manager);
        EXPECT_EQ(manager->qt_metacast("QObject"), manager);
        void *const interface = manager->qt_metacast(expected.interfaceName);
        ASSERT_NE(interface, nullptr);
        EXPECT_EQ(interface, expected.interface(manager));
        // The object begins with its QObject; the interface is its second base.
        EXPECT_EQ(static_cast<char *>(interface), reinterpret_cast<char *>(manager) + sizeof(QObject));
    }
}

TEST_F(DataPlugin, ManagersCastToNothingElse)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    for (const ExpectedManager &expected : expectedManagers) {
        SCOPED_TRACE(expected.className);
        QObject *const manager = host.managerObject(expected.interfaceName);
        ASSERT_NE(manager, nullptr);
        EXPECT_EQ(manager->qt_metacast(nullptr), nullptr);
        EXPECT_EQ(manager->qt_metacast(""), nullptr);
        EXPECT_EQ(manager->qt_metacast(expected.key), nullptr);
        EXPECT_EQ(manager->qt_metacast("TavSystemLogMgr"), nullptr);
        for (const ExpectedManager &other : expectedManagers) {
            if (other.className != expected.className) {
                EXPECT_EQ(manager->qt_metacast(other.className), nullptr);
                EXPECT_EQ(manager->qt_metacast(other.interfaceName), nullptr);
            }
        }
    }
}

TEST_F(DataPlugin, EveryInterfaceGivesTheManagerItself)
{
    TavPluginHost host{TAV_PLUGIN_FILE};
    for (const ExpectedManager &expected : expectedManagers) {
        QObject *const manager = host.managerObject(expected.interfaceName);
        ASSERT_NE(manager, nullptr) << expected.interfaceName;
        EXPECT_EQ(expected.self(manager), manager) << expected.interfaceName;
    }
}

TEST_F(DataPlugin, LoadsNoConfigurationAtRegistration)
{
    const QTemporaryDir root;
    auto *const global = TavGlobalInfoMgr::getInstance();
    global->setSystemRoot(root.path());
    writeFile(root.filePath(QStringLiteral("etc/tavsec.d/baselineConfig/baseline.json")),
              R"({"enableConfig": [{"itemId": 1, "name": "one"}]})");
    writeFile(root.path() + global->getAppPath().configPath + QStringLiteral("/funcTypeConfig.json"),
              QByteArray(R"([{"funcType": "Func_HostInfo"}])").toBase64());

    TavPluginHost host{TAV_PLUGIN_FILE};
    auto *const catalogue = host.manager<ITavFuncTypeMgr>();
    auto *const items = host.manager<ITavLineScanMgr>();
    EXPECT_TRUE(catalogue->getFuncInfos().isEmpty());
    EXPECT_TRUE(items->getItemConfig(1).name.isEmpty());
    // The files were there to be loaded.
    catalogue->loadConfig();
    items->loadJsonConfig();
    EXPECT_EQ(catalogue->getFuncInfos().size(), 1);
    EXPECT_EQ(items->getItemConfig(1).name, QStringLiteral("one"));
}

TEST_F(DataPlugin, ExportsItsTwoEntryPointsAlone)
{
    const std::string output
        = toolOutput(QStringLiteral("nm"), {QStringLiteral("-DP"), QStringLiteral("--defined-only")});
    std::vector<std::string> names;
    for (const std::string &line : linesMatching(output, "^\\S+ \\S ")) {
        names.push_back(line.substr(0, line.find(' ')));
    }
    EXPECT_THAT(names, UnorderedElementsAre("qt_plugin_instance", "qt_plugin_query_metadata"));
}

TEST_F(DataPlugin, ResolvesAllSymbolsAtLoadAndThenWriteProtectsTheirTable)
{
    const std::string headers = programHeaders();
    EXPECT_THAT(headers, HasSubstr("GNU_RELRO"));
    EXPECT_THAT(headers, HasSubstr("BIND_NOW"));
}

TEST_F(DataPlugin, NeedsNoExecutableStack)
{
    const std::vector<std::string> stack = linesMatching(programHeaders(), "^ *GNU_STACK ");
    ASSERT_EQ(stack.size(), 1U);
    // Offset, addresses and sizes, then the flags.
    EXPECT_TRUE(linesMatching(stack.front(), "^ *GNU_STACK( +0x[0-9a-f]+){5} RW +0x[0-9a-f]+$").size() == 1)
        << stack.front();
}

TEST_F(DataPlugin, HasNoSegmentBothWritableAndExecutable)
{
    EXPECT_THAT(linesMatching(programHeaders(), "^ *LOAD( +0x[0-9a-f]+){5} .WE"), testing::IsEmpty());
}

TEST_F(DataPlugin, GuardsItsStackFrames)
{
    const std::string output
        = toolOutput(QStringLiteral("nm"), {QStringLiteral("-DP"), QStringLiteral("--undefined-only")});
    EXPECT_EQ(linesMatching(output, "^__stack_chk_fail(@.*)? U").size(), 1U) << output;
}
