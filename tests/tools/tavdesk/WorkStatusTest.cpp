#include "TestWindow.h"

#include "AgentFeeder.h"
#include "NotesDialog.h"

#include <QPushButton>
#include <QTreeWidget>

namespace
{
/// A feeding in which so many sources could not be read.
AgentReport reportWith(int notes)
{
    AgentReading reading;
    for (int i = 0; i < notes; ++i) {
        reading.notes.append({QString("/proc/%1").arg(i), "permission denied"});
    }
    return {true, {reading, AgentReading()}};
}

QPushButton *notesButton(const TestWindow &client)
{
    const QList<QPushButton *> buttons = client.window->findChildren<QPushButton *>();
    for (QPushButton *const button : buttons) {
        if (button->isVisible() && button->text().contains("could not be read")) {
            return button;
        }
    }
    return nullptr;
}
}

TEST(WorkStatus, ShowsWhatTheAgentCouldNotRead)
{
    const TestWindow client;
    emit client.window->feeder().fed(reportWith(2));
    QPushButton *const button = notesButton(client);
    ASSERT_TRUE(button);
    EXPECT_TRUE(button->text().startsWith("2 ")) << button->text().toStdString();
    button->click();
    const auto *const dialog = client.window->findChild<NotesDialog *>();
    ASSERT_TRUE(dialog);
    const auto &list = *dialog->findChild<QTreeWidget *>();
    ASSERT_EQ(list.topLevelItemCount(), 2);
    EXPECT_EQ(list.topLevelItem(1)->text(0), "/proc/1");
    EXPECT_EQ(list.topLevelItem(1)->text(1), "permission denied");
}

TEST(WorkStatus, SaysNothingWhenTheAgentCouldReadAll)
{
    const TestWindow client;
    emit client.window->feeder().fed(reportWith(1));
    emit client.window->feeder().fed(reportWith(0));
    EXPECT_FALSE(notesButton(client));
}
