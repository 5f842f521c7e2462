#include "AccountReader.h"
#include "ITavAuthInfoMgr.h"
#include "ManagerFeeds.h"

#include <QDateTime>

#include <unistd.h>

int ManagerFeeds::feedAccount(const QString &root, ITavAuthInfoMgr &manager, ReadingNotes &notes)
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    manager.setLoginCheck(AccountReader::readLogin(root, ::getuid(), now, notes));
    manager.setPwdChange(AccountReader::readPassword(root, ::getuid(), now, notes));
    return 2;
}
