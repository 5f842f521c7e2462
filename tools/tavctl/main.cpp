#include "PluginClient.h"
#include "RunCommand.h"
#include "ToolError.h"

#include <QCoreApplication>

#include <CLI/CLI.hpp>

#include <iostream>

namespace
{
/// What a subcommand does once the whole command line is read.
using Action = std::function<void()>;

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
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    CLI::App app("Stands in for the desktop client: loads its data plugin and shows what it holds.", "tavctl");
    app.require_subcommand(1);

    PluginArguments arguments;
    arguments.pluginFile = defaultPluginFile().toStdString();
    Action action;

    CLI::App &runCommand
        = *app.add_subcommand("run", "load the plugin, show the navigation and walk through every page");
    addPluginOptions(runCommand, arguments);
    addRoot(runCommand, arguments);
    runCommand.add_option("--page", arguments.page, "show this page alone, in full, such as SubFunc_LogAudit")
        ->type_name("KEY");
    runCommand.callback([&] { action = [&] { run(arguments.options()); }; });

    CLI::App &registryCommand = *app.add_subcommand("registry", "load the plugin and show what it registered");
    addPluginOptions(registryCommand, arguments);
    registryCommand.callback([&] { action = [&] { showRegistry(arguments.options()); }; });

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? 0 : static_cast<int>(ExitCode::Usage);
    }
    try {
        action();
    } catch (const ToolError &error) {
        std::cerr << "tavctl: " << error.what() << '\n';
        return static_cast<int>(error.code());
    }
    return static_cast<int>(ExitCode::Success);
}
