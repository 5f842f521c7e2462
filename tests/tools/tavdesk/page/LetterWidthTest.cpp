#include "FactsForm.h"
#include "FactsPanel.h"
#include "FilterBar.h"
#include "SelectableLabel.h"
#include "TableLook.h"
#include "ValueModel.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

#include <gtest/gtest.h>

namespace
{
/// @brief The application's font is a Chinese one without Latin letters, as in a Chinese session, and those come from
/// another font.
class LetterWidth : public testing::Test
{
protected:
    void SetUp() override
    {
        const QString chinese = QStringLiteral("Droid Sans Fallback");
        if (!QFontDatabase().families().contains(chinese)) {
            GTEST_SKIP() << "there is no font " << chinese.toStdString();
        }
        QFont font(before);
        font.setFamily(chinese);
        QApplication::setFont(font);
        digits = QFontMetrics(font).horizontalAdvance(QString(64, '0')) / 64;
        ASSERT_GT(QFontMetrics(font).averageCharWidth(), digits + 2) << "or there is nothing to test";
    }

    void TearDown() override
    {
        QApplication::setFont(before);
    }

    const QFont before = QApplication::font();
    int digits = 0; ///< width of one
};
}

TEST_F(LetterWidth, OfColumnsIsThatOfTheDigitsInThem)
{
    QTableWidget table(1, 2);
    setColumnWidths(table, 1, {20, 1});
    EXPECT_NEAR(table.columnWidth(0), 20 * digits, 40);
}

TEST_F(LetterWidth, OfAFilterIsThatOfTheDigitsInIt)
{
    QWidget panel;
    const FilterBar bar("table", &panel);
    EXPECT_NEAR(bar.findChild<QLineEdit *>()->maximumWidth(), 48 * digits, 48);
}

TEST_F(LetterWidth, OfALabelIsThatOfTheDigitsInIt)
{
    SelectableLabel label;
    label.setText(QString(1000, '0'));
    EXPECT_NEAR(label.minimumSizeHint().width(), 10 * digits, 10);
}
