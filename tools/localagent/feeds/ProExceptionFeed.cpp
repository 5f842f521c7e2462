#include "AgentCalls.h"
#include "ManagerFeeds.h"
#include "ProcessReader.h"
#include "UserReader.h"

#include <QDateTime>

using TavOperations::overload;

int ManagerFeeds::feedExceptions(const QString &root, const AgentCalls<ITavProExceptionMgr> &calls, ReadingNotes &notes)
{
    const Tav::Base::PriExceptionAsr answer = ProcessReader::exceptions(
        ProcessReader::readProcesses(root, notes), UserReader::readNames(root), QDateTime::currentSecsSinceEpoch());
    calls.make<&ITavProExceptionMgr::setPriException>(answer);

    QVector<STProtoDataContainer> rows;
    for (const auto &entry : answer.entries()) {
        rows.append({false, rows.size(), entry.SerializeAsString()});
    }
    calls.make<overload<void(const QVector<STProtoDataContainer> &)>(&ITavProExceptionMgr::setUIData)>(rows);
    return answer.entries_size();
}
