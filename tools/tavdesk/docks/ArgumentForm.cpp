#include "ArgumentForm.h"

#include "PlainToolTip.h"
#include "QuietLabel.h"
#include "RecordEdit.h"
#include "ValueText.h"
#include "WithoutScopes.h"

#include <QFormLayout>
#include <QLabel>
#include <QPlainTextEdit>

namespace
{
/// A value of the argument's kind, to be written over.
QString beginningOf(const TavCall::Argument &argument)
{
    if (argument.isObject) {
        return QStringLiteral("{}");
    }
    if (argument.type.startsWith(QLatin1String("QVector")) || argument.type == QLatin1String("QStringList")) {
        return QStringLiteral("[]");
    }
    if (argument.type == QLatin1String("bool")) {
        return QStringLiteral("false");
    }
    const bool isText = argument.type == QLatin1String("QString") || argument.type == QLatin1String("QByteArray");
    return isText ? QStringLiteral("\"\"") : QStringLiteral("0");
}
}

ArgumentForm::ArgumentForm(QWidget *parent) : QWidget(parent), m_layout(new QFormLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    m_layout->setRowWrapPolicy(QFormLayout::WrapAllRows);
}

void ArgumentForm::setArguments(const QVector<TavCall::Argument> &arguments)
{
    m_arguments = arguments;
    m_fields.clear();
    while (m_layout->rowCount() > 0) {
        m_layout->removeRow(0);
    }
    if (arguments.isEmpty()) {
        m_layout->addRow(new QuietLabel(tr("no arguments")));
    }
    for (const TavCall::Argument &argument : arguments) {
        const Field field = newField(argument);
        QWidget *const widget = field.record ? static_cast<QWidget *>(field.record) : field.json;
        auto *const label = new QLabel(tr("%1 (%2)").arg(argument.name, withoutScopes(argument.type)));
        label->setTextFormat(Qt::PlainText);
        label->setToolTip(plainToolTip(argument.type));
        m_layout->addRow(label, widget);
        m_fields.append(field);
        if (m_fields.size() == 1) {
            setFocusProxy(widget);
        }
    }
}

ArgumentForm::Field ArgumentForm::newField(const TavCall::Argument &argument)
{
    if (const RecordType *const type = recordTypeOf(argument.type)) {
        auto *const record = new RecordEdit(argument.name, *type);
        connect(record, &RecordEdit::refused, this, &ArgumentForm::refused);
        return {record, nullptr};
    }
    auto *const json = new QPlainTextEdit(beginningOf(argument));
    const bool isLong = argument.isObject || argument.type.startsWith(QLatin1String("QVector"));
    json->setTabChangesFocus(true);
    json->setAccessibleName(argument.name);
    json->setFixedHeight(json->fontMetrics().lineSpacing() * (isLong ? 5 : 1) + 14);
    return {nullptr, json};
}

void ArgumentForm::setValue(int place, const QJsonValue &value)
{
    if (m_fields[place].record) {
        m_fields[place].record->setValue(value);
    } else {
        m_fields[place].json->setPlainText(QString::fromUtf8(ValueText::write(value)));
    }
}

std::function<QJsonArray()> ArgumentForm::values() const
{
    struct Given {
        QString name;
        QJsonValue record; ///< undefined where the text counts
        QString text;
    };
    QVector<Given> given;
    for (int place = 0; place < m_fields.size(); ++place) {
        const Field &field = m_fields[place];
        given.append(field.record ? Given{m_arguments[place].name, field.record->value(), {}}
                                  : Given{m_arguments[place].name, QJsonValue::Undefined, field.json->toPlainText()});
    }
    return [given] {
        QJsonArray values;
        for (const Given &one : given) {
            try {
                values.append(one.record.isUndefined() ? ValueText::read(one.text.toUtf8()) : one.record);
            } catch (const std::runtime_error &error) {
                throw std::runtime_error((one.name + QLatin1String(": ")).toStdString() + error.what());
            }
        }
        return values;
    };
}
