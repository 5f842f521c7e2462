#include "DecoderMessages.h"

#include <array>
#include <cstdio>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

DecoderMessages::DecoderMessages()
    : m_standardError(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0))
    , m_messages(memfd_create("messages", MFD_CLOEXEC))
    , m_handler(qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) {
        std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    }))
{
    dup2(m_messages, STDERR_FILENO);
}

DecoderMessages::~DecoderMessages()
{
    qInstallMessageHandler(m_handler);
    dup2(m_standardError, STDERR_FILENO);
    close(m_standardError);
    close(m_messages);
}

QString DecoderMessages::text() const
{
    std::array<char, 512> begin{};
    const ssize_t size = pread(m_messages, begin.data(), begin.size(), 0);
    const QString lines = QString::fromUtf8(begin.data(), int(qMax<ssize_t>(0, size)));
    return lines.trimmed().replace('\n', ", ");
}
