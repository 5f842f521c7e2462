#pragma once

#include "Tavctl.h"

#include <QRegularExpression>

/// Every command, with its own commands below it.
const QStringList commands[] = {
    {},
    {"run"},
    {"registry"},
    {"operations"},
    {"call"},
    {"record"},
    {"play"},
    {"scenario"},
    {"scenario", "check"},
    {"scenario", "show"},
    {"scenario", "info"},
    {"scenario", "end"},
    {"catalogue"},
    {"catalogue", "show"},
    {"catalogue", "check"},
    {"catalogue", "encode"},
    {"catalogue", "decode"},
    {"baseline"},
    {"baseline", "show"},
    {"baseline", "check"},
    {"pictures"},
    {"doctor"},
    {"new-page"},
    {"explain"},
    {"help"},
};

/// What the help of a command says can follow it: commands, options.
inline QStringList wordsInHelp(const QStringList &command)
{
    const QString help = Tavctl(command + QStringList{"--help"}).output;
    QStringList words;
    QRegularExpressionMatchIterator matches
        = QRegularExpression("^  (?:(-h|-o|-V),)?((?:--)?[a-z]+(?:-[a-z]+)*)\\b", QRegularExpression::MultilineOption)
              .globalMatch(help);
    while (matches.hasNext()) {
        words.append(matches.next().captured(2));
    }
    words.sort();
    return words;
}
