#include "OperationsCommand.h"

#include "PlayCommand.h"
#include "PluginView.h"
#include "Presentation.h"
#include "TavCall.h"
#include "TavSetValue.h"
#include "TextTable.h"
#include "ValueText.h"

#include <QJsonArray>

#include <algorithm>
#include <atomic>

namespace
{
void printOperations(const QString &manager)
{
    printLine(manager);
    constexpr int widest = 200; // nothing is cut
    TextTable table({{"operation", TextTable::Left, widest}, {"result", TextTable::Left, widest}});
    const QVector<TavCall::Operation> operations = TavCall::operationsOf(manager);
    for (const TavCall::Operation &operation : operations) {
        table.addRow({operation.signature(), operation.result});
    }
    table.print(2);
}

/// The JSON value that stands on the command line as argument @p number.
QJsonValue valueOf(const QByteArray &argument, int number)
{
    if (argument.startsWith("--")) {
        throw ToolError(ExitCode::Usage, QString("call: there is no option \"%1\"").arg(QString::fromUtf8(argument)));
    }
    try {
        return ValueText::read(argument);
    } catch (const std::runtime_error &error) {
        throw ToolError(ExitCode::Usage, QString("argument %1: %2").arg(number).arg(error.what()));
    }
}

/// The arguments as an array by position; as an object by name when there is only that and no operation of this name
/// takes a single object.
QJsonValue argumentsOf(const CallOptions &options)
{
    QJsonArray values;
    for (const QByteArray &argument : options.arguments) {
        values.append(valueOf(argument, values.size() + 1));
    }
    const QVector<TavCall::Operation> operations = TavCall::operationsOf(options.manager);
    const bool takesObject
        = std::any_of(operations.begin(), operations.end(), [&](const TavCall::Operation &operation) {
              return operation.name == options.operation && operation.arguments.size() == 1
                  && operation.arguments.first().isObject;
          });
    const bool isByName = values.size() == 1 && values.first().isObject() && !takesObject;
    return isByName ? values.first() : QJsonValue(values);
}

/// Whether the operation returns whatever the memory holds until its setter has been called.
bool isIndeterminateAtFirst(const CallOptions &options)
{
    const QVector<TavCall::Operation> operations = TavCall::operationsOf(options.manager);
    return std::any_of(operations.begin(), operations.end(), [&](const TavCall::Operation &operation) {
        return operation.name == options.operation && operation.isIndeterminateAtFirst;
    });
}

/// @brief What has come of the scenario that is played before the call.
struct Before {
    bool isPlayed = true; ///< false when something in it is wrong, which has been printed
    bool hasSetValue = false; ///< it has set what the call returns
};

Before playBefore(const CallOptions &options, TavPluginHost &host)
{
    Before before;
    if (options.after.isEmpty()) {
        return before;
    }
    std::atomic<bool> hasSetValue = false;
    TavPlayOptions play;
    play.speed = TavPlayOptions::fastest;
    play.observer = [&options, &hasSetValue](const TavPlayedCall &call) {
        const TavScenario::Line &line = call.line;
        if (line.manager == options.manager
            && TavCall::setValueOf(line.manager, line.operation, line.arguments).getter == options.operation) {
            hasSetValue = true;
        }
    };
    const TavPlayReport report = playFile(host, options.after, play);
    return {isWhole(options.after, report), hasSetValue};
}
}

ExitCode showOperations(const OperationsOptions &options)
{
    try {
        const QStringList managers = options.manager.isEmpty() ? TavCall::managers() : QStringList{options.manager};
        for (const QString &name : managers) {
            printOperations(name);
        }
        return ExitCode::Success;
    } catch (const TavCallError &error) {
        throw ToolError(ExitCode::Usage, error.what());
    }
}

ExitCode callOperation(const CallOptions &options)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(options.root);
    try {
        const TavCall::Call call = TavCall::prepared(options.manager, options.operation, argumentsOf(options));
        TavPluginHost host = loadPlugin(options.plugin);
        const Before before = playBefore(options, host);
        if (!before.isPlayed) {
            return ExitCode::Findings;
        }
        if (isIndeterminateAtFirst(options) && !before.hasSetValue) {
            throw TavCallError({},
                               "returns whatever the memory holds until its setter has been called, and the plugin "
                               "is loaded afresh");
        }
        printLine(QString::fromUtf8(ValueText::write(call(host.managerObject(options.manager.toUtf8().constData())))));
        return ExitCode::Success;
    } catch (const TavCallError &error) {
        throw ToolError(ExitCode::Usage, options.manager + ' ' + options.operation + ": " + error.what());
    }
}
