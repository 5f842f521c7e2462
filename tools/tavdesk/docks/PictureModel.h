#pragma once

#include <QAbstractTableModel>
#include <QPixmap>
#include <QSize>

class ClientSession;

/// @brief The pictures that the picture manager holds of the directories that were appended. GUI thread.
class PictureModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Key, Pixels, File, ColumnCount };

    static constexpr int largestThumbnail = 32;

    /// @p session outlives the model.
    explicit PictureModel(ClientSession &session, QObject *parent = nullptr);

    /// Has the manager load the directories, and shows their pictures; once more, with what it holds by then.
    void append(const QStringList &directories);

    /// The directories that were appended, each once.
    const QStringList &directories() const
    {
        return m_directories;
    }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        QString key;
        QString file;
        QSize size; ///< empty for a file that is no picture
        QPixmap thumbnail;
    };

    QVector<Row> readRows() const;

    ClientSession &m_session;
    QStringList m_directories;
    QVector<Row> m_rows;
};
