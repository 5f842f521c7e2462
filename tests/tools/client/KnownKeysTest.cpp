#include "CallLog.h"
#include "PrintQString.h"

#include <QJsonObject>

#include <gtest/gtest.h>

namespace
{
const QString manager = QStringLiteral("ITavAccessControlMgr");

LoggedCall callOf(const QString &operation, const QJsonValue &arguments)
{
    LoggedCall call;
    call.manager = manager;
    call.operation = operation;
    call.arguments = arguments;
    return call;
}
}

TEST(KnownKeys, AreThoseThatCallsHaveSetInAscendingOrder)
{
    CallLog log;
    log.note(callOf("updateObjectDetail", QJsonArray{10, true, QJsonArray()}));
    log.note(callOf("updateObjectDetail", QJsonObject{{"details", QJsonArray()}, {"flag", false}, {"key", 10}}));
    log.note(callOf("updateObjectDetail", QJsonArray{9, true, QJsonArray()}));
    log.note(callOf("updateObjectDetail", QJsonArray{10, true, QJsonArray()}));
    log.clear();
    EXPECT_EQ(log.keys().of(manager, "getObjectDetail"), (QVector<QJsonArray>{{9, true}, {10, false}, {10, true}}));
    EXPECT_TRUE(log.keys().of(manager, "getUserDetail").isEmpty());
}

TEST(KnownKeys, AreNotThoseOfRefusedCalls)
{
    CallLog log;
    LoggedCall refused = callOf("updateUserDetail", QJsonArray{1, QJsonArray()});
    refused.error = "refused";
    log.note(refused);
    EXPECT_TRUE(log.keys().of(manager, "getUserDetail").isEmpty());
}

TEST(KnownKeys, AreGoneWhenTheManagerHasBeenCleared)
{
    CallLog log;
    log.note(callOf("updateUserDetail", QJsonArray{1, QJsonArray()}));
    log.note(callOf("clearCacheData", QJsonArray()));
    EXPECT_TRUE(log.keys().of(manager, "getUserDetail").isEmpty());
}
