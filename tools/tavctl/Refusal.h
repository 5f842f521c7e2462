#pragma once

#include <QStringList>

#include <string>

namespace CLI
{
class App;
class Error;
}

/// What is said of a command line of these @p words, for which @p app has thrown @p error: what is wrong with it and
/// what to write. One line, ended.
std::string refusalOf(const CLI::App &app, const QStringList &words, const CLI::Error &error);
