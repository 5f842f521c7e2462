#include "CommandLine.h"

#include "BaselineCommand.h"
#include "CatalogueCommand.h"
#include "Completion.h"
#include "DoctorCommand.h"
#include "ExplainCommand.h"
#include "InstallationPaths.h"
#include "NewPageCommand.h"
#include "OperationsCommand.h"
#include "PicturesCommand.h"
#include "PlayCommand.h"
#include "RecordCommand.h"
#include "Refusal.h"
#include "RunCommand.h"
#include "ScenarioCommand.h"
#include "TavBuiltFrom.h"
#include "TavNearestText.h"

#include <CLI/CLI.hpp>

#include <QCoreApplication>
#include <QFileInfo>

#include <iostream>
#include <map>

namespace
{
/// Refuses an empty name: a message about such a file would name nothing.
CLI::Validator namedFile()
{
    return {[](const std::string &name) { return std::string(name.empty() ? "the name is empty" : ""); }, ""};
}

const std::map<std::string, Severity> &severities()
{
    static const std::map<std::string, Severity> names{
        {"error", Severity::Error}, {"warning", Severity::Warning}, {"note", Severity::Note}};
    return names;
}

const std::map<std::string, FindingFormat> &formats()
{
    static const std::map<std::string, FindingFormat> names{{"text", FindingFormat::Text},
                                                            {"json", FindingFormat::Json},
                                                            {"jsonl", FindingFormat::JsonLines},
                                                            {"sarif", FindingFormat::Sarif},
                                                            {"github", FindingFormat::Github}};
    return names;
}

/// Refuses what is none of the names.
template<class Value>
CLI::Validator nameIn(const std::map<std::string, Value> &values)
{
    return {[&values](const std::string &name) {
                QStringList names;
                for (const auto &value : values) {
                    names.append(QString::fromStdString(value.first));
                }
                const QString given = QString::fromStdString(name);
                return names.contains(given)
                    ? std::string()
                    : QString("\"%1\" is not known (%2)").arg(given, nearestOrAll(given, names)).toStdString();
            },
            ""};
}

CLI::Validator findingCode()
{
    return {[](const std::string &code) {
                return kindNamed(QString::fromStdString(code))
                    ? std::string()
                    : '"' + code + R"(" is no code of a finding ("tavctl explain" lists them))";
            },
            ""};
}

/// A time such as 60, 60s, 500ms, 2m or 1h: in seconds.
CLI::Validator duration()
{
    const CLI::AsNumberWithUnit number(std::map<std::string, double>{{"ms", 0.001}, {"s", 1}, {"m", 60}, {"h", 3600}},
                                       CLI::AsNumberWithUnit::CASE_SENSITIVE);
    return {[number](std::string &time) -> std::string {
                const std::string given = time;
                try {
                    if (number(time).empty()) {
                        return {};
                    }
                } catch (const CLI::ValidationError &) {
                    // told below
                }
                return "expected a time such as 500ms, 60s, 2m or 1h, not \"" + given + '"';
            },
            ""};
}

/// Refuses what is no number of characters.
CLI::Validator length()
{
    return {[](const std::string &given) {
                bool isNumber = false;
                const int number = QString::fromStdString(given).toInt(&isNumber);
                return isNumber && number >= 0 ? std::string() : "expected 0 or a whole number, not \"" + given + '"';
            },
            ""};
}

CLI::Validator directory()
{
    return {[](const std::string &name) {
                return QFileInfo(QString::fromStdString(name)).isDir() ? std::string()
                                                                       : "there is no directory \"" + name + '"';
            },
            ""};
}

/// Refuses a time that does not go on: @p isZeroRefused, or backwards.
CLI::Validator forwards(bool isZeroRefused)
{
    return {
        [isZeroRefused](const std::string &seconds) {
            const double time = QString::fromStdString(seconds).toDouble();
            const bool isRefused = time < 0 || (isZeroRefused && time == 0);
            return std::string(!isRefused ? "" : isZeroRefused ? "the time must be above 0" : "the time is negative");
        },
        ""};
}

/// @brief Declares one command: each of its options is read into the member of that name of the command's own Options.
template<class Options>
class Command
{
public:
    Command(CLI::App &parent, const std::string &name, const std::string &description)
        : m_command(*parent.add_subcommand(name, description))
    {
    }

    Command &file()
    {
        text("FILE", m_options->file, "the file; - for standard input")->required()->check(namedFile());
        return *this;
    }

    Command &files()
    {
        texts("FILE", m_options->files, "the files; - for standard input");
        return *this;
    }

    Command &directories()
    {
        texts("DIR", m_options->directories, "picture directories, in the order of loading");
        return *this;
    }

    Command &code()
    {
        text("CODE", m_options->code, "the code of a finding, such as TAV101; without it, all of them");
        return *this;
    }

    /// How findings are weighed and shown.
    Command &findings()
    {
        FindingOptions &findings = m_options->findings;
        m_command
            .add_option_function<std::string>(
                "--fail-on",
                [options = m_options, &findings](const std::string &given) {
                    findings.failOn = severities().at(given);
                },
                "the least severity that ends the program with 1")
            ->default_str("warning")
            ->type_name("error|warning|note")
            ->check(nameIn(severities()));
        m_command
            .add_option_function<std::vector<std::string>>(
                "--ignore",
                [options = m_options, &findings](const std::vector<std::string> &codes) {
                    for (const std::string &code : codes) {
                        findings.ignored.insert(kindNamed(QString::fromStdString(code))->code);
                    }
                },
                "findings to leave out, by their codes")
            ->delimiter(',')
            ->expected(1) // or what follows would be taken for codes
            ->take_all()
            ->type_name("CODE[,CODE...]")
            ->check(findingCode());
        CLI::Option *const format = m_command
                                        .add_option_function<std::string>(
                                            "--format",
                                            [options = m_options, &findings](const std::string &given) {
                                                findings.format = formats().at(given);
                                            },
                                            "the form of what is printed")
                                        ->default_str("text")
                                        ->type_name("text|json|jsonl|sarif|github")
                                        ->check(nameIn(formats()));
        m_command
            .add_flag_callback(
                "--json", [options = m_options, &findings] { findings.format = FindingFormat::Json; },
                "the same as --format json")
            ->excludes(format);
        m_command.add_flag("--quiet", findings.quiet, "of text, print the last line alone");
        return *this;
    }

    /// Mending files; behind findings().
    Command &fix()
    {
        Fixing &fixing = m_options->fixing;
        CLI::Option *const fix = m_command.add_flag_callback(
            "--fix", [options = m_options, &fixing] { fixing = Fixing::Files; },
            "mend in place what has one safe answer");
        CLI::Option *const dryRun = m_command.add_flag_callback(
            "--dry-run", [options = m_options, &fixing] { fixing = Fixing::DryRun; },
            "change nothing, and print what --fix would change as a diff");
        dryRun->needs(fix)->excludes(m_command.get_option("--format"))->excludes(m_command.get_option("--json"));
        return *this;
    }

    Command &output()
    {
        text("-o,--output", m_options->output, "the file to write; - for standard output")
            ->type_name("FILE")
            ->check(namedFile());
        return *this;
    }

    Command &wrap()
    {
        m_command.add_option("--wrap", m_options->wrap, "characters in a line; 0 for one line that is not ended")
            ->capture_default_str()
            ->type_name("N")
            ->check(length());
        return *this;
    }

    Command &lenient()
    {
        m_command.add_flag("--lenient", m_options->lenient, "leave out what is no Base64, as the plugin does");
        return *this;
    }

    Command &root(const std::string &description = "directory to take for \"/\"")
    {
        text("--root", m_options->root, description)->type_name("DIR")->check(directory());
        return *this;
    }

    Command &manager(const std::string &description, bool required)
    {
        text("MANAGER", m_options->manager, description)->required(required);
        return *this;
    }

    Command &managerOption(const std::string &description)
    {
        text("--manager", m_options->manager, description)->type_name("MANAGER");
        return *this;
    }

    Command &className()
    {
        text("NAME", m_options->name,
             "what its classes begin with, such as DiskUsage; a directory of this name is made")
            ->required();
        return *this;
    }

    Command &page(const std::string &description = "show this page alone, in full, such as SubFunc_LogAudit",
                  bool isRequired = false)
    {
        text("--page", m_options->page, description)->type_name("KEY")->required(isRequired);
        return *this;
    }

    Command &operation()
    {
        text("OPERATION", m_options->operation, "the operation's name")->required();
        return *this;
    }

    /// Takes what remains: a list among the operands would be split at the commas of a value in brackets.
    Command &jsonArguments()
    {
        m_command.allow_extras();
        m_command.footer("JSON...: the arguments behind OPERATION, each a JSON value; or one object of them by name");
        m_command.parse_complete_callback([options = m_options, &command = m_command] {
            for (const std::string &value : command.remaining()) {
                options->arguments.append(QByteArray::fromStdString(value));
            }
        });
        return *this;
    }

    Command &plugin()
    {
        // Absolute, as it is shown. So is the default, also where it holds only for an installation without a plugin.
        text("--plugin", m_options->plugin, "the plugin's file")
            ->default_str(InstallationPaths::pluginBesideProgram().toStdString())
            ->type_name("FILE")
            ->check(namedFile())
            ->transform([](const std::string &name) {
                return QFileInfo(QString::fromStdString(name)).absoluteFilePath().toStdString();
            });
        return *this;
    }

    Command &verbose()
    {
        m_command.add_flag("--verbose", m_options->verbose, "list every picture and every delivery of a page change");
        return *this;
    }

    Command &json()
    {
        m_command.add_flag("--json", m_options->json, "print one JSON document, for scripts");
        return *this;
    }

    Command &noLoad()
    {
        m_command.add_flag("!--no-load", m_options->loads, "look at the plugin's file alone: nothing of it runs");
        return *this;
    }

    /// As file(), but not standard output: a recording is written in place.
    Command &recording()
    {
        text("FILE", m_options->file, "the scenario to write")->required()->check(namedFile());
        return *this;
    }

    Command &recordingTimes()
    {
        time("--for", m_options->duration, "how long to record, such as 60s or 2m; without it until interrupted")
            ->check(forwards(true));
        time("--every", m_options->every, "from one reading of the machine to the next")
            ->default_str("5s")
            ->check(forwards(true));
        m_command.add_flag("--all", m_options->all, "write calls that change nothing, too");
        return *this;
    }

    Command &playing()
    {
        m_command
            .add_option_function<std::string>(
                "--speed",
                [options = m_options](const std::string &given) {
                    if (given == "max") {
                        options->speed = TavPlayOptions::fastest;
                    } else if (!CLI::detail::lexical_cast(given, options->speed) || !(options->speed > 0)) {
                        throw CLI::ValidationError("--speed", "expected a number above 0, or max");
                    }
                },
                "times as fast as it was recorded, or max for no waiting")
            ->default_str("1")
            ->type_name("N|max");
        time("--from", m_options->from, "play what is before at once")->check(forwards(false));
        time("--until", m_options->until, "leave out what is after")->check(forwards(false));
        CLI::Option *const loop
            = m_command.add_flag("--loop", m_options->loop, "begin again at the end, until interrupted");
        m_command.add_flag("--check", m_options->check, "compare what the calls return; end at the first difference")
            ->excludes(loop);
        m_command.add_flag("--partial", m_options->partial, "leave out a last line that is cut");
        return *this;
    }

    Command &after()
    {
        text("--after", m_options->after, "a scenario to play first, at full speed; - for standard input")
            ->type_name("FILE")
            ->check(namedFile());
        return *this;
    }

    /// Makes @p run the action when this command is called.
    void runs(ExitCode (*run)(const Options &), Action &action)
    {
        m_command.callback([run, options = m_options, &action] { action = [run, options] { return run(*options); }; });
    }

    /// As runs(), for a command that ends with what it has found: whatever keeps it from looking is a matter of usage.
    void looks(ExitCode (*look)(const Options &), Action &action)
    {
        m_command.callback([look, options = m_options, &action] {
            action = [look, options] {
                try {
                    return look(*options);
                } catch (const ToolError &error) {
                    throw ToolError(ExitCode::Usage, QString::fromUtf8(error.what()));
                }
            };
        });
    }

private:
    /// An option for a time; @p value is in seconds.
    CLI::Option *time(const std::string &name, double &value, const std::string &description)
    {
        return m_command
            .add_option_function<double>(
                name, [options = m_options, &value](const double &given) { value = given; }, description)
            ->type_name("TIME")
            ->transform(duration());
    }

    /// Operands, one at least. @p values is a member of the command's options.
    void texts(const std::string &name, QStringList &values, const std::string &description)
    {
        m_command
            .add_option_function<std::vector<std::string>>(
                name,
                [options = m_options, &values](const std::vector<std::string> &given) {
                    for (const std::string &value : given) {
                        values.append(QString::fromStdString(value));
                    }
                },
                description)
            ->required()
            ->check(namedFile());
    }

    /// An option for a text. @p value is a member of the command's options; what it holds before is the default.
    CLI::Option *text(const std::string &name, QString &value, const std::string &description)
    {
        return m_command
            .add_option_function<std::string>(
                name,
                [options = m_options, &value](const std::string &given) { value = QString::fromStdString(given); },
                description)
            ->default_str(value.toStdString());
    }

    CLI::App &m_command;
    std::shared_ptr<Options> m_options = std::make_shared<Options>();
};

void addCommands(CLI::App &app, Action &action)
{
    Command<RunOptions>(app, "run", "load the plugin, show the navigation and walk through every page")
        .plugin()
        .json()
        .root()
        .page()
        .verbose()
        .runs(run, action);
    Command<RegistryOptions>(app, "registry", "load the plugin and show what it registered")
        .plugin()
        .json()
        .runs(showRegistry, action);
    Command<OperationsOptions>(app, "operations", "list the managers' operations")
        .manager("those of this manager alone, such as ITavAuditMgr", false)
        .runs(showOperations, action);
    Command<CallOptions>(app, "call", "load the plugin, call an operation and print its result as JSON")
        .manager("the manager's interface, such as ITavAuditMgr", true)
        .operation()
        .jsonArguments()
        .after()
        .plugin()
        .root()
        .runs(callOperation, action);

    Command<RecordOptions>(app, "record", "have the managers fed with this machine's state, and write it as a scenario")
        .recording()
        .recordingTimes()
        .plugin()
        .root()
        .runs(record, action);
    Command<PlayOptions>(app, "play", "load the plugin and make the calls of a scenario at their times")
        .file()
        .playing()
        .page("show this page at the end, such as SubFunc_LogAudit")
        .json()
        .plugin()
        .root()
        .runs(play, action);

    CLI::App &scenario
        = *app.add_subcommand("scenario", "check, show or sum up a scenario; print lines that check its end");
    scenario.require_subcommand(1);
    Command<ScenarioCheckOptions>(scenario, "check", "report the mistakes in the files")
        .files()
        .findings()
        .looks(checkScenarioFiles, action);
    Command<ScenarioOptions>(scenario, "show", "show the lines of the file").file().json().looks(showScenario, action);
    Command<ScenarioOptions>(scenario, "info", "show how long it is, and what it calls how often")
        .file()
        .json()
        .looks(showScenarioInfo, action);
    Command<ScenarioEndOptions>(scenario, "end",
                                "play the file and print lines that check what every getter returns then")
        .file()
        .plugin()
        .root()
        .looks(printScenarioEnd, action);

    CLI::App &catalogue = *app.add_subcommand("catalogue", "show, check, encode or decode a navigation catalogue");
    catalogue.require_subcommand(1);
    Command<CatalogueShowOptions>(catalogue, "show", "show the navigation that the plugin builds from the file")
        .file()
        .plugin()
        .json()
        .looks(showCatalogue, action);
    Command<CatalogueCheckOptions>(catalogue, "check", "report the mistakes in the files")
        .files()
        .findings()
        .fix()
        .looks(checkCatalogueFiles, action);
    Command<CatalogueEncodeOptions>(catalogue, "encode", "write the file in Base64, as the plugin reads it")
        .file()
        .output()
        .wrap()
        .looks(encodeCatalogue, action);
    Command<CatalogueDecodeOptions>(catalogue, "decode", "write what the Base64 text of the file holds")
        .file()
        .output()
        .lenient()
        .looks(decodeCatalogue, action);

    CLI::App &baseline = *app.add_subcommand("baseline", "show or check a list of baseline check items");
    baseline.require_subcommand(1);
    Command<BaselineShowOptions>(baseline, "show", "show the items that the plugin holds of the file")
        .file()
        .plugin()
        .json()
        .looks(showBaseline, action);
    Command<BaselineCheckOptions>(baseline, "check",
                                  "report the mistakes in the files and in the scripts that they name")
        .files()
        .root()
        .findings()
        .fix()
        .looks(checkBaselineFiles, action);

    Command<PicturesOptions>(app, "pictures",
                             "show the pictures of directories as the plugin holds them; report mistakes")
        .directories()
        .plugin()
        .findings()
        .looks(showPictures, action);
    Command<DoctorOptions>(app, "doctor", "check a whole installation: plugin, catalogue, check items, pictures")
        .root()
        .plugin()
        .noLoad()
        .findings()
        .looks(doctor, action);
    Command<NewPageOptions>(app, "new-page", "write the project of a page plugin: page, test, scenario, package")
        .className()
        .page("the page's key in the catalogue, such as SubFunc_LogAudit", true)
        .managerOption("show a value of this manager, such as ITavAuditMgr; the page's first unless told")
        .plugin()
        .root("directory to take for \"/\", whose catalogue names the page's controller")
        .runs(writeNewPage, action);
    Command<ExplainOptions>(app, "explain", "tell what a finding is about").code().runs(explain, action);
}

QStringList arguments()
{
    return QCoreApplication::arguments().mid(1);
}

/// The help of the command that @p words name below @p app, or of all commands with that name when it is one word.
std::string helpOn(const CLI::App &app, const QStringList &words, const QStringList &path = {})
{
    std::string help;
    for (const CLI::App *const command : app.get_subcommands([](const CLI::App *) { return true; })) {
        const QStringList below = path + QStringList{QString::fromStdString(command->get_name())};
        if (below == words || below.mid(below.size() - 1) == words) {
            help += command->get_formatter()->make_help(command, "tavctl " + below.join(' ').toStdString(),
                                                        CLI::AppFormatMode::Normal);
        }
        help += helpOn(*command, words, below);
    }
    return help;
}

void addHelp(CLI::App &app, Action &action)
{
    CLI::App &help = *app.add_subcommand("help", "tell how a command is used");
    const auto given = std::make_shared<std::vector<std::string>>();
    help.add_option("WORD", *given, "the command, such as catalogue check; or one word for all commands of that name")
        ->type_name("");
    help.callback([&app, given, &action] {
        QStringList words;
        for (const std::string &word : *given) {
            words.append(QString::fromStdString(word));
        }
        const std::string text = words.isEmpty()
            ? app.get_formatter()->make_help(&app, "tavctl", CLI::AppFormatMode::Normal)
            : helpOn(app, words);
        if (text.empty()) {
            throw CLI::ValidationError("WORD", "there is no such command");
        }
        action = [text] {
            std::cout << text;
            return ExitCode::Success;
        };
    });
}
}

Action actionOf(int argc, char **argv)
{
    CLI::App app("Stands in for the desktop client: loads its data plugin and shows what it holds.", "tavctl");
    app.require_subcommand(1);
    app.set_version_flag("-V,--version",
                         std::string("tavctl " TAV_VERSION "\n" TAV_BUILT_FROM ", " TAV_BUILD_TYPE
                                     " build\nbuilt with Qt " QT_VERSION_STR ", running with Qt ")
                             + qVersion());
    app.failure_message([&app](const CLI::App *, const CLI::Error &error) {
        QStringList words = arguments();
        if (words.value(0) == "help") {
            words.removeFirst();
        }
        return refusalOf(app, words, error);
    });
    Action action;
    addCommands(app, action);
    addHelp(app, action);
    // For the scripts that complete command lines; nobody else types it, so no help names it.
    if (arguments().value(0) == "complete") {
        return [offers = completionsOf(app, arguments().mid(1)).toStdString()] {
            std::cout << offers;
            return ExitCode::Success;
        };
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        const ExitCode code = app.exit(error) == 0 ? ExitCode::Success : ExitCode::Usage;
        return [code] { return code; };
    }
    return action;
}
