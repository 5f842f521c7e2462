#include "RecordEdit.h"

#include "RecordForm.h"
#include "TavCallError.h"
#include "ValueText.h"

#include <QPlainTextEdit>

namespace
{
enum Tab { fields, json };
}

RecordEdit::RecordEdit(const QString &name, const RecordType &type, QWidget *parent)
    : QTabWidget(parent), m_name(name), m_type(type), m_form(new RecordForm(name, type)), m_json(new QPlainTextEdit)
{
    m_json->setAccessibleName(name);
    m_json->setTabChangesFocus(true);
    setDocumentMode(true);
    addTab(m_form, tr("Fields"));
    addTab(m_json, QStringLiteral("JSON"));
    connect(this, &QTabWidget::currentChanged, this, &RecordEdit::goTo);
}

void RecordEdit::setValue(const QJsonValue &value)
{
    m_json->setPlainText(QString::fromUtf8(ValueText::write(value)));
    m_inFront = m_form->setValue(value.toObject()) ? fields : json;
    setCurrentIndex(m_inFront);
}

QJsonValue RecordEdit::value()
{
    return m_inFront == fields ? m_form->value() : jsonValue();
}

void RecordEdit::goTo(int tab)
{
    if (tab == m_inFront) {
        return;
    }
    try {
        if (tab == fields) {
            showFields(jsonValue());
        } else {
            m_json->setPlainText(QString::fromUtf8(ValueText::write(m_form->value())));
        }
        m_inFront = tab;
    } catch (const std::runtime_error &error) {
        emit refused(QString::fromUtf8(error.what()));
    }
    setCurrentIndex(m_inFront);
}

void RecordEdit::showFields(const QJsonValue &value)
{
    try {
        m_type.check(value);
    } catch (const TavCallError &error) {
        throw TavCallError(m_name + error.path(), error.problem());
    }
    if (!m_form->setValue(value.toObject())) {
        throw std::runtime_error(tr("%1 holds a text that no field can show").arg(m_name).toStdString());
    }
}

QJsonValue RecordEdit::jsonValue() const
{
    try {
        return ValueText::read(m_json->toPlainText().toUtf8());
    } catch (const std::runtime_error &error) {
        throw std::runtime_error((m_name + QLatin1String(": ")).toStdString() + error.what());
    }
}
