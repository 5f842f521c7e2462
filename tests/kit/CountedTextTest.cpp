#include "TavCountedText.h"

#include "PrintQString.h"

#include <gtest/gtest.h>

TEST(CountedText, PutsTheNounInThePluralUnlessItIsOne)
{
    EXPECT_EQ(countedText(1, "process"), "1 process");
    EXPECT_EQ(countedText(0, "call"), "0 calls");
    EXPECT_EQ(countedText(2, "process"), "2 processes");
    EXPECT_EQ(countedText(3, "delivery"), "3 deliveries");
    EXPECT_EQ(countedText(-1, "call"), "-1 calls");
}
