#include "FindingKind.h"

#include "BaselineMistakes.h"
#include "CatalogueMistakes.h"
#include "RootMistakes.h"
#include "TestFiles.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <algorithm>

TEST(FindingKind, HasACodeOfItsOwnAndSaysWhatItIs)
{
    const std::vector<FindingKind> &kinds = findingKinds();
    const auto outOfOrder = std::adjacent_find(kinds.begin(), kinds.end(),
                                               [](const auto &one, const auto &next) { return one.code >= next.code; });
    EXPECT_EQ(outOfOrder, kinds.end());
    for (const FindingKind &kind : kinds) {
        EXPECT_EQ(kind.name().size(), 6) << "TAV and three digits";
        for (const QString &text : {kind.title, kind.explanation, kind.broken, kind.mended}) {
            EXPECT_FALSE(text.isEmpty()) << kind.name().toStdString();
        }
        EXPECT_NE(kind.broken, kind.mended) << kind.name().toStdString();
    }
}

TEST(FindingKind, IsExpectedByATest)
{
    QSet<QString> expected;
    const auto collect = [&expected](const auto &mistakes) {
        for (const Mistake &mistake : mistakes) {
            expected.insert(mistake.code);
        }
    };
    collect(catalogueMistakes);
    collect(baselineMistakes);
    collect(rootMistakes);
    // Others are expected as the line that tells them.
    const QRegularExpression line("(?:error|warning|note): (TAV\\d{3})");
    QDirIterator files(TAV_SOURCE_DIR "/tests/tools", {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        auto matches = line.globalMatch(contentOf(files.next()));
        while (matches.hasNext()) {
            expected.insert(matches.next().captured(1));
        }
    }
    for (const FindingKind &kind : findingKinds()) {
        EXPECT_TRUE(expected.contains(kind.name())) << kind.name().toStdString();
    }
}
