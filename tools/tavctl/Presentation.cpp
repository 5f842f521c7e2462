#include "Presentation.h"

#include "TextTable.h"

#include <QJsonDocument>

#include <iostream>

#include <sys/ioctl.h>
#include <unistd.h>

namespace
{
QString styled(const char *code, const QString &text)
{
    static const bool isStyled
        = isatty(STDOUT_FILENO) == 1 && qEnvironmentVariableIsEmpty("NO_COLOR") && qgetenv("TERM") != "dumb";
    return isStyled ? QStringLiteral("\033[%1m%2\033[0m").arg(QLatin1String(code), text) : text;
}
}

void printLine(const QString &text)
{
    std::cout << text.toStdString() << '\n';
}

void printError(const QString &text)
{
    std::cerr << "tavctl: " << printable(text).toStdString() << '\n';
}

void printHeading(const QString &text)
{
    printLine(QLatin1Char('\n') + styled("1", text));
}

void printJson(const QJsonObject &document)
{
    std::cout << QJsonDocument(document).toJson().constData();
}

QString dimmed(const QString &text)
{
    return styled("2", text);
}

int terminalWidth()
{
    winsize size{};
    const bool isKnown = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : 120;
}

QString wrapped(const QString &text, int start)
{
    if (isatty(STDOUT_FILENO) == 0) {
        return text;
    }
    const int places = terminalWidth();
    const QString indent(4, ' ');
    QString lines;
    int column = start;
    const QStringList words = text.split(' ');
    for (const QString &word : words) {
        const int width = displayWidth(word);
        if (!lines.isEmpty() && column + 1 + width <= places) {
            lines += ' ' + word;
            column += 1 + width;
        } else if (lines.isEmpty() && column + width <= places) {
            lines += word;
            column += width;
        } else {
            lines += '\n' + indent + word;
            column = indent.size() + width;
        }
    }
    return lines;
}

QString microseconds(qint64 nanoseconds)
{
    return QString::number(static_cast<double>(nanoseconds) / 1000, 'f', 1);
}

QString seconds(qint64 microseconds)
{
    return QString::number(static_cast<double>(microseconds) / 1e6, 'f', 3);
}
