#include "LogModel.h"

#include <QAbstractItemModelTester>
#include <QSemaphore>
#include <QThread>

#include <gtest/gtest.h>

namespace
{
/// @brief Tells on which thread it ends.
struct Entry {
    std::shared_ptr<int> held;
};
}

TEST(LogModel, LetsGoOfItsEntriesOnAnotherThread)
{
    QThread *thread = nullptr;
    QSemaphore ended;
    BoundedLog<Entry> log(1 << 20, 1);
    LogModel<Entry> model(log, {{"column", [](const Entry &) { return QString(); }}});
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    log.append({{new int, [&](const int *number) {
                     thread = QThread::currentThread();
                     delete number;
                     ended.release();
                 }}});
    model.update();
    log.append({}); // the log forgets the first one, so that the model alone holds it
    EXPECT_FALSE(ended.tryAcquire());
    model.update();
    ASSERT_TRUE(ended.tryAcquire(1, 20'000));
    EXPECT_NE(thread, QThread::currentThread());
}
