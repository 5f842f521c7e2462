#include "TestWindow.h"

#include "ArgumentForm.h"
#include "FindingsDialog.h"
#include "ITavPicResourceMgr.h"
#include "LogModel.h"
#include "PrintQString.h"
#include "ShownToolTip.h"

#include <QTreeWidget>

namespace
{
/// What Qt would take for HTML, and what it would not.
const QStringList hostile{"<b>not bold</b> &amp; so on", "one & \"two\",\n  indented"};
}

TEST(ToolTip, OfAnArgumentIsItsWholeType)
{
    ArgumentForm form;
    for (const QString &type : {QStringLiteral("QVector<b>"), QStringLiteral("const char &")}) {
        form.setArguments({{"argument", type, false}});
        EXPECT_EQ(shownToolTip(form.findChild<QLabel *>()->toolTip()), type);
    }
}

TEST(ToolTip, OfALogIsWhatItsCellShows)
{
    BoundedLog<QString> log(1 << 20, 10);
    LogModel<QString> model(log, {{"column", [](const QString &entry) { return entry; }}});
    for (const QString &text : hostile) {
        log.append(text);
    }
    log.append(QString());
    model.update();
    EXPECT_EQ(shownToolTip(model.index(0, 0).data(Qt::ToolTipRole).toString()), hostile[0]);
    EXPECT_EQ(shownToolTip(model.index(1, 0).data(Qt::ToolTipRole).toString()), hostile[1]);
    EXPECT_EQ(model.index(2, 0).data(Qt::ToolTipRole).toString(), QString()) << "an empty cell has none";
}

TEST(ToolTip, OfAPageInTheNavigationIsItsHelp)
{
    TestWindow client;
    NavigationNode function;
    for (const QString &help : hostile) {
        TavSubFuncTypeData_ page;
        page.subFuncHelp = help;
        function.pages.append(page);
    }
    const NavigationModel model({function}, *client.session.host().manager<ITavPicResourceMgr>(), {});
    for (int page = 0; page < hostile.size(); ++page) {
        const QModelIndex entry = model.index(page, 0, model.index(0, 0));
        EXPECT_EQ(shownToolTip(entry.data(Qt::ToolTipRole).toString()), hostile[page]);
    }
}

TEST(ToolTip, OfAFindingIsItsText)
{
    const FindingsDialog dialog({}, {Finding::ofFile(FindingCode::EmptyFile, "file", hostile[0], hostile[1], {})});
    const QTreeWidgetItem &finding = *dialog.findChild<QTreeWidget *>()->topLevelItem(0);
    EXPECT_EQ(shownToolTip(finding.toolTip(1)), hostile[0]);
    EXPECT_EQ(shownToolTip(finding.toolTip(2)), hostile[1]);
}
