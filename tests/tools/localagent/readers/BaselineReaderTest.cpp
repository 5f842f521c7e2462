#include "BaselineReader.h"

#include "STBLEnableConfig.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

TEST(BaselineReader, FindsTheFaultsOfTheConfiguration)
{
    const QJsonObject config = QJsonDocument::fromJson(R"({"enableConfig": [
        {"itemId": 1, "name": "a", "standardValue": "b", "checkValueScript": "/none.sh", "type": 1},
        {"itemId": 1, "name": 5, "standardValue": "b", "checkValueScript": "/none.sh"}]})")
                                   .object();
    const auto faults = BaselineReader::faultsOf(config, [](int) { return STBLEnableConfig(); });
    ASSERT_EQ(faults.items_size(), 4);
    EXPECT_EQ(faults.items(0).code(), 3);
    EXPECT_EQ(faults.items(1).code(), 2);
    EXPECT_EQ(faults.items(1).key(), "name");
    EXPECT_EQ(faults.items(2).code(), 1);
    EXPECT_EQ(faults.items(2).key(), "type");
    EXPECT_EQ(faults.items(3).code(), 5);
}
