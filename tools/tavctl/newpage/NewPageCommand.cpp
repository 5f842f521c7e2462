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
#include <QJsonArray>
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

/// The last line of the recorded minute that sets @p held to something else than @p initial; empty when none does.
QByteArray recordedCall(const TavCall::HeldValue &held, const QJsonValue &initial)
{
    QByteArray found;
    const QList<QByteArray> lines = resource("day.jsonl").split('\n');
    for (const QByteArray &line : lines) {
        const QJsonObject call = QJsonDocument::fromJson(line).object();
        if (call["manager"] == held.manager && call["operation"] == held.setter && call["arguments"][0] != initial) {
            found = line;
        }
    }
    return found;
}

QString typeOf(const TavCall::HeldValue &held)
{
    const QVector<TavCall::Operation> operations = TavCall::operationsOf(held.manager);
    const auto found = std::find_if(operations.begin(), operations.end(), [&](const TavCall::Operation &operation) {
        return operation.name == held.getter && operation.arguments.isEmpty();
    });
    return found == operations.end() ? QString() : found->result;
}

/// How the controller gets at a value of this type from a backend's answer; none for rows, which come in no answer.
Words answerWords(const QString &type)
{
    static const QRegularExpression record("^ST\\w+Asr$");
    static const QRegularExpression records("^QVector<(ST\\w+Asr)>$");
    if (type.startsWith("Tav::")) {
        return {{"answer", "a serialised " + type}, {"parse", "tavMessage<" + type + '>'}};
    }
    if (record.match(type).hasMatch()) {
        return {{"answer", "one record " + type}, {"parse", "tavRecord<" + type + '>'}};
    }
    if (const QRegularExpressionMatch list = records.match(type); list.hasMatch()) {
        const QString name = list.captured(1);
        return {{"answer", "records " + name + " one behind the other"}, {"parse", "tavRecords<" + name + '>'}};
    }
    return {};
}

/// The words for a value that is held as a whole, and that the recorded minute changes; none for another.
Words wordsOf(const PageValue &value)
{
    const QVector<TavCall::HeldValue> &values = TavCall::heldValues();
    const auto held = std::find_if(values.begin(), values.end(), [&](const TavCall::HeldValue &candidate) {
        return candidate.manager == value.manager && candidate.getter == value.getter;
    });
    auto *const manager = tavObject<QObject>(qUtf8Printable(value.manager));
    if (held == values.end() || !manager) {
        return {};
    }
    const QJsonValue initial = TavCall::call(manager, value.manager, value.getter, QJsonArray());
    const QByteArray recorded = recordedCall(*held, initial);
    if (recorded.isEmpty()) {
        return {};
    }
    const QString type = typeOf(*held);
    Words words = answerWords(type);
    words.insert("rows", words.isEmpty() ? "rows" : QString());
    words.insert("anyThread", words.contains("answer") ? "receiveAnswer" : "setValue");
    words.insert("Manager", value.manager);
    words.insert("getter", value.getter);
    words.insert("setter", held->setter);
    words.insert("Type", type);
    words.insert("indeterminate", held->isIndeterminateAtFirst ? "at first" : QString());
    words.insert("call", QString::fromUtf8(recorded));
    return words;
}

/// The words for the value that the page is to show: the first that a backend answers with, else the first of rows.
Words wordsFor(const TavSubFuncTypeData_ &page, const NewPageOptions &options)
{
    Words rows;
    QStringList managers;
    for (const PageValue &value : valuesOf(page.subFuncType)) {
        Words words = wordsOf(value);
        if (words.isEmpty()) {
            continue;
        }
        managers.append(value.manager);
        if (!options.manager.isEmpty() && options.manager != value.manager) {
            continue;
        }
        if (words.contains("answer")) {
            return words;
        }
        if (rows.isEmpty()) {
            rows = words;
        }
    }
    if (!rows.isEmpty()) {
        return rows;
    }
    managers.removeDuplicates();
    throw ToolError(ExitCode::Usage,
                    managers.isEmpty()
                        ? options.page + ": no manager holds anything for this page, so there is nothing to begin with"
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

/// The other pages that show something of this manager.
QStringList pagesBeside(const TavSubFuncTypeData_ &page, const QString &manager)
{
    QStringList keys;
    const QVector<TavSubFuncTypeData_> pages = tavObject<ITavFuncTypeMgr>()->getSubFuncInfo();
    for (const TavSubFuncTypeData_ &other : pages) {
        const QVector<PageValue> &values = valuesOf(other.subFuncType);
        if (other.subFuncType != page.subFuncType
            && std::any_of(values.begin(), values.end(),
                           [&](const PageValue &value) { return value.manager == manager; })) {
            keys.append(pageKey(other.subFuncType));
        }
    }
    keys.removeDuplicates();
    return keys;
}

/// The template with its words put in. The lines between "@if WORD@" and "@end@" stay where there is such a word.
QByteArray filled(const QByteArray &text, const Words &words)
{
    static const QRegularExpression condition("@if (\\w+)@\n(.*?)@end@\n",
                                              QRegularExpression::DotMatchesEverythingOption);
    QString result = QString::fromUtf8(text);
    for (auto block = condition.match(result); block.hasMatch(); block = condition.match(result)) {
        const QString lines = words.value(block.captured(1)).isEmpty() ? QString() : block.captured(2);
        result.replace(block.capturedStart(), block.capturedLength(), lines);
    }
    for (auto word = words.begin(); word != words.end(); ++word) {
        result.replace('@' + word.key() + '@', word.value());
    }
    return result.toUtf8();
}

QByteArray scenario(const Words &words)
{
    QJsonObject call = QJsonDocument::fromJson(words["call"].toUtf8()).object();
    call.remove("at");
    call.remove("thread");
    const auto line
        = [](const QJsonObject &object) { return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n'; };
    return line({{"tavScenario", 1}, {"title", "something to show for the page " + words["Name"]}}) + line(call)
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
    determineHeldValues();
    const TavSubFuncTypeData_ page = pageOf(options);
    Words words = wordsFor(page, options);
    static const QRegularExpression innerCapital("(?<=[a-z0-9])(?=[A-Z])");
    words.insert("Name", options.name);
    words.insert("page", options.page);
    words.insert("controller", page.subFuncClassName);
    words.insert("root", QDir(options.root).absolutePath());
    words.insert("package", "tav-page-" + QString(options.name).replace(innerCapital, "-").toLower());
    words.insert("contact",
                 QString("%1 <%1@%2>").arg(qEnvironmentVariable("USER", "root"), QSysInfo::machineHostName()));

    const QHash<QString, QString> files{
        {"CMakeLists.txt", "CMakeLists.txt.in"},
        {".clang-tidy", "clang-tidy.in"},
        {".gitignore", "gitignore.in"},
        {"aarch64-linux-gnu.cmake", "aarch64-linux-gnu.cmake"},
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
    const QStringList sharing = pagesBeside(page, words["Manager"]);
    if (!sharing.isEmpty()) {
        printLine(
            QString("\nThe model of %1 is also that of %2: their controllers belong in this plugin, with one lock.")
                .arg(options.page, sharing.join(", ")));
    }
    return ExitCode::Success;
}
