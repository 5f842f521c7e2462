#include "TestWindow.h"

#include "../tavctl/ScenarioFiles.h"
#include "ScenarioPlay.h"

#include <QFileDialog>
#include <QRandomGenerator>
#include <QWheelEvent>

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

/// Turns the wheel over @p target.
void turnWheel(QWidget &target, const QPoint &place, int degrees)
{
    QWheelEvent turn(place, target.mapToGlobal(place), {}, {0, degrees * 8}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&target, &turn);
}

/// A click, or a turn of the wheel, anywhere in the window.
void useMouse(QWidget &window, QRandomGenerator &random)
{
    const QPoint place(random.bounded(window.width()), random.bounded(window.height()));
    QWidget *const child = window.childAt(place);
    QWidget &target = child ? *child : window;
    const QPoint inTarget = target.mapFrom(&window, place);
    switch (random.bounded(5)) {
    case 0:
        QTest::mouseDClick(&target, Qt::LeftButton, {}, inTarget);
        break;
    case 1:
        QTest::mouseMove(&target, inTarget);
        break;
    case 2:
        turnWheel(target, inTarget, random.bounded(2) == 0 ? 15 : -15);
        break;
    default:
        QTest::mouseClick(&target, Qt::LeftButton, {}, inTarget);
    }
}

/// The menu or dialog that is open above @p window, or the window itself.
QWidget &frontOf(QWidget &window)
{
    if (QWidget *const menu = QApplication::activePopupWidget()) {
        return *menu;
    }
    QWidget *const active = QApplication::activeWindow();
    return active ? *active : window;
}

/// Closes what has opened above @p window. A dialog for files always: random keys in it would rename and delete.
void closeAbove(const QWidget &window, bool all)
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget *const widget : widgets) {
        if (widget != &window && widget->isVisible() && (all || qobject_cast<QFileDialog *>(widget))) {
            widget->close();
        }
    }
}
}

TEST(Monkey, DoesNoHarmWhileAScenarioPlays)
{
    const QTemporaryDir scratch;
    ASSERT_TRUE(QDir::setCurrent(scratch.path())); // where a file would be written
    const ScenarioFile file(soundLines);
    const TestWindow client;
    client.action("Quit")->setEnabled(false);
    ScenarioPlay &play = client.window->play();
    int turns = 0;
    QObject::connect(&client.session, &ClientSession::pageChanged, client.window.get(), [&turns] { ++turns; });
    play.setLooped(true);
    play.open(file.path(), ScenarioPlay::Opened::Play);
    QRandomGenerator random(seed);
    for (int i = 0; i < eventCount(); ++i) {
        closeAbove(*client.window, i % 20 == 0);
        QWidget &front = frontOf(*client.window);
        if (random.bounded(2) == 0) {
            QWidget *const focus = QApplication::focusWidget();
            pressKey(focus && front.isAncestorOf(focus) ? *focus : front, random);
        } else {
            useMouse(front, random);
        }
        if (i % 100 == 0) {
            play.setSpeed(10); // that and its buttons and keys are among what is hit
            play.play();
            QTest::qWait(3); // plays, however fast the events are
        }
        if (i % 1000 == 0) {
            const int before = turns;
            const auto hasTurned = [&] {
                play.play(); // which does nothing while it is stopping
                return turns > before;
            };
            ASSERT_TRUE(waitUntil(hasTurned)) << "the scenario opens a page at each turn";
        }
    }
    EXPECT_TRUE(client.window->isVisible());
}
