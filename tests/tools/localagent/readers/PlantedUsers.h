#pragma once

#include "PlantedHost.h"

#include <cstring>

#include <utmpx.h>

/// Plants the users root, daemon, alice and bob, of whom alice is an administrator.
inline void plantUsers(const PlantedHost &host)
{
    host.file("/etc/passwd",
              "root:x:0:0:root:/root:/bin/bash\n"
              "daemon:x:1:1:daemon:/usr/sbin:/usr/sbin/nologin\n"
              "alice:x:1000:1000:Alice Example,Room 1:/home/alice:/bin/bash\n"
              "bob:x:1001:1001::/home/bob:\n");
    host.file("/etc/group", "root:x:0:\ndaemon:x:1:\nsudo:x:27:alice\nalice:x:1000:\nbob:x:1001:alice\n");
}

/// A record as log-ins are kept in: of a process with the id 321.
inline QByteArray loginRecord(short type, const char *user, const char *line, const char *host, qint64 time)
{
    utmpx record{};
    record.ut_type = type;
    record.ut_pid = 321;
    record.ut_tv.tv_sec = static_cast<decltype(record.ut_tv.tv_sec)>(time);
    std::strncpy(record.ut_user, user, sizeof(record.ut_user) - 1);
    std::strncpy(record.ut_line, line, sizeof(record.ut_line) - 1);
    std::strncpy(record.ut_host, host, sizeof(record.ut_host) - 1);
    return {reinterpret_cast<const char *>(&record), sizeof(record)};
}
