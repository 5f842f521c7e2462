#pragma once

#include "STAccessSetUIData.h"
#include "STObjectAddUIData.h"
#include "STPriAddUIData.h"
#include "STProtoDataContainer.h"
#include "STSystemProUIData.h"

#include <QString>
#include <QVector>

#include <string>

/**
 * @brief Rows of the pages' lists: the key says where a row stands, and all the rest of it tells the same seed, save
 * the check mark where an operation changes that alone.
 *
 * The rows are packed, so their members are copied before they are looked at.
 */
namespace Rows
{
constexpr int count = 6; ///< rows of every list

inline QString text(int number)
{
    return QStringLiteral("text of the row, long enough to be copied in parts: %1").arg(number);
}

inline void make(STPriAddUIData &row, int key, int seed)
{
    row = {seed % 2 != 0, text(key), seed, text(seed)};
}

inline bool isWhole(const STPriAddUIData &row, int key)
{
    const QString name = row.userName;
    const QString rest = row.userText;
    return name == text(key) && rest == text(row.userNumber);
}

inline void make(STAccessSetUIData &row, int key, int seed)
{
    row = {key, {text(seed), text(seed)}, seed % 2 != 0, seed % 2 != 0};
}

inline bool isWhole(const STAccessSetUIData &row, int key)
{
    const QVector<QString> labels = row.labels;
    return row.level == key && labels.size() == 2 && labels[0] == labels[1] && row.extraFlag == row.checked;
}

inline void make(STObjectAddUIData &row, int key, int seed)
{
    row = {seed % 2 != 0, text(key), text(-key)};
}

inline bool isWhole(const STObjectAddUIData &row, int key)
{
    const QString name = row.fileName;
    const QString path = row.filePath;
    return name == text(key) && path == text(-key);
}

inline void make(STSystemProUIData &row, int key, int seed)
{
    row = {seed % 2 != 0, text(seed), text(key), text(seed), true};
}

inline bool isWhole(const STSystemProUIData &row, int key)
{
    const QString itemKey = row.itemKey;
    const QString title = row.title;
    const QString detail = row.detail;
    return itemKey == text(key) && title == detail && row.status;
}

inline void make(STProtoDataContainer &row, int key, int seed)
{
    row = {seed % 2 != 0, key, std::string(100 + seed % 50, static_cast<char>(seed % 50))};
}

inline bool isWhole(const STProtoDataContainer &row, int key)
{
    const std::size_t size = row.protoData.size();
    return row.index == key && size >= 100 && row.protoData == std::string(size, static_cast<char>(size - 100));
}

template<class Row>
Row one(int key, int seed)
{
    Row row;
    make(row, key, seed);
    return row;
}

template<class Row>
QVector<Row> list(int seed)
{
    QVector<Row> rows;
    for (int key = 0; key < count; ++key) {
        rows.append(one<Row>(key, seed + key));
    }
    return rows;
}

template<class Row>
bool areWhole(const QVector<Row> &rows)
{
    for (int key = 0; key < rows.size(); ++key) {
        if (!isWhole(rows[key], key)) {
            return false;
        }
    }
    return rows.size() == count;
}
}
