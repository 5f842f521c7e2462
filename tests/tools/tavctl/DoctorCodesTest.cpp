#include "BrokenPlugins.h"
#include "FindingLines.h"
#include "PrintQString.h"
#include "RootMistakes.h"

#include <QSet>

#include <gtest/gtest.h>

#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
Tavctl doctor(const QString &root, const QStringList &more = {})
{
    return Tavctl(QStringList{"doctor", "--root", root, "--json"} + more);
}

/// A mistake in the catalogue alone, which holds this text.
std::function<Tavctl(const QString &)> catalogue(const QByteArray &text)
{
    return [text](const QString &root) {
        writeFile(root + "/etc/tavsec.d/funcTypeConfig.json", text);
        return doctor(root);
    };
}

std::function<Tavctl(const QString &)> baseline(const QByteArray &text)
{
    return [text](const QString &root) {
        writeFile(root + "/etc/tavsec.d/baselineConfig/baseline.json", text);
        return doctor(root);
    };
}

/// A mistake of the plugin, whose file holds these bytes.
std::function<Tavctl(const QString &)> plugin(const QByteArray &bytes)
{
    return [bytes](const QString &root) {
        writeFile(root + "/opt/tavsec/plugins/libTavDataPlugin.so", bytes);
        return doctor(root);
    };
}

std::function<Tavctl(const QString &)> pluginFile(const QString &file)
{
    return [file](const QString &root) { return doctor(root, {"--plugin", file}); };
}

/// What is wrong when @p directory, of the root, is gone.
std::function<Tavctl(const QString &)> without(const QString &directory)
{
    return [directory](const QString &root) {
        EXPECT_TRUE(QDir(root + directory).removeRecursively());
        return doctor(root);
    };
}

bool isAdministrator()
{
    return geteuid() == 0;
}

/// @brief A mistake that can stand neither beside others in one root nor in a tree that is checked in.
struct Planted {
    QString code;
    std::function<Tavctl(const QString &root)> find; ///< plants it in a copy of the demo and has it found
    bool (*isPossible)() = [] { return true; };
};

const QByteArray list = R"({"enableConfig": [{"itemId": 1, "name": "a", "checkValueScript": "/check.sh"}]})";

const Planted plantedMistakes[] = {
    {"TAV101", catalogue("")},
    {"TAV102", baseline("{")},
    {"TAV103", baseline(QByteArray("\xff\xfe{\0}\0", 6))},
    {"TAV104", catalogue("*")},
    {"TAV106", catalogue(onePage.toBase64().toBase64())},
    {"TAV107", catalogue(onePage)},
    {"TAV108", baseline(list.toBase64())},
    {"TAV109", catalogue("-----BEGIN DATA-----\n" + onePage.toBase64() + "\n-----END DATA-----\n")},
    {"TAV204", catalogue(QByteArray("[]").toBase64())},
    {"TAV213",
     catalogue(QByteArray(R"([{"funcType": "Func_HostInfo", "funcTitle": "a", "funcIcon": "hostIcon"}])").toBase64())},
    {"TAV215",
     [](const QString &root) {
         writeFile(root + "/opt/tavsec/plugins/pages.so", contentOf(TAV_PAGE_PLUGIN_FILE));
         return doctor(root);
     }},
    {"TAV302", baseline(R"({"enableConfig": []})")},
    {"TAV412", without("/opt/tavsec/script")},
    {"TAV504",
     [](const QString &root) {
         EXPECT_EQ(mkfifo((root + "/opt/tavsec/pictures/navigation/pipe.png").toUtf8().constData(), 0600), 0);
         return doctor(root);
     }},
    {"TAV507", without("/opt/tavsec/pictures")},
    {"TAV601", pluginFile("/none")},
    {"TAV602", pluginFile("/tmp")},
    {"TAV603", plugin("no library")},
    {"TAV604", plugin(pluginCutOff())},
    {"TAV605", plugin(pluginForOtherMachine())},
    {"TAV606", plugin(pluginOfOtherWordSize())},
    {"TAV607", pluginFile(TAV_TAVCTL_FILE)},
    {"TAV608", pluginFile(TAV_OTHER_PLUGIN_FILE)},
    {"TAV609", plugin(pluginOfNewerQt())},
    {"TAV610", plugin(pluginWithoutLibraries())},
    {"TAV611", pluginFile(TAV_UNDEFINED_SYMBOL_PLUGIN_FILE)},
    {"TAV612", plugin(pluginOfUnknownSymbolVersion())},
    {"TAV613", pluginFile(TAV_NO_INTERFACE_PLUGIN_FILE)},
    {"TAV614", pluginFile(TAV_NO_MANAGERS_PLUGIN_FILE)},
    {"TAV615", pluginFile(TAV_CRASHING_PLUGIN_FILE)},
    {"TAV616", pluginFile(TAV_HANGING_PLUGIN_FILE)},
    {"TAV617",
     [](const QString &root) {
         writeFile(root + "/bin/sh", pluginForOtherMachine());
         EXPECT_TRUE(QFile::setPermissions(root + "/bin/sh", QFile::Permissions(0x7755)));
         return plugin(pluginForOtherMachine())(root);
     }},
    {"TAV618",
     [](const QString &root) {
         writeFile(root + "/opt/tavsec/plugins/TavDataPlugin.so", contentOf(TAV_PLUGIN_FILE));
         return doctor(root);
     }},
    {"TAV620", without("/etc/tavsec.d/baselineConfig")},
    {"TAV701",
     [](const QString &root) {
         EXPECT_TRUE(QFile::setPermissions(root + "/etc/tavsec.d/funcTypeConfig.json", {}));
         return Tavctl::boundByPermissions({"doctor", "--root", root, "--json"});
     }},
    {"TAV702",
     [](const QString &root) {
         EXPECT_EQ(Program({"chmod", "o+w", root + "/etc/tavsec.d"}).exitCode, 0);
         return doctor(root);
     }},
    {"TAV703",
     [](const QString &root) {
         EXPECT_EQ(Program({"chown", "4711", root + "/etc/tavsec.d"}).exitCode, 0);
         return doctor(root);
     },
     isAdministrator},
    {"TAV704",
     [](const QString &) {
         return Tavctl({"doctor", "--json"}, "/dev/null", withoutProcessFiles);
     },
     [] { return Program(withoutProcessFiles + QStringList{"true"}).exitCode == 0; }},
};

/// The codes of what was found.
QSet<QString> codesIn(const Tavctl &run)
{
    QSet<QString> codes;
    const QJsonArray findings = run.json()["findings"].toArray();
    for (const QJsonValue &finding : findings) {
        codes.insert(finding["code"].toString());
    }
    return codes;
}
}

TEST(DoctorCodes, AreFoundWhereTheyArePlanted)
{
    for (const Planted &mistake : plantedMistakes) {
        const QTemporaryDir root;
        ASSERT_EQ(Program({"cp", "-r", demoRoot + "/.", root.path()}).exitCode, 0);
        ASSERT_EQ(Program({"chmod", "-R", "u+rwX,go-w", root.path()}).exitCode, 0);
        if (mistake.isPossible()) {
            const Tavctl run = mistake.find(root.path());
            EXPECT_TRUE(codesIn(run).contains(mistake.code)) << mistake.code.toStdString() << run.output.toStdString();
        }
    }
}

TEST(DoctorCodes, AreAllInTheBrokenRootOrPlanted)
{
    QStringList expected;
    for (const FindingKind &kind : findingKinds()) {
        if (kind.code < FindingCode::NoScenario) { // doctor looks at no scenarios
            expected.append(kind.name());
        }
    }
    QSet<QString> inRoot;
    for (const Mistake &mistake : rootMistakes) {
        inRoot.insert(mistake.code);
    }
    QStringList tried = inRoot.values();
    for (const Planted &mistake : plantedMistakes) {
        EXPECT_FALSE(inRoot.contains(mistake.code)) << mistake.code.toStdString() << ": stands in the root already";
        tried.append(mistake.code);
    }
    tried.sort();
    EXPECT_EQ(tried, expected);
}
