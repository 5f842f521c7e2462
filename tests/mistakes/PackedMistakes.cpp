// Mistakes with rows that are packed to one byte, which clang's check of alignment reports, each at its line; the
// correct forms are not reported. Lines that begin with two slashes and an exclamation mark are rows of the guide's
// table.
#include "STAccessSetUIData.h"
#include "STPriAddUIData.h"
#include "TavPackedField.h"

#include <cstdlib>

namespace
{
int shownLetters = 0;

void show(const QString &text)
{
    shownLetters += text.size();
}

using Rows = QVector<STPriAddUIData>;

//! A reference to a field of a packed row is kept | the check of alignment | `tavField`
void keepAReference(Rows &rows)
{
    const QString &name = rows.at(1).userName; // reported: case 0
    show(name);
}

//! A field of a packed row is passed on by reference | the check of alignment | `tavField`
void passOn(Rows &rows)
{
    show(rows.at(1).userName); // reported: case 1
}

//! A function of a packed row's field is called | the check of alignment | `tavField`, `tavSetField`
void callAFunction(Rows &rows)
{
    rows[1].userName.clear(); // reported: case 2
}

/// Whether rows and their fields hold what was put into them.
bool useRows()
{
    STPriAddUIData row;
    tavSetField(row, &STPriAddUIData::userName, QStringLiteral("daemon"));
    tavSetField(row, &STPriAddUIData::userName, QStringLiteral("root"));
    tavSetField(row, &STPriAddUIData::userNumber, 7);
    row.checked = true;
    Rows rows(2);
    rows.append(row);
    rows[0] = row;
    const Rows copy = rows;
    rows.clear();

    STAccessSetUIData level;
    tavSetField(level, &STAccessSetUIData::labels, {QStringLiteral("administrators")});
    const QVector<QString> labels = tavField(level, &STAccessSetUIData::labels);
    return tavField(copy.at(0), &STPriAddUIData::userName) == "root"
        && tavField(copy.at(2), &STPriAddUIData::userName) == "root"
        && tavField(copy.at(2), &STPriAddUIData::userNumber) == 7 && copy.at(2).checked && labels.size() == 1
        && labels.at(0) == "administrators";
}
}

int main(int argc, char **argv)
{
    if (argc == 2) {
        void (*const mistakes[])(Rows &) = {keepAReference, passOn, callAFunction};
        Rows rows(2);
        mistakes[std::atoi(argv[1])](rows);
    }
    return useRows() ? 0 : 1;
}
