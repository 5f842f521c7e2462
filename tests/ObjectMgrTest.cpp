#include "TavObjectMgr.h"

#include <gtest/gtest.h>

namespace
{
const STObjectKey keyA{1, QStringLiteral("a")};
}

TEST(ObjectMgr, AnswersWithTheRegisteredObject)
{
    TavObjectMgr registry;
    QObject object;
    registry.registerObject(keyA, &object, false);
    EXPECT_EQ(registry.getObject(keyA), &object);
}
