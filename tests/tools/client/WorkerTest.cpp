#include "Worker.h"

#include <gtest/gtest.h>

TEST(Worker, DoesAllItsWorkBeforeItEnds)
{
    int done = 0;
    {
        Worker worker(QStringLiteral("worker"));
        for (int i = 0; i < 3; ++i) {
            worker.run(
                [&done] {
                    QThread::msleep(10);
                    return ++done;
                },
                [](int) {});
        }
    }
    EXPECT_EQ(done, 3);
}
