#pragma once

#include "ITavCompleteProtectMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavProtectMgr.h"
#include "TavPluginHost.h"

#include <QMutex>
#include <QStandardItemModel>

#include <algorithm>

/**
 * Edits of lists in the managers, each done in three ways: by the manager, by hand on a vector, and on the item model
 * that a page's author would take instead.
 */

/// Roles of the texts in the item model; the row's title and check mark have Qt's own.
enum RowRole { KeyRole = Qt::UserRole, DetailRole, StatusRole, IndexRole, PayloadRole };

/// What the edits of protection rows share. The key is a path, as in a real list.
class ProtectionRows
{
public:
    using Record = STSystemProUIData;
    static constexpr QMutex::RecursionMode mutexMode = QMutex::Recursive;

    static QVector<Record> makeRows(int count)
    {
        QVector<Record> rows;
        rows.reserve(count);
        for (int i = 0; i < count; ++i) {
            rows.append({false, QStringLiteral("module %1").arg(i), key(i), QStringLiteral("loaded at start"), false});
        }
        return rows;
    }

    static QStandardItem *makeItem(int index)
    {
        auto *const item = new QStandardItem(QStringLiteral("module %1").arg(index));
        item->setData(Qt::Unchecked, Qt::CheckStateRole);
        item->setData(key(index), KeyRole);
        item->setData(QStringLiteral("loaded at start"), DetailRole);
        item->setData(false, StatusRole);
        return item;
    }

    void setRows(const QVector<Record> &rows)
    {
        manager->setProtectUIData(rows);
    }

    QVector<Record> rows()
    {
        return manager->getProtectUIData();
    }

protected:
    static QString key(int index)
    {
        return QStringLiteral("/lib/modules/kernel/drivers/%1.ko").arg(index, 7, 10, QLatin1Char('0'));
    }

    TavPluginHost plugin{TAV_PLUGIN_FILE};
    ITavProtectMgr *manager = plugin.manager<ITavProtectMgr>();
};

class EditByKey : public ProtectionRows
{
public:
    static constexpr char name[] = "edit by key";

    explicit EditByKey(int rowCount) : m_item{true, QStringLiteral("edited"), key(rowCount - 1), {}, true}
    {
    }

    void inManager()
    {
        manager->updateUIItem(m_item);
    }

    void inVector(QVector<Record> &rows) const
    {
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [this](const Record &row) { return row.itemKey == m_item.itemKey; });
        if (row != rows.end()) {
            *row = m_item;
        }
    }

    void inModel(QStandardItemModel &model) const
    {
        const QModelIndexList found
            = model.match(model.index(0, 0), KeyRole, QString(m_item.itemKey), 1, Qt::MatchExactly);
        for (const QModelIndex &index : found) {
            model.setData(index, m_item.isChecked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
            model.setData(index, QString(m_item.title), Qt::DisplayRole);
            model.setData(index, QString(m_item.detail), DetailRole);
            model.setData(index, m_item.status, StatusRole);
        }
    }

private:
    Record m_item;
};

class CheckAll : public ProtectionRows
{
public:
    static constexpr char name[] = "check all";

    explicit CheckAll(int)
    {
    }

    void inManager()
    {
        manager->setUIAllCheck(true);
    }

    static void inVector(QVector<Record> &rows)
    {
        for (Record &row : rows) {
            row.isChecked = true;
        }
    }

    /// Checks and unchecks in turn: setting what is set already would cost the model less.
    void inModel(QStandardItemModel &model)
    {
        m_checked = !m_checked;
        for (int row = 0; row < model.rowCount(); ++row) {
            model.setData(model.index(row, 0), m_checked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        }
    }

private:
    bool m_checked = false;
};

/// What the edits of rows with a message share.
class MessageRows
{
public:
    using Record = STProtoDataContainer;

    static QVector<Record> makeRows(int count)
    {
        QVector<Record> rows;
        rows.reserve(count);
        for (int i = 0; i < count; ++i) {
            rows.append({false, i, payload});
        }
        return rows;
    }

    static QStandardItem *makeItem(int index)
    {
        auto *const item = new QStandardItem;
        item->setData(Qt::Unchecked, Qt::CheckStateRole);
        item->setData(index, IndexRole);
        item->setData(QByteArray(payload), PayloadRole);
        return item;
    }

    static constexpr char payload[] = "a row's message, serialised by the page";

protected:
    explicit MessageRows(int rowCount) : item{true, rowCount - 1, "another message, serialised by the page"}
    {
    }

    void setData(QStandardItemModel &model, const QModelIndex &index) const
    {
        model.setData(index, item.isChecked ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        model.setData(index, item.index, IndexRole);
        model.setData(index, QByteArray::fromStdString(item.protoData), PayloadRole);
    }

    TavPluginHost plugin{TAV_PLUGIN_FILE};
    Record item;
};

class EditByIndex : public MessageRows
{
public:
    static constexpr char name[] = "edit by stored index";
    static constexpr QMutex::RecursionMode mutexMode = QMutex::Recursive;

    explicit EditByIndex(int rowCount) : MessageRows(rowCount)
    {
    }

    void setRows(const QVector<Record> &rows)
    {
        m_manager->setCredibleVecUI(rows);
    }

    QVector<Record> rows()
    {
        return m_manager->getCredibleVecUI();
    }

    void inManager()
    {
        m_manager->setCredibleImteUI(item);
    }

    void inVector(QVector<Record> &rows) const
    {
        const auto row
            = std::find_if(rows.begin(), rows.end(), [this](const Record &row) { return row.index == item.index; });
        if (row != rows.end()) {
            *row = item;
        }
    }

    void inModel(QStandardItemModel &model) const
    {
        const QModelIndexList found = model.match(model.index(0, 0), IndexRole, item.index, 1, Qt::MatchExactly);
        for (const QModelIndex &index : found) {
            setData(model, index);
        }
    }

private:
    ITavCompleteProtectMgr *m_manager = plugin.manager<ITavCompleteProtectMgr>();
};

class EditByPosition : public MessageRows
{
public:
    static constexpr char name[] = "edit by position";
    static constexpr QMutex::RecursionMode mutexMode = QMutex::NonRecursive;

    explicit EditByPosition(int rowCount) : MessageRows(rowCount)
    {
    }

    void setRows(const QVector<Record> &rows)
    {
        m_manager->setUIData(rows);
    }

    QVector<Record> rows()
    {
        return m_manager->getUIData();
    }

    void inManager()
    {
        m_manager->updateUIItem(item);
    }

    void inVector(QVector<Record> &rows) const
    {
        if (item.index < rows.size()) {
            rows[item.index] = item;
        }
    }

    void inModel(QStandardItemModel &model) const
    {
        setData(model, model.index(item.index, 0));
    }

private:
    ITavNetControlMgr *m_manager = plugin.manager<ITavNetControlMgr>();
};
