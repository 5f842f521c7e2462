#include "TestWindow.h"

#include "../tavctl/ScenarioFiles.h"
#include "ScenarioPlay.h"

#include <QDialog>
#include <QRandomGenerator>
#include <QTimer>

namespace
{
constexpr quint32 seed = 20211121;

/// As many as a test of every day has time for; a longer run sets the variable.
int eventCount()
{
    const int count = qEnvironmentVariableIntValue("TAV_MONKEY_EVENTS");
    return count > 0 ? count : 20'000;
}

/// Any key but those that would end the program or write a file.
void pressKey(QWidget &widget, QRandomGenerator &random)
{
    static const Qt::Key keys[]{Qt::Key_Tab,  Qt::Key_Return, Qt::Key_Space,  Qt::Key_Up,       Qt::Key_Down,
                                Qt::Key_Left, Qt::Key_Right,  Qt::Key_Home,   Qt::Key_End,      Qt::Key_Escape,
                                Qt::Key_A,    Qt::Key_0,      Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_F10,
                                Qt::Key_F5,   Qt::Key_Delete};
    static const Qt::KeyboardModifiers modifiers[]{Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                   Qt::ControlModifier};
    QTest::keyClick(&widget, keys[random.bounded(int(std::size(keys)))], modifiers[random.bounded(4)]);
}

/// A click, or a turn of the wheel, anywhere in the window.
void useMouse(QWidget &window, QRandomGenerator &random)
{
    const QPoint place(random.bounded(window.width()), random.bounded(window.height()));
    QWidget *const child = window.childAt(place);
    QWidget &target = child ? *child : window;
    const QPoint inTarget = target.mapFrom(&window, place);
    switch (random.bounded(4)) {
    case 0:
        QTest::mouseDClick(&target, Qt::LeftButton, {}, inTarget);
        break;
    case 1:
        QTest::mouseMove(&target, inTarget);
        break;
    default:
        QTest::mouseClick(&target, Qt::LeftButton, {}, inTarget);
    }
}
}

TEST(Monkey, DoesNoHarmWhileAScenarioPlays)
{
    const QTemporaryDir scratch;
    ASSERT_TRUE(QDir::setCurrent(scratch.path())); // it finds out how files are written
    const ScenarioFile file(soundLines);
    const TestWindow client;
    ScenarioPlay &play = client.window->play();
    play.setLooped(true);
    play.open(file.path(), ScenarioPlay::Opened::Play);
    QTimer closer; // a question in the middle of an event, such as whether to overwrite a file, is not left open
    QObject::connect(&closer, &QTimer::timeout, client.window.get(), [] {
        if (QWidget *const question = QApplication::activeModalWidget()) {
            question->close();
        }
    });
    closer.start(20);
    QRandomGenerator random(seed);
    for (int i = 0; i < eventCount(); ++i) {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *const window : windows) {
            if (window != client.window.get() && window->isVisible()) {
                window->close(); // dialogs and menus that were opened
            }
        }
        if (random.bounded(2) == 0) {
            QWidget *const focus = QApplication::focusWidget();
            pressKey(focus && focus->isVisible() ? *focus : *client.window, random);
        } else {
            useMouse(*client.window, random);
        }
        if (i % 100 == 0) {
            QTest::qWait(1);
        }
    }
    EXPECT_TRUE(client.window->isVisible());
}
