#include "TestWindow.h"

#include "CallLogPanel.h"
#include "PicturePanel.h"
#include "RegistryPanel.h"

#include <QClipboard>
#include <QImage>
#include <QTableView>

namespace
{
/// What the standard key for copying puts on the clipboard from the table in @p panel.
QString copiedFrom(const QWidget &panel)
{
    QApplication::clipboard()->clear();
    auto *const table = panel.findChild<QTableView *>();
    table->setFocus();
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    return QApplication::clipboard()->text();
}

/// The texts of a row's cells, a tabulator between them.
QString rowText(const QWidget &panel, int row)
{
    const QAbstractItemModel &model = *panel.findChild<QTableView *>()->model();
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
        cells.append(model.index(row, column).data().toString());
    }
    return cells.join('\t');
}

bool show(QWidget &panel)
{
    panel.show();
    panel.activateWindow();
    return QTest::qWaitForWindowActive(&panel);
}
}

TEST(RowCopy, TakesTheSelectedRowsOfALogInTheirOrder)
{
    CallLog log;
    for (const QString &operation : {QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}) {
        LoggedCall call;
        call.operation = operation;
        log.note(call);
    }
    CallLogPanel panel(log);
    ASSERT_TRUE(show(panel));
    QTableView &view = *panel.findChild<QTableView *>();
    const auto select = [&view](int row) {
        view.selectionModel()->select(view.model()->index(row, 0),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
    };
    select(2);
    select(0);
    const QString copied = copiedFrom(panel);
    EXPECT_TRUE(copied.contains("one")) << copied.toStdString();
    EXPECT_EQ(copied.toStdString(), (rowText(panel, 0) + '\n' + rowText(panel, 2)).toStdString());
}

TEST(RowCopy, TakesTheCurrentRowWhereNoneIsSelected)
{
    CallLog log;
    log.note({});
    CallLogPanel panel(log);
    ASSERT_TRUE(show(panel));
    QTableView &view = *panel.findChild<QTableView *>();
    view.selectionModel()->setCurrentIndex(view.model()->index(0, 3), QItemSelectionModel::NoUpdate);
    EXPECT_EQ(copiedFrom(panel).toStdString(), rowText(panel, 0).toStdString());
}

TEST(RowCopy, KeepsARowOnOneLineWhateverItsCellsHold)
{
    CallLog log;
    LoggedCall call;
    call.operation = "one\ttwo\nthree";
    log.note(call);
    CallLogPanel panel(log);
    ASSERT_TRUE(show(panel));
    panel.findChild<QTableView *>()->selectRow(0);
    EXPECT_EQ(copiedFrom(panel).count('\t'), panel.findChild<QTableView *>()->model()->columnCount() - 1);
    EXPECT_EQ(copiedFrom(panel).count('\n'), 0);
    EXPECT_TRUE(copiedFrom(panel).contains("one two three"));
}

TEST(RowCopy, WorksInTheTablesThatAreNoLogs)
{
    const GlobalStateGuard guard;
    const QTemporaryDir directory;
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(directory.filePath("red.png")));
    ClientSession session(TAV_PLUGIN_FILE, demoRoot);
    RegistryPanel registry(session.host().registry());
    PicturePanel pictures(session, {directory.path()});
    for (QWidget *const panel : std::initializer_list<QWidget *>{&registry, &pictures}) {
        ASSERT_TRUE(show(*panel));
        panel->findChild<QTableView *>()->selectRow(0);
        EXPECT_EQ(copiedFrom(*panel).toStdString(), rowText(*panel, 0).toStdString());
        EXPECT_TRUE(rowText(*panel, 0).contains('\t'));
    }
}
