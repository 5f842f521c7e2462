#pragma once

#include <QJsonObject>
#include <QString>

/// Writes @p text and a line end to standard output, in UTF-8.
void printLine(const QString &text);

/// Writes @p text and a line end to standard error, behind the program's name.
void printError(const QString &text);

/// Writes an empty line and @p text as a heading.
void printHeading(const QString &text);

/// Writes @p document to standard output, indented.
void printJson(const QJsonObject &document);

/// @p text in a quieter colour; unchanged when standard output is not a terminal.
QString dimmed(const QString &text);

/// Places in a line of the terminal; 120 when standard output is none.
int terminalWidth();

/// @p text with line ends where it would not fit on the terminal, when its first line begins in column @p start, from
/// 0; unchanged when standard output is none. No word is broken.
QString wrapped(const QString &text, int start);

/// @p nanoseconds as microseconds with one decimal.
QString microseconds(qint64 nanoseconds);

/// @p microseconds as seconds with three decimals.
QString seconds(qint64 microseconds);
