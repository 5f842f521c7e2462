#pragma once

#include "TavObjectMgr.h"

#include <QAbstractTableModel>
#include <QDateTime>

/// @brief What is registered now. GUI thread.
class RegistryModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Key, Class, Interface, Thread, Since, ColumnCount };

    /// @p registry outlives the model.
    explicit RegistryModel(ITavObjectMgr &registry, QObject *parent = nullptr);

    /// Takes over what has been registered or has ended since the last time.
    void update();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        STObjectKey key;
        const QObject *object; ///< only to tell objects apart: it may have ended
        QString className;
        QString interface; ///< "-" when the object does not have the interface that its key names
        QString thread; ///< "-" for an object of none, to which no event comes
        QDateTime since; ///< when it was seen first
    };

    static Row rowOf(const STObjectKey &key, const QObject &object);
    static QString threadOf(const QObject &object);

    ITavObjectMgr &m_registry;
    QVector<Row> m_rows;
};
