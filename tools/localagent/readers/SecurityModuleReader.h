#pragma once

#include "ReadingNote.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/** @brief Reads which Linux security modules are at work. */
namespace SecurityModuleReader
{
/// How far a module that confines programs goes; the numbers are those of the access mode.
enum Mode { Off = 0, LogOnly = 1, Enforced = 2 };

/// The modules of the host.
struct SecurityModules {
    QVector<QByteArray> active; ///< in the kernel's order; empty when the kernel does not show them
    Mode selinux = Off;
    Mode apparmor = Off;
};

/// The security modules; a note says when the kernel does not show their list.
SecurityModules read(const QString &root, ReadingNotes &notes);
}
