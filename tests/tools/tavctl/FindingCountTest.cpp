#include "ChildProcess.h"
#include "FindingLines.h"
#include "PrintQString.h"
#include "ProofSize.h"

#include <gtest/gtest.h>

#include <iostream>

namespace
{
class FindingCount : public TestFiles
{
protected:
    /// What becomes of a list of @p count items with a mistake each.
    Tavctl checked(int count)
    {
        QByteArray text = "{\"enableConfig\": [\n";
        for (int i = 0; i < count; ++i) {
            text += QString(R"({"itemId": %1, "name": "a", "checkValueScript": "/check.sh", "colour": 1},)")
                        .arg(i)
                        .toUtf8()
                + '\n';
        }
        text.chop(2);
        const Tavctl run({"baseline", "check", "--root", brokenRoot, put("list", text + "]}")});
        EXPECT_TRUE(run.output.endsWith(QString(", %1 findings: %1 warnings\n").arg(count)))
            << run.output.right(200).toStdString();
        return run;
    }
};
}

TEST_F(FindingCount, TakesTimeAndMemoryInProportion)
{
    const int count = proofSize(5'000, 200'000);
    const Tavctl few = checked(count / 10);
    const Tavctl many = checked(count);
    std::cout << few.processorSeconds << " s and " << few.peakMiB << " MiB, " << many.processorSeconds << " s and "
              << many.peakMiB << " MiB\n";
    EXPECT_LT(many.processorSeconds / few.processorSeconds, 20) << "ten times as many";
    if (!memoryIsInstrumented) {
        EXPECT_LT(many.peakMiB, 80 + count * 3 / 1000) << "an emulator takes some by itself";
    }
}
