#include "RecordForm.h"

#include "CellText.h"
#include "FieldEdit.h"
#include "TavCallError.h"

#include <QFormLayout>
#include <QLabel>

#include <algorithm>

RecordForm::RecordForm(const QString &name, const RecordType &type, QWidget *parent)
    : QWidget(parent), m_name(name), m_type(type)
{
    auto *const layout = new QFormLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    layout->setVerticalSpacing(4);
    for (const RecordField &field : type.fields) {
        auto *const edit = new FieldEdit(name + QLatin1Char('.') + field.name, field);
        const QString unit = CellText::unitOf(field.kind);
        auto *const label = new QLabel(unit.isEmpty() ? field.name : tr("%1 (%2)").arg(field.name, unit));
        label->setTextFormat(Qt::PlainText);
        layout->addRow(label, edit);
        m_fields.append(edit);
        connect(edit, &FieldEdit::edited, this, [this, edit] { edit->setProblem(problemOf(*edit)); });
    }
}

bool RecordForm::setValue(const QJsonObject &record)
{
    const auto valueOf = [&record](const FieldEdit *field) {
        return record.contains(field->field().name) ? record[field->field().name] : field->field().initial;
    };
    if (!std::all_of(m_fields.cbegin(), m_fields.cend(),
                     [&](const FieldEdit *field) { return field->canShow(valueOf(field)); })) {
        return false;
    }
    for (FieldEdit *const field : qAsConst(m_fields)) {
        field->setValue(valueOf(field));
    }
    return true;
}

QJsonObject RecordForm::value()
{
    QJsonObject record;
    FieldEdit *wrong = nullptr; // the first
    QString problem; // of it
    for (FieldEdit *const field : qAsConst(m_fields)) {
        const QString found = problemOf(*field);
        field->setProblem(found);
        if (found.isEmpty()) {
            record.insert(field->field().name, field->value());
        } else if (!wrong) {
            wrong = field;
            problem = found;
        }
    }
    if (wrong) {
        wrong->setFocus();
        throw std::runtime_error(QStringLiteral("%1.%2: %3").arg(m_name, wrong->field().name, problem).toStdString());
    }
    return record;
}

QString RecordForm::problemOf(const FieldEdit &field) const
{
    try {
        m_type.check(QJsonObject{{field.field().name, field.value()}});
        return {};
    } catch (const TavCallError &error) {
        return error.problem();
    } catch (const std::runtime_error &error) { // no JSON
        return QString::fromUtf8(error.what());
    }
}
