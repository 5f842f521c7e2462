#pragma once

#include <QFile>
#include <QString>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

/// @brief Holds a file with a lease: whoever opens it for reading waits until release(), as on a slow disk.
class HeldFile
{
public:
    explicit HeldFile(const QString &path)
        : m_oldHandler(std::signal(SIGIO, SIG_IGN)), m_descriptor(open(QFile::encodeName(path).constData(), O_RDWR))
    {
        m_held = fcntl(m_descriptor, F_SETLEASE, F_WRLCK) == 0;
    }

    HeldFile(const HeldFile &) = delete;
    HeldFile &operator=(const HeldFile &) = delete;

    ~HeldFile()
    {
        release();
        close(m_descriptor);
        std::signal(SIGIO, m_oldHandler);
    }

    /// Whether the file is held; not every file system can.
    bool isHeld() const
    {
        return m_held;
    }

    /// Returns true once somebody stands waiting for the file, false when nobody has come for it in ten seconds.
    bool awaitReader() const
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (fcntl(m_descriptor, F_GETLEASE) == F_WRLCK) {
            if (std::chrono::steady_clock::now() > end) {
                return false;
            }
            std::this_thread::yield();
        }
        return true;
    }

    /// Lets the waiting reader, and every later one, have the file.
    void release()
    {
        if (m_held) {
            fcntl(m_descriptor, F_SETLEASE, F_UNLCK);
            m_held = false;
        }
    }

private:
    using Handler = void (*)(int);

    Handler m_oldHandler;
    int m_descriptor;
    bool m_held = false;
};
