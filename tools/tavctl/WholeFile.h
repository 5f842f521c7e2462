#pragma once

#include <QByteArray>
#include <QString>

/// Reading and writing a file in one go; "-" is standard input or output.
namespace WholeFile
{
/// Puts the file's content into @p content. Returns why that is not possible, nothing when it was. InputFile tells
/// which files are read.
QString tryRead(const QString &file, QByteArray &content);

/// The file's content. Throws ToolError when it cannot be read.
QByteArray read(const QString &file);

/// Throws ToolError when the file cannot be written.
void write(const QString &file, const QByteArray &content);

/// Puts a new file with @p content into the place of @p file, at once or not at all: with the mode of the old one, and
/// with its owner where this user may give files away. Throws ToolError.
void replace(const QString &file, const QByteArray &content);
}
