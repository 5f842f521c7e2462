#include "FieldEdit.h"

#include "CheckStyle.h"
#include "ProblemColor.h"
#include "ValueText.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <limits>

FieldEdit::FieldEdit(const QString &name, const RecordField &field, QWidget *parent)
    : QWidget(parent), m_field(field), m_problem(new QLabel)
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    if (field.initial.isBool()) {
        m_check = new QCheckBox;
        auto *const style = new CheckStyle;
        style->setParent(m_check);
        m_check->setStyle(style);
        connect(m_check, &QCheckBox::clicked, this, &FieldEdit::edited);
        setFocusProxy(m_check);
    } else {
        m_text = new QLineEdit;
        m_text->setMaxLength(std::numeric_limits<int>::max()); // it would cut off what is longer
        if (field.bufferSize > 0) {
            m_text->setToolTip(tr("at most %n byte(s) of UTF-8", nullptr, field.bufferSize - 1));
        } else if (field.initial.isArray()) {
            m_text->setToolTip(tr("a JSON list"));
        } else if (field.kind == TavFields::Kind::Bytes) {
            m_text->setToolTip(QStringLiteral("Base64"));
        }
        connect(m_text, &QLineEdit::editingFinished, this, &FieldEdit::edited);
        setFocusProxy(m_text);
    }
    focusProxy()->setAccessibleName(name);
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    m_problem->hide();
    takeProblemColor();
    layout->addWidget(focusProxy());
    layout->addWidget(m_problem);
    setValue(field.initial);
}

bool FieldEdit::canShow(const QJsonValue &value) const
{
    return value.type() == m_field.initial.type() || (value.isDouble() && m_field.initial.isString());
}

void FieldEdit::setValue(const QJsonValue &value)
{
    if (m_check) {
        m_check->setChecked(value.toBool());
    } else {
        m_text->setText(value.isString() ? value.toString() : QString::fromUtf8(ValueText::write(value)).simplified());
    }
    setProblem({});
}

QJsonValue FieldEdit::value() const
{
    if (m_check) {
        return m_check->isChecked();
    }
    if (m_field.initial.isArray()) {
        return ValueText::read(m_text->text().toUtf8());
    }
    bool isNumber = false;
    const qint64 number = m_text->text().toLongLong(&isNumber);
    const bool isNumberWanted = m_field.initial.isDouble() || m_field.kind == TavFields::Kind::Enumeration;
    return isNumber && isNumberWanted ? QJsonValue(number) : QJsonValue(m_text->text());
}

void FieldEdit::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        takeProblemColor();
    }
}

void FieldEdit::takeProblemColor()
{
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, problemColor(colours));
    m_problem->setPalette(colours);
}

void FieldEdit::setProblem(const QString &problem)
{
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
    focusProxy()->setAccessibleDescription(problem);
}
