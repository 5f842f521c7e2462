#include "CodeMeanings.h"

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QRegularExpression>

namespace
{
CodeMeanings meaningsIn(const QString &comment)
{
    static const QRegularExpression code(R"((?:^|[,;:] )(-?\d+): (.+?)(?=, -?\d+: |, \.\.\.|; |$))");
    CodeMeanings meanings;
    for (auto matches = code.globalMatch(comment); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        meanings.insert(match.captured(1).toLongLong(), match.captured(2));
    }
    return meanings;
}

/// Adds the fields of one source file, by "type.field".
void addFrom(const QString &source, QHash<QString, CodeMeanings> &all)
{
    static const QRegularExpression package(R"(^package ([\w.]+);)");
    static const QRegularExpression type(R"(^(?:struct|message) (\w+) \{)");
    static const QRegularExpression field(R"(^ +\w[\w: ]* (\w+)(?:\[.*\])?(?: = \w+)?; *//(?:/<)? (.*))");
    static const QRegularExpression goesOn(R"(^ +// (.*))");
    QString prefix;
    QString typeName;
    QString fieldName;
    QString comment;
    const auto endField = [&] {
        if (const CodeMeanings meanings = meaningsIn(comment); !meanings.isEmpty()) {
            all.insert(typeName + '.' + fieldName, meanings);
        }
        comment.clear();
    };
    const QStringList lines = source.split('\n');
    for (const QString &line : lines) {
        if (const auto more = goesOn.match(line); more.hasMatch() && !comment.isEmpty()) {
            comment += ' ' + more.captured(1);
            continue;
        }
        endField();
        if (const auto named = package.match(line); named.hasMatch()) {
            prefix = named.captured(1) + '.';
        } else if (const auto begun = type.match(line); begun.hasMatch()) {
            typeName = prefix + begun.captured(1);
        } else if (const auto described = field.match(line); described.hasMatch()) {
            fieldName = described.captured(1);
            comment = described.captured(2);
        }
    }
}

QHash<QString, CodeMeanings> readSources()
{
    QHash<QString, CodeMeanings> all;
    for (QDirIterator sources(":/documented"); sources.hasNext();) {
        QFile file(sources.next());
        file.open(QIODevice::ReadOnly); // it is in the program
        addFrom(QString::fromUtf8(file.readAll()), all);
    }
    return all;
}
}

CodeMeanings documentedMeanings(const QString &type, const QString &field)
{
    static const QHash<QString, CodeMeanings> all = [] {
        Q_INIT_RESOURCE(documented); // which a static library does not do by itself
        return readSources();
    }();
    return all.value(type + '.' + field);
}
