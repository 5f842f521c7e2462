#pragma once

#include "TavSubFuncTypeData_.h"

#include <QHash>
#include <QStackedWidget>

#include <functional>

class ClientSession;
class ITavPage;

/**
 * @brief The pages that have been opened, of which it shows the newest.
 *
 * A controller registered under the name that the catalogue gives, and offering ITavPage, shows its own widget; for
 * other pages what their managers hold is shown.
 */
class PageArea : public QStackedWidget
{
    Q_OBJECT
public:
    using Page = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

    /// @p session outlives the pages.
    explicit PageArea(ClientSession &session, QWidget *parent = nullptr);

    /// Until a page has been opened: says that one is to be chosen, or what is wrong with the catalogue.
    void showBeginning();

    /// Shows the page, which is made when it is opened for the first time.
    void open(Page page);

    /// Type of the page that is shown; SubFunc_None before the first.
    Page openPage() const
    {
        return m_openPage;
    }

signals:
    /// A page that stands alone, or the one above it, has been asked for.
    void pageChosen(const TavSubFuncTypeData_ &page);

    /// A page's controller has made no widget, which is shown in the page's place.
    void pageFailed(const QString &what, const QString &problem);

    /// As BusyBar::begin() and BusyBar::end() take it, of any page.
    void workBegun(const QObject *what, const QString &text, const std::function<void()> &stop);
    void workEnded(const QObject *what);

private:
    QWidget *newPage(Page page);
    QWidget *newOwnPage(ITavPage &controller, const QString &name);
    QWidget *newContent(const TavSubFuncTypeData_ &page);

    ClientSession &m_session;
    Page m_openPage = CTavSubFuncTypeHeader::SubFunc_None;
    QHash<int, QWidget *> m_pages; ///< by their types
};
