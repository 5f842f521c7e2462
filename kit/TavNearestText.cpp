#include "TavNearestText.h"

#include <QVector>

#include <algorithm>
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
    int smallest = 0;
    QStringList related; // one of the two texts begins with the other
    for (const QString &candidate : known) {
        if (text.compare(candidate, Qt::CaseInsensitive) == 0) {
            return candidate;
        }
        constexpr int fewestLetters = 4;
        if (std::min(text.size(), candidate.size()) >= fewestLetters
            && (text.startsWith(candidate, Qt::CaseInsensitive) || candidate.startsWith(text, Qt::CaseInsensitive))) {
            related.append(candidate);
        }
        const int mostLetters = std::max(text.size(), candidate.size()) / 3;
        if (std::abs(text.size() - candidate.size()) > mostLetters) {
            continue; // at least so many differ, and counting them for a text of some MiB takes minutes
        }
        const int letters = distance(text, candidate);
        if (letters <= mostLetters && (nearest.isEmpty() || letters < smallest)) {
            nearest = candidate;
            smallest = letters;
        }
    }
    return nearest.isEmpty() && related.size() == 1 ? related.first() : nearest;
}

QString nearestOrAll(const QString &text, const QStringList &known)
{
    const QString nearest = nearestText(text, known);
    return nearest.isEmpty() ? "there are: " + known.join(", ") : "nearest: " + nearest;
}
