#pragma once

#include "Contest.h"
#include "Rows.h"

/// The contest about one list of rows: replaced as a whole, edited by the row, and found whole and of its full length
/// at every look; or empty, where something empties it meanwhile.
template<class Row, class Replace, class Read, class Edit>
Contest rowContest(const char *name, Replace replace, Read read, Edit edit, bool mayBeEmpty = false)
{
    replace(Rows::list<Row>(0));
    const auto replaceAll = [replace](int seed) {
        replace(Rows::list<Row>(seed));
        return true;
    };
    const auto editRow = [edit](int seed) {
        Row row = Rows::one<Row>(seed % Rows::count, seed);
        edit(row);
        return true;
    };
    const auto editNoRow = [edit](int seed) {
        Row row = Rows::one<Row>(Rows::count + seed, seed);
        edit(row);
        return true;
    };
    const auto readAll = [read, mayBeEmpty](int) {
        return look(read, [mayBeEmpty](const QVector<Row> &rows) {
            return Rows::areWhole(rows) || (mayBeEmpty && rows.isEmpty());
        });
    };
    return {name,
            {{"replace all rows", replaceAll},
             {"edit a row", editRow},
             {"edit a row that does not exist", editNoRow},
             {"read all rows", readAll}}};
}
