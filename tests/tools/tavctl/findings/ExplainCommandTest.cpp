#include "FindingKind.h"
#include "PrintQString.h"
#include "Tavctl.h"
#include "TestFiles.h"

#include <gtest/gtest.h>

TEST(ExplainCommand, IsThePageOfTheDocumentation)
{
    EXPECT_EQ(Tavctl({"explain"}).bytes, contentOf(TAV_SOURCE_DIR "/docs/findings.md"))
        << "tavctl explain > docs/findings.md";
}

TEST(ExplainCommand, TellsWhatACodeIsAbout)
{
    const Tavctl all({"explain"});
    for (const FindingKind &kind : findingKinds()) {
        const QString section = kind.page();
        EXPECT_TRUE(section.startsWith("## " + kind.name() + ": "));
        EXPECT_TRUE(all.output.contains(section)) << kind.name().toStdString();
    }
    EXPECT_EQ(Tavctl({"explain", "tav110"}).output, kindNamed("TAV110")->page());
}

TEST(ExplainCommand, KnowsNoOtherCodes)
{
    const Tavctl run({"explain", "TAV100"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errors, "tavctl: TAV100: no code of a finding; \"tavctl explain\" lists them all\n");
}
