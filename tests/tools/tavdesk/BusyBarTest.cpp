#include "BusyBar.h"

#include "TestWindow.h"

#include <QProgressBar>
#include <QPushButton>

namespace
{
QVector<QPushButton *> visibleButtons(const BusyBar &bar)
{
    QVector<QPushButton *> visible;
    const QList<QPushButton *> buttons = bar.findChildren<QPushButton *>();
    for (QPushButton *const button : buttons) {
        if (button->isVisible()) {
            visible.append(button);
        }
    }
    return visible;
}
}

TEST(BusyBar, ShowsEachWorkThatTakesLongWithItsOwnStop)
{
    BusyBar bar;
    bar.show();
    const QObject first;
    const QObject second;
    QStringList stopped;
    bar.begin(&first, "Calling", [&stopped] { stopped += "first"; });
    bar.begin(&second, "Reading", [&] {
        stopped += "second";
        bar.end(&second);
    });
    EXPECT_TRUE(visibleButtons(bar).isEmpty()) << "it does not yet take long";
    EXPECT_TRUE(waitUntil([&bar] { return visibleButtons(bar).size() == 2; }));
    EXPECT_TRUE(labelTexts(bar).contains("Calling"));
    EXPECT_TRUE(labelTexts(bar).contains("Reading"));
    visibleButtons(bar).last()->click();
    EXPECT_EQ(stopped, QStringList{"second"});
    EXPECT_EQ(visibleButtons(bar).size(), 1) << "the older one goes on";
    bar.end(&first);
    EXPECT_TRUE(visibleButtons(bar).isEmpty());
    EXPECT_FALSE(bar.findChild<QProgressBar *>()->isVisible());
}

TEST(BusyBar, SaysNothingOfWhatTakesShort)
{
    BusyBar bar;
    bar.show();
    const QObject work;
    for (int i = 0; i < 8; ++i) {
        bar.begin(&work, "Reading", [] {});
        QTest::qWait(200);
        EXPECT_TRUE(visibleButtons(bar).isEmpty()) << "each is a piece of work of its own";
        bar.end(&work);
    }
}
