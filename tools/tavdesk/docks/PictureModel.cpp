#include "PictureModel.h"

#include "ClientSession.h"
#include "ITavPicResourceMgr.h"
#include "PictureCheck.h"

#include <QGuiApplication>

PictureModel::PictureModel(ClientSession &session, QObject *parent) : QAbstractTableModel(parent), m_session(session)
{
}

// A directory may add pictures, and take the place of others, anywhere in the order of the keys.
void PictureModel::update()
{
    const QVector<Row> rows = readRows();
    int row = 0;
    for (const Row &wanted : rows) {
        while (row < m_rows.size() && m_rows[row].key < wanted.key) {
            remove(row);
        }
        if (row == m_rows.size() || m_rows[row].key != wanted.key) {
            beginInsertRows({}, row, row);
            m_rows.insert(row, wanted);
            endInsertRows();
        } else if (!(m_rows[row] == wanted)) {
            m_rows[row] = wanted;
            emit dataChanged(index(row, 0), index(row, ColumnCount - 1));
        }
        ++row;
    }
    while (row < m_rows.size()) {
        remove(row);
    }
}

void PictureModel::remove(int row)
{
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
}

int PictureModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int PictureModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PictureModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const Row &row = m_rows[index.row()];
    if (role == Qt::DecorationRole) {
        return index.column() == Key ? row.thumbnail : QVariant();
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    switch (index.column()) {
    case Key:
        return row.key;
    case Pixels:
        return row.size.isEmpty() ? tr("no picture")
                                  : QStringLiteral("%1×%2").arg(row.size.width()).arg(row.size.height());
    default:
        return row.file;
    }
}

QVariant PictureModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    const QStringList titles{tr("Key"), tr("Pixels"), tr("File")};
    return titles.value(section);
}

QVector<PictureModel::Row> PictureModel::readRows() const
{
    const qreal ratio = qApp->devicePixelRatio(); // device pixels in one of the program's
    const int largest = qRound(largestThumbnail * ratio);
    ITavPicResourceMgr &pictures = *m_session.host().manager<ITavPicResourceMgr>();
    QMap<QString, Row> rows; // of several files with one key, the last one is held
    const QVector<PictureFile> files = listPictures(m_session.calls().pictureDirectories().all()).files;
    for (const PictureFile &file : files) {
        const std::shared_ptr<QImage> image = pictures.getImageRef(file.directory, file.name);
        if (!image) {
            continue; // came after the directory was loaded
        }
        Row row{file.key(), file.file, image->size(), image->cacheKey(), {}};
        if (!image->isNull()) {
            const bool isLarge = image->width() > largestThumbnail || image->height() > largestThumbnail;
            row.thumbnail = QPixmap::fromImage(
                isLarge ? image->scaled(largest, largest, Qt::KeepAspectRatio, Qt::SmoothTransformation) : *image);
            row.thumbnail.setDevicePixelRatio(isLarge ? ratio : 1);
        }
        rows.insert(row.key, row);
    }
    return {rows.cbegin(), rows.cend()};
}
