#include "PageArea.h"

#include "CatalogueProblem.h"
#include "ClientSession.h"
#include "ITavFuncTypeMgr.h"
#include "ITavPage.h"
#include "ModelPage.h"
#include "NavigationTree.h"
#include "PageFrame.h"
#include "ProblemView.h"
#include "QuietLabel.h"

#include <algorithm>

namespace
{
/// The pages that buttons of @p page lead to: the one that it is reached from, and those reached from it. Each once:
/// the manager lists the pages again whenever it has read its catalogue again.
QVector<TavSubFuncTypeData_> waysFrom(const TavSubFuncTypeData_ &page, ITavFuncTypeMgr &catalogue)
{
    QVector<TavSubFuncTypeData_> ways;
    const QVector<TavSubFuncTypeData_> all = catalogue.getSubFuncInfo();
    for (const TavSubFuncTypeData_ &other : all) {
        const bool isAbove = !page.subFuncHasParent && other.subFuncType == page.realParentType;
        const bool isBelow = !other.subFuncHasParent && other.realParentType == page.subFuncType;
        const bool isKnown = std::any_of(ways.cbegin(), ways.cend(), [&other](const TavSubFuncTypeData_ &way) {
            return way.subFuncType == other.subFuncType;
        });
        if ((isAbove || isBelow) && !isKnown && other.subFuncType != page.subFuncType) {
            ways.append(other);
        }
    }
    return ways;
}
}

PageArea::PageArea(ClientSession &session, QWidget *parent) : QStackedWidget(parent), m_session(session)
{
    showBeginning();
}

void PageArea::showBeginning()
{
    if (!m_pages.isEmpty()) {
        return;
    }
    delete currentWidget();
    if (m_session.host().manager<ITavFuncTypeMgr>()->getSubFuncInfo().isEmpty()) {
        addWidget(newCatalogueProblem(this));
        return;
    }
    auto *const hint = new QuietLabel(tr("Choose a page in the navigation."));
    hint->setAlignment(Qt::AlignCenter);
    addWidget(hint);
}

void PageArea::open(Page page)
{
    if (!m_pages.contains(page)) {
        QWidget *const widget = newPage(page);
        addWidget(widget);
        m_pages.insert(page, widget);
    }
    setCurrentWidget(m_pages.value(page));
    m_openPage = page;
}

QWidget *PageArea::newPage(Page type)
{
    ITavFuncTypeMgr &catalogue = *m_session.host().manager<ITavFuncTypeMgr>();
    const TavSubFuncTypeData_ page = catalogue.getSubFuncInfo(type);
    if (page.subFuncType != type || type == CTavSubFuncTypeHeader::SubFunc_None) {
        return new ProblemView(tr("The page is not in the catalogue"),
                               tr("%1 was selected, which the catalogue does not have.").arg(pageKey(type)),
                               tr("Add the page to the catalogue, or choose another one."));
    }
    auto *const frame = new PageFrame(page, newContent(page), waysFrom(page, catalogue));
    connect(frame, &PageFrame::pageChosen, this, &PageArea::pageChosen);
    return frame;
}

QWidget *PageArea::newOwnPage(ITavPage &controller, const QString &name)
{
    QString problem;
    try {
        if (QWidget *const widget = controller.createPage(nullptr)) {
            return widget;
        }
        problem = tr("%1 made no widget.").arg(name);
    } catch (const std::exception &error) {
        problem = tr("%1 threw: %2").arg(name, QString::fromUtf8(error.what()));
    } catch (...) {
        problem = tr("%1 threw.").arg(name);
    }
    const QString title = tr("The page cannot be shown");
    emit pageFailed(title, problem);
    return new ProblemView(title, problem, tr("See createPage() of the page's controller."));
}

QWidget *PageArea::newContent(const TavSubFuncTypeData_ &page)
{
    const QByteArray controllerName = page.subFuncClassName.toUtf8();
    QObject *const object = m_session.host().managerObject(controllerName.constData());
    if (auto *const controller = qobject_cast<ITavPage *>(object)) {
        return newOwnPage(*controller, page.subFuncClassName);
    }
    auto *const content = new ModelPage(
        page.subFuncType, m_session.host().registry(),
        [&session = m_session](const QString &manager, const QString &operation, const QJsonArray &arguments) {
            session.call(manager, operation, arguments);
        },
        [&session = m_session](const QString &manager, const QString &getter) {
            return session.calls().keys().of(manager, getter);
        });
    connect(content, &ModelPage::begun, this,
            [this, content](const QString &text) { emit workBegun(content, text, [content] { content->stop(); }); });
    connect(content, &ModelPage::ended, this, [this, content] { emit workEnded(content); });
    return content;
}
