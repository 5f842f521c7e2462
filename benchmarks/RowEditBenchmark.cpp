// Edits of lists against the same search and write on a vector under a lock, and against an item model.

#include "Comparison.h"
#include "RowEdits.h"

#include <QLocale>

#include <memory>

namespace
{
using namespace Comparison;

constexpr double goal = 1.2;

/// A list in the manager and the same in our own hands, and maybe a copy of each in a page's.
template<class Edit>
class Lists
{
public:
    explicit Lists(int rowCount) : m_edit(rowCount)
    {
        m_edit.setRows(Edit::makeRows(rowCount));
        m_vector = Edit::makeRows(rowCount);
    }

    void editInManager()
    {
        m_edit.inManager();
    }

    void editInVector()
    {
        QMutexLocker lock(&m_mutex);
        m_edit.inVector(m_vector);
        benchmark::ClobberMemory();
    }

    void copyManagersList()
    {
        m_copy.clear(); // first, or the older copy would die only after the new one exists
        m_copy = m_edit.rows();
    }

    void copyVector()
    {
        m_copy.clear();
        m_copy = m_vector;
    }

private:
    Edit m_edit;
    QMutex m_mutex{Edit::mutexMode};
    QVector<typename Edit::Record> m_vector;
    QVector<typename Edit::Record> m_copy;
};

/// One edit in a model with the same rows.
template<class Edit>
Sample editInModel(int rowCount)
{
    const auto model = std::make_shared<QStandardItemModel>();
    for (int i = 0; i < rowCount; ++i) {
        model->appendRow(Edit::makeItem(i));
    }
    const auto edit = std::make_shared<Edit>(rowCount);
    return manyCalls([=] { edit->inModel(*model); });
}

template<class Edit>
void addRowsOf(int rowCount)
{
    const std::string name
        = std::string(Edit::name) + ", " + QLocale(QLocale::English).toString(rowCount).toStdString() + " rows";
    const int rounds = rowCount > 10000 ? 5 : 30;
    addRow(name, rounds, [=] {
        const auto lists = std::make_shared<Lists<Edit>>(rowCount);
        return Row{manyCalls([=] { lists->editInManager(); }),
                   {{"vector, bare lock", manyCalls([=] { lists->editInVector(); }), goal},
                    {"QStandardItemModel", editInModel<Edit>(rowCount)}}};
    });
    addRow(name + ", copy outstanding", rounds, [=] {
        const auto lists = std::make_shared<Lists<Edit>>(rowCount);
        return Row{
            oneCall([=] { lists->copyManagersList(); }, [=] { lists->editInManager(); }),
            {{"vector, bare lock", oneCall([=] { lists->copyVector(); }, [=] { lists->editInVector(); }), goal}}};
    });
}

/// How many times as long an edit takes in a list of a hundred times the rows.
template<class Edit>
void addGrowthRow()
{
    addRow(std::string(Edit::name) + ", growth from 10,000 to 1,000,000 rows", 5, [=] {
        const auto few = std::make_shared<Lists<Edit>>(10000);
        const auto many = std::make_shared<Lists<Edit>>(1000000);
        const auto growth
            = [](const Sample &ofFew, const Sample &ofMany) { return [=] { return ofMany() / ofFew(); }; };
        return Row{growth(manyCalls([=] { few->editInManager(); }), manyCalls([=] { many->editInManager(); })),
                   {{"growth of vector, bare lock",
                     growth(manyCalls([=] { few->editInVector(); }), manyCalls([=] { many->editInVector(); })), goal}},
                   "times"};
    });
}

template<class Edit>
void addRowsOfAllSizes()
{
    for (const int rowCount : {100, 10000, 1000000}) {
        addRowsOf<Edit>(rowCount);
    }
}
}

void Comparison::addRows()
{
    addRowsOfAllSizes<EditByKey>();
    addGrowthRow<EditByKey>();
    addRowsOfAllSizes<EditByIndex>();
    addRowsOfAllSizes<EditByPosition>();
    addRowsOfAllSizes<CheckAll>();
}
