#include "CheckCommandLine.h"
#include "PluginClient.h"
#include "RunCommand.h"
#include "TextTable.h"
#include "ToolError.h"

#include <QCoreApplication>

#include <iostream>

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
    command.add_option("--plugin", arguments.pluginFile, "the plugin's file")->capture_default_str()->type_name("FILE");
    command.add_flag("--json", arguments.json, "print one JSON document, for scripts");
}

void addRoot(CLI::App &command, PluginArguments &arguments)
{
    command.add_option("--root", arguments.systemRoot, "directory to take for \"/\" when configuration is read")
        ->capture_default_str()
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory);
}

Action succeeding(const std::function<void()> &run)
{
    return [run] {
        run();
        return ExitCode::Success;
    };
}
}

// What escapes is a lack of memory, which nothing here could report.
int main(int argc, char **argv) // NOLINT(bugprone-exception-escape)
{
    QCoreApplication application(argc, argv);
    CLI::App app("Stands in for the desktop client: loads its data plugin and shows what it holds.", "tavctl");
    app.require_subcommand(1);
    app.failure_message([](const CLI::App *, const CLI::Error &error) {
        return std::string("tavctl: ") + error.what() + "; \"tavctl --help\" tells what there is\n";
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

    CheckArguments checkArguments;
    checkArguments.pluginFile = arguments.pluginFile;
    addCheckCommands(app, checkArguments, action);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? 0 : static_cast<int>(ExitCode::Usage);
    }
    try {
        return static_cast<int>(action());
    } catch (const ToolError &error) {
        std::cerr << "tavctl: " << printable(QString::fromUtf8(error.what())).toStdString() << '\n';
        return static_cast<int>(error.code());
    }
}
