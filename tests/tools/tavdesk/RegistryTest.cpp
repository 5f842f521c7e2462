#include "TestWindow.h"

#include "RegistryModel.h"

#include <QAbstractItemModelTester>
#include <QTableView>
#include <QThread>

namespace
{
const STObjectKey key = tavManagerKey("ITavTestController");

/// What the model shows of the object that is registered last.
QString shown(const RegistryModel &model, RegistryModel::Column column)
{
    return model.index(model.rowCount() - 1, column).data().toString();
}
}

TEST(Registry, ShowsTheFifteenManagers)
{
    const TestWindow client;
    EXPECT_EQ(client.named<QTableView>("Registered objects")->model()->rowCount(), 15);
}

TEST(Registry, ShowsSinceWhenAnObjectIsThereAlsoWhenNobodyHasLooked)
{
    const TestWindow client;
    QAbstractItemModel &model = *client.named<QTableView>("Registered objects")->model();
    TavGlobalInfoMgr::getObjectMgr()->registerObject(key, new QObject, true);
    EXPECT_TRUE(waitUntil([&model] { return model.rowCount() == 16; })) << "its dock is not in sight";
}

TEST(Registry, FollowsAnObjectFromThreadToThread)
{
    const TestWindow client;
    QThread thread;
    thread.setObjectName("elsewhere");
    auto *const object = new QObject;
    TavGlobalInfoMgr::getObjectMgr()->registerObject(key, object, true);
    RegistryModel model(*TavGlobalInfoMgr::getObjectMgr());
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(shown(model, RegistryModel::Thread).toStdString(), "gui");
    object->moveToThread(&thread);
    model.update();
    EXPECT_EQ(shown(model, RegistryModel::Thread).toStdString(), "elsewhere");
}

TEST(Registry, TakesAnObjectWithoutAThread)
{
    const TestWindow client;
    auto *const object = new QObject;
    object->moveToThread(nullptr);
    TavGlobalInfoMgr::getObjectMgr()->registerObject(key, object, true);
    const RegistryModel model(*TavGlobalInfoMgr::getObjectMgr());
    EXPECT_EQ(shown(model, RegistryModel::Thread).toStdString(), "-");
}
