#include "PicturePanel.h"

#include "ClientSession.h"
#include "ITavPicResourceMgr.h"
#include "PictureModel.h"
#include "PlainToolTip.h"
#include "RowCopy.h"
#include "SymbolIcon.h"
#include "TableLook.h"
#include "WaitCursor.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QJsonArray>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

PicturePanel::PicturePanel(ClientSession &session, const QStringList &directories, QWidget *parent)
    : QWidget(parent), m_session(session), m_model(new PictureModel(session, this)), m_directories(new QListWidget)
{
    auto *const view = new QTableView;
    view->setModel(m_model);
    view->setAccessibleName(tr("Pictures"));
    setFocusProxy(view);
    view->setTextElideMode(Qt::ElideMiddle);
    view->setIconSize({PictureModel::largestThumbnail, PictureModel::largestThumbnail});
    setTableLook(*view);
    addRowCopy(*view);
    setColumnWidths(*view, PictureModel::File, {36, 9, 40});
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
    // Anybody may append one: a scenario, or the panel for calls.
    auto *const look = new QTimer(this);
    connect(look, &QTimer::timeout, this, [this] {
        if (isVisible() && m_session.calls().pictureDirectories().count() != m_shown) {
            update();
        }
    });
    look->start(500);
}

void PicturePanel::append(const QStringList &directories)
{
    const WaitCursor waiting;
    for (const QString &directory : directories) {
        m_session.call(QLatin1String(qobject_interface_iid<ITavPicResourceMgr *>()),
                       QStringLiteral("appendPicResourcePath"), QJsonArray{directory});
    }
    update();
}

void PicturePanel::update()
{
    const WaitCursor waiting;
    m_shown = m_session.calls().pictureDirectories().count();
    m_model->update();
    m_directories->clear();
    const QStringList directories = m_session.calls().pictureDirectories().all();
    for (const QString &directory : directories) {
        (new QListWidgetItem(directory, m_directories))->setToolTip(plainToolTip(directory));
    }
}

void PicturePanel::chooseDirectory()
{
    auto *const dialog = new QFileDialog(window(), tr("Append a Picture Directory"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    connect(dialog, &QFileDialog::filesSelected, this, &PicturePanel::append);
    dialog->open();
}
