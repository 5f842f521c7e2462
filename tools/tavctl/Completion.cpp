#include "Completion.h"

#include "CTavSubFuncTypeHeader.h"
#include "FindingKind.h"
#include "TavCall.h"
#include "TavCallError.h"

#include <CLI/CLI.hpp>

#include <QMetaEnum>

namespace
{
QString line(const QString &word, const std::string &description = {})
{
    return description.empty() ? word : word + '\t' + QString::fromStdString(description);
}

/// The command of @p app with this name; null for none.
const CLI::App *commandNamed(const CLI::App &app, const QString &name)
{
    const auto named = app.get_subcommands(
        [name = name.toStdString()](const CLI::App *command) { return command->get_name() == name; });
    return named.empty() ? nullptr : named.front();
}

QStringList commandsOf(const CLI::App &app)
{
    QStringList lines;
    for (const CLI::App *const command : app.get_subcommands([](const CLI::App *) { return true; })) {
        lines.append(line(QString::fromStdString(command->get_name()), command->get_description()));
    }
    return lines;
}

QStringList optionsOf(const CLI::App &command)
{
    QStringList lines;
    for (const CLI::Option *const option : command.get_options()) {
        for (const std::string &name : option->get_lnames()) {
            lines.append(line("--" + QString::fromStdString(name), option->get_description()));
        }
        for (const std::string &name : option->get_snames()) {
            lines.append(line('-' + QString::fromStdString(name), option->get_description()));
        }
    }
    return lines;
}

QStringList operationsOf(const QString &manager)
{
    QStringList lines;
    try {
        const QVector<TavCall::Operation> operations = TavCall::operationsOf(manager);
        for (const TavCall::Operation &operation : operations) {
            lines.append(line(operation.name, operation.signature().toStdString()));
        }
    } catch (const TavCallError &) { // nothing to offer for a manager that there is not
    }
    return lines;
}

QStringList findingCodes()
{
    QStringList lines;
    for (const FindingKind &kind : findingKinds()) {
        lines.append(line(kind.name(), kind.title.toStdString()));
    }
    return lines;
}

QStringList pageKeys()
{
    const QMetaEnum pages = QMetaEnum::fromType<CTavSubFuncTypeHeader::TavSubFuncTypeHeader_>();
    QStringList keys;
    for (int i = 0; i < pages.keyCount(); ++i) {
        if (pages.value(i) != 0) {
            keys.append(pages.key(i));
        }
    }
    return keys;
}

/// What an operand, or the value of an option, may be; @p type is what the help calls it.
QStringList valuesOf(const CLI::App &program, const QString &type, const QStringList &operandsBefore)
{
    if (type == "FILE") {
        return {":files"};
    }
    if (type == "DIR") {
        return {":directories"};
    }
    if (type == "MANAGER") {
        return TavCall::managers();
    }
    if (type == "OPERATION") {
        return operationsOf(operandsBefore.value(0));
    }
    if (type == "WORD") {
        const CLI::App *const command
            = operandsBefore.isEmpty() ? &program : commandNamed(program, operandsBefore.first());
        return command ? commandsOf(*command) : QStringList();
    }
    if (type == "KEY") {
        return pageKeys();
    }
    if (type == "TIME") {
        return {"1s", "5s", "60s"};
    }
    if (type.startsWith("CODE")) {
        return findingCodes();
    }
    return type.contains('|') ? type.split('|') : QStringList();
}

/// "--root=DIR" is one word to some shells and three to others; here it is two.
QStringList withoutEqualSigns(const QStringList &words)
{
    QStringList plain;
    for (const QString &word : words) {
        if (word.startsWith("--") && word.contains('=')) {
            plain << word.section('=', 0, 0) << word.section('=', 1);
        } else if (word != "=") {
            plain << word;
        } else if (&word == &words.last()) {
            plain << QString();
        }
    }
    return plain;
}
}

QString completionsOf(const CLI::App &program, const QStringList &words)
{
    QStringList before = withoutEqualSigns(words);
    const QString current = before.isEmpty() ? QString() : before.takeLast();
    const CLI::App *command = &program;
    const CLI::Option *awaited = nullptr; // the option whose value comes next
    QStringList operands;
    for (const QString &word : qAsConst(before)) {
        if (awaited) {
            awaited = nullptr;
        } else if (word.startsWith('-')) {
            const CLI::Option *const option = command->get_option_no_throw(word.toStdString());
            awaited = option && option->get_items_expected_max() > 0 ? option : nullptr;
        } else if (const CLI::App *const named = commandNamed(*command, word)) {
            command = named;
        } else {
            operands.append(word);
        }
    }

    QStringList lines;
    if (awaited) {
        lines = valuesOf(program, QString::fromStdString(awaited->get_type_name()), operands);
    } else if (!current.startsWith('-')) {
        lines = commandsOf(*command);
        int place = 0;
        for (const CLI::Option *const option : command->get_options()) {
            if (option->get_positional()) {
                const int last = place + option->get_items_expected_max();
                if (operands.size() >= place && operands.size() < last) {
                    lines += valuesOf(program, QString::fromStdString(option->get_name(true)), operands);
                }
                place = last;
            }
        }
    }
    if (lines.isEmpty() && !awaited) {
        lines = optionsOf(*command);
    }
    // Behind a comma, a list goes on; the shell takes it for one word.
    const QString listed = awaited ? current.left(current.lastIndexOf(',') + 1) : QString();
    return listed + lines.join('\n' + listed) + '\n';
}
