#include "Refusal.h"

#include "TavNearestText.h"

#include <CLI/CLI.hpp>

#include <QRegularExpression>

namespace
{
std::vector<const CLI::App *> subcommandsOf(const CLI::App &app)
{
    return app.get_subcommands([](const CLI::App *) { return true; });
}

QStringList namesOf(const std::vector<const CLI::App *> &commands)
{
    QStringList names;
    for (const CLI::App *const command : commands) {
        names.append(QString::fromStdString(command->get_name()));
    }
    return names;
}

/// @p command, which is called @p path, with what it cannot do without.
QString shortestUse(const CLI::App &command, QString path)
{
    const std::vector<const CLI::Option *> options
        = command.get_options([](const CLI::Option *option) { return option->get_required(); });
    for (const CLI::Option *const option : options) {
        const QString name = QString::fromStdString(option->get_name());
        path += ' ' + (option->get_positional() ? name : name + ' ' + QString::fromStdString(option->get_type_name()));
    }
    return path;
}

/// The option behind which @p error says something.
const CLI::Option *optionIn(const CLI::App &command, const QString &error)
{
    return command.get_option_no_throw(error.section(':', 0, 0).toStdString());
}

/// Of the words that @p command does not take, an option or else the first; empty when there is none.
QString notTaken(const CLI::App &command)
{
    QStringList words;
    for (const std::string &word : command.remaining()) {
        words.append(QString::fromStdString(word));
    }
    const QStringList options = words.filter(QRegularExpression("^-"));
    return command.get_allow_extras() ? QString() : (options + words).value(0);
}

QString unknownOption(const CLI::App &command, const QString &word)
{
    QStringList names;
    const std::vector<const CLI::Option *> options = command.get_options({});
    for (const CLI::Option *const option : options) {
        for (const std::string &name : option->get_lnames()) {
            names.append("--" + QString::fromStdString(name));
        }
    }
    return QString("there is no option \"%1\" (%2)").arg(word, nearestOrAll(word.section('=', 0, 0), names));
}

/// What is wrong with the arguments of @p command, which is called @p path.
QString reasonOf(const CLI::App &command, const QString &path, const CLI::Error &error)
{
    QString text = QString::fromStdString(error.what());
    const auto kind = CLI::ExitCodes(error.get_exit_code());
    const QString word = notTaken(command);
    if (word.startsWith('-')) { // also the likely reason for what is missing
        return unknownOption(command, word);
    }
    if (kind == CLI::ExitCodes::RequiredError && !subcommandsOf(command).empty()) {
        const CLI::App &first = *subcommandsOf(command).front();
        return QString("a command is missing (there are: %1), as in \"%2\"")
            .arg(namesOf(subcommandsOf(command)).join(", "),
                 shortestUse(first, path + ' ' + QString::fromStdString(first.get_name())));
    }
    if (kind == CLI::ExitCodes::RequiredError) {
        return QString("%1 is missing, as in \"%2\"").arg(text.section(' ', 0, 0), shortestUse(command, path));
    }
    if (kind == CLI::ExitCodes::ExtrasError) {
        return QString(R"("%1" is one word too many for "%2")").arg(word, path);
    }
    if (kind == CLI::ExitCodes::ExcludesError) {
        return text.section(' ', 0, 0) + " and " + text.section(' ', -1) + " exclude each other";
    }
    if (kind == CLI::ExitCodes::RequiresError) {
        return text.section(' ', 0, 0) + " is taken together with " + text.section(' ', -1) + " alone";
    }
    if (kind == CLI::ExitCodes::ArgumentMismatch && optionIn(command, text)) {
        const CLI::Option &option = *optionIn(command, text);
        const QString name = QString::fromStdString(option.get_name());
        return option.count() > 1
            ? name + " stands there more than once"
            : QString("a value is missing, as in \"%1 %2\"").arg(name, QString::fromStdString(option.get_type_name()));
    }
    return text;
}
}

std::string refusalOf(const CLI::App &app, const QStringList &words, const CLI::Error &error)
{
    const CLI::App *at = &app;
    QString path = "tavctl";
    QString reason;
    for (const QString &word : words) {
        const QStringList names = namesOf(subcommandsOf(*at));
        if (names.contains(word)) {
            at = at->get_subcommand(word.toStdString());
            path += ' ' + word;
        } else if (names.isEmpty()) {
            break; // what follows are arguments
        } else if (!word.startsWith('-')) {
            reason = QString("there is no command \"%1\" (%2)").arg(word, nearestOrAll(word, names));
            break;
        }
    }
    if (reason.isEmpty()) {
        reason = reasonOf(*at, path, error);
    }
    return QString("tavctl: %1; \"%2 --help\" tells what there is\n").arg(reason, path).toStdString();
}
