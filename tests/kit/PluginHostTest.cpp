#include "TavPluginHost.h"

#include "ITavAuditMgr.h"
#include "ITavPage.h"
#include "SpecialFile.h"
#include "TavOperations.h"
#include "TextFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>
#include <QTemporaryDir>
#include <QVariant>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <unistd.h>

using Kind = TavPluginError::Kind;

namespace
{
const QString pluginFile(QStringLiteral(TAV_PLUGIN_FILE));

QString fixture(const QString &name)
{
    return QString(TAV_FIXTURE_DIR "/lib%1.so").arg(name);
}

/// Why the file is refused; fails the test when it is not.
TavPluginError errorOf(const QString &file)
{
    try {
        TavPluginHost host(file);
    } catch (const TavPluginError &error) {
        return error;
    }
    ADD_FAILURE() << qPrintable(file) << " is taken for the data plugin";
    return {Kind::NotLoadable, file, {}};
}

/// That the file is refused for this one reason, in these words.
void expectRefused(const QString &file, Kind kind, const QString &problem, const QString &advice)
{
    const TavPluginError error = errorOf(file);
    EXPECT_EQ(int(error.kind()), int(kind)) << error.what();
    EXPECT_EQ(error.problem(), problem);
    EXPECT_EQ(error.advice(), advice);
    EXPECT_EQ(error.file(), file);
    EXPECT_EQ(QString(error.what()), file + ": " + problem + "; " + advice);
}

const QString nameIt("name libTavDataPlugin.so");

class PluginHost : public testing::Test
{
protected:
    /// A copy of the built plugin with some bytes changed.
    QString patched(const QVector<QPair<int, int>> &bytes)
    {
        QByteArray content = contentOf(pluginFile);
        for (const auto &[at, value] : bytes) {
            content[at] = char(value);
        }
        return copy(content);
    }

    QString copy(const QByteArray &content)
    {
        const QString path = directory.filePath(QString("%1.so").arg(++copies));
        writeFile(path, content);
        return path;
    }

    const QTemporaryDir directory;
    int copies = 0;
};

/// @brief For as long as it lives this process has the rights of somebody who owns nothing.
class RightsOfNobody
{
public:
    RightsOfNobody()
    {
        isNobody = geteuid() != 0 || seteuid(65534) == 0;
    }

    ~RightsOfNobody()
    {
        EXPECT_EQ(seteuid(m_before), 0);
    }

    Q_DISABLE_COPY(RightsOfNobody)

    bool isNobody;

private:
    const uid_t m_before = geteuid();
};

// Of the header of an ELF file.
constexpr int classAt = 4;
constexpr int byteOrderAt = 5;
constexpr int typeAt = 16;
constexpr int machineAt = 18;
constexpr int x86 = 3;
constexpr int x86_64 = 62;
constexpr int arm = 40;
constexpr int aarch64 = 183;
constexpr int riscv = 243;

#ifdef __aarch64__
constexpr int ownMachine = aarch64;
constexpr int otherMachine = x86_64;
const QString ownName("AArch64");
const QString otherName("x86-64");
#else
constexpr int ownMachine = x86_64;
constexpr int otherMachine = aarch64;
const QString ownName("x86-64");
const QString otherName("AArch64");
#endif
}

TEST_F(PluginHost, NeedsNoApplicationObject)
{
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    TavPluginHost host(pluginFile);
    EXPECT_NE(host.manager<ITavAuditMgr>(), nullptr);
}

TEST_F(PluginHost, IsTheClientsRegistryAsLongAsItLives)
{
    ITavObjectMgr *const builtIn = TavGlobalInfoMgr::getObjectMgr();
    QPointer<QObject> manager;
    {
        TavPluginHost host(pluginFile);
        EXPECT_NE(TavGlobalInfoMgr::getObjectMgr(), builtIn);
        EXPECT_EQ(tavObject<ITavAuditMgr>(), host.manager<ITavAuditMgr>());
        manager = host.managerObject("ITavAuditMgr");
        EXPECT_FALSE(manager.isNull());
    }
    EXPECT_EQ(TavGlobalInfoMgr::getObjectMgr(), builtIn);
    EXPECT_EQ(tavObject<ITavAuditMgr>(), nullptr);
    EXPECT_TRUE(manager.isNull());
}

TEST_F(PluginHost, HasFreshManagersEachTime)
{
    for (int i = 0; i < 3; ++i) {
        TavPluginHost host(pluginFile);
        auto *const manager = host.manager<ITavAuditMgr>();
        ASSERT_NE(manager, nullptr);
        EXPECT_EQ(manager->getAuditCount().count, 0);
        manager->setAuditCount({7});
    }
}

TEST_F(PluginHost, GivesTheRegistryBackToTheOlderHost)
{
    TavPluginHost older(pluginFile);
    {
        TavPluginHost newer(pluginFile);
        EXPECT_EQ(tavObject<ITavAuditMgr>(), newer.manager<ITavAuditMgr>());
    }
    EXPECT_EQ(tavObject<ITavAuditMgr>(), older.manager<ITavAuditMgr>());
}

TEST_F(PluginHost, LeavesTheRegistryOfANewerHostInPlace)
{
    std::optional<TavPluginHost> older(pluginFile);
    TavPluginHost newer(pluginFile);
    EXPECT_NE(older->managerObject("ITavAuditMgr"), newer.managerObject("ITavAuditMgr"));
    older.reset();
    EXPECT_EQ(tavObject<ITavAuditMgr>(), newer.manager<ITavAuditMgr>());
}

TEST_F(PluginHost, LeavesTheRegistryInPlaceWhenItRefusesAFile)
{
    TavPluginHost host(pluginFile);
    for (const char *const name : {"OtherPlugin", "NoInterfacePlugin", "NoManagersPlugin", "FourteenManagersPlugin"}) {
        errorOf(fixture(name));
        EXPECT_EQ(tavObject<ITavAuditMgr>(), host.manager<ITavAuditMgr>()) << name;
    }
}

TEST_F(PluginHost, TellsWhatThePluginRegisteredAndInWhichOrder)
{
    TavPluginHost host(pluginFile);
    EXPECT_EQ(host.file(), pluginFile);
    EXPECT_GT(host.loadNanoseconds(), 0);
    ASSERT_EQ(host.registrations().size(), int(TavOperations::interfaceNames().size()));
    EXPECT_FALSE(std::is_sorted(host.registrations().begin(), host.registrations().end(),
                                [](const auto &a, const auto &b) { return a.nanoseconds < b.nanoseconds; }))
        << "each time is from the registration before";
    const std::vector<const char *> names = TavOperations::interfaceNames();
    for (int i = 0; i < host.registrations().size(); ++i) {
        const TavRegistration &registration = host.registrations()[i];
        EXPECT_EQ(registration.key, tavManagerKey(names[i]));
        EXPECT_EQ(registration.object, host.managerObject(names[i]));
        EXPECT_GT(registration.nanoseconds, 0);
    }
}

TEST_F(PluginHost, TakesWhatPagesRegisterLaterAndDoesNotCallItThePlugins)
{
    TavPluginHost host(pluginFile);
    auto *const controller = new QObject;
    TavGlobalInfoMgr::getObjectMgr()->registerObject(tavManagerKey("IPageController"), controller, true);
    EXPECT_EQ(host.managerObject("IPageController"), controller);
    EXPECT_EQ(host.registrations().size(), int(TavOperations::interfaceNames().size()));
}

TEST_F(PluginHost, FindsAFileByARelativeNameAndBehindALink)
{
    ASSERT_TRUE(QFile::link(pluginFile, directory.filePath("link.so")));
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(directory.path()));
    TavPluginHost host("link.so");
    ASSERT_TRUE(QDir::setCurrent(before));
    EXPECT_NE(host.manager<ITavAuditMgr>(), nullptr);
}

TEST_F(PluginHost, TakesALaterPluginWithMoreManagers)
{
    TavPluginHost host(fixture("SixteenManagersPlugin"));
    EXPECT_EQ(host.registrations().size(), 16);
}

TEST_F(PluginHost, TellsTheFactsOfAFile)
{
    const TavPluginFacts facts = TavPluginHost::factsOf(pluginFile);
    EXPECT_EQ(facts.identifier, "Tav_ORG_ITavDtaPlugin");
    EXPECT_EQ(facts.className, "TavDataPlugin");
    EXPECT_EQ(facts.qtVersion, QString("%1.%2").arg(QT_VERSION_MAJOR).arg(QT_VERSION_MINOR));
    EXPECT_EQ(facts.machine, ownName);
    const TavPluginFacts others = TavPluginHost::factsOf(fixture("OtherPlugin"));
    EXPECT_EQ(others.identifier, "org.example.OtherPlugin");
    EXPECT_EQ(others.className, "OtherPlugin");
}

TEST_F(PluginHost, TellsNoFactsWhereThereAreNone)
{
    ASSERT_TRUE(SpecialFile::makePipe(directory.filePath("pipe")));
    for (const QString &file : {directory.filePath("none"), directory.path(), directory.filePath("pipe"), copy("")}) {
        const TavPluginFacts facts = TavPluginHost::factsOf(file);
        EXPECT_EQ(facts.identifier + facts.className + facts.qtVersion + facts.machine, "") << qPrintable(file);
    }
}

TEST_F(PluginHost, NamesAFileThatIsNotThere)
{
    for (const QString &file : {directory.filePath("none.so"), pluginFile + "/none.so", QString()}) {
        expectRefused(file, Kind::NoSuchFile, "there is no such file", "install the plugin, or name its file");
    }
}

TEST_F(PluginHost, DoesNotTakeAnotherFileForOneThatIsNotThere)
{
    // Qt's loader would find it under the name without "lib" and ".so".
    ASSERT_TRUE(QFile::link(pluginFile, directory.filePath("libplugin.so")));
    expectRefused(directory.filePath("plugin"), Kind::NoSuchFile, "there is no such file",
                  "install the plugin, or name its file");
    EXPECT_EQ(TavPluginHost::factsOf(directory.filePath("plugin")).identifier, "");
}

TEST_F(PluginHost, NamesWhatIsNoRegularFile)
{
    ASSERT_TRUE(SpecialFile::makePipe(directory.filePath("pipe")));
    for (const QString &file : {directory.path(), directory.filePath("pipe"), QString("/dev/null")}) {
        expectRefused(file, Kind::NotAFile, "not a regular file", nameIt);
    }
}

TEST_F(PluginHost, NamesTheRightThatIsMissing)
{
    const QString file = copy(contentOf(pluginFile));
    const QString inside = directory.filePath("locked/plugin.so");
    writeFile(inside, contentOf(pluginFile));
    ASSERT_TRUE(QFile::setPermissions(file, {}));
    ASSERT_TRUE(QFile::setPermissions(directory.filePath("locked"), {}));
    // Nobody keeps its group, and is to come as far as the file.
    ASSERT_TRUE(QFile::setPermissions(
        directory.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup));
    {
        const RightsOfNobody rights;
        ASSERT_TRUE(rights.isNobody);
        for (const QString &locked : {file, inside}) {
            expectRefused(locked, Kind::NotReadable, "cannot be read: Permission denied", "let this user read it");
        }
    }
    ASSERT_TRUE(QFile::setPermissions(directory.filePath("locked"),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)); // so that it can go
}

TEST_F(PluginHost, NamesWhatIsNoSharedLibrary)
{
    for (const QString &file : {QString(TAV_SOURCE_DIR "/CMakeLists.txt"), copy(""), copy("\177EL"),
                                patched({{typeAt, 1}}), patched({{typeAt, 2}})}) {
        expectRefused(file, Kind::NotALibrary, "not a shared library", nameIt);
    }
}

TEST_F(PluginHost, NamesALibraryThatIsCutOff)
{
    const QByteArray whole = contentOf(pluginFile);
    for (const int size : {4, 18, 19, 20, 63, 64, 200, 4096, whole.size() / 2, whole.size() - 4096, whole.size() - 1}) {
        SCOPED_TRACE(size);
        expectRefused(copy(whole.left(size)), Kind::CutOff, "cut off: it ends before what its headers announce",
                      "install the plugin again");
    }
}

TEST_F(PluginHost, NamesTheMachineThatALibraryWasBuiltFor)
{
    const struct {
        QString file;
        QString machine;
    } rows[] = {
        {patched({{machineAt, otherMachine}}), otherName},
        {patched({{classAt, 1}, {machineAt, x86}}), "x86"},
        {patched({{classAt, 1}, {machineAt, arm}}), "ARM"},
        {patched({{machineAt, riscv}}), "RISC-V"},
        {patched({{byteOrderAt, 2}, {machineAt, 0}, {machineAt + 1, aarch64}}), "big-endian AArch64"},
        {patched({{byteOrderAt, 2}, {machineAt, 0}, {machineAt + 1, ownMachine}}), "big-endian " + ownName},
        {patched({{machineAt, 2}, {machineAt + 1, 1}}), "machine 258"},
        {patched({{byteOrderAt, 2}, {machineAt, 1}, {machineAt + 1, 2}}), "big-endian machine 258"},
        {copy(contentOf(patched({{machineAt, otherMachine}})).left(20)), otherName},
    };
    for (const auto &row : rows) {
        expectRefused(row.file, Kind::OtherMachine,
                      QString("built for %1, but this program for %2").arg(row.machine, ownName),
                      "install the plugin for " + ownName);
        EXPECT_EQ(errorOf(row.file).effect(), "no client for " + ownName + " can load it");
    }
}

TEST_F(PluginHost, NamesTheWordSizeThatALibraryWasBuiltFor)
{
    expectRefused(patched({{classAt, 1}}), Kind::OtherWordSize, "built for words of 32 bits, but this program for 64",
                  "install the plugin for " + ownName);
    EXPECT_EQ(int(errorOf(copy(contentOf(patched({{classAt, 1}})).left(20))).kind()), int(Kind::OtherWordSize));
}

TEST_F(PluginHost, NamesALibraryThatIsNoPlugin)
{
    expectRefused(TAV_COMMON_FILE, Kind::NotAPlugin, "not a Qt plugin", nameIt);
}

TEST_F(PluginHost, NamesAnotherPluginAndRunsNothingOfIt)
{
    expectRefused(fixture("OtherPlugin"), Kind::OtherPlugin,
                  R"(another plugin: its identifier is "org.example.OtherPlugin" and not "Tav_ORG_ITavDtaPlugin")",
                  nameIt);
}

TEST_F(PluginHost, NamesTheQtThatAPluginWasBuiltWith)
{
    // Behind the mark stand a format, the major and the minor version.
    const int mark = contentOf(pluginFile).indexOf("QTMETADATA !");
    ASSERT_GT(mark, 0);
    const QString advice = "build the plugin with Qt " + QString(qVersion()).section('.', 0, 1);
    const QString problem = "built with Qt %1, but this is Qt " + QString(qVersion());
    expectRefused(patched({{mark + 14, 99}}), Kind::OtherQt, problem.arg("5.99"), advice);
    expectRefused(patched({{mark + 13, 6}, {mark + 14, 0}}), Kind::OtherQt, problem.arg("6.0"), advice);
    EXPECT_EQ(errorOf(patched({{mark + 14, 99}})).effect(),
              "Qt refuses to load it: it takes plugins of its own or an earlier minor version");
}

TEST_F(PluginHost, TakesAPluginOfAnEarlierQt)
{
    TavPluginHost host(patched({{contentOf(pluginFile).indexOf("QTMETADATA !") + 14, 9}}));
    EXPECT_NE(host.manager<ITavAuditMgr>(), nullptr);
}

TEST_F(PluginHost, NamesTheLibraryThatIsMissing)
{
    expectRefused(fixture("MissingLibraryPlugin"), Kind::MissingLibrary, "cannot be loaded: it lacks libTavAbsent.so",
                  "install what it lacks");
}

TEST_F(PluginHost, NamesAllLibrariesThatAreMissing)
{
    const QString file = copy(contentOf(pluginFile)
                                  .replace("libTavCommon.so.1", "libTavComm0n.so.1")
                                  .replace("libstdc++.so.6", "libstdc--.so.6"));
    expectRefused(file, Kind::MissingLibrary, "cannot be loaded: it lacks libTavComm0n.so.1, libstdc--.so.6",
                  "install what it lacks");
}

TEST_F(PluginHost, NamesTheSymbolThatIsUndefined)
{
    expectRefused(fixture("UndefinedSymbolPlugin"), Kind::UndefinedSymbol,
                  "cannot be loaded: it lacks the symbol tavNowhere(int)",
                  "install the libraries that it was built with");
}

TEST_F(PluginHost, NamesASymbolOfCAsItIs)
{
    const QString file = copy(
        contentOf(fixture("UndefinedSymbolPlugin")).replace("_Z10tavNowherei", QByteArray("f\0Z10tavNowherei", 15)));
    EXPECT_EQ(errorOf(file).problem(), "cannot be loaded: it lacks the symbol f");
}

TEST_F(PluginHost, NamesASymbolOfALibraryThatTellsVersionsApart)
{
    const QString file = copy(contentOf(pluginFile).replace("_ZN7QObject10childEventE", "_ZN7QObject10childEvenzE"));
    EXPECT_EQ(errorOf(file).problem(), "cannot be loaded: it lacks the symbol QObject::childEvenz(QChildEvent*)");
}

TEST_F(PluginHost, PassesOnAnyOtherReasonOfTheLoader)
{
    const QString file = copy(contentOf(pluginFile).replace(QByteArray("\0Qt_5\0", 6), QByteArray("\0Qt_9\0", 6)));
    const TavPluginError error = errorOf(file);
    EXPECT_EQ(int(error.kind()), int(Kind::NotLoadable));
    EXPECT_TRUE(error.problem().startsWith("cannot be loaded: ")) << error.what();
    EXPECT_TRUE(error.problem().contains("version `Qt_9' not found")) << error.what();
}

TEST_F(PluginHost, NamesARootObjectWithoutTheInterface)
{
    expectRefused(fixture("NoInterfacePlugin"), Kind::NoInterface,
                  "its root object, a NoInterfacePlugin, has no interface ITavDataPlugin", nameIt);
}

TEST_F(PluginHost, NamesAPluginWithoutARootObject)
{
    const QString file
        = copy(contentOf(fixture("NoInterfacePlugin")).replace("qt_plugin_instance", "qt_plugin_instancf"));
    expectRefused(file, Kind::NoInterface, "it has no root object", nameIt);
}

TEST_F(PluginHost, NamesAPluginThatRegistersNothing)
{
    expectRefused(fixture("NoManagersPlugin"), Kind::WrongManagers, "registers no managers",
                  "install the plugin that belongs to this client");
}

TEST_F(PluginHost, NamesTheManagerThatIsMissing)
{
    expectRefused(fixture("FourteenManagersPlugin"), Kind::WrongManagers,
                  "registers other managers than the 15: ITavAuditMgr is missing, "
                  "\"MisspeltITavAuditMgr_Tav_ORG\" with the number -9999 is none of them, "
                  "\"ITavLaterMgr_Tav_ORG\" with the number -9999 is none of them",
                  "install the plugin that belongs to this client");
}

TEST_F(PluginHost, NamesAnObjectThatIsNotTheManagerOfItsKey)
{
    expectRefused(fixture("OtherManagerPlugin"), Kind::WrongManagers,
                  "registers other managers than the 15: ITavNetControlMgr is a QObject without that interface, "
                  "\"ITavLaterMgr_Tav_ORG\" with the number -9999 is none of them",
                  "install the plugin that belongs to this client");
}

TEST_F(PluginHost, HasAPagePluginRegisterItsControllersWithWhichTheyEnd)
{
    QPointer<QObject> controller;
    {
        TavPluginHost host(pluginFile);
        const QVector<TavRegistration> pages = host.loadPages(fixture("TwoPagesPlugin"));
        ASSERT_EQ(pages.size(), 2);
        controller = pages[0].object;
        EXPECT_EQ(controller, host.managerObject("ITavHostInfoController"));
        EXPECT_NE(qobject_cast<ITavPage *>(controller), nullptr);
        EXPECT_EQ(qobject_cast<ITavPage *>(pages[1].object), nullptr);
        // What it has looked up while it registered them: all managers and the controller before.
        EXPECT_EQ(pages[1].object->property("manager").value<QObject *>(), host.managerObject("ITavAuditMgr"));
        EXPECT_EQ(pages[1].object->property("keys").toInt(), 15 + 1);
        EXPECT_EQ(host.registrations().size(), 15);
    }
    EXPECT_TRUE(controller.isNull());
}

TEST_F(PluginHost, RegistersPagesInItsOwnRegistryAndNotInThatOfANewerHost)
{
    TavPluginHost host(pluginFile);
    TavPluginHost newer(pluginFile);
    host.loadPages(fixture("TwoPagesPlugin"));
    EXPECT_NE(host.managerObject("ITavHostInfoController"), nullptr);
    EXPECT_EQ(newer.managerObject("ITavHostInfoController"), nullptr);
    EXPECT_EQ(TavGlobalInfoMgr::getObjectMgr()->getObject(tavManagerKey("ITavAuditMgr")),
              newer.managerObject("ITavAuditMgr"));
}

TEST_F(PluginHost, NamesWhatIsWrongWithAPagePlugin)
{
    const struct {
        QString file;
        Kind kind;
        QString problem;
        QString advice;
    } rows[] = {
        {"/no/such/file", Kind::NoSuchFile, "there is no such file", "install the plugin, or name its file"},
        {TAV_COMMON_FILE, Kind::NotAPlugin, "not a Qt plugin", "name a page plugin"},
        {fixture("OtherPlugin"), Kind::OtherPlugin,
         R"(another plugin: its identifier is "org.example.OtherPlugin" and not "Tav_ORG_ITavDtaPlugin")",
         "name a page plugin"},
        {fixture("NoManagersPlugin"), Kind::NoPages, "registers nothing", "name a page plugin"},
        {pluginFile, Kind::NoPages, "registers managers and no controller", "name a page plugin"},
        {fixture("ThrowingPlugin"), Kind::Exception, "its registerObj() throws: out of order",
         "mend the plugin, or leave it out"},
        {fixture("ThrowingNumberPlugin"), Kind::Exception, "its registerObj() throws what is no std::exception",
         "mend the plugin, or leave it out"},
    };
    TavPluginHost host(pluginFile);
    for (const auto &row : rows) {
        try {
            host.loadPages(row.file);
            ADD_FAILURE() << qPrintable(row.file) << " is taken for a page plugin";
        } catch (const TavPluginError &error) {
            EXPECT_EQ(int(error.kind()), int(row.kind)) << error.what();
            EXPECT_EQ(error.problem(), row.problem);
            EXPECT_EQ(error.advice(), row.advice);
            EXPECT_EQ(error.effect(), "the client has none of its pages");
        }
        EXPECT_EQ(TavGlobalInfoMgr::getObjectMgr()->getObject(tavManagerKey("ITavAuditMgr")),
                  host.managerObject("ITavAuditMgr"));
    }
}

TEST(PluginError, TellsWhatItMeansForAClientAndWhetherToNameAnotherFile)
{
    const QString noManagers("the client has none of the managers");
    const QString otherMachine("no client for " + ownName + " can load it");
    const struct {
        Kind kind;
        QString effect;
        bool wantsAnotherFile;
    } rows[] = {
        {Kind::NoSuchFile, noManagers, true},       {Kind::NotAFile, noManagers, true},
        {Kind::NotReadable, noManagers, false},     {Kind::NotALibrary, noManagers, true},
        {Kind::CutOff, noManagers, false},          {Kind::OtherMachine, otherMachine, false},
        {Kind::OtherWordSize, otherMachine, false}, {Kind::NotAPlugin, noManagers, true},
        {Kind::OtherPlugin, noManagers, true},      {Kind::MissingLibrary, noManagers, false},
        {Kind::NoInterface, noManagers, true},      {Kind::WrongManagers, "pages do not find what they look up", false},
    };
    for (const auto &row : rows) {
        const TavPluginError error(row.kind, "plugin.so", "a problem");
        EXPECT_EQ(error.effect(), row.effect) << error.what();
        EXPECT_EQ(error.wantsAnotherFile(), row.wantsAnotherFile) << error.what();
    }
    EXPECT_TRUE(
        TavPluginError(Kind::NoPages, "page.so", "a problem", TavPluginError::Role::PagePlugin).wantsAnotherFile());
}

/// Without an application object, which the host is to do without.
int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
