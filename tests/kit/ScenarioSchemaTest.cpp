#include "PrintQString.h"
#include "TavScenario.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace
{
QJsonObject formOfLine(int place)
{
    QFile file(TAV_SOURCE_DIR "/share/schemas/scenario.schema.json");
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QJsonDocument::fromJson(file.readAll()).object()["oneOf"].toArray()[place].toObject();
}

QStringList textsOf(const QJsonValue &list)
{
    return list.toVariant().toStringList();
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}
}

TEST(ScenarioSchema, NamesTheKeysThreadsAndManagers)
{
    const QJsonObject page = formOfLine(1)["properties"].toObject();
    const QJsonObject call = formOfLine(2)["properties"].toObject();
    EXPECT_EQ(page.keys(), QStringList({"at", "page", "thread"}));
    EXPECT_EQ(call.keys(), QStringList({"arguments", "at", "manager", "operation", "returns", "thread"}));
    EXPECT_EQ(textsOf(call["thread"].toObject()["enum"]), TavScenario::threads());
    EXPECT_EQ(sorted(textsOf(call["manager"].toObject()["enum"])), sorted(TavCall::managers()));
    EXPECT_EQ(call["at"].toObject()["maximum"], qint64(TavScenarioReader::latestTime));
}

TEST(ScenarioSchema, NamesTheOperationsOfEachManager)
{
    QHash<QString, QStringList> described;
    const QJsonArray conditions = formOfLine(2)["allOf"].toArray();
    for (const QJsonValue condition : conditions) {
        const QString manager = condition["if"]["properties"]["manager"]["const"].toString();
        const QStringList operations = textsOf(condition["then"]["properties"]["operation"]["enum"]);
        if (!operations.isEmpty()) {
            described.insert(manager, operations);
        }
    }
    const QStringList managers = TavCall::managers();
    for (const QString &manager : managers) {
        QStringList names;
        for (const TavCall::Operation &operation : TavCall::operationsOf(manager)) {
            names.append(operation.name);
        }
        names.removeDuplicates(); // overloads share a name
        EXPECT_EQ(described[manager], names) << manager.toStdString();
    }
}
