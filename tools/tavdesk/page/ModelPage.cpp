#include "ModelPage.h"

#include "FactsForm.h"
#include "FactsPanel.h"
#include "FocusScrollArea.h"
#include "QuietLabel.h"
#include "ValueList.h"
#include "ValueModel.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>
#include <utility>

/// @brief A table of the page as it was read.
struct PartReading {
    const PageValue *value;
    QString part;
    std::optional<RowChange> change; ///< none when it is as it was
    QVector<QJsonArray> keys; ///< of a keyed table
};

/// @brief What a reading of the page has found.
struct PageReading {
    QVector<PartReading> parts;
    bool isWhole = true; ///< it was not stopped, and nothing was thrown
    QStringList editProblems; ///< of the edits made before
    QString problem; ///< what was thrown
    int milliseconds = 0;
};

namespace
{
constexpr int shortestPause = 200; // milliseconds between two readings
constexpr int mostlyIdle = 4; // so many times as long as a reading takes, the page rests

/// @brief What a view shows, and what it is to show.
struct View {
    ShownRows rows;
    Arrangement arrangement;
};

using IsStopped = std::atomic<bool>;
using Edit = std::function<QString(const IsStopped &)>;

QString problemOf(const PageValue &value, const std::exception &error)
{
    return ModelPage::tr("%1: %2").arg(value.manager, QString::fromUtf8(error.what()));
}

/// Appends what @p value has become, beside what @p views show.
void readValue(const PageValue &value, ITavObjectMgr &registry, const QVector<View> &views,
               const ModelPage::Keys &keysOf, QVector<PartReading> &parts)
{
    const QVector<QJsonArray> keys = value.readKeyFrom ? keysOf(value.manager, value.getter) : QVector<QJsonArray>();
    const QJsonArray key = views.value(parts.size()).arrangement.key;
    const QVector<PartTable> tables = value.readKeysFrom
        ? value.readKeysFrom(registry, keysOf(value.manager, value.getter))
        : keys.contains(key) ? value.readKeyFrom(registry, key)
                             : value.readFrom(registry);
    for (const PartTable &table : tables) {
        const View view = views.value(parts.size());
        parts.append({&value, table.part, changeOf(view.rows, table.table, view.arrangement, ValueModel::now()), keys});
    }
}

/// Makes the edits, reads the page, and finds out what is new. On the worker.
PageReading readPage(ModelPage::Page page, ITavObjectMgr &registry, const QVector<View> &views,
                     const QVector<Edit> &edits, const ModelPage::Keys &keysOf, const IsStopped &isStopped)
{
    QElapsedTimer timer;
    timer.start();
    PageReading reading;
    for (const Edit &edit : edits) {
        if (const QString problem = edit(isStopped); !problem.isEmpty()) {
            reading.editProblems.append(problem);
        }
    }
    for (const PageValue &value : valuesOf(page)) {
        if (isStopped) {
            reading.isWhole = false;
            break;
        }
        try {
            readValue(value, registry, views, keysOf, reading.parts);
        } catch (const std::exception &error) { // of a manager, or memory was short: the page is read again
            reading.isWhole = false;
            reading.problem = problemOf(value, error);
            break;
        }
    }
    reading.milliseconds = static_cast<int>(timer.elapsed());
    return reading;
}

QString titleOf(const PartReading &part)
{
    const QString title = QCoreApplication::translate("PageValues", part.value->title);
    return part.part.isEmpty() ? title : title + QStringLiteral(": ") + ValueColumn{part.part, {}}.title();
}

/// The rows as text for other programs: lines, with a tabulator between the cells.
QString textOf(const ValueTable &table, const QVector<int> &rows)
{
    QStringList lines;
    for (const int row : rows) {
        QStringList cells;
        for (int column = 0; column < table.columns().size(); ++column) {
            cells.append(ValueModel::fullText(table.columns()[column], table.cell(row, column)));
        }
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

ValueTablePointer tableOf(const PageValue &value, ITavObjectMgr &registry, const QString &part)
{
    const QVector<PartTable> tables = value.readFrom(registry);
    const auto found
        = std::find_if(tables.begin(), tables.end(), [&part](const PartTable &table) { return table.part == part; });
    return found == tables.end() ? nullptr : found->table;
}
}

ModelPage::ModelPage(Page page, ITavObjectMgr &registry, Call call, Keys keys, QWidget *parent)
    : QWidget(parent)
    , m_page(page)
    , m_registry(registry)
    , m_call(std::move(call))
    , m_keys(std::move(keys))
    , m_worker(QStringLiteral("page"), TavWorker::AtEnd::Finish)
{
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &ModelPage::read);
}

ModelPage::~ModelPage()
{
    stop(); // or the worker would make all calls of a long edit before it ends
}

void ModelPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    read();
}

void ModelPage::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_next.stop();
}

void ModelPage::read()
{
    m_isReadingWanted = m_isReading;
    if (m_isReading) {
        return;
    }
    m_isReading = true;
    m_next.stop();
    QVector<View> views;
    for (const Part &part : qAsConst(m_parts)) {
        views.append({part.model->rows(), part.model->arrangement()});
    }
    emit begun(m_edits.isEmpty() ? tr("Reading the page") : tr("Editing the list"));
    m_isStopped = std::make_shared<IsStopped>(false);
    m_worker.post([page = m_page, &registry = m_registry, views, edits = std::exchange(m_edits, {}), keys = m_keys,
                   isStopped = m_isStopped] { return readPage(page, registry, views, edits, keys, *isStopped); },
                  [this](const PageReading &reading) { take(reading); });
}

void ModelPage::stop()
{
    m_edits.clear();
    if (m_isStopped) {
        *m_isStopped = true;
    }
}

void ModelPage::take(const PageReading &reading)
{
    m_isReading = false;
    emit ended();
    if (!reading.isWhole) {
        // the page stays as it is
    } else if (m_parts.isEmpty()) {
        make(reading.parts);
    } else if (m_parts.size() == reading.parts.size()) {
        QVector<ShownRows> gone;
        for (int i = 0; i < m_parts.size(); ++i) {
            if (const auto &change = reading.parts[i].change) {
                gone.append(m_parts[i].model->apply(*change));
            }
        }
        showCounts();
        if (!m_isListChosen) {
            showFirstList();
        }
        takeKeys(reading.parts);
        m_worker.post([gone = std::move(gone)] {}); // long lists die there
    }
    if (!reading.editProblems.isEmpty()) {
        m_editProblem = reading.editProblems.join(QLatin1Char('\n'));
    }
    showProblem(reading.problem.isEmpty() ? m_editProblem : reading.problem);
    if (m_isReadingWanted || !m_edits.isEmpty()) {
        read();
    } else if (isVisible()) {
        m_next.start(std::max(shortestPause, mostlyIdle * reading.milliseconds));
    }
}

// Each step of a page's making is an event of its own, between which others get their turn.
void ModelPage::make(const QVector<PartReading> &parts)
{
    if (parts.isEmpty()) {
        showNothing();
        return;
    }
    delete std::exchange(m_hint, nullptr);
    m_facts = new FactsPanel(this); // not visible before it has its place
    m_lists = new QTabWidget(this);
    m_lists->setDocumentMode(true);
    m_lists->setAccessibleName(tr("Lists"));
    for (const PartReading &found : parts) {
        Part part{found.value, found.part, titleOf(found), new ValueModel(!found.value->rowEdit.isEmpty(), this),
                  -1,          found.keys, nullptr};
        part.model->apply(*found.change);
        const QString origin = found.value->manager + QStringLiteral("::") + found.value->getter;
        if (found.change->rows.table->isList()) {
            auto *const place = new QWidget; // for the list, which is made when its tab is in front
            (new QVBoxLayout(place))->setContentsMargins(0, 0, 0, 0);
            part.tab = m_lists->addTab(place, part.title);
            m_lists->setTabToolTip(part.tab, origin);
            connect(part.model, &ValueModel::arrangementChanged, this, &ModelPage::read);
        } else {
            auto *const form = new FactsForm(part.title, *part.model);
            form->setToolTip(origin);
            m_facts->add(form);
        }
        m_parts.append(part);
    }
    showCounts();
    showFirstList();
    connect(m_lists, &QTabWidget::currentChanged, this, [this](int tab) {
        m_isListChosen = true;
        makeList(tab);
    });
    QMetaObject::invokeMethod(this, &ModelPage::arrange, Qt::QueuedConnection);
}

void ModelPage::arrange()
{
    auto *const scroll = new FocusScrollArea(m_facts);
    auto *const splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(scroll);
    splitter->addWidget(m_lists);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    const int factsHeight = std::min(m_facts->heightFor(width()), height() / 3);
    splitter->setSizes({factsHeight, height() - factsHeight});
    scroll->setVisible(!m_facts->isEmpty()); // now that it has a parent: it would be a window without one
    m_lists->setVisible(m_lists->count() > 0);
    column().insertWidget(0, splitter, 1);
    QMetaObject::invokeMethod(
        this, [this] { makeList(m_lists->currentIndex()); }, Qt::QueuedConnection);
}

void ModelPage::showNothing()
{
    if (!m_hint) {
        m_hint = new QuietLabel(tr("No manager holds anything for this page."));
        m_hint->setAlignment(Qt::AlignCenter);
        column().insertWidget(0, m_hint, 1);
    }
}

void ModelPage::showCounts()
{
    for (const Part &part : qAsConst(m_parts)) {
        if (part.tab < 0) {
            continue;
        }
        const QString text = tr("%1 (%2)").arg(part.title).arg(part.model->rows().table->rowCount());
        if (text != m_lists->tabText(part.tab)) { // or all tabs would be laid out again
            m_lists->setTabText(part.tab, text);
        }
    }
}

void ModelPage::makeList(int tab)
{
    const auto part = std::find_if(m_parts.begin(), m_parts.end(), [tab](const Part &part) { return part.tab == tab; });
    if (part == m_parts.end() || part->list) {
        return;
    }
    part->list = new ValueList(*part->value, part->name, *part->model, part->title);
    part->list->setKeys(part->keys);
    connect(
        part->list, &ValueList::edited, this,
        [this, part = *part](const QVector<int> &rows, const ValueList::Edit &wanted) { edit(part, rows, wanted); });
    connect(part->list, &ValueList::copyRequested, this,
            [this, model = part->model](const QVector<int> &rows) { copy(model->rows().table, rows); });
    m_lists->widget(tab)->layout()->addWidget(part->list);
}

void ModelPage::showFirstList()
{
    const auto first = std::find_if(m_parts.cbegin(), m_parts.cend(), [](const Part &part) {
        return part.tab >= 0 && part.model->rowCount() > 0; // holds anything
    });
    if (first != m_parts.cend()) {
        m_lists->setCurrentIndex(first->tab);
        m_isListChosen = true;
    }
}

// When all changes have been applied: a list whose key is gone wants another reading, of what is then shown.
void ModelPage::takeKeys(const QVector<PartReading> &parts)
{
    for (int i = 0; i < m_parts.size(); ++i) {
        if (m_parts[i].keys != parts[i].keys) {
            m_parts[i].keys = parts[i].keys;
            if (m_parts[i].list) {
                m_parts[i].list->setKeys(parts[i].keys);
            }
        }
    }
}

void ModelPage::edit(const Part &part, const QVector<int> &rows, const ValueList::Edit &edit)
{
    m_editProblem.clear();
    showProblem({});
    m_edits.append([&value = *part.value, name = part.name, seen = part.model->rows().table, rows, edit, call = m_call,
                    &registry = m_registry](const IsStopped &isStopped) -> QString {
        try {
            const ValueTablePointer now = tableOf(value, registry, name);
            const bool isThere = now
                && std::all_of(rows.begin(), rows.end(), [&](int row) { return isSameRow(*seen, row, *now, row); });
            if (!isThere) {
                return tr("The list has changed meanwhile; nothing was edited.");
            }
            const QVector<ValueEdit> calls = edit(*now);
            for (int made = 0; made < calls.size(); ++made) {
                if (isStopped) {
                    return tr("Stopped after %1 of %2 calls.").arg(made).arg(calls.size());
                }
                call(value.manager, calls[made].operation, calls[made].arguments);
            }
        } catch (const std::exception &error) { // a call that is refused among them
            return problemOf(value, error);
        }
        return {};
    });
    read();
}

void ModelPage::copy(const ValueTablePointer &table, const QVector<int> &rows)
{
    m_worker.post([table, rows] { return textOf(*table, rows); },
                  [](const QString &text) { QApplication::clipboard()->setText(text); });
}

QVBoxLayout &ModelPage::column()
{
    if (!layout()) {
        (new QVBoxLayout(this))->setContentsMargins(0, 0, 0, 0);
    }
    return static_cast<QVBoxLayout &>(*layout());
}

void ModelPage::showProblem(const QString &problem)
{
    if (!m_problem) {
        if (problem.isEmpty()) {
            return;
        }
        m_problem = new QLabel;
        m_problem->setTextFormat(Qt::PlainText);
        m_problem->setWordWrap(true);
        column().addWidget(m_problem);
    }
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
}
