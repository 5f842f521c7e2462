#include "FindingKind.h"

#include "TestFiles.h"

#include <QDirIterator>

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
    QByteArray tests;
    QDirIterator files(TAV_SOURCE_DIR "/tests/tools", {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        tests += contentOf(files.next());
    }
    for (const FindingKind &kind : findingKinds()) {
        EXPECT_TRUE(tests.contains(kind.name().toUtf8())) << kind.name().toStdString();
    }
}
