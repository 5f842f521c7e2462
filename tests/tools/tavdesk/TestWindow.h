#pragma once

#include "ClientSession.h"
#include "GlobalStateGuard.h"
#include "MainWindow.h"
#include "NavigationModel.h"
#include "NavigationView.h"
#include "PageArea.h"
#include "TextFile.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

const QString demoRoot = QStringLiteral(TAV_SOURCE_DIR "/share/demo");

/// Runs the event loop until @p condition holds, for a minute at most, as on a busy machine; whether it holds.
template<class Condition>
bool waitUntil(Condition condition)
{
    return QTest::qWaitFor(condition, 60'000);
}

/// All texts that the labels of @p widget show.
inline QString labelTexts(const QWidget &widget)
{
    QString texts;
    const QList<QLabel *> labels = widget.findChildren<QLabel *>();
    for (const QLabel *const label : labels) {
        texts += label->text() + '\n';
    }
    return texts;
}

/// @brief The real window on the real plugin, shown.
class TestWindow
{
public:
    explicit TestWindow(const QString &root = demoRoot, const QStringList &pagePlugins = {})
        : session(TAV_PLUGIN_FILE, root), refused(session.loadPages(pagePlugins))
    {
        window = std::make_unique<MainWindow>(session);
        session.calls().clear(); // what the window itself calls when it is made
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }

    /// The widget that calls itself so to those who cannot see it.
    template<class Widget>
    Widget *named(const QString &accessibleName) const
    {
        const QList<Widget *> widgets = window->findChildren<Widget *>();
        for (Widget *const widget : widgets) {
            if (widget->accessibleName() == accessibleName) {
                return widget;
            }
        }
        ADD_FAILURE() << "there is no " << accessibleName.toStdString();
        return nullptr;
    }

    /// The button, or entry of a menu, with this text.
    QAction *action(const QString &text) const
    {
        const QList<QAction *> actions = window->findChildren<QAction *>();
        for (QAction *const action : actions) {
            if (action->text().remove('&') == text) {
                return action;
            }
        }
        ADD_FAILURE() << "there is no action " << text.toStdString();
        return nullptr;
    }

    NavigationView &navigation() const
    {
        return *window->findChild<NavigationView *>();
    }

    QModelIndex entry(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page) const
    {
        return static_cast<NavigationModel *>(navigation().model())->indexOf(page);
    }

    void click(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page) const
    {
        NavigationView &view = navigation();
        view.scrollTo(entry(page));
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(entry(page)).center());
    }

    bool waitForPage(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page) const
    {
        return waitUntil([&] { return window->pages().openPage() == page; });
    }

    GlobalStateGuard guard;
    ClientSession session;
    QVector<TavPluginError> refused;
    std::unique_ptr<MainWindow> window;
};
