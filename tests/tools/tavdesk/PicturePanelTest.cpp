#include "PicturePanel.h"

#include "TestWindow.h"

#include "PictureModel.h"
#include "PlainToolTip.h"

#include <QAbstractItemModelTester>
#include <QImage>
#include <QJsonArray>
#include <QListWidget>
#include <QTableView>

namespace
{
/// @brief The panel with the pictures "b" and "d" of one directory, and another of its name, with those between.
struct TestPictures {
    TestPictures()
    {
        save("one/icons", "b.png", Qt::red);
        save("one/icons", "d.png", Qt::red);
        for (const QString &name : {QStringLiteral("a"), QStringLiteral("c"), QStringLiteral("e")}) {
            save("two/icons", name + ".png", Qt::blue);
        }
        panel = std::make_unique<PicturePanel>(session, QStringList{directory.filePath("one/icons")});
        panel->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(panel.get()));
    }

    void save(const QString &folder, const QString &file, Qt::GlobalColor colour) const
    {
        QImage picture(8, 8, QImage::Format_RGB32);
        picture.fill(colour);
        ASSERT_TRUE(QDir(directory.path()).mkpath(folder));
        ASSERT_TRUE(picture.save(directory.filePath(folder + '/' + file)));
    }

    /// As a scenario or the panel for calls does it.
    void append(const QString &folder)
    {
        session.call("ITavPicResourceMgr", "appendPicResourcePath", QJsonArray{directory.filePath(folder)});
    }

    QTableView &view() const
    {
        return *panel->findChild<QTableView *>();
    }

    QString files() const
    {
        QStringList files;
        for (int row = 0; row < view().model()->rowCount(); ++row) {
            files += view().model()->index(row, PictureModel::File).data().toString().section('/', -1);
        }
        return files.join(' ');
    }

    const QTemporaryDir directory;
    GlobalStateGuard guard;
    ClientSession session{TAV_PLUGIN_FILE, "/"};
    std::unique_ptr<PicturePanel> panel;
};
}

TEST(PicturePanel, ShowsWhatAnybodyAppends)
{
    TestPictures test;
    EXPECT_EQ(test.files().toStdString(), "b.png d.png");
    test.append("two/icons");
    auto *const directories = test.panel->findChild<QListWidget *>();
    ASSERT_TRUE(waitUntil([&] { return directories->count() == 2; }));
    EXPECT_EQ(directories->item(1)->toolTip(), plainToolTip(test.directory.filePath("two/icons")));
    EXPECT_EQ(test.files().toStdString(), "a.png b.png c.png d.png e.png");
}

TEST(PicturePanel, KeepsTheSelectionWhenADirectoryIsAppended)
{
    TestPictures test;
    const QAbstractItemModelTester tester(test.view().model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    test.view().selectRow(1);
    test.append("two/icons");
    ASSERT_TRUE(waitUntil([&] { return test.view().model()->rowCount() == 5; }));
    const QModelIndexList selected = test.view().selectionModel()->selectedRows(PictureModel::File);
    ASSERT_EQ(selected.size(), 1);
    EXPECT_TRUE(selected.first().data().toString().endsWith("d.png"));
}

TEST(PicturePanel, ShowsThePicturesThatHaveTakenThePlaceOfOthers)
{
    TestPictures test;
    const QAbstractItemModelTester tester(test.view().model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto thumbnail = [&test] {
        return test.view().model()->index(0, 0).data(Qt::DecorationRole).value<QPixmap>().toImage().pixelColor(1, 1);
    };
    EXPECT_EQ(thumbnail(), QColor(Qt::red));
    test.save("one/icons", "b.png", Qt::green);
    ASSERT_TRUE(QFile::remove(test.directory.filePath("one/icons/d.png")));
    test.append("one/icons");
    EXPECT_TRUE(waitUntil([&] { return thumbnail() == QColor(Qt::green); }));
    EXPECT_EQ(test.files().toStdString(), "b.png") << "a file that is gone has no row";
}
