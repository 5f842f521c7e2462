// TavSystemLogMgr: nothing registers it, so it is made here as a part of the plugin that used it would make it.

#include "TavSystemLogMgr.h"

#include <QPointer>

#include <gtest/gtest.h>

TEST(SystemLogMgr, IsAPlainObjectOfItsParent)
{
    auto parent = std::make_unique<QObject>();
    const QPointer<TavSystemLogMgr> manager = new TavSystemLogMgr(parent.get());
    EXPECT_EQ(manager->parent(), parent.get());
    EXPECT_EQ(sizeof(TavSystemLogMgr), sizeof(QObject));
    parent.reset();
    EXPECT_TRUE(manager.isNull());
}

TEST(SystemLogMgr, AnswersToItsOwnNameOnly)
{
    TavSystemLogMgr manager(nullptr);
    EXPECT_EQ(manager.qt_metacast("TavSystemLogMgr"), &manager);
    EXPECT_EQ(manager.qt_metacast("ITavSystemLogMgr"), nullptr);
    EXPECT_EQ(manager.metaObject()->methodCount(), QObject::staticMetaObject.methodCount());
    EXPECT_EQ(manager.metaObject()->propertyCount(), QObject::staticMetaObject.propertyCount());
}
