#include "BaselineCommand.h"

#include "BaselineCheck.h"
#include "BaselineList.h"
#include "InstallationPaths.h"
#include "ITavLineScanMgr.h"
#include "PluginView.h"
#include "Presentation.h"
#include "TavCommonUtils.h"
#include "TavCountedText.h"
#include "TavGlobalInfoMgr.h"
#include "TavObjectMgr.h"
#include "TextTable.h"
#include "WholeFile.h"

#include <QJsonArray>
#include <QMap>

namespace
{
/// The items that the plugin holds, by id.
QMap<int, STBLEnableConfig> itemsHeld()
{
    auto &model = *tavObject<ITavLineScanMgr>();
    model.loadJsonConfig();
    QMap<int, STBLEnableConfig> items;
    const QVector<int> ids = BaselineList::idsOf(BaselineList::read());
    for (const int id : ids) {
        items.insert(id, model.getItemConfig(id));
    }
    return items;
}

void printItems(const QMap<int, STBLEnableConfig> &items)
{
    printHeading(QString("Check items: %1").arg(items.size()));
    TextTable table({{"id", TextTable::Right},
                     {"name"},
                     {"expected"},
                     {"type", TextTable::Right},
                     {"button"},
                     {"script", TextTable::Left, 80},
                     {"description", TextTable::Left, 40}});
    for (const STBLEnableConfig &item : items) {
        table.addRow({QString::number(item.itemId), item.name, item.standardValue, QString::number(item.type),
                      item.btntext, item.checkValueScript, item.desc});
    }
    table.print();
}

QJsonArray itemsJson(const QMap<int, STBLEnableConfig> &items)
{
    QJsonArray rows;
    for (const STBLEnableConfig &item : items) {
        rows.append(QJsonObject{{"id", item.itemId},
                                {"name", item.name},
                                {"expected", item.standardValue},
                                {"type", item.type},
                                {"button", item.btntext},
                                {"script", item.checkValueScript},
                                {"description", item.desc}});
    }
    return rows;
}
}

ExitCode showBaseline(const BaselineShowOptions &options)
{
    TavCommonUtils::setContent(InstallationPaths::baseline(), WholeFile::read(options.file));
    const TavPluginHost host = loadPlugin(options.plugin);
    const QMap<int, STBLEnableConfig> items = itemsHeld();
    if (items.isEmpty()) {
        throw ToolError(ExitCode::Usage,
                        options.file + ": the plugin loads no check item from it; \"tavctl baseline check\" says why");
    }
    if (options.json) {
        printJson({{"items", itemsJson(items)}});
    } else {
        printItems(items);
    }
    return ExitCode::Success;
}

ExitCode checkBaselineFiles(const BaselineCheckOptions &options)
{
    FindingReport report(options.findings);
    FileFixing fixing(options.fixing, options.files);
    QStringList roots;
    for (const QString &file : options.files) {
        const QString own = options.root.isEmpty() ? InstallationPaths::rootOf(file) : options.root;
        const QString root = own.isEmpty() ? "/" : own;
        TavGlobalInfoMgr::getInstance()->setSystemRoot(root);
        fixing.check(file, checkBaseline, report);
        roots.append(root);
    }
    roots.removeDuplicates();
    if (fixing.files().count() > 0) {
        report.print(QString("%1 checked with the scripts below %2")
                         .arg(countedText(fixing.files().count(), "file"), roots.join(", "))
                     + fixing.summary());
    }
    return fixing.files().exitCode(report);
}
