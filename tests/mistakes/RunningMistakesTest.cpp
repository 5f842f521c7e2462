// Mistakes that are seen when a page runs: by its test, or by a sanitizer, with which this file is built. A line that
// begins with two slashes and an exclamation mark is a row of the guide's table: mistake, who sees it, what to write
// instead.
#include "ITavNetControlMgr.h"
#include "LogCapture.h"
#include "PrintQString.h"
#include "STStaticCurPathAsr.h"
#include "TavAnswer.h"
#include "TavEvents.h"
#include "TavTestClient.h"
#include "TavWorker.h"

#include <QSemaphore>
#include <QTimer>

#include <google/protobuf/stubs/common.h>
#include <gtest/gtest.h>

namespace
{
Tav::NetControl::NetDeviceInfos twoDevices()
{
    Tav::NetControl::NetDeviceInfos devices;
    devices.add_devices()->set_name("the first of the network devices");
    devices.add_devices()->set_name("the second of the network devices");
    return devices;
}

/// What a page would do with a number, so that the compiler cannot leave the reading out.
void show(int number)
{
    testing::Test::RecordProperty("number", number);
}

/// What a page's test expects: the first device is allowed.
QString expectAllowed(TavTestClient &client)
{
    return client.play({R"({"manager": "ITavNetControlMgr", "operation": "getDeviceInfo", "arguments": [], )"
                        R"("returns": {"devices": [{"state": 1}, {}]}})"});
}
}

//! A returned copy is edited | a scenario that says what is returned | keep the copy, edit it, set it
TEST(RunningMistakes, EditingACopyIsSeenByWhatAScenarioExpects)
{
    TavTestClient client(QStringLiteral(TAV_PLUGIN_FILE));
    auto &network = *client.manager<ITavNetControlMgr>();
    network.setDeviceInfo(twoDevices());
    network.getDeviceInfo().mutable_devices(0)->set_state(1);
    EXPECT_NE(expectAllowed(client), "");

    Tav::NetControl::NetDeviceInfos devices = network.getDeviceInfo();
    devices.mutable_devices(0)->set_state(1);
    network.setDeviceInfo(devices);
    EXPECT_EQ(expectAllowed(client), "");
}

//! A position beyond the list is toggled | the messages, which end the process | look for it, under your lock
TEST(RunningMistakes, APositionBeyondTheListIsSeenByTheMessages)
{
    TavTestClient client(QStringLiteral(TAV_PLUGIN_FILE));
    auto &network = *client.manager<ITavNetControlMgr>();
    network.setDeviceInfo(twoDevices());
    EXPECT_THROW(network.reverseDeviceState(2), google::protobuf::FatalException);
    EXPECT_NO_THROW(network.reverseDeviceState(1));
}

//! A worker's work uses an object of the GUI thread | Qt, where it looks, by a warning | `post(work, done)`
TEST(RunningMistakes, AnObjectOfAnotherThreadIsSeenByQt)
{
    QTimer timer;
    LogCapture log;
    {
        TavWorker worker("answers", TavWorker::AtEnd::Finish);
        worker.post([&timer] { timer.start(1); });
    }
    ASSERT_EQ(log.messages("default").size(), 1);
    EXPECT_EQ(log.messages("default")[0].text, "QObject::startTimer: Timers cannot be started from another thread");

    TavWorker worker("answers");
    worker.post([] { return 1; }, [&timer](int milliseconds) { timer.start(milliseconds); });
    EXPECT_EQ(TavTestClient::waitFor([&timer] { return timer.isActive(); }, "the timer runs"), "");
    EXPECT_EQ(log.messages("default").size(), 1);
}

//! A reference is kept into a message that was returned | AddressSanitizer | the message in a variable
TEST(RunningMistakes, AReferenceIntoAMessageThatIsGoneIsSeenByAddressSanitizer)
{
    const auto wrong = [] {
        const auto &device = twoDevices().devices(1);
        show(device.state());
    };
    EXPECT_DEATH(wrong(), "AddressSanitizer: (heap-use-after-free|stack-use-after-scope)");

    const Tav::NetControl::NetDeviceInfos devices = twoDevices();
    show(devices.devices(1).state());
}

//! A loop runs over the list within a message that was returned | AddressSanitizer | the message in a variable
TEST(RunningMistakes, ALoopOverAMessageThatIsGoneIsSeenByAddressSanitizer)
{
    const auto wrong = [] {
        for (const auto &device : twoDevices().devices()) {
            show(device.state());
        }
    };
    EXPECT_DEATH(wrong(), "AddressSanitizer: (heap-use-after-free|stack-use-after-scope)");

    const Tav::NetControl::NetDeviceInfos devices = twoDevices();
    for (const auto &device : devices.devices()) {
        show(device.state());
    }
}

//! A full buffer is read as if a NUL ended it | AddressSanitizer, in the last field | `tavText`
TEST(RunningMistakes, ABufferWithoutNulIsSeenByAddressSanitizer)
{
    const auto answer = std::make_unique<STStaticCurPathAsr>();
    std::fill(std::begin(answer->path), std::end(answer->path), 'x');
    EXPECT_DEATH(show(QString::fromUtf8(answer->path).size()), "AddressSanitizer: heap-buffer-overflow");

    show(tavText(answer->path).size());
}

//! A worker stands before what its work uses | AddressSanitizer | the worker as a later member
TEST(RunningMistakes, AWorkerThatOutlivesWhatItUsesIsSeenByAddressSanitizer)
{
    struct Wrong {
        TavWorker worker{"answers"};
        QVector<int> values{1};
    };
    struct Right {
        QVector<int> values{1};
        TavWorker worker{"answers"};
    };
    const auto use = [](auto &controller) {
        QSemaphore begun;
        controller.worker.post([&] {
            begun.release();
            QThread::msleep(20);
            show(controller.values.at(0));
        });
        begun.acquire();
    };
    EXPECT_DEATH(
        {
            auto controller = std::make_unique<Wrong>();
            use(*controller);
            controller.reset();
        },
        "AddressSanitizer: heap-use-after-free");

    Right controller;
    use(controller);
}
