#include "PageSections.h"

#include <gtest/gtest.h>

TEST(PageSections, AlignNumbersSizesAndModesAtTheirEnd)
{
    EXPECT_EQ(column<&STFileProtectContentAsr::mode>("").kind, CellKind::Number);
    EXPECT_EQ(column<&STFileProtectContentAsr::size>("").kind, CellKind::Number);
    EXPECT_EQ(column<&STFileProtectContentAsr::uid>("").kind, CellKind::Number);
    EXPECT_EQ(column<&STFileProtectContentAsr::modifyTime>("").kind, CellKind::Text);
    EXPECT_EQ(column<&STFileProtectContentAsr::path>("").kind, CellKind::Text);
}
