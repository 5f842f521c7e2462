#pragma once

#include <QMap>
#include <QString>

/// What the codes of a field mean, by their number.
using CodeMeanings = QMap<qint64, QString>;

/// The meanings that the comment on a field documents: "0: idle, 1: running" in the header of its record, or in the
/// file of its message. @p type is the record's name, or the message's with its package: "Tav.Base.CommandStateAsr".
/// Empty where none are documented. Any thread.
CodeMeanings documentedMeanings(const QString &type, const QString &field);
