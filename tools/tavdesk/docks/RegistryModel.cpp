#include "RegistryModel.h"

#include "LogTexts.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>

RegistryModel::RegistryModel(ITavObjectMgr &registry, QObject *parent)
    : QAbstractTableModel(parent), m_registry(registry)
{
    update();
}

void RegistryModel::update()
{
    QVector<STObjectKey> keys = m_registry.getObjectKeys();
    for (int row = m_rows.size() - 1; row >= 0; --row) {
        const QObject *const object = m_registry.getObject(m_rows[row].key);
        if (object && object == m_rows[row].object) {
            keys.removeOne(m_rows[row].key);
            if (const QString thread = threadOf(*object); thread != m_rows[row].thread) {
                m_rows[row].thread = thread;
                emit dataChanged(index(row, Thread), index(row, Thread));
            }
        } else { // it has ended, or another one is found in its place
            beginRemoveRows({}, row, row);
            m_rows.removeAt(row);
            endRemoveRows();
        }
    }
    for (const STObjectKey &key : qAsConst(keys)) {
        if (const QObject *const object = m_registry.getObject(key)) {
            beginInsertRows({}, m_rows.size(), m_rows.size());
            m_rows.append(rowOf(key, *object));
            endInsertRows();
        }
    }
}

int RegistryModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int RegistryModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant RegistryModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    const Row &row = m_rows[index.row()];
    switch (index.column()) {
    case Key:
        return role == Qt::ToolTipRole ? QStringLiteral("%1, %2").arg(row.key.name).arg(row.key.id) : row.key.name;
    case Class:
        return row.className;
    case Interface:
        return row.interface;
    case Thread:
        return row.thread;
    default:
        return LogTexts::time(row.since);
    }
}

QVariant RegistryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    const QStringList titles{tr("Key"), tr("Class"), tr("Interface"), tr("Thread"), tr("Since")};
    return titles.value(section);
}

RegistryModel::Row RegistryModel::rowOf(const STObjectKey &key, const QObject &object)
{
    const QLatin1String suffix("_Tav_ORG");
    const QString interface = key.name.endsWith(suffix) ? key.name.chopped(suffix.size()) : key.name;
    const bool hasInterface = const_cast<QObject &>(object).qt_metacast(interface.toUtf8().constData()) != nullptr;
    return {key,
            &object,
            QString::fromUtf8(object.metaObject()->className()),
            hasInterface ? interface : QStringLiteral("-"),
            threadOf(object),
            QDateTime::currentDateTime()};
}

QString RegistryModel::threadOf(const QObject &object)
{
    const QThread *const thread = object.thread();
    if (!thread) {
        return QStringLiteral("-");
    }
    return thread == QCoreApplication::instance()->thread() ? QStringLiteral("gui") : thread->objectName();
}
