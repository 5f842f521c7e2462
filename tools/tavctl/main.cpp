#include "CheckCommandLine.h"
#include "OperationsCommand.h"
#include "PluginView.h"
#include "RunCommand.h"
#include "TavNearestText.h"
#include "TextTable.h"
#include "ToolError.h"

#include <QCoreApplication>

#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace
{
/// The options of a subcommand that loads the plugin.
struct PluginArguments {
    std::string pluginFile;
    std::string systemRoot = "/";
    std::string page;
    bool json = false;

    RunOptions options() const
    {
        return {QString::fromStdString(pluginFile), QString::fromStdString(systemRoot), QString::fromStdString(page),
                json};
    }
};

void addPluginOptions(CLI::App &command, PluginArguments &arguments)
{
    addPluginOption(command, arguments.pluginFile);
    command.add_flag("--json", arguments.json, "print one JSON document, for scripts");
}

void addRoot(CLI::App &command, PluginArguments &arguments)
{
    command.add_option("--root", arguments.systemRoot, "directory to take for \"/\" when configuration is read")
        ->capture_default_str()
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory);
}

/// The error of a word that stands where a command is expected and is none; empty when there is no such word.
std::string unknownCommand(const CLI::App &app, const QStringList &words)
{
    const CLI::App *at = &app;
    for (const QString &word : words) {
        QStringList names;
        for (const CLI::App *const command : at->get_subcommands([](const CLI::App *) { return true; })) {
            names.append(QString::fromStdString(command->get_name()));
        }
        if (names.isEmpty()) {
            break; // what follows are arguments
        }
        if (names.contains(word)) {
            at = at->get_subcommand(word.toStdString());
        } else if (!word.startsWith('-')) {
            const QString nearest = nearestText(word, names);
            return QString("there is no command \"%1\" (%2)")
                .arg(word, nearest.isEmpty() ? "there are: " + names.join(", ") : "nearest: " + nearest)
                .toStdString();
        }
    }
    return {};
}

/// Ends the program's output: what a full disk or a closed pipe has swallowed is no success.
ExitCode flushed(ExitCode code)
{
    std::cout.flush();
    if (std::cout) {
        return code;
    }
    std::cerr << "tavctl: standard output: cannot be written\n";
    return ExitCode::Usage;
}

/// Keeps files that are opened later out of the places of standard streams that were closed; reading from what stands
/// there then, and writing to it, fails as it does on a closed stream.
void occupyClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0) {
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY); // takes the lowest free place: this one
        }
    }
}

Action succeeding(const std::function<void()> &run)
{
    return [run] {
        run();
        return ExitCode::Success;
    };
}

/// The operands of "operations" and "call".
struct CallArguments {
    std::string manager;
    std::string operation;
};

void addOperationCommands(CLI::App &app, PluginArguments &plugin, CallArguments &arguments, Action &action)
{
    CLI::App &operations = *app.add_subcommand("operations", "list the managers' operations");
    operations.add_option("MANAGER", arguments.manager, "those of this manager alone, such as ITavAuditMgr");
    operations.callback(
        [&] { action = succeeding([&] { showOperations(QString::fromStdString(arguments.manager)); }); });

    CLI::App &call = *app.add_subcommand("call", "load the plugin, call an operation and print its result as JSON");
    call.add_option("MANAGER", arguments.manager, "the manager's interface, such as ITavAuditMgr")->required();
    call.add_option("OPERATION", arguments.operation, "the operation's name")->required();
    // Taken from what remains: a list among the operands would be split at the commas of a value in brackets.
    call.allow_extras();
    call.footer("JSON...: the arguments behind OPERATION, each a JSON value; or one object of them by name");
    addPluginOption(call, plugin.pluginFile);
    addRoot(call, plugin);
    call.callback([&plugin, &arguments, &action, &call] {
        action = succeeding([&plugin, &arguments, &call] {
            CallOptions options{QString::fromStdString(plugin.pluginFile),
                                QString::fromStdString(plugin.systemRoot),
                                QString::fromStdString(arguments.manager),
                                QString::fromStdString(arguments.operation),
                                {}};
            for (const std::string &value : call.remaining()) {
                options.arguments.append(QByteArray::fromStdString(value));
            }
            callOperation(options);
        });
    });
}
}

// What escapes is a lack of memory, which nothing here could report.
int main(int argc, char **argv) // NOLINT(bugprone-exception-escape)
{
    occupyClosedStreams();
    QCoreApplication application(argc, argv);
    CLI::App app("Stands in for the desktop client: loads its data plugin and shows what it holds.", "tavctl");
    app.require_subcommand(1);
    app.set_version_flag("--version", "tavctl " TAV_VERSION);
    app.failure_message([&app](const CLI::App *, const CLI::Error &error) {
        const std::string wrongWord = unknownCommand(app, QCoreApplication::arguments().mid(1));
        return "tavctl: " + (wrongWord.empty() ? error.what() : wrongWord)
            + "; \"tavctl --help\" tells what there is\n";
    });

    PluginArguments arguments;
    arguments.pluginFile = defaultPluginFile().toStdString();
    Action action;

    CLI::App &runCommand
        = *app.add_subcommand("run", "load the plugin, show the navigation and walk through every page");
    addPluginOptions(runCommand, arguments);
    addRoot(runCommand, arguments);
    runCommand.add_option("--page", arguments.page, "show this page alone, in full, such as SubFunc_LogAudit")
        ->type_name("KEY");
    runCommand.callback([&] { action = succeeding([&] { run(arguments.options()); }); });

    CLI::App &registryCommand = *app.add_subcommand("registry", "load the plugin and show what it registered");
    addPluginOptions(registryCommand, arguments);
    registryCommand.callback([&] { action = succeeding([&] { showRegistry(arguments.options()); }); });

    CallArguments callArguments;
    addOperationCommands(app, arguments, callArguments, action);

    CheckArguments checkArguments;
    checkArguments.pluginFile = arguments.pluginFile;
    addCheckCommands(app, checkArguments, action);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return static_cast<int>(flushed(app.exit(error) == 0 ? ExitCode::Success : ExitCode::Usage));
    }
    try {
        return static_cast<int>(flushed(action()));
    } catch (const ToolError &error) {
        std::cerr << "tavctl: " << printable(QString::fromUtf8(error.what())).toStdString() << '\n';
        return static_cast<int>(error.code());
    }
}
