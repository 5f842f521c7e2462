#include "FilterBar.h"

#include "LetterWidth.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace
{
constexpr int widestFilter = 48; // letters
}

FilterBar::FilterBar(const QString &table, QWidget *panel) : QWidget(panel), m_text(new QLineEdit), m_count(new QLabel)
{
    m_text->setPlaceholderText(tr("Filter"));
    m_text->setAccessibleName(tr("Filter of %1").arg(table));
    m_text->setClearButtonEnabled(true);
    m_text->setMaximumWidth(letterWidth(fontMetrics()) * widestFilter);
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_count);
    setFocusProxy(m_text);

    const auto addKey = [this](QWidget *where, const QKeySequence &key, auto slot) {
        auto *const action = new QAction(where);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, slot);
        where->addAction(action);
    };
    addKey(panel, QKeySequence::Find, [this] { m_text->setFocus(Qt::ShortcutFocusReason); });
    addKey(m_text, Qt::Key_Escape, [this] { m_text->clear(); });
    connect(m_text, &QLineEdit::textChanged, this, &FilterBar::textChanged);
}

void FilterBar::setCount(int shown, int all)
{
    m_count->setText(shown == all ? tr("%n row(s)", nullptr, all) : tr("%1 of %n row(s)", nullptr, all).arg(shown));
}
