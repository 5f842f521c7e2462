#include "ChildProcess.h"
#include "FindingLines.h"
#include "PrintQString.h"
#include "ProofSize.h"

#include <gtest/gtest.h>

#include <iostream>

namespace
{
/// Of memory for a finding, with the text that it is found in.
constexpr double mostKibOfEach = 1.5;

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
        EXPECT_EQ(run.output.count(": TAV111: "), count) << "each is told";
        return run;
    }
};
}

TEST_F(FindingCount, TakesTimeAndMemoryInProportion)
{
    const int count = proofSize(5'000, 200'000);
    const Tavctl few = checked(count / 10);
    const Tavctl many = checked(count);
    const double kibOfEach = double(many.peakMiB - few.peakMiB) * 1024 / (count - count / 10);
    std::cout << few.processorSeconds << " s and " << few.peakMiB << " MiB, " << many.processorSeconds << " s and "
              << many.peakMiB << " MiB, " << kibOfEach << " KiB for each more\n";
    EXPECT_LT(many.processorSeconds / few.processorSeconds, 20) << "ten times as many";
    if (!memoryIsInstrumented) {
        EXPECT_LT(kibOfEach, mostKibOfEach);
    }
}
