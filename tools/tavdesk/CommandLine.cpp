#include "CommandLine.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>

namespace
{
/// Absolute, as it is shown.
QString pathOf(const std::string &name)
{
    return QFileInfo(QString::fromStdString(name)).absoluteFilePath();
}
}

std::optional<int> readCommandLine(int argc, char **argv, DeskOptions &options)
{
    CLI::App app("The window of the development client: shows a data plugin and its pages at work.", "tavdesk");
    app.set_version_flag("--version", "tavdesk " TAV_VERSION);
    const auto path = [&app](const char *name, QString &value, const char *description) {
        return app.add_option_function<std::string>(
            name, [&value](const std::string &given) { value = pathOf(given); }, description);
    };
    path("--root", options.root, "directory to take for \"/\" when configuration is read")
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory);
    path("--plugin", options.plugin, "load this data plugin; without it, the one beside tavdesk")->type_name("FILE");
    path("--play", options.play, "a scenario to play at once")->type_name("FILE")->check(CLI::ExistingFile);
    app.add_option_function<std::vector<std::string>>(
           "--page",
           [&options](const std::vector<std::string> &names) {
               for (const std::string &name : names) {
                   options.pages.append(pathOf(name));
               }
           },
           "page plugins, or folders of them")
        ->type_name("PLUGIN");
    path("--pictures", options.pictures, "save a picture of each page, each dock and the window there, and end")
        ->type_name("DIR");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? 0 : usageError;
    }
    return std::nullopt;
}
