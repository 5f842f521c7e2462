#pragma once

#include "ReadingNote.h"
#include "STKernelContentAsr.h"
#include "SystemProtect.pb.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

/** @brief Reads the kernel's modules: those that are loaded, and those that are kept from being loaded. */
namespace ModuleReader
{
/// One loaded module, a line of /proc/modules.
struct Module {
    QByteArray name; ///< with underscores, as the kernel has it
    quint64 size = 0; ///< bytes in memory
    int refCount = 0; ///< users; -1: it can never be unloaded
    QByteArray taint; ///< the kernel's letters for the module, such as "OE"; empty for most
};

/// The loaded modules in the kernel's order; nothing, and a note, when the list cannot be read.
std::optional<QVector<Module>> readLoadedModules(const QString &root, ReadingNotes &notes);

/// The loaded modules with the path and SHA-256 digest of their files, none of them protected. Path and digest are
/// empty, and noted, where they cannot be told. Empty, and a note, when the modules cannot be read.
QVector<STKernelContentAsr> readModuleRecords(const QString &root, ReadingNotes &notes);

/// The modules that the configuration of modprobe and the kernel's command line keep from being loaded: "blacklist",
/// "install MODULE /bin/false" or ".../true", "modprobe.blacklist=". `mode` is 2 when there are any, else 0.
Tav::SystemProtect::KernelBlkProtectContentAsr readBlockedModules(const QString &root, ReadingNotes &notes);
}
