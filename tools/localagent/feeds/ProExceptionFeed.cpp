#include "ITavProExceptionMgr.h"
#include "ManagerFeeds.h"
#include "ProcessReader.h"
#include "UserReader.h"

#include <QDateTime>

int ManagerFeeds::feedExceptions(const QString &root, ITavProExceptionMgr &manager, ReadingNotes &notes)
{
    const Tav::Base::PriExceptionAsr answer = ProcessReader::exceptions(
        ProcessReader::readProcesses(root, notes), UserReader::readNames(root), QDateTime::currentSecsSinceEpoch());
    manager.setPriException(answer);

    QVector<STProtoDataContainer> rows;
    for (const auto &entry : answer.entries()) {
        rows.append({false, rows.size(), entry.SerializeAsString()});
    }
    manager.setUIData(rows);
    return answer.entries_size();
}
