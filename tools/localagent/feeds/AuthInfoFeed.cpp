#include "AccountReader.h"
#include "AgentCalls.h"
#include "ManagerFeeds.h"

#include <QDateTime>

#include <unistd.h>

int ManagerFeeds::feedAccount(const QString &root, const AgentCalls<ITavAuthInfoMgr> &calls, ReadingNotes &notes)
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    calls.make<&ITavAuthInfoMgr::setLoginCheck>(AccountReader::readLogin(root, ::getuid(), now, notes));
    calls.make<&ITavAuthInfoMgr::setPwdChange>(AccountReader::readPassword(root, ::getuid(), now, notes));
    return 2;
}
