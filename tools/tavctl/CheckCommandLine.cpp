#include "CheckCommandLine.h"

#include "BaselineCommand.h"
#include "CatalogueCommand.h"
#include "DoctorCommand.h"
#include "PicturesCommand.h"

#include <QFileInfo>

#include <limits>

namespace
{
/// Refuses an empty name, which no message could show.
CLI::Validator namedFile()
{
    return {[](const std::string &name) { return std::string(name.empty() ? "the name is empty" : ""); }, ""};
}

CheckOptions optionsFrom(const CheckArguments &arguments)
{
    CheckOptions options;
    options.file = QString::fromStdString(arguments.file);
    options.output = QString::fromStdString(arguments.output);
    for (const std::string &directory : arguments.directories) {
        options.directories.append(QString::fromStdString(directory));
    }
    options.pluginFile = QString::fromStdString(arguments.pluginFile);
    options.systemRoot = QString::fromStdString(arguments.systemRoot);
    options.lineLength = arguments.lineLength;
    options.lenient = arguments.lenient;
    options.json = arguments.json;
    return options;
}

/// @brief Adds one command and its arguments.
class CommandLine
{
public:
    CommandLine(CLI::App &parent, const std::string &name, const std::string &description, CheckArguments &arguments)
        : m_command(*parent.add_subcommand(name, description)), m_arguments(arguments)
    {
    }

    CommandLine &file()
    {
        m_command.add_option("FILE", m_arguments.file, "the file; - for standard input")
            ->required()
            ->check(namedFile());
        return *this;
    }

    CommandLine &directories()
    {
        m_command.add_option("DIR", m_arguments.directories, "picture directories, in the order of loading")
            ->required()
            ->check(namedFile());
        return *this;
    }

    CommandLine &output()
    {
        m_command.add_option("-o,--output", m_arguments.output, "the file to write; - for standard output")
            ->capture_default_str()
            ->type_name("FILE")
            ->check(namedFile());
        return *this;
    }

    CommandLine &wrap()
    {
        m_command
            .add_option("--wrap", m_arguments.lineLength, "characters in a line; 0 for one line that is not ended")
            ->capture_default_str()
            ->type_name("N")
            ->check(CLI::Range(0, std::numeric_limits<int>::max()));
        return *this;
    }

    CommandLine &lenient()
    {
        m_command.add_flag("--lenient", m_arguments.lenient, "leave out what is no Base64, as the plugin does");
        return *this;
    }

    CommandLine &root()
    {
        m_command.add_option("--root", m_arguments.systemRoot, "directory to take for \"/\"")
            ->capture_default_str()
            ->type_name("DIR")
            ->check(CLI::ExistingDirectory);
        return *this;
    }

    CommandLine &plugin()
    {
        addPluginOption(m_command, m_arguments.pluginFile);
        return *this;
    }

    CommandLine &json()
    {
        m_command.add_flag("--json", m_arguments.json, "print one JSON document, for scripts");
        return *this;
    }

    void calls(ExitCode (*run)(const CheckOptions &), Action &action)
    {
        m_command.callback([run, &command = m_command, &arguments = m_arguments, &action] {
            CheckOptions given = optionsFrom(arguments);
            const CLI::Option *const plugin = command.get_option_no_throw("--plugin");
            given.pluginIsNamed = plugin && plugin->count() > 0;
            action = [run, options = given] {
                try {
                    return run(options);
                } catch (const ToolError &error) {
                    throw ToolError(ExitCode::Usage, QString::fromUtf8(error.what()));
                }
            };
        });
    }

private:
    CLI::App &m_command;
    CheckArguments &m_arguments;
};
}

void addPluginOption(CLI::App &command, std::string &file)
{
    // Absolute, as it is shown.
    command.add_option("--plugin", file, "the plugin's file")
        ->capture_default_str()
        ->type_name("FILE")
        ->check(namedFile())
        ->transform([](const std::string &name) {
            return QFileInfo(QString::fromStdString(name)).absoluteFilePath().toStdString();
        });
}

void addCheckCommands(CLI::App &app, CheckArguments &arguments, Action &action)
{
    CLI::App &catalogue = *app.add_subcommand("catalogue", "show, check, encode or decode a navigation catalogue");
    catalogue.require_subcommand(1);
    CommandLine(catalogue, "show", "show the navigation that the plugin builds from the file", arguments)
        .file()
        .plugin()
        .json()
        .calls(showCatalogue, action);
    CommandLine(catalogue, "check", "report the mistakes in the file", arguments)
        .file()
        .json()
        .calls(checkCatalogueFile, action);
    CommandLine(catalogue, "encode", "write the file in Base64, as the plugin reads it", arguments)
        .file()
        .output()
        .wrap()
        .calls(encodeCatalogue, action);
    CommandLine(catalogue, "decode", "write what the Base64 text of the file holds", arguments)
        .file()
        .output()
        .lenient()
        .calls(decodeCatalogue, action);

    CLI::App &baseline = *app.add_subcommand("baseline", "show or check a list of baseline check items");
    baseline.require_subcommand(1);
    CommandLine(baseline, "show", "show the items that the plugin holds of the file", arguments)
        .file()
        .plugin()
        .json()
        .calls(showBaseline, action);
    CommandLine(baseline, "check", "report the mistakes in the file and in the scripts that it names", arguments)
        .file()
        .root()
        .json()
        .calls(checkBaselineFile, action);

    CommandLine(app, "pictures", "show the pictures of directories as the plugin holds them; report mistakes",
                arguments)
        .directories()
        .plugin()
        .json()
        .calls(showPictures, action);
    CommandLine(app, "doctor", "check a whole installation: plugin, catalogue, check items, pictures", arguments)
        .root()
        .plugin()
        .json()
        .calls(doctor, action);
}
