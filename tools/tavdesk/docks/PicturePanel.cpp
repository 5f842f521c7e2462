#include "PicturePanel.h"

#include "PictureModel.h"
#include "SymbolIcon.h"
#include "TableLook.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

PicturePanel::PicturePanel(ClientSession &session, const QStringList &directories, QWidget *parent)
    : QWidget(parent), m_model(new PictureModel(session, this)), m_directories(new QListWidget)
{
    auto *const view = new QTableView;
    view->setModel(m_model);
    view->setAccessibleName(tr("Pictures"));
    setFocusProxy(view);
    view->setTextElideMode(Qt::ElideMiddle);
    view->setIconSize({PictureModel::largestThumbnail, PictureModel::largestThumbnail});
    setTableLook(*view);
    setColumnWidths(*view, PictureModel::File, {44, 12, 40});
    view->verticalHeader()->setDefaultSectionSize(PictureModel::largestThumbnail + 4);

    auto *const side = new QWidget;
    auto *const heading = new QLabel(tr("&Directories"));
    heading->setBuddy(m_directories);
    m_directories->setAccessibleName(tr("Directories"));
    m_directories->setTextElideMode(Qt::ElideLeft);
    m_directories->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *const another = new QPushButton(symbolIcon(Symbol::Add), tr("A&ppend…"));
    another->setToolTip(tr("Have the picture manager load another directory."));
    connect(another, &QPushButton::clicked, this, &PicturePanel::chooseDirectory);
    auto *const column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(heading);
    column->addWidget(m_directories);
    column->addWidget(another, 0, Qt::AlignLeft);

    auto *const splitter = new QSplitter;
    splitter->addWidget(view);
    splitter->addWidget(side);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(splitter);
    append(directories);
}

void PicturePanel::append(const QStringList &directories)
{
    m_model->append(directories);
    m_directories->clear();
    m_directories->addItems(m_model->directories());
}

void PicturePanel::chooseDirectory()
{
    auto *const dialog = new QFileDialog(window(), tr("Append a Picture Directory"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    connect(dialog, &QFileDialog::filesSelected, this, &PicturePanel::append);
    dialog->open();
}
