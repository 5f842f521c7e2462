#include "ModuleReader.h"

#include "HostFile.h"
#include "TextBuffer.h"

#include <QHash>
#include <QMap>

namespace
{
/// Module names count dashes and underscores as one.
QByteArray kernelName(QByteArray name)
{
    return name.replace('-', '_');
}

/// Module name to the path of its file, from the kernel's own index; empty, and a note, when that cannot be read.
QHash<QByteArray, QByteArray> modulePaths(const QString &root, ReadingNotes &notes)
{
    QHash<QByteArray, QByteArray> paths;
    const QByteArray directory = "/lib/modules/" + HostFile::attribute(root, "/proc/sys/kernel/osrelease");
    const auto index = HostFile::readOrNote(root, directory + "/modules.dep", notes);
    if (!index) {
        return paths;
    }
    const QList<QByteArray> lines = index->split('\n');
    for (const QByteArray &line : lines) {
        const QByteArray path = line.left(line.indexOf(':'));
        const QByteArray fileName = path.mid(path.lastIndexOf('/') + 1);
        const int suffix = fileName.indexOf(".ko");
        if (suffix > 0) {
            paths.insert(kernelName(fileName.left(suffix)), path.startsWith('/') ? path : directory + '/' + path);
        }
    }
    return paths;
}

/// The configuration files that modprobe reads: of two with one name, the one in the earlier directory.
QList<QByteArray> configurationFiles(const QString &root)
{
    QMap<QByteArray, QByteArray> files;
    for (const char *const directory : {"/etc/modprobe.d/", "/run/modprobe.d/", "/usr/local/lib/modprobe.d/",
                                        "/usr/lib/modprobe.d/", "/lib/modprobe.d/"}) {
        const QVector<QByteArray> names = HostFile::entries(root, directory);
        for (const QByteArray &name : names) {
            if (name.endsWith(".conf") && !files.contains(name)) {
                files.insert(name, directory + name);
            }
        }
    }
    return files.values();
}

/// The module that one line of configuration keeps from being loaded; empty when it does nothing of the kind.
QByteArray blockedModule(const QByteArray &line)
{
    const QList<QByteArray> words = line.simplified().split(' ');
    const bool blacklisted = words.size() == 2 && words.at(0) == "blacklist";
    const bool replaced = words.size() == 3 && words.at(0) == "install"
        && (words.at(2).endsWith("/false") || words.at(2).endsWith("/true"));
    return blacklisted || replaced ? kernelName(words.at(1)) : QByteArray();
}

QVector<QByteArray> blockedOnCommandLine(const QString &root)
{
    const QByteArray parameter = "modprobe.blacklist=";
    QVector<QByteArray> names;
    const QList<QByteArray> words = HostFile::attribute(root, "/proc/cmdline").split(' ');
    for (const QByteArray &word : words) {
        if (word.startsWith(parameter)) {
            const QList<QByteArray> blocked = word.mid(parameter.size()).split(',');
            for (const QByteArray &name : blocked) {
                names.append(kernelName(name));
            }
        }
    }
    return names;
}
}

std::optional<QVector<ModuleReader::Module>> ModuleReader::readLoadedModules(const QString &root, ReadingNotes &notes)
{
    const auto content = HostFile::readOrNote(root, "/proc/modules", notes);
    if (!content) {
        return std::nullopt;
    }
    QVector<Module> modules;
    const QList<QByteArray> lines = content->split('\n');
    for (const QByteArray &line : lines) {
        // name size users used-by state address [(taint)]
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() < 3) {
            continue;
        }
        Module module;
        module.name = fields.at(0);
        module.size = fields.at(1).toULongLong();
        module.refCount = fields.at(2) == "-" ? -1 : fields.at(2).toInt();
        if (fields.constLast().startsWith('(') && fields.constLast().endsWith(')')) {
            module.taint = fields.constLast().mid(1, fields.constLast().size() - 2);
        }
        modules.append(module);
    }
    return modules;
}

QVector<STKernelContentAsr> ModuleReader::readModuleRecords(const QString &root, ReadingNotes &notes)
{
    const QVector<Module> modules = readLoadedModules(root, notes).value_or(QVector<Module>());
    if (modules.isEmpty()) {
        return {};
    }
    const QHash<QByteArray, QByteArray> paths = modulePaths(root, notes);
    QVector<STKernelContentAsr> records(modules.size());
    for (int i = 0; i < modules.size(); ++i) {
        const Module &module = modules.at(i);
        STKernelContentAsr &record = records[i];
        record.id = i + 1;
        record.size = module.size;
        record.loaded = 1;
        record.refCount = qMax(module.refCount, 0);
        TextBuffer::copy(record.name, module.name);
        const QByteArray path = paths.value(kernelName(module.name));
        TextBuffer::copy(record.path, path);
        const auto digests = path.isEmpty() ? std::nullopt : HostFile::digestsOrNote(root, path, notes);
        if (digests) {
            TextBuffer::copy(record.algorithm, "sha256");
            TextBuffer::copy(record.digest, digests->sha256);
        }
    }
    return records;
}

Tav::SystemProtect::KernelBlkProtectContentAsr ModuleReader::readBlockedModules(const QString &root,
                                                                                ReadingNotes &notes)
{
    QVector<QByteArray> names;
    const auto append = [&names](const QByteArray &name) {
        if (!name.isEmpty() && !names.contains(name)) {
            names.append(name);
        }
    };
    const QList<QByteArray> files = configurationFiles(root);
    for (const QByteArray &file : files) {
        const QByteArray content = HostFile::readOrNote(root, file, notes).value_or(QByteArray());
        const QList<QByteArray> lines = content.split('\n');
        for (const QByteArray &line : lines) {
            append(blockedModule(line));
        }
    }
    const QVector<QByteArray> blocked = blockedOnCommandLine(root);
    for (const QByteArray &name : blocked) {
        append(name);
    }

    QHash<QByteArray, Module> loaded;
    if (!names.isEmpty()) {
        const QVector<Module> modules = readLoadedModules(root, notes).value_or(QVector<Module>());
        for (const Module &module : modules) {
            loaded.insert(module.name, module);
        }
    }
    Tav::SystemProtect::KernelBlkProtectContentAsr content;
    content.set_mode(names.isEmpty() ? 0 : 2);
    for (const QByteArray &name : names) {
        auto *const entry = content.add_entries();
        entry->set_id(content.entries_size());
        entry->set_name(TextBuffer::message(name));
        entry->set_enabled(true);
        const auto module = loaded.constFind(name);
        entry->set_loaded(module != loaded.constEnd());
        if (module != loaded.constEnd()) {
            entry->set_size(module->size);
            entry->set_ref_count(qMax(module->refCount, 0));
        }
    }
    return content;
}
