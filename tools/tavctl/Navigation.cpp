#include "Navigation.h"

#include "InstallationPaths.h"
#include "ITavFuncTypeMgr.h"
#include "ITavSelectFuncMgr.h"
#include "Presentation.h"
#include "TavCommonUtils.h"
#include "TavEvents.h"
#include "TavObjectMgr.h"
#include "TextTable.h"
#include "ToolError.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QJsonObject>
#include <QMetaEnum>
#include <QMutex>
#include <QSet>
#include <QTimer>

#include <atomic>

namespace
{
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;
using SubFuncType = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

template<class Enum>
QString keyOf(Enum value)
{
    const char *const key = QMetaEnum::fromType<Enum>().valueToKey(value);
    return key ? QString::fromLatin1(key) : QString::number(value);
}

/// The nodes for the entries nested in @p parent; @p done holds the types that are in the tree already.
QVector<NavigationNode> nodesUnder(FuncType parent, ITavFuncTypeMgr &catalogue, QSet<int> &done)
{
    QVector<NavigationNode> nodes;
    const QVector<TavFuncTypeData_> functions = catalogue.getFuncInfos();
    for (const TavFuncTypeData_ &function : functions) {
        if (function.parentFuncType != parent) {
            continue;
        }
        if (function.funcType == CTavFuncTypeHeader::Func_None) {
            // What is nested in it has no function for its parent, so it stands at the top already.
            nodes.append({function, catalogue.getSubFuncInfo(function.funcType), {}});
        } else if (!done.contains(function.funcType)) {
            done.insert(function.funcType);
            nodes.append({function, catalogue.getSubFuncInfo(function.funcType),
                          nodesUnder(function.funcType, catalogue, done)});
        }
    }
    return nodes;
}

QString pageNote(const TavSubFuncTypeData_ &page)
{
    if (page.subFuncHasParent) {
        return {};
    }
    return page.realParentType > 0 ? QStringLiteral("opened from ") + pageKey(page.realParentType)
                                   : QStringLiteral("stands alone");
}

/// Adds the rows of @p nodes, which stand @p depth levels below the top; @p prefix holds the branches on their left.
void addTo(TextTable &table, const QVector<NavigationNode> &nodes, int depth, const QString &prefix)
{
    for (int i = 0; i < nodes.size(); ++i) {
        const NavigationNode &node = nodes[i];
        const bool isTop = depth == 0;
        const bool isLast = i == nodes.size() - 1;
        table.addRow({(isTop ? QString() : prefix + (isLast ? QStringLiteral("└─ ") : QStringLiteral("├─ ")))
                          + node.function.funcTitle,
                      functionKey(node.function.funcType), node.function.funcIcon});
        const QString below = isTop ? QString() : prefix + (isLast ? QStringLiteral("   ") : QStringLiteral("│  "));
        for (int p = 0; p < node.pages.size(); ++p) {
            const TavSubFuncTypeData_ &page = node.pages[p];
            const bool isLastBelow = p == node.pages.size() - 1 && node.nested.isEmpty();
            table.addRow({below + (isLastBelow ? QStringLiteral("└─ ") : QStringLiteral("├─ ")) + page.subFuncTitle,
                          pageKey(page.subFuncType), QString(), page.subFuncClassName, pageNote(page)});
        }
        addTo(table, node.nested, depth + 1, below);
    }
}

/// @brief A page's subscription: notes every delivery with its thread and its time.
class PageSubscriber
{
public:
    PageSubscriber(const QString &name, QThread *thread)
    {
        // The callback shares the record: a delivery may still be on its way when the subscription ends.
        const auto note = [record = m_record, name](SubFuncType page) {
            QMutexLocker lock(&record->mutex);
            record->deliveries.append(
                {pageKey(page), name, QThread::currentThread()->objectName(), record->clock.nsecsElapsed()});
        };
        m_id = eventFuncPageUpdate.subscribe(note, thread);
    }

    ~PageSubscriber()
    {
        eventFuncPageUpdate.unsubscribe(m_id);
    }
    Q_DISABLE_COPY(PageSubscriber)

    /// Forgets what was noted; the clock of the deliveries to come starts.
    void restart()
    {
        QMutexLocker lock(&m_record->mutex);
        m_record->deliveries.clear();
        m_record->clock.start();
    }

    QVector<PageDelivery> deliveries()
    {
        QMutexLocker lock(&m_record->mutex);
        return m_record->deliveries;
    }

private:
    struct Record {
        QMutex mutex;
        QElapsedTimer clock;
        QVector<PageDelivery> deliveries;
    };

    std::shared_ptr<Record> m_record = std::make_shared<Record>();
    int m_id;
};

/// @brief A thread with an event loop, as a page controller has one; ends with this object.
class WorkerThread : public QThread
{
public:
    explicit WorkerThread(const QString &name)
    {
        setObjectName(name);
        start();
    }

    ~WorkerThread() override
    {
        quit();
        wait();
    }
};

/// Runs the event loop until @p done or for five seconds; whether it was done.
bool waitFor(const std::function<bool()> &done)
{
    QElapsedTimer timer;
    timer.start();
    while (!done() && timer.elapsed() < 5000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return done();
}
}

void loadCatalogue()
{
    auto *const catalogue = tavObject<ITavFuncTypeMgr>();
    const QString file = TavCommonUtils::pathInSystemRoot(InstallationPaths::catalogue());
    catalogue->loadConfig();
    if (!catalogue->getSubFuncInfo().isEmpty()) {
        return;
    }
    throw ToolError(
        ExitCode::NoConfiguration,
        QFileInfo::exists(file)
            ? QStringLiteral("%1: holds no page; it must be the Base64 text of a JSON array of functions").arg(file)
            : QStringLiteral("%1: there is no navigation catalogue; put one there or name another system root "
                             "with --root")
                  .arg(file));
}

QVector<NavigationNode> navigationTree()
{
    QSet<int> done;
    return nodesUnder(CTavFuncTypeHeader::Func_None, *tavObject<ITavFuncTypeMgr>(), done);
}

QVector<PageDelivery> walkPages()
{
    WorkerThread audit(QStringLiteral("audit-worker"));
    WorkerThread network(QStringLiteral("network-worker"));
    QThread *const gui = QCoreApplication::instance()->thread();
    gui->setObjectName(QStringLiteral("gui"));
    PageSubscriber navigationBar(QStringLiteral("navigation bar"), gui);
    PageSubscriber auditPage(QStringLiteral("audit page"), &audit);
    PageSubscriber networkPage(QStringLiteral("network page"), &network);
    PageSubscriber *const subscribers[] = {&navigationBar, &auditPage, &networkPage};

    auto *const selection = tavObject<ITavSelectFuncMgr>();
    QVector<PageDelivery> deliveries;
    const QVector<TavSubFuncTypeData_> pages = tavObject<ITavFuncTypeMgr>()->getSubFuncInfo();
    for (const TavSubFuncTypeData_ &page : pages) {
        for (PageSubscriber *const subscriber : subscribers) {
            subscriber->restart();
        }
        selection->setCurSelType(page.funcType, page.subFuncType);
        for (PageSubscriber *const subscriber : subscribers) {
            if (!waitFor([subscriber] { return !subscriber->deliveries().isEmpty(); })) {
                throw ToolError(ExitCode::NotDelivered,
                                QStringLiteral("%1: the page change did not reach every subscriber within 5 s")
                                    .arg(pageKey(page.subFuncType)));
            }
            deliveries += subscriber->deliveries();
        }
    }
    return deliveries;
}

QJsonArray navigationJson(const QVector<NavigationNode> &nodes)
{
    QJsonArray functions;
    for (const NavigationNode &node : nodes) {
        QJsonArray pages;
        for (const TavSubFuncTypeData_ &page : node.pages) {
            pages.append(QJsonObject{
                {QStringLiteral("title"), page.subFuncTitle},
                {QStringLiteral("type"), pageKey(page.subFuncType)},
                {QStringLiteral("controller"), page.subFuncClassName},
                {QStringLiteral("help"), page.subFuncHelp},
                {QStringLiteral("hasParent"), page.subFuncHasParent},
                {QStringLiteral("realParent"), pageKey(page.realParentType)},
            });
        }
        functions.append(QJsonObject{
            {QStringLiteral("title"), node.function.funcTitle},
            {QStringLiteral("type"), functionKey(node.function.funcType)},
            {QStringLiteral("icon"), node.function.funcIcon},
            {QStringLiteral("pages"), pages},
            {QStringLiteral("nested"), navigationJson(node.nested)},
        });
    }
    return functions;
}

QJsonArray deliveriesJson(const QVector<PageDelivery> &deliveries)
{
    QJsonArray rows;
    for (const PageDelivery &delivery : deliveries) {
        rows.append(QJsonObject{
            {QStringLiteral("page"), delivery.page},
            {QStringLiteral("subscriber"), delivery.subscriber},
            {QStringLiteral("thread"), delivery.thread},
            {QStringLiteral("microseconds"), static_cast<double>(delivery.nanoseconds) / 1000},
        });
    }
    return rows;
}

void printNavigation(const QVector<NavigationNode> &nodes)
{
    printHeading(QStringLiteral("Navigation"));
    TextTable table({{QStringLiteral("title")},
                     {QStringLiteral("type")},
                     {QStringLiteral("icon")},
                     {QStringLiteral("controller")},
                     {QStringLiteral("note")}});
    addTo(table, nodes, 0, QString());
    table.print();
}

void printDeliveries(const QVector<PageDelivery> &deliveries)
{
    printHeading(QStringLiteral("Page changes: %1 deliveries").arg(deliveries.size()));
    TextTable table({{QStringLiteral("page")},
                     {QStringLiteral("subscriber")},
                     {QStringLiteral("thread")},
                     {QStringLiteral("µs to arrive"), TextTable::Right}});
    for (const PageDelivery &delivery : deliveries) {
        table.addRow({delivery.page, delivery.subscriber, delivery.thread, microseconds(delivery.nanoseconds)});
    }
    table.print();
}

QString pageKey(SubFuncType type)
{
    return keyOf(type);
}

QString functionKey(FuncType type)
{
    return keyOf(type);
}
