// The tables of docs/pages.md, made anew from the catalogue of the demo, the pages' values and the table of the
// operations.
#include "ITavFuncTypeMgr.h"
#include "NavigationTree.h"
#include "PageValues.h"
#include "TavCall.h"
#include "TavOperations.h"
#include "TavPluginHost.h"

#include <QFile>
#include <QMap>

#include <gtest/gtest.h>

namespace
{
QString code(const QString &text)
{
    return '`' + text + '`';
}

/// The operation of this name; of several, the one with the most arguments.
const TavCall::Operation &operationOf(const QString &manager, const QString &name)
{
    const TavCall::Operation *found = nullptr;
    for (const TavCall::Operation &operation : TavCall::operations()) {
        if (operation.manager == manager && operation.name == name
            && (!found || found->arguments.size() < operation.arguments.size())) {
            found = &operation;
        }
    }
    EXPECT_NE(found, nullptr) << qPrintable(name);
    return *found;
}

QString textOf(const char *path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return QString::fromUtf8(file.readAll());
}

/// The fields by which a row edit finds its row.
QString foundBy(const QString &manager, const QString &getter)
{
    QString fields;
    TavOperations::Interfaces::forEach([&](auto tag) {
        using Interface = typename decltype(tag)::type;
        TavOperations::forEachOperation<Interface>([&](const auto &operation) {
            if (manager == qobject_interface_iid<Interface *>() && !operation.editedList.empty()
                && getter.toStdString() == operation.editedList) {
                fields = QString::fromStdString(std::string(operation.foundBy));
            }
        });
    });
    return fields;
}

QString settersOf(const PageValue &value)
{
    for (const TavCall::HeldValue &held : TavCall::heldValues()) {
        if (held.manager == value.manager && held.getter == value.getter) {
            return code(held.setter);
        }
    }
    if (!value.keyNames.isEmpty()) {
        return code(operationOf(value.manager, "update" + value.getter.mid(3)).signature());
    }
    if (value.readKeysFrom) {
        return code(operationOf(value.manager, "set" + value.getter.mid(3)).signature());
    }
    return {};
}

QString editsOf(const PageValue &value)
{
    QStringList edits;
    if (!value.rowEdit.isEmpty()) {
        edits.append(code(value.rowEdit) + " by " + foundBy(value.manager, value.getter));
    }
    for (const QString &edit : {value.checkAll, value.uncheckAll, value.toggleRow, value.toggleAll}) {
        if (!edit.isEmpty()) {
            edits.append(code(operationOf(value.manager, edit).signature()));
        }
    }
    return edits.join(", ");
}

QString rowOf(const PageValue &value)
{
    const TavCall::Operation &getter = operationOf(value.manager, value.getter);
    const QString name = value.keyNames.isEmpty() && getter.arguments.isEmpty() ? getter.name : getter.signature();
    return QString("| %1 | %2 | %3 | %4 | %5 |\n")
        .arg(value.manager, code(name), code(getter.result), settersOf(value), editsOf(value));
}

/// All tables, each page's under its key.
QString tables()
{
    QString text;
    QMap<QString, QStringList> pagesOf;
    const QVector<TavSubFuncTypeData_> pages = tavObject<ITavFuncTypeMgr>()->getSubFuncInfo();
    for (const TavSubFuncTypeData_ &page : pages) {
        text += QString("\n### %1\n\nOf %2, shown by `%3`.\n\n| manager | value | type | set by | edited by |\n"
                        "|---|---|---|---|---|\n")
                    .arg(pageKey(page.subFuncType), functionKey(page.funcType), page.subFuncClassName);
        for (const PageValue &value : valuesOf(page.subFuncType)) {
            text += rowOf(value);
            QStringList &sharing = pagesOf[value.manager];
            if (!sharing.contains(pageKey(page.subFuncType))) {
                sharing.append(pageKey(page.subFuncType));
            }
        }
    }
    text += "\n## Pages that share a model\n\n| manager | pages |\n|---|---|\n";
    for (auto sharing = pagesOf.cbegin(); sharing != pagesOf.cend(); ++sharing) {
        if (sharing->size() > 1) {
            text += QString("| %1 | %2 |\n").arg(sharing.key(), sharing->join(", "));
        }
    }
    return text;
}
}

TEST(PagesDocument, SaysWhatTheTablesSay)
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(TAV_SOURCE_DIR "/share/demo");
    const TavPluginHost host(TAV_PLUGIN_FILE);
    tavObject<ITavFuncTypeMgr>()->loadConfig();
    const QString document = textOf(TAV_SOURCE_DIR "/docs/pages.md");
    const QString expected = tables();
    ASSERT_GT(expected.count("\n### "), 10);
    EXPECT_TRUE(document.contains(expected)) << "docs/pages.md should hold:\n" << qPrintable(expected);
}

TEST(PagesDocument, SaysOfTheLevelsWhatTheirHeaderSays)
{
    const QStringList table = textOf(TAV_SOURCE_DIR "/kit/TavAccessLevel.h").split('\n').filter(" * |");
    ASSERT_EQ(table.size(), 6);
    const QString expected = '\n' + table.join('\n').remove(" * ") + '\n';
    EXPECT_TRUE(textOf(TAV_SOURCE_DIR "/docs/pages.md").contains(expected)) << qPrintable(expected);
}
