#include "BaselineList.h"

#include <QJsonDocument>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(BaselineList, HasEachIdOnceInItsOrderAndZeroForWhatIsNone)
{
    const QJsonObject list = QJsonDocument::fromJson(R"({"enableConfig": [
        {"itemId": 7}, {"itemId": -1}, {"itemId": "8"}, {"itemId": 7}, {}, "9"]})")
                                 .object();
    EXPECT_THAT(BaselineList::idsOf(list), ElementsAre(7, -1, 0));
}

TEST(BaselineList, WithoutItemsHasNoIds)
{
    EXPECT_THAT(BaselineList::idsOf({}), IsEmpty());
    EXPECT_THAT(BaselineList::idsOf({{"enableConfig", 1}}), IsEmpty());
}
