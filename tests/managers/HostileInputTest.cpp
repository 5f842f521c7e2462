// The two configuration files, as somebody would write them who wants the client to crash, to hang or to lie.
#include "ChildProcess.h"
#include "Deadline.h"
#include "GlobalStateGuard.h"
#include "ITavFuncTypeMgr.h"
#include "ITavLineScanMgr.h"
#include "ProofSize.h"
#include "SpecialFile.h"
#include "TavPluginHost.h"
#include "TextFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <climits>
#include <cstdio>
#include <functional>
#include <string>
#include <thread>

namespace
{
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;
using SubFuncType = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

class HostileInput : public testing::Test
{
protected:
    HostileInput()
    {
        QFile::setPermissions(m_root.path(), QFile::Permissions(0x7755)); // for the test that gives up its rights
        STAppPathInfo appPath;
        appPath.configPath = QStringLiteral("/etc");
        TavGlobalInfoMgr::getInstance()->setAppPath(appPath);
        TavGlobalInfoMgr::getInstance()->setSystemRoot(m_root.path());
        EXPECT_TRUE(QDir().mkpath(QFileInfo(baselinePath()).path()));
        EXPECT_TRUE(QDir().mkpath(QFileInfo(cataloguePath()).path()));
    }

    QString cataloguePath() const
    {
        return m_root.filePath(QStringLiteral("etc/funcTypeConfig.json"));
    }

    QString baselinePath() const
    {
        return m_root.filePath(QStringLiteral("etc/tavsec.d/baselineConfig/baseline.json"));
    }

    void loadCatalogue(const QByteArray &json)
    {
        writeFile(cataloguePath(), json.toBase64());
        EXPECT_FALSE(catalogue.loadConfig());
    }

    void loadBaseline(const QByteArray &json)
    {
        writeFile(baselinePath(), json);
        EXPECT_TRUE(baseline.loadJsonConfig());
    }

    /// Expects that neither file, as it is now, adds anything to what is held.
    void expectNothingLoads()
    {
        const int funcs = catalogue.getFuncInfos().size();
        EXPECT_FALSE(catalogue.loadConfig());
        EXPECT_EQ(catalogue.getFuncInfos().size(), funcs);
        EXPECT_TRUE(baseline.loadJsonConfig());
        EXPECT_TRUE(baseline.getItemConfig(1).checkValueScript.isEmpty());
    }

    /// Puts the same in the place of either file, and expects that it is read as nothing.
    void expectNothingLoadsFrom(const char *what, const std::function<void(const QString &)> &make)
    {
        SCOPED_TRACE(what);
        for (const QString &path : {cataloguePath(), baselinePath()}) {
            make(path);
        }
        expectNothingLoads();
        for (const QString &path : {cataloguePath(), baselinePath()}) {
            EXPECT_TRUE(QFile::remove(path) || QDir().rmdir(path)) << qPrintable(path);
        }
    }

    /// Expects, and prints, how much memory a load takes at most for a byte of its file.
    void expectPeak(const char *what, const QString &path, double allowedForAByte, const std::function<void()> &load)
    {
        const double size = double(QFileInfo(path).size()) / (1024 * 1024);
        const ChildOutcome outcome = runInChild(load);
        EXPECT_TRUE(outcome.passed);
        std::printf("%s: file %.1f MiB, peak %.0f MiB (%.1f for a byte), %.2f s\n", what, size, outcome.peakMiB,
                    outcome.peakMiB / size, outcome.seconds);
        RecordProperty("peakMiB", int(outcome.peakMiB));
        if (!memoryIsInstrumented) {
            EXPECT_LT(outcome.peakMiB, size * allowedForAByte);
        }
    }

    const GlobalStateGuard m_state;
    const Deadline m_deadline;
    const QTemporaryDir m_root;
    TavPluginHost m_host{TAV_PLUGIN_FILE};
    ITavFuncTypeMgr &catalogue = *m_host.manager<ITavFuncTypeMgr>();
    ITavLineScanMgr &baseline = *m_host.manager<ITavLineScanMgr>();
};

QByteArray nested(const char *open, const char *close, int levels, const char *innermost = "")
{
    return QByteArray(open).repeated(levels) + innermost + QByteArray(close).repeated(levels);
}

/// Copies of one entry, with commas between, until there are @p size bytes.
QByteArray filled(const QByteArray &entry, int size)
{
    QByteArray all = (entry + ',').repeated(size / (entry.size() + 1) + 1);
    all.chop(1);
    return all;
}

const int largest = proofSize(8, 100) * 1000 * 1000; // bytes of a configuration
}

TEST_F(HostileInput, TenThousandLevelsOfNestingLoadNothing)
{
    for (const QByteArray &json : {
             nested("[", "]", 10000),
             nested("{\"a\":", "}", 10000, "1"),
             nested("[{\"funcType\":\"Func_HostInfo\",\"funcList\":", "}]", 10000, "[]"),
             nested("{\"enableConfig\":[", "]}", 10000),
             QByteArray("[").repeated(1000 * 1000),
             QByteArray("{\"\":").repeated(1000 * 1000),
         }) {
        SCOPED_TRACE(json.left(40).toStdString());
        loadCatalogue(json);
        loadBaseline(json);
        expectNothingLoads();
        loadBaseline("{\"enableConfig\":[{\"itemId\":1,\"name\":" + json + "}]}");
        expectNothingLoads();
    }
}

TEST_F(HostileInput, FunctionsNestAsDeepAsTheParserAllows)
{
    // A function takes two of the parser's 1024 levels: its object, and the array that the object stands in.
    const char *const open = "[{\"funcType\":\"Func_HostInfo\",\"funcList\":";
    loadCatalogue(nested(open, "}]", 512, "0"));
    const auto funcs = catalogue.getFuncInfos();
    ASSERT_EQ(funcs.size(), 512);
    EXPECT_EQ(funcs.first().parentFuncType, CTavFuncTypeHeader::Func_None);
    EXPECT_EQ(funcs.last().parentFuncType, CTavFuncTypeHeader::Func_HostInfo);

    loadCatalogue(nested(open, "}]", 513, "0"));
    EXPECT_EQ(catalogue.getFuncInfos().size(), 512);
}

TEST_F(HostileInput, ItemsWithDeeplyNestedValuesLoadWithTheirDefaults)
{
    loadBaseline("{\"enableConfig\":[{\"itemId\":1,\"name\":" + nested("[", "]", 1021) + "}]}");
    EXPECT_EQ(baseline.getItemConfig(1).itemId, 1);
    EXPECT_TRUE(baseline.getItemConfig(1).name.isEmpty());
}

TEST_F(HostileInput, LargeCatalogueLoadsInBoundedMemory)
{
    // The file, its text in UTF-16, the text's bytes and the JSON in them stand in memory together, then the parsed
    // document and the lists.
    const QByteArray func = R"({"funcType":"Func_HostInfo","funcTitle":"主机信息","funcIcon":"hostIcon","subFunList":[)"
                            R"({"subFuncType":"SubFunc_LogAudit","subFuncTitile":"审计日志","subFuncClassName":"I"}]})";
    writeFile(cataloguePath(), ('[' + filled(func, largest / 4 * 3) + ']').toBase64());
    expectPeak("catalogue", cataloguePath(), 8, [&] {
        EXPECT_FALSE(catalogue.loadConfig());
        EXPECT_EQ(catalogue.getFuncInfos().size(), largest / 4 * 3 / (func.size() + 1) + 1);
        EXPECT_EQ(catalogue.getSubFuncInfo().size(), catalogue.getFuncInfos().size());
    });
}

TEST_F(HostileInput, LargeBaselineLoadsInBoundedMemory)
{
    const QByteArray item = R"({"itemId":1,"name":"口令最短长度","standardValue":"8","desc":"口令过短，易被猜出。",)"
                            R"("checkValueScript":"/a.sh","type":3,"btntext":"查看详情"})";
    writeFile(baselinePath(), "{\"enableConfig\":[" + filled(item, largest) + "]}");
    expectPeak("baseline", baselinePath(), 8, [&] {
        EXPECT_TRUE(baseline.loadJsonConfig());
        EXPECT_EQ(baseline.getItemConfig(1).btntext, QStringLiteral("查看详情"));
    });
}

TEST_F(HostileInput, SmallestValuesTakeTheMostMemoryAndAreBoundedToo)
{
    // Two bytes each: what the parser makes of one is many times larger than what stands in the file.
    const int size = proofSize(1, 4) * 1000 * 1000;
    const QByteArray numbers = filled("0", size);
    writeFile(cataloguePath(), ('[' + numbers + ']').toBase64());
    expectPeak("catalogue of numbers", cataloguePath(), 20, [&] {
        // Every one of the two million is worth a line of the log.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        EXPECT_FALSE(catalogue.loadConfig());
        EXPECT_TRUE(catalogue.getFuncInfos().isEmpty());
    });
    writeFile(baselinePath(), "{\"enableConfig\":[" + numbers + "]}");
    expectPeak("baseline of numbers", baselinePath(), 20, [&] {
        EXPECT_TRUE(baseline.loadJsonConfig());
        EXPECT_EQ(baseline.getItemConfig(0).checkValueScript, QStringLiteral("/opt/tavsec/script/baselineScript"));
    });
    const QByteArray arrays = filled("[0]", size);
    writeFile(baselinePath(), "{\"enableConfig\":[" + arrays + "]}");
    expectPeak("baseline of arrays", baselinePath(), 45, [&] { EXPECT_TRUE(baseline.loadJsonConfig()); });
}

TEST_F(HostileInput, WhatIsNoRegularFileIsNotRead)
{
    expectNothingLoadsFrom("pipe", [](const QString &path) { ASSERT_TRUE(SpecialFile::makePipe(path)); });
    expectNothingLoadsFrom("socket", [](const QString &path) { ASSERT_TRUE(SpecialFile::makeSocket(path)); });
    expectNothingLoadsFrom("directory", [](const QString &path) { ASSERT_TRUE(QDir().mkdir(path)); });
}

TEST_F(HostileInput, DevicesThatNeverEndAreNotRead)
{
    if (memoryIsInstrumented) {
        GTEST_SKIP() << "an instrumented process cannot have its memory limited";
    }
    const ChildOutcome outcome = runInChild([&] {
        limitMemory(1024); // reading one would take all there is
        expectNothingLoadsFrom("link",
                               [](const QString &path) { SpecialFile::makeLink(QStringLiteral("/dev/zero"), path); });
        if (geteuid() == 0) {
            expectNothingLoadsFrom("device",
                                   [](const QString &path) { ASSERT_TRUE(SpecialFile::makeEndlessDevice(path)); });
        }
    });
    EXPECT_TRUE(outcome.passed);
}

TEST_F(HostileInput, LinksToWhatIsNoRegularFileAreNotRead)
{
    const QString pipe = m_root.filePath(QStringLiteral("pipe"));
    const QString socket = m_root.filePath(QStringLiteral("socket"));
    ASSERT_TRUE(SpecialFile::makePipe(pipe));
    ASSERT_TRUE(SpecialFile::makeSocket(socket));
    for (const QString &target :
         {pipe, socket, m_root.path(), m_root.filePath(QStringLiteral("missing")), QStringLiteral("/dev/tty")}) {
        expectNothingLoadsFrom(qPrintable(target), [&](const QString &path) { SpecialFile::makeLink(target, path); });
    }
}

TEST_F(HostileInput, LinksAreFollowedAsFarAsTheKernelDoes)
{
    const QString target = m_root.filePath(QStringLiteral("target"));
    writeFile(target, QByteArray("[{\"funcType\":\"Func_HostInfo\"}]").toBase64());
    SpecialFile::makeChainOfLinks(target, cataloguePath(), 30);
    catalogue.loadConfig();
    EXPECT_EQ(catalogue.getFuncInfos().size(), 1);
    EXPECT_TRUE(QFile::remove(cataloguePath()));

    SpecialFile::makeChainOfLinks(target, m_root.filePath(QStringLiteral("chain")), 50);
    expectNothingLoadsFrom("chain of 51", [&](const QString &path) {
        SpecialFile::makeLink(m_root.filePath(QStringLiteral("chain")), path);
    });
    expectNothingLoadsFrom("itself", [](const QString &path) { SpecialFile::makeLink(path, path); });
}

TEST_F(HostileInput, FilesThatMayNotBeReadLoadNothing)
{
    for (const QString &path : {cataloguePath(), baselinePath()}) {
        writeFile(path, "{\"enableConfig\":[{\"itemId\":1}]}");
        EXPECT_TRUE(QFile::setPermissions(path, QFile::Permissions()));
    }
    const ChildOutcome outcome = runInChild([&] {
        dropRights();
        EXPECT_FALSE(QFile(baselinePath()).open(QIODevice::ReadOnly));
        expectNothingLoads();
    });
    EXPECT_TRUE(outcome.passed);
}

TEST_F(HostileInput, FilesThatChangeWhileTheyAreReadLoadWholeOrNotAtAll)
{
    const QByteArray json = '[' + filled("{\"funcType\":\"Func_HostInfo\",\"funcTitle\":\"a\"}", 20000) + ']';
    loadCatalogue(json);
    const int whole = catalogue.getFuncInfos().size();
    std::atomic<bool> stop{false};
    std::thread writer([&] {
        const QString other = m_root.filePath(QStringLiteral("etc/other"));
        const QByteArray from = QFile::encodeName(other);
        const QByteArray to = QFile::encodeName(cataloguePath());
        for (int turn = 0; !stop; ++turn) {
            switch (turn % 4) {
            case 0: // in place, seen in pieces
                writeFile(cataloguePath(), json.toBase64());
                break;
            case 1:
                QFile::remove(cataloguePath());
                break;
            case 2:
                writeFile(other, json.toBase64());
                EXPECT_EQ(std::rename(from.constData(), to.constData()), 0);
                break;
            case 3: // a pipe where the file was a moment ago: to open it would be to wait
                EXPECT_TRUE(SpecialFile::makePipe(other));
                EXPECT_EQ(std::rename(from.constData(), to.constData()), 0);
                QFile::remove(cataloguePath());
                break;
            }
        }
    });
    int held = whole;
    int loads = 0;
    for (const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(proofSize(1, 3));
         std::chrono::steady_clock::now() < end && held < 500 * whole;) {
        catalogue.loadConfig();
        const int now = catalogue.getFuncInfos().size();
        EXPECT_TRUE(now == held || now == held + whole) << held << " and then " << now;
        loads += now > held;
        held = now;
    }
    stop = true;
    writer.join();
    EXPECT_GT(loads, 0);
}

TEST_F(HostileInput, TypeKeysEndAtNul)
{
    // They are looked up as the C strings that the meta-object has; titles keep theirs.
    loadCatalogue(R"([{"funcType":"Func_HostInfo\u0000x","funcTitle":"a\u0000b"},{"funcType":"\u0000Func_HostInfo"}])");
    const auto funcs = catalogue.getFuncInfos();
    ASSERT_EQ(funcs.size(), 2);
    EXPECT_EQ(funcs[0].funcType, CTavFuncTypeHeader::Func_HostInfo);
    EXPECT_EQ(funcs[0].funcTitle, QString::fromUtf8("a\0b", 3));
    EXPECT_EQ(funcs[1].funcType, static_cast<FuncType>(-1));
}

TEST_F(HostileInput, TextsOfTenMegabytesAreHeldWhole)
{
    const QByteArray longText(10 * 1000 * 1000, 'x');
    for (const char *const key : {"funcTitle", "funcIcon", "usrList", "funcType", "unknown"}) {
        loadCatalogue("[{\"funcType\":\"Func_HostInfo\",\"" + QByteArray(key) + "\":\"" + longText + "\"}]");
    }
    const auto funcs = catalogue.getFuncInfos();
    ASSERT_EQ(funcs.size(), 5);
    EXPECT_EQ(funcs[0].funcTitle.size(), longText.size());
    EXPECT_EQ(funcs[1].funcIcon.size(), longText.size());
    EXPECT_EQ(funcs[2].usrList.size(), longText.size());

    for (const char *const key :
         {"subFuncTitile", "subFuncClassName", "subFuncHelp", "subFuncType", "realParentType", "disable"}) {
        loadCatalogue("[{\"funcType\":\"Func_HostInfo\",\"subFunList\":[{\"subFuncHasParent\":false,\""
                      + QByteArray(key) + "\":\"" + longText + "\"}]}]");
    }
    const auto pages = catalogue.getSubFuncInfo();
    ASSERT_EQ(pages.size(), 6);
    EXPECT_EQ(pages[0].subFuncTitle.size(), longText.size());
    EXPECT_EQ(pages[1].subFuncClassName.size(), longText.size());
    EXPECT_EQ(pages[2].subFuncHelp.size(), longText.size());
    EXPECT_EQ(pages[3].subFuncType, static_cast<SubFuncType>(-1));
    EXPECT_EQ(pages[4].realParentType, static_cast<SubFuncType>(-1));

    for (const char *const key : {"name", "standardValue", "desc", "checkValueScript", "btntext", "unknown"}) {
        loadBaseline("{\"enableConfig\":[{\"itemId\":1,\"type\":3,\"" + QByteArray(key) + "\":\"" + longText + "\"}]}");
        const STBLEnableConfig item = baseline.getItemConfig(1);
        const int prefix = int(qstrlen("/opt/tavsec/script/baselineScript"));
        const int held = item.name.size() + item.standardValue.size() + item.desc.size() + item.btntext.size()
            + item.checkValueScript.size() - prefix;
        EXPECT_EQ(held, qstrcmp(key, "unknown") == 0 ? 0 : longText.size()) << key;
    }
}

TEST_F(HostileInput, NumbersBeyondTheirRangeReadAsZero)
{
    struct {
        const char *number;
        int read;
    } const rows[] = {
        {"-0", 0},
        {"0.5", 0},
        {"1e9", 1000000000},
        {"1e10", 0},
        {"2147483647", INT_MAX},
        {"2147483648", 0},
        {"-2147483648", INT_MIN},
        {"-2147483649", 0},
        {"9223372036854775807", 0},
        {"9223372036854775808", 0},
        {"-9223372036854775809", 0},
        {"1e308", 0},
        {"5e-324", 0},
        {"\"7\"", 0},
        {"true", 0},
        {"null", 0},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.number);
        TavPluginHost host{TAV_PLUGIN_FILE};
        auto &fresh = *host.manager<ITavLineScanMgr>();
        writeFile(baselinePath(),
                  "{\"enableConfig\":[{\"type\":" + QByteArray(row.number) + "},{\"itemId\":" + row.number
                      + ",\"name\":\"a\"}]}");
        EXPECT_TRUE(fresh.loadJsonConfig());
        EXPECT_EQ(fresh.getItemConfig(row.read).name, QStringLiteral("a"));
        EXPECT_EQ(fresh.getItemConfig(row.read).itemId, row.read);
        if (row.read != 0) { // otherwise the second item took the place of the first
            EXPECT_EQ(fresh.getItemConfig(0).type, row.read);
        }
    }
}

TEST_F(HostileInput, NumbersThatAreNoneSpoilTheirFile)
{
    for (const char *const number : {"1e309", "-1e309", "01", "+1", "0x1", "NaN", "Infinity", "1e", "--1"}) {
        SCOPED_TRACE(number);
        loadBaseline("{\"enableConfig\":[{\"itemId\":1},{\"itemId\":" + QByteArray(number) + "}]}");
        expectNothingLoads();
    }
}

TEST_F(HostileInput, BytesThatAreNoTextDoNoHarm)
{
    for (const QByteArray &json : {
             QByteArray("{\"enableConfig\":[{\"itemId\":1,\"name\":\"\xff\xfe\xc0\x80\"}]}"),
             QByteArray("\xff\xfe{\0}\0", 6),
             QByteArray("{\"enableConfig\":\0[{\"itemId\":1}]}", 33),
             QByteArray(100000, '\0'),
             QByteArray(100000, '\xff'),
         }) {
        loadCatalogue(json);
        loadBaseline(json);
        expectNothingLoads();
    }
}
