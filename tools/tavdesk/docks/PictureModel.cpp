#include "PictureModel.h"

#include "ClientSession.h"
#include "ITavPicResourceMgr.h"
#include "PictureCheck.h"

#include <QGuiApplication>
#include <QJsonArray>

PictureModel::PictureModel(ClientSession &session, QObject *parent) : QAbstractTableModel(parent), m_session(session)
{
}

void PictureModel::append(const QStringList &directories)
{
    for (const QString &directory : directories) {
        m_session.call(QLatin1String(qobject_interface_iid<ITavPicResourceMgr *>()),
                       QStringLiteral("appendPicResourcePath"), QJsonArray{directory});
        m_directories.removeAll(directory);
        m_directories.append(directory);
    }
    const QVector<Row> rows = readRows();
    beginResetModel(); // a directory may take the place of pictures anywhere
    m_rows = rows;
    endResetModel();
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
    const QVector<PictureFile> files = listPictures(m_directories).files;
    for (const PictureFile &file : files) {
        const std::shared_ptr<QImage> image = pictures.getImageRef(file.directory, file.name);
        if (!image) {
            continue; // came after the directory was loaded
        }
        Row row{file.key(), file.file, image->size(), {}};
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
