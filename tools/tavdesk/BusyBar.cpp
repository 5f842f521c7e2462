#include "BusyBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

/// @brief A piece of work in the bar. It stays when it has ended, hidden, since a page is read some times a second.
class BusyBar::Work : public QWidget
{
public:
    Work(const QObject *what, BusyBar *bar) : QWidget(bar), m_what(what), m_text(new QLabel)
    {
        auto *const stop = new QPushButton(BusyBar::tr("Stop"));
        auto *const layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_text);
        layout->addWidget(stop);
        m_text->setTextFormat(Qt::PlainText);
        m_patience.setSingleShot(true);
        m_patience.setInterval(1000);
        connect(&m_patience, &QTimer::timeout, bar, [this, bar] {
            show();
            bar->showWhetherBusy();
        });
        connect(stop, &QPushButton::clicked, this, [this] {
            const auto stopIt = m_stop; // a copy, since it may begin something else in this place
            stopIt();
        });
        hide();
    }

    bool is(const QObject *what) const
    {
        return m_what == what;
    }

    void begin(const QString &text, const std::function<void()> &stop)
    {
        m_text->setText(text);
        m_stop = stop;
        if (isHidden() && !m_patience.isActive()) {
            m_patience.start();
        }
    }

    void end()
    {
        m_patience.stop();
        hide();
    }

private:
    const QObject *const m_what;
    QLabel *const m_text;
    QTimer m_patience;
    std::function<void()> m_stop;
};

BusyBar::BusyBar(QWidget *parent) : QWidget(parent), m_progress(new QProgressBar)
{
    m_progress->setRange(0, 0);
    m_progress->setMaximumWidth(120);
    m_progress->setMaximumHeight(14);
    m_progress->setAccessibleName(tr("Under way"));
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_progress);
    m_progress->hide();
}

void BusyBar::begin(const QObject *what, const QString &text, const std::function<void()> &stop)
{
    const auto same = std::find_if(m_works.begin(), m_works.end(), [what](const Work *work) { return work->is(what); });
    if (same != m_works.end()) {
        (*same)->begin(text, stop);
        return;
    }
    auto *const work = new Work(what, this);
    layout()->addWidget(work);
    m_works.append(work);
    work->begin(text, stop);
}

void BusyBar::end(const QObject *what)
{
    for (Work *const work : qAsConst(m_works)) {
        if (work->is(what)) {
            work->end();
        }
    }
    showWhetherBusy();
}

void BusyBar::showWhetherBusy()
{
    m_progress->setVisible(
        std::any_of(m_works.cbegin(), m_works.cend(), [](const Work *work) { return !work->isHidden(); }));
}
