#include "NewPageCommand.h"

#include "ITavFuncTypeMgr.h"
#include "NavigationTree.h"
#include "PageValues.h"
#include "PluginView.h"
#include "Presentation.h"
#include "TavCall.h"
#include "TavObjectMgr.h"
#include "WholeFile.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSysInfo>

namespace
{
/// What stands between two @ in the templates, and what is written in its place.
using Words = QHash<QString, QString>;

QByteArray resource(const QString &name)
{
    QFile file(":/newpage/" + name);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

/// The last line of the recorded minute that calls this setter; empty when none does.
QByteArray recordedCall(const QString &manager, const QString &setter)
{
    QByteArray found;
    const QList<QByteArray> lines = resource("day.jsonl").split('\n');
    for (const QByteArray &line : lines) {
        const QJsonObject call = QJsonDocument::fromJson(line).object();
        if (call["manager"] == manager && call["operation"] == setter) {
            found = line;
        }
    }
    return found;
}

QString setterOf(const QString &manager, const QString &getter)
{
    const QVector<TavCall::HeldValue> &values = TavCall::heldValues();
    const auto found = std::find_if(values.begin(), values.end(), [&](const TavCall::HeldValue &value) {
        return value.manager == manager && value.getter == getter;
    });
    return found == values.end() ? QString() : found->setter;
}

QString typeOf(const QString &manager, const QString &getter)
{
    const QVector<TavCall::Operation> operations = TavCall::operationsOf(manager);
    const auto found = std::find_if(operations.begin(), operations.end(), [&](const TavCall::Operation &operation) {
        return operation.name == getter && operation.arguments.isEmpty();
    });
    return found == operations.end() ? QString() : found->result;
}

/// The words for a value that a backend answers with as a whole, a message or records of plain bytes, and of which the
/// recorded minute has a call; none for another.
Words wordsOf(const PageValue &value)
{
    const QString setter = setterOf(value.manager, value.getter);
    const QString type = typeOf(value.manager, value.getter);
    static const QRegularExpression records("^QVector<(ST\\w+Asr)>$");
    const QString record = records.match(type).captured(1);
    if ((!type.startsWith("Tav::") && record.isEmpty()) || recordedCall(value.manager, setter).isEmpty()) {
        return {};
    }
    return {
        {"Manager", value.manager},
        {"getter", value.getter},
        {"setter", setter},
        {"Type", type},
        {"answer", record.isEmpty() ? "a serialised " + type : "records " + record + " one behind the other"},
        {"parse", record.isEmpty() ? "tavMessage<" + type + '>' : "tavRecords<" + record + '>'},
    };
}

/// The words for the value that the page is to show.
Words wordsFor(const TavSubFuncTypeData_ &page, const NewPageOptions &options)
{
    QStringList managers;
    for (const PageValue &value : valuesOf(page.subFuncType)) {
        Words words = wordsOf(value);
        if (words.isEmpty()) {
            continue;
        }
        if (options.manager.isEmpty() || options.manager == value.manager) {
            return words;
        }
        managers.append(value.manager);
    }
    managers.removeDuplicates();
    throw ToolError(ExitCode::Usage,
                    managers.isEmpty()
                        ? options.page + ": no manager holds an answer for this page, so there is nothing to begin with"
                        : QString("--manager: the page %1 shows nothing of \"%2\"; it shows what these hold: %3")
                              .arg(options.page, options.manager, managers.join(", ")));
}

TavSubFuncTypeData_ pageOf(const NewPageOptions &options)
{
    auto &catalogue = *tavObject<ITavFuncTypeMgr>();
    catalogue.loadConfig();
    QStringList keys;
    const QVector<TavSubFuncTypeData_> pages = catalogue.getSubFuncInfo();
    for (const TavSubFuncTypeData_ &page : pages) {
        if (pageKey(page.subFuncType) == options.page && !page.subFuncClassName.isEmpty()) {
            return page;
        }
        keys.append(pageKey(page.subFuncType));
    }
    const QString where = InstallationPaths::catalogue() + " in " + options.root;
    throw ToolError(ExitCode::Usage,
                    keys.isEmpty() ? QString("%1 holds no page that could name its controller; name an installation "
                                             "with --root, such as /usr/share/tavsec/demo")
                                         .arg(where)
                                   : QString("--page: %1 has no page \"%2\" with a controller; it has %3")
                                         .arg(where, options.page, keys.join(", ")));
}

/// The template with its words put in.
QByteArray filled(const QByteArray &text, const Words &words)
{
    QString result = QString::fromUtf8(text);
    for (auto word = words.begin(); word != words.end(); ++word) {
        result.replace('@' + word.key() + '@', word.value());
    }
    return result.toUtf8();
}

QByteArray scenario(const Words &words)
{
    QJsonObject call = QJsonDocument::fromJson(recordedCall(words["Manager"], words["setter"])).object();
    call.remove("at");
    call.remove("thread");
    const auto line
        = [](const QJsonObject &object) { return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n'; };
    return line({{"tavScenario", 1}, {"title", "an answer for the page " + words["Name"]}}) + line(call)
        + line({{"at", 0.1}, {"page", words["page"]}});
}
}

ExitCode writeNewPage(const NewPageOptions &options)
{
    static const QRegularExpression className("^[A-Z][A-Za-z0-9]*$");
    if (!className.match(options.name).hasMatch()) {
        throw ToolError(ExitCode::Usage,
                        QString("\"%1\" is no beginning of class names; write letters and digits, a capital first, "
                                "such as DiskUsage")
                            .arg(options.name));
    }
    if (QFileInfo::exists(options.name)) {
        throw ToolError(ExitCode::Usage, options.name + " is already there; choose another name, or move it away");
    }

    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.root);
    const TavPluginHost host = loadPlugin(options.plugin);
    const TavSubFuncTypeData_ page = pageOf(options);
    Words words = wordsFor(page, options);
    static const QRegularExpression innerCapital("(?<=[a-z0-9])(?=[A-Z])");
    words.insert("Name", options.name);
    words.insert("page", options.page);
    words.insert("controller", page.subFuncClassName);
    words.insert("package", "tav-page-" + QString(options.name).replace(innerCapital, "-").toLower());
    words.insert("contact",
                 QString("%1 <%1@%2>").arg(qEnvironmentVariable("USER", "root"), QSysInfo::machineHostName()));

    const QHash<QString, QString> files{
        {"CMakeLists.txt", "CMakeLists.txt.in"},
        {".clang-tidy", "clang-tidy.in"},
        {".gitignore", "gitignore.in"},
        {options.name + "Controller.cpp", "Controller.cpp.in"},
        {options.name + "Controller.h", "Controller.h.in"},
        {options.name + "Page.cpp", "Page.cpp.in"},
        {options.name + "Page.h", "Page.h.in"},
        {options.name + "Plugin.cpp", "Plugin.cpp.in"},
        {options.name + "Test.cpp", "Test.cpp.in"},
    };
    if (!QDir().mkdir(options.name)) {
        throw ToolError(ExitCode::Usage, options.name + ": this directory cannot be made here");
    }
    for (auto file = files.begin(); file != files.end(); ++file) {
        WholeFile::write(options.name + '/' + file.key(), filled(resource(file.value()), words));
    }
    WholeFile::write(options.name + '/' + options.name + ".jsonl", scenario(words));
    printLine(QString("%1/ is a page plugin for %2 (\"%3\"): it registers %4 and shows what %5::%6 returns. Next:\n")
                  .arg(options.name, options.page, page.subFuncTitle, page.subFuncClassName, words["Manager"],
                       words["getter"]));
    printLine(QString("    cd %1\n"
                      "    cmake -S . -B build && cmake --build build && ctest --test-dir build --output-on-failure\n"
                      "    tavdesk --root %2 --page build/lib%1Plugin.so")
                  .arg(options.name, QDir(options.root).absolutePath()));
    return ExitCode::Success;
}
