#include "BusyBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>

BusyBar::BusyBar(QWidget *parent) : QWidget(parent), m_text(new QLabel), m_stop(new QPushButton(tr("Stop")))
{
    auto *const bar = new QProgressBar;
    bar->setRange(0, 0);
    bar->setMaximumWidth(120);
    bar->setMaximumHeight(14);
    bar->setAccessibleName(tr("Under way"));
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addWidget(bar);
    layout->addWidget(m_stop);
    m_patience.setSingleShot(true);
    m_patience.setInterval(1000);
    connect(&m_patience, &QTimer::timeout, this, &BusyBar::showFirst);
    connect(m_stop, &QPushButton::clicked, this, [this] {
        const auto stop = m_works.first().stop; // a copy, since it may end the work
        stop();
    });
    hide();
}

void BusyBar::begin(const QObject *what, const QString &text, std::function<void()> stop)
{
    const auto same
        = std::find_if(m_works.begin(), m_works.end(), [what](const Work &work) { return work.what == what; });
    if (same == m_works.end()) {
        m_works.append({what, text, std::move(stop)});
    } else {
        *same = {what, text, std::move(stop)};
    }
    if (isVisible()) {
        showFirst();
    } else if (!m_patience.isActive()) {
        m_patience.start();
    }
}

void BusyBar::end(const QObject *what)
{
    m_works.erase(
        std::remove_if(m_works.begin(), m_works.end(), [what](const Work &work) { return work.what == what; }),
        m_works.end());
    if (m_works.isEmpty()) {
        m_patience.stop();
        hide();
    } else if (isVisible()) {
        showFirst();
    }
}

void BusyBar::showFirst()
{
    m_text->setText(m_works.first().text);
    m_stop->setVisible(bool(m_works.first().stop));
    show();
}
