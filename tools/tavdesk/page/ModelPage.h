#pragma once

#include "CTavSubFuncTypeHeader.h"
#include "TavWorker.h"
#include "ValueList.h"

#include <QTimer>
#include <QWidget>

#include <atomic>
#include <functional>
#include <memory>

class FactsPanel;
class QLabel;
class QTabWidget;
class QVBoxLayout;
class ValueModel;
struct PageReading;
struct PartReading;

/**
 * @brief What the managers behind a page hold: facts as forms, lists as tables, and what edits them.
 *
 * The managers say nothing when they change, so a visible page reads them again and again, some five times a second and
 * less often when that takes long. Reading, comparing, sorting and filtering happen on a thread of the page's own, and
 * so do the calls that edit.
 */
class ModelPage : public QWidget
{
    Q_OBJECT
public:
    using Page = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

    /// Makes a call on a manager; throws a std::exception, which the page shows, when it is refused. Called on the
    /// page's thread.
    using Call = std::function<void(const QString &manager, const QString &operation, const QJsonArray &arguments)>;

    /// The keys under which a manager holds what this getter returns; may throw the same. Called on the page's thread.
    using Keys = std::function<QVector<QJsonArray>(const QString &manager, const QString &getter)>;

    /// The managers are those of @p registry; it, and what @p call and @p keys need, outlive the page.
    ModelPage(Page page, ITavObjectMgr &registry, Call call, Keys keys, QWidget *parent = nullptr);
    ~ModelPage() override;

    /// Leaves the rest of an edit undone, the calls that were not made, and of a reading the values that were not
    /// asked for. The page is read again later, as always.
    void stop();

signals:
    /// The page is read, or edited and read: @p text says which.
    void begun(const QString &text);
    void ended();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    /// @brief A table of the page.
    struct Part {
        const PageValue *value;
        QString name; ///< as PartTable::part
        QString title;
        ValueModel *model;
        int tab; ///< -1 for facts
        QVector<QJsonArray> keys; ///< of a keyed table
        ValueList *list; ///< null until its tab has been in front
    };

    void read();
    void take(const PageReading &reading);
    void make(const QVector<PartReading> &parts);
    void arrange();
    void makeList(int tab);
    void showFirstList();
    void showNothing();
    void showCounts();
    void takeKeys(const QVector<PartReading> &parts);
    void edit(const Part &part, const QVector<int> &rows, const ValueList::Edit &edit);
    void copy(const ValueTablePointer &table, const QVector<int> &rows);
    QVBoxLayout &column(); ///< what the page shows, with what went wrong below
    void showProblem(const QString &problem); ///< none: shows that there is none

    const Page m_page;
    ITavObjectMgr &m_registry;
    const Call m_call;
    const Keys m_keys;
    QVector<Part> m_parts; ///< in the order of reading
    FactsPanel *m_facts = nullptr;
    QTabWidget *m_lists = nullptr;
    bool m_isListChosen = false; ///< by a person, or since it was the first to hold anything
    QLabel *m_hint = nullptr; ///< that there is nothing to show
    QLabel *m_problem = nullptr; ///< null before the first one
    QString m_editProblem; ///< what went wrong with the last edit
    QTimer m_next; ///< until the next reading
    bool m_isReading = false;
    bool m_isReadingWanted = false; ///< at once, when the one under way has ended
    /// To be made before the next reading; each says what went wrong.
    QVector<std::function<QString(const std::atomic<bool> &isStopped)>> m_edits;
    std::shared_ptr<std::atomic<bool>> m_isStopped; ///< asked between the calls of an edit
    TavWorker m_worker; ///< the last member: what is above is there until its thread has ended
};
