#include "ITavAccessControlMgr.h"
#include "ITavPicResourceMgr.h"
#include "NetControl.pb.h"
#include "STImaContentAsr.h"
#include "TavAccessObjects.h"
#include "TavAccessPrincipals.h"
#include "TavAnswer.h"
#include "TavPackedField.h"
#include "TavPictureDirectory.h"
#include "TavPluginHost.h"
#include "TavWorker.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSemaphore>
#include <QThread>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace
{
template<int size>
struct Buffer {
    char bytes[size];

    explicit Buffer(const QString &text) : bytes{}
    {
        std::fill(std::begin(bytes), std::end(bytes), '#');
        tavSetText(bytes, text);
    }
};
}

TEST(Text, IsCutBehindAWholeCharacter)
{
    EXPECT_EQ(tavText(Buffer<8>("abc").bytes).toStdString(), "abc");
    EXPECT_EQ(tavText(Buffer<4>("abcd").bytes).toStdString(), "abc");
    EXPECT_EQ(tavText(Buffer<6>(QString::fromUtf8("a中文")).bytes).toStdString(), "a中");
    EXPECT_EQ(tavText(Buffer<7>(QString::fromUtf8("a中文")).bytes).toStdString(), "a中");
    EXPECT_EQ(tavText(Buffer<8>(QString::fromUtf8("a中文")).bytes).toStdString(), "a中文");
    EXPECT_EQ(tavText(Buffer<4>(QString::fromUtf8("😀")).bytes).toStdString(), "");
    EXPECT_EQ(tavText(Buffer<5>(QString::fromUtf8("😀")).bytes).toStdString(), "😀");
    EXPECT_EQ(tavText(Buffer<1>("a").bytes).toStdString(), "");
}

TEST(Text, FillsTheRestOfTheBufferWithNul)
{
    const Buffer<6> buffer("ab");
    EXPECT_EQ(QByteArray(buffer.bytes, 6), QByteArray("ab\0\0\0\0", 6));
}

TEST(Text, EndsWithTheBufferWhereThereIsNoNul)
{
    const char full[3] = {'a', 'b', 'c'};
    EXPECT_EQ(tavText(full).toStdString(), "abc");
}

TEST(Answer, IsAMessageOrNothing)
{
    Tav::NetControl::NetDeviceInfos devices;
    devices.add_devices()->set_name("eth0");
    const QByteArray bytes = QByteArray::fromStdString(devices.SerializeAsString());
    EXPECT_EQ(tavMessage<Tav::NetControl::NetDeviceInfos>(bytes).value().devices(0).name(), "eth0");
    EXPECT_FALSE(tavMessage<Tav::NetControl::NetDeviceInfos>(bytes.chopped(1)));
    EXPECT_FALSE(tavMessage<Tav::NetControl::NetDeviceInfos>(bytes + '\x0a'));
}

TEST(Answer, IsWholeRecordsOrNothing)
{
    STImaContentAsr records[2] = {};
    tavSetText(records[1].path, "/usr/bin/true");
    const QByteArray bytes(reinterpret_cast<const char *>(records), sizeof records);
    const auto read = tavRecords<STImaContentAsr>(bytes);
    ASSERT_TRUE(read);
    ASSERT_EQ(read->size(), 2);
    EXPECT_EQ(tavText(read->at(1).path).toStdString(), "/usr/bin/true");
    EXPECT_FALSE(tavRecords<STImaContentAsr>(bytes.chopped(1)));
    EXPECT_TRUE(tavRecords<STImaContentAsr>({}).value().isEmpty());
}

TEST(Answer, IsOneRecordOrNothing)
{
    STImaContentAsr records[2] = {};
    tavSetText(records[0].path, "/usr/bin/true");
    const QByteArray bytes(reinterpret_cast<const char *>(records), sizeof records);
    const auto read = tavRecord<STImaContentAsr>(bytes.left(sizeof(STImaContentAsr)));
    ASSERT_TRUE(read);
    EXPECT_EQ(tavText(read->path).toStdString(), "/usr/bin/true");
    EXPECT_FALSE(tavRecord<STImaContentAsr>(bytes.left(sizeof(STImaContentAsr) - 1)));
    EXPECT_FALSE(tavRecord<STImaContentAsr>(bytes));
    EXPECT_FALSE(tavRecord<STImaContentAsr>({}));
}

TEST(AccessObjects, KeepEachKeyInEachTableApart)
{
    const TavPluginHost host(TAV_PLUGIN_FILE);
    auto &manager = *tavObject<ITavAccessControlMgr>();
    using Objects = TavAccessObjects;
    const Objects one(manager, Objects::Table::Files, TavAccessLevel::Lowest);
    const Objects other(manager, Objects::Table::Others, TavAccessLevel::Low);
    one.setCount(7);
    other.setCount(8);
    one.setDetails(QVector<STObjectDetailAsr>(2));
    EXPECT_EQ(one.count(), 7);
    EXPECT_EQ(other.count(), 8);
    EXPECT_EQ(manager.getObjectCount(true, 0), 7);
    EXPECT_EQ(manager.getObjectCount(false, 1), 8);
    EXPECT_EQ(one.details().size(), 2);
    EXPECT_TRUE(other.details().isEmpty());
    EXPECT_EQ(manager.getObjectDetail(0, true).size(), 2);
}

TEST(AccessPrincipals, AreThoseOfOneLevel)
{
    const TavPluginHost host(TAV_PLUGIN_FILE);
    auto &manager = *tavObject<ITavAccessControlMgr>();
    const TavAccessPrincipals highest(manager, TavAccessLevel::Highest);
    const TavAccessPrincipals high(manager, TavAccessLevel::High);
    highest.setDetails(QVector<STPriDetailAsr>(1));
    high.setDetails(QVector<STPriDetailAsr>(2));
    EXPECT_EQ(highest.details().size(), 1);
    EXPECT_EQ(high.details().size(), 2);
    EXPECT_EQ(manager.getUserDetail(3).size(), 1);
    EXPECT_EQ(manager.getUserDetail(2).size(), 2);
    EXPECT_EQ(manager.getUserDetail().size(), 3);
}

TEST(PictureDirectory, FindsItsPicturesByTheirNames)
{
    const TavPluginHost host(TAV_PLUGIN_FILE);
    auto &manager = *tavObject<ITavPicResourceMgr>();
    manager.appendPicResourcePath(TAV_SOURCE_DIR "/share/demo/opt/tavsec/pictures/navigation");
    const TavPictureDirectory navigation(manager, "navigation");
    EXPECT_TRUE(navigation.picture("hostIcon"));
    EXPECT_EQ(navigation.picture("hostIcon"), manager.getImageRef("navigation", "hostIcon"));
    EXPECT_FALSE(navigation.picture("navigation"));
}

TEST(PackedField, IsCopiedAndSetWithoutAReference)
{
    STPriAddUIData row;
    const QString before("daemon");
    const QString name("root");
    tavSetField(row, &STPriAddUIData::userName, before);
    tavSetField(row, &STPriAddUIData::userName, name);
    EXPECT_TRUE(before.isDetached()) << "the row has let go of it";
    EXPECT_FALSE(name.isDetached()) << "the row holds it";
    tavSetField(row, &STPriAddUIData::userNumber, 7);
    const QVector<STPriAddUIData> rows(2, row);
    EXPECT_EQ(tavField(rows.at(1), &STPriAddUIData::userName).toStdString(), "root");
    EXPECT_EQ(tavField(rows.at(1), &STPriAddUIData::userNumber), 7);
    EXPECT_TRUE(tavField(rows.at(1), &STPriAddUIData::userText).isNull());
}

TEST(Worker, DoesWorkInOrderOnItsOwnThreadAndReportsBackInOurs)
{
    TavWorker worker("answers");
    QStringList done;
    QEventLoop loop;
    for (int i = 0; i < 3; ++i) {
        worker.post([i] { return QThread::currentThread()->objectName() + QString::number(i); },
                    [&](const QString &result) {
                        EXPECT_EQ(QThread::currentThread(), qApp->thread());
                        done.append(result);
                        if (done.size() == 3) {
                            loop.quit();
                        }
                    });
    }
    loop.exec();
    EXPECT_EQ(done, QStringList({"answers0", "answers1", "answers2"}));
}

TEST(Worker, EndsBehindTheWorkUnderWayAndLeavesTheRestUndone)
{
    QSemaphore begun;
    QSemaphore goOn;
    int count = 0;
    std::thread ending;
    {
        TavWorker worker("answers");
        for (int i = 0; i < 1000; ++i) {
            worker.post([&] {
                begun.release();
                goOn.acquire();
                ++count;
            });
        }
        begun.acquire();
        // The worker ends while the first is at work, which is let go on only when the end has been asked for.
        ending = std::thread([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            goOn.release();
        });
    }
    ending.join();
    EXPECT_EQ(count, 1);
}

TEST(Worker, FinishesAllItsWorkWhereItIsToldTo)
{
    int done = 0;
    {
        TavWorker worker("writer", TavWorker::AtEnd::Finish);
        for (int i = 0; i < 3; ++i) {
            worker.post([&done] {
                QThread::msleep(10);
                ++done;
            });
        }
    }
    EXPECT_EQ(done, 3);
}
