#pragma once

#include <QObject>

class QWidget;

/**
 * @brief A page as the development client shows it; a real client has a contract of its own.
 *
 * A page plugin is a Qt plugin whose root object implements ITavDataPlugin. The client loads it after the data plugin;
 * its registerObj() registers one controller for each of its pages, under the name that the catalogue gives the page's
 * controller: `registerObject(tavManagerKey("ITavHostInfoController"), new HostInfoController, true)`. A controller
 * that also implements this interface shows its page itself; of any other the client shows what the page's managers
 * hold.
 */
class ITavPage
{
public:
    /// Makes a widget that shows the page, in @p parent, which may be null; another one with each call. GUI thread, and
    /// a QApplication. The caller owns the widget, and ends it before the registry, with which the controller ends.
    [[nodiscard]] virtual QWidget *createPage(QWidget *parent) = 0;

protected:
    /// Not virtual: nothing is deleted through this interface.
    ~ITavPage() = default;
};
Q_DECLARE_INTERFACE(ITavPage, "ITavPage")
