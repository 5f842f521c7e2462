// Loading the two configurations against reading, decoding and parsing their files alone.

#include "Comparison.h"
#include "ITavFuncTypeMgr.h"
#include "ITavLineScanMgr.h"
#include "TavPluginHost.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QTemporaryDir>

#include <memory>

namespace
{
using namespace Comparison;

constexpr double goal = 1.3;

/// A directory that the managers take for "/", with one file in it.
class SystemRoot
{
public:
    SystemRoot(const QString &path, const QByteArray &content) : m_path(m_directory.path() + path)
    {
        QDir().mkpath(QFileInfo(m_path).path());
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("cannot write %s", qPrintable(m_path));
        }
    }

    /// Makes it the managers' root and @p plugin's managers fresh, since they keep what they have loaded.
    void enter(std::unique_ptr<TavPluginHost> &plugin) const
    {
        TavGlobalInfoMgr::getInstance()->setSystemRoot(m_directory.path());
        plugin = std::make_unique<TavPluginHost>(TAV_PLUGIN_FILE);
    }

    QByteArray content() const
    {
        QFile file(m_path);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

private:
    QTemporaryDir m_directory;
    QString m_path;
};

/// A catalogue of functions with four pages each; functions and pages together are @p count.
SystemRoot *makeCatalogue(int count)
{
    QJsonArray functions;
    for (int f = 0; f < count / 5; ++f) {
        QJsonArray pages;
        for (int p = 0; p < 4; ++p) {
            pages.append(QJsonObject{{"subFuncType", "SubFunc_KernelProtect"},
                                     {"subFuncTitile", QStringLiteral("内核文件保护")},
                                     {"subFuncClassName", "ITavKernelProtectController"}});
        }
        functions.append(QJsonObject{{"funcType", "Func_SystemProtect"},
                                     {"funcTitle", QStringLiteral("系统保护")},
                                     {"funcIcon", "systemProtectIcon"},
                                     {"subFunList", pages}});
    }
    return new SystemRoot(TavGlobalInfoMgr::getInstance()->getAppPath().configPath
                              + QStringLiteral("/funcTypeConfig.json"),
                          QJsonDocument(functions).toJson().toBase64());
}

SystemRoot *makeCheckItems(int count)
{
    QJsonArray items;
    for (int i = 0; i < count; ++i) {
        items.append(QJsonObject{{"itemId", i},
                                 {"name", QStringLiteral("密码最小长度")},
                                 {"standardValue", ">= 8"},
                                 {"desc", QStringLiteral("检查系统密码策略中规定的最小长度")},
                                 {"checkValueScript", "/checkPasswordLength.sh"},
                                 {"type", i % 4},
                                 {"btntext", QStringLiteral("设置")}});
    }
    return new SystemRoot(QStringLiteral("/etc/tavsec.d/baselineConfig/baseline.json"),
                          QJsonDocument(QJsonObject{{"enableConfig", items}}).toJson());
}

/// One of the two loads, and its floor.
class Catalogue
{
public:
    static constexpr char name[] = "loadConfig";
    static constexpr char floor[] = "read, decode, parse";

    explicit Catalogue(int count) : m_root(makeCatalogue(count))
    {
    }

    void prepare()
    {
        m_root->enter(m_plugin);
        m_manager = m_plugin->manager<ITavFuncTypeMgr>();
    }

    void load()
    {
        m_manager->loadConfig();
    }

    int loadedCount()
    {
        return m_manager->getFuncInfos().size() + m_manager->getSubFuncInfo().size();
    }

    void parse() const
    {
        benchmark::DoNotOptimize(QJsonDocument::fromJson(QByteArray::fromBase64(m_root->content())));
    }

private:
    std::unique_ptr<SystemRoot> m_root;
    std::unique_ptr<TavPluginHost> m_plugin;
    ITavFuncTypeMgr *m_manager = nullptr;
};

class CheckItems
{
public:
    static constexpr char name[] = "loadJsonConfig";
    static constexpr char floor[] = "read, parse";

    explicit CheckItems(int count) : m_root(makeCheckItems(count)), m_count(count)
    {
    }

    void prepare()
    {
        m_root->enter(m_plugin);
        m_manager = m_plugin->manager<ITavLineScanMgr>();
    }

    void load()
    {
        m_manager->loadJsonConfig();
    }

    int loadedCount()
    {
        return m_manager->getItemConfig(m_count - 1).itemId + 1;
    }

    void parse() const
    {
        benchmark::DoNotOptimize(QJsonDocument::fromJson(m_root->content()));
    }

private:
    std::unique_ptr<SystemRoot> m_root;
    std::unique_ptr<TavPluginHost> m_plugin;
    ITavLineScanMgr *m_manager = nullptr;
    int m_count;
};

template<class Configuration>
std::shared_ptr<Configuration> make(int count)
{
    const auto configuration = std::make_shared<Configuration>(count);
    configuration->prepare();
    configuration->load();
    if (configuration->loadedCount() != count) {
        qFatal("%s has loaded %d of %d entries", Configuration::name, configuration->loadedCount(), count);
    }
    return configuration;
}

template<class Configuration>
Sample loads(const std::shared_ptr<Configuration> &configuration)
{
    return oneCall([=] { configuration->prepare(); }, [=] { configuration->load(); });
}

template<class Configuration>
Sample parses(const std::shared_ptr<Configuration> &configuration)
{
    return oneCall([] {}, [=] { configuration->parse(); });
}

template<class Configuration>
void addLoadRows()
{
    for (const int count : {10, 1000, 100000}) {
        const std::string entries = QLocale(QLocale::English).toString(count).toStdString() + " entries";
        addRow(std::string(Configuration::name) + ", " + entries, count > 1000 ? 5 : 50, [=] {
            const auto configuration = make<Configuration>(count);
            return Row{loads(configuration), {{Configuration::floor, parses(configuration), goal}}};
        });
    }
    addRow(std::string(Configuration::name) + ", growth from 1,000 to 100,000 entries", 5, [=] {
        const auto few = make<Configuration>(1000);
        const auto many = make<Configuration>(100000);
        const auto growth
            = [](const Sample &ofFew, const Sample &ofMany) { return [=] { return ofMany() / ofFew(); }; };
        return Row{growth(loads(few), loads(many)),
                   {{std::string("growth of ") + Configuration::floor, growth(parses(few), parses(many)), goal}},
                   "times"};
    });
}
}

void Comparison::addRows()
{
    addLoadRows<Catalogue>();
    addLoadRows<CheckItems>();
}
