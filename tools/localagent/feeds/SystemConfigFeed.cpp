#include "AgentCalls.h"
#include "HostFile.h"
#include "ManagerFeeds.h"
#include "TextBuffer.h"

#include <QDateTime>

int ManagerFeeds::feedServer(const QString &root, const AgentCalls<ITavSystemConfigMgr> &calls, ReadingNotes &notes)
{
    // The agent runs in this process: its server is this machine, which is always reachable and has no port.
    const auto hostName = HostFile::readOrNote(root, "/proc/sys/kernel/hostname", notes);
    const std::string address = TextBuffer::message(hostName.value_or(QByteArray()).trimmed());
    Tav::SystemConfig::SystemServerInfo info;
    info.set_address(address);
    info.set_server_name("local agent");
    calls.make<&ITavSystemConfigMgr::setServerInfo>(info);

    const qint64 now = QDateTime::currentSecsSinceEpoch();
    Tav::SystemConfig::CommdOnlineState state;
    state.set_state(1);
    state.set_last_online_time(now);
    state.set_change_time(now);
    state.set_round_trip_time(-1); // there is no heartbeat to measure
    state.set_retry_count(0);
    state.set_address(address);
    calls.make<&ITavSystemConfigMgr::setOnlineState>(state);
    return 2;
}
