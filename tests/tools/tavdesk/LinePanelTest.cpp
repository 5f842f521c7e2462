#include "LinePanel.h"

#include "TestWindow.h"

#include "LogLines.h"

#include <QLineEdit>
#include <QTableView>

TEST(LinePanel, FindsLinesByTheirLevel)
{
    BoundedLog<LogLine> log;
    log.append({QDateTime::currentDateTime(), QtInfoMsg, "TavFuncTypeMgr", "json format is error", "gui"});
    log.append({QDateTime::currentDateTime(), QtWarningMsg, "TavAuditMgr", "one", "gui"});
    log.append({QDateTime::currentDateTime(), QtWarningMsg, "TavAuditMgr", "two", "gui"});
    LinePanel panel(log);
    panel.show();
    const QAbstractItemModel &model = *panel.findChild<QTableView *>()->model();
    ASSERT_TRUE(waitUntil([&model] { return model.rowCount() == 3; }));
    QTest::keyClicks(panel.findChild<QLineEdit *>(), "warning");
    EXPECT_TRUE(waitUntil([&model] { return model.rowCount() == 2; }));
}
