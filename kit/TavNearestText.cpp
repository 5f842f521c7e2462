#include "TavNearestText.h"

#include <QVector>

#include <algorithm>
#include <limits>
#include <numeric>

namespace
{
/// Letters to put in, take out or replace to make one text of the other.
int distance(const QString &from, const QString &to)
{
    QVector<int> row(to.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < from.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int j = 0; j < to.size(); ++j) {
            const int replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.last();
}
}

QString nearestText(const QString &text, const QStringList &known)
{
    QString nearest;
    int fewest = std::numeric_limits<int>::max();
    QStringList related; // one of the two texts begins with the other
    for (const QString &candidate : known) {
        if (text.compare(candidate, Qt::CaseInsensitive) == 0) {
            return candidate;
        }
        const auto [shorter, longer] = std::minmax({text.size(), candidate.size()});
        constexpr int fewestRelated = 4;
        if (shorter >= fewestRelated
            && (text.startsWith(candidate, Qt::CaseInsensitive) || candidate.startsWith(text, Qt::CaseInsensitive))) {
            related.append(candidate);
        }
        const int mostLetters = longer / 3;
        // At least so many differ, and counting them for a text of some MiB takes minutes.
        if (longer - shorter <= mostLetters) {
            const int letters = distance(text, candidate);
            if (letters <= mostLetters && letters < fewest) {
                nearest = candidate;
                fewest = letters;
            }
        }
    }
    return nearest.isEmpty() && related.size() == 1 ? related.first() : nearest;
}

QString nearestOrAll(const QString &text, const QStringList &known)
{
    const QString nearest = nearestText(text, known);
    return nearest.isEmpty() ? "there are: " + known.join(", ") : "nearest: " + nearest;
}
