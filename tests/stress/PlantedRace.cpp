// Holders as the managers are, without their locks: what the race checkers must report, each in its own functions. With
// "sound" as the second argument the same holders lock, and nothing may be reported.

#include "NetControl.pb.h"
#include "STProtoDataContainer.h"
#include "STStateAsr.h"

#include <QMutex>
#include <QString>
#include <QVector>

#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace
{
/// Locks nothing.
class NoLocker
{
public:
    explicit NoLocker(QMutex *)
    {
    }
};

/// A plain record, set and read by functions that are given the mutex, as those of TavHeldValue are.
template<class Locker>
class PlantedRecord
{
public:
    void write(int turn)
    {
        writeRecord(mutex, value, {turn, turn});
    }

    void read(int)
    {
        copy = readRecord(mutex, value).stateValue;
    }

private:
    static void writeRecord(QMutex &mutex, STStateAsr &held, const STStateAsr &value)
    {
        const Locker lock(&mutex);
        held = value;
    }

    static STStateAsr readRecord(QMutex &mutex, const STStateAsr &held)
    {
        const Locker lock(&mutex);
        return held;
    }

    QMutex mutex;
    STStateAsr value = {28, 0};
    static inline thread_local volatile int copy = 0;
};

/// A message, set and read.
template<class Locker>
class PlantedMessage
{
public:
    PlantedMessage()
    {
        value.add_devices()->set_name("eth0");
    }

    void writeMessage(int turn)
    {
        Tav::NetControl::NetDeviceInfos given;
        given.add_devices()->set_name(std::string(10 + turn % 20, 'x'));
        const Locker lock(&mutex);
        value.CopyFrom(given);
    }

    void readMessage(int)
    {
        const Locker lock(&mutex);
        const Tav::NetControl::NetDeviceInfos copy(value);
    }

private:
    QMutex mutex;
    Tav::NetControl::NetDeviceInfos value;
};

/// A list of rows, edited in place and searched.
template<class Locker>
class PlantedRows
{
public:
    void writeRows(int turn)
    {
        const Locker lock(&mutex);
        rows[turn % 3].isChecked = turn % 2 != 0;
    }

    void readRows(int turn)
    {
        const Locker lock(&mutex);
        for (const STProtoDataContainer &row : qAsConst(rows)) {
            found = row.isChecked && row.index == turn;
        }
    }

private:
    QMutex mutex;
    QVector<STProtoDataContainer> rows = QVector<STProtoDataContainer>(3);
    static inline thread_local volatile bool found = false;
};

/// A list that is published by pointer, for readers without a lock, as a signal's subscribers are.
template<class Locker>
class PlantedPublication
{
public:
    void writePublication(int turn)
    {
        auto next = std::make_shared<const int>(turn);
        const Locker lock(&mutex);
        published.swap(next);
        retired.push_back(std::move(next)); // not freed, so that the race alone is the fault
    }

    void readPublication(int)
    {
        const Locker lock(&mutex);
        seen = *published;
    }

private:
    QMutex mutex;
    std::shared_ptr<const int> published = std::make_shared<const int>(0);
    std::vector<std::shared_ptr<const int>> retired;
    static inline thread_local volatile int seen = 0;
};

/// A text, set and read: Qt's own code does the writing.
template<class Locker>
class PlantedText
{
public:
    void writeText(int turn)
    {
        const Locker lock(&mutex);
        text = texts[turn % 2];
    }

    void readText(int)
    {
        const Locker lock(&mutex);
        const QString copy = text;
    }

private:
    QMutex mutex;
    const QString texts[2] = {QStringLiteral("one"), QStringLiteral("other")}; // literals are never freed
    QString text = texts[0];
};

/// One thread writes, another reads.
template<class Planted>
void race(void (Planted::*write)(int), void (Planted::*read)(int))
{
    Planted planted;
    std::mutex gate;
    std::unique_lock<std::mutex> closed(gate);
    const auto repeat = [&](void (Planted::*call)(int)) {
        std::unique_lock<std::mutex>(gate).unlock();
        for (int turn = 0; turn < 100; ++turn) {
            (planted.*call)(turn);
        }
    };
    std::thread writer(repeat, write);
    std::thread reader(repeat, read);
    closed.unlock();
    writer.join();
    reader.join();
}

template<class Locker>
bool race(const std::string &kind)
{
    if (kind == "record") {
        race(&PlantedRecord<Locker>::write, &PlantedRecord<Locker>::read);
    } else if (kind == "message") {
        race(&PlantedMessage<Locker>::writeMessage, &PlantedMessage<Locker>::readMessage);
    } else if (kind == "rows") {
        race(&PlantedRows<Locker>::writeRows, &PlantedRows<Locker>::readRows);
    } else if (kind == "publication") {
        race(&PlantedPublication<Locker>::writePublication, &PlantedPublication<Locker>::readPublication);
    } else if (kind == "text") {
        race(&PlantedText<Locker>::writeText, &PlantedText<Locker>::readText);
    } else {
        return false;
    }
    return true;
}
}

int main(int argc, char **argv)
{
    const std::string kind = argc > 1 ? argv[1] : "";
    const bool sound = argc > 2 && std::string(argv[2]) == "sound";
    return (sound ? race<QMutexLocker>(kind) : race<NoLocker>(kind)) ? 0 : 2;
}
