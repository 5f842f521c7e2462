#include "CodeMeanings.h"

#include "MessageTable.h"
#include "PrintQString.h"
#include "RecordTable.h"
#include "ValueJson.h"

#include "Measure.pb.h"
#include "NetControl.pb.h"

#include <gtest/gtest.h>

TEST(CodeMeanings, AreThoseThatTheCommentOnARecordsFieldDocuments)
{
    EXPECT_EQ(documentedMeanings("STSystemScanStateAsr", "state"),
              (CodeMeanings{{0, "idle"}, {1, "running"}, {2, "finished"}, {3, "stopped by the user"}, {4, "failed"}}));
    EXPECT_EQ(documentedMeanings("STSystemScanStateAsr", "totalCount"), (CodeMeanings{{0, "not known yet"}}));
    EXPECT_TRUE(documentedMeanings("STSystemScanStateAsr", "progress").isEmpty()) << "0 to 100 are no codes";
    EXPECT_TRUE(documentedMeanings("STSystemScanStateAsr", "nothing").isEmpty());
}

TEST(CodeMeanings, AreThoseThatTheCommentOnAMessagesFieldDocuments)
{
    EXPECT_EQ(documentedMeanings("Tav.Measure.CredibleMode", "mode"),
              (CodeMeanings{{0, "off"}, {1, "learning"}, {2, "log only"}, {3, "enforced"}}));
    const CodeMeanings kinds = documentedMeanings("Tav.DevControl.DevFuncEnable", "func_id");
    EXPECT_EQ(kinds.size(), 10);
    EXPECT_EQ(kinds[5], "optical drive") << "the comment goes on in the next line";
    const CodeMeanings states = documentedMeanings("Tav.NetControl.NetDeviceInfo", "oper_state");
    EXPECT_EQ(states.keys(), QList<qint64>({0, 2, 5, 6})) << "the number of a standard is no code";
    EXPECT_EQ(documentedMeanings("Tav.NetControl.NetDeviceInfo", "type").value(772), "loopback");
    EXPECT_EQ(documentedMeanings("Tav.HostInfo.SystemFileStateAsr", "secure_boot").value(-1), "the firmware has none");
}

TEST(CodeMeanings, StandAtTheColumnsThatAreCodes)
{
    const RecordTable<STSystemScanStateAsr> record(STSystemScanStateAsr{});
    EXPECT_EQ(record.columns()[record.column("state")].meanings.value(2), "finished");
    EXPECT_TRUE(record.columns()[record.column("endTime")].meanings.isEmpty()) << "a time is no code";
    const MessageTable message(std::make_shared<Tav::Measure::DyGetScanStateAsr>());
    EXPECT_EQ(message.columns()[message.column("state")].meanings.value(1), "running");
    const QJsonObject column = ValueJson::columns(record)[record.column("totalCount")].toObject();
    EXPECT_EQ(column["meanings"].toObject(), (QJsonObject{{"0", "not known yet"}}));
}
