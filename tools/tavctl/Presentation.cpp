#include "Presentation.h"

#include <QJsonDocument>

#include <iostream>

#include <sys/ioctl.h>
#include <unistd.h>

namespace
{
QString styled(const char *code, const QString &text)
{
    static const bool isTerminal = isatty(STDOUT_FILENO) == 1;
    return isTerminal ? QStringLiteral("\033[%1m%2\033[0m").arg(QLatin1String(code), text) : text;
}
}

void printLine(const QString &text)
{
    std::cout << text.toStdString() << '\n';
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

QString microseconds(qint64 nanoseconds)
{
    return QString::number(static_cast<double>(nanoseconds) / 1000, 'f', 1);
}

QString counted(qint64 count, const QString &noun)
{
    return QString::number(count) + ' ' + noun + (count == 1 ? "" : "s");
}
