#pragma once

#include <QString>
#include <QStringList>

namespace CLI
{
class App;
}

/**
 * @brief What a shell offers for the last of @p words, which may be empty or begun; the others stand between it and the
 * program's name.
 *
 * A line for each word, its description behind a tab; or the line ":files" or ":directories", which the shell knows
 * itself. Words that do not go on as the last one begins are among them: the shell leaves them out.
 */
QString completionsOf(const CLI::App &program, const QStringList &words);
