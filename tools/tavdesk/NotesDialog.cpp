#include "NotesDialog.h"

#include <QDialogButtonBox>
#include <QTreeWidget>
#include <QVBoxLayout>

NotesDialog::NotesDialog(const ReadingNotes &notes, QWidget *parent) : QDialog(parent)
{
    setWindowTitle(tr("Not Read"));
    auto *const table = new QTreeWidget;
    table->setAccessibleName(tr("Sources that could not be read"));
    table->setHeaderLabels({tr("Source"), tr("Reason")});
    table->setRootIsDecorated(false);
    table->setAlternatingRowColors(true);
    for (const ReadingNote &note : notes) {
        new QTreeWidgetItem(table, {note.source, note.reason});
    }
    table->resizeColumnToContents(0);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(table);
    layout->addWidget(buttons);
    resize(760, 320);
}
