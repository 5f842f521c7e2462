#pragma once

#include <QAbstractTableModel>
#include <QPixmap>
#include <QSize>

class ClientSession;

/// @brief The pictures that the picture manager holds of the directories that were appended, whoever did so. GUI
/// thread.
class PictureModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Key, Pixels, File, ColumnCount };

    static constexpr int largestThumbnail = 32;

    /// @p session outlives the model.
    explicit PictureModel(ClientSession &session, QObject *parent = nullptr);

    /// Shows what the manager holds by now.
    void update();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        QString key;
        QString file;
        QSize size; ///< empty for a file that is no picture
        qint64 image; ///< which picture it is
        QPixmap thumbnail;

        bool operator==(const Row &other) const
        {
            return key == other.key && file == other.file && image == other.image;
        }
    };

    QVector<Row> readRows() const;
    void remove(int row);

    ClientSession &m_session;
    QVector<Row> m_rows; ///< in the order of their keys
};
