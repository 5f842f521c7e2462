#include "AgentCalls.h"
#include "DirectoryReader.h"
#include "HostFile.h"
#include "ManagerFeeds.h"
#include "TavCountedText.h"
#include "UserReader.h"

namespace
{
constexpr qint32 missing = 3;

/// The row of something that is not protected; @p present, whether the host has it, becomes its status.
STSystemProUIData rowOf(const QString &kind, const QString &title, const QString &identity, const QString &detail,
                        bool present)
{
    return {false, title, kind + QLatin1Char(':') + identity, detail, present};
}

/// Mode and owner of the path, such as "drwxr-xr-x root"; empty when it cannot be reached.
QString modeAndOwner(const QString &root, const char *path, const QHash<quint32, QByteArray> &userNames)
{
    const auto status = HostFile::status(root, path);
    if (!status) {
        return {};
    }
    const QByteArray owner = userNames.value(status->st_uid, QByteArray::number(status->st_uid));
    return QString::fromUtf8(DirectoryReader::modeText(status->st_mode) + ' ' + owner);
}
}

int ManagerFeeds::feedProtectionRows(const QString &root, const AgentCalls<ITavProtectMgr> &calls, ReadingNotes &)
{
    const QHash<quint32, QByteArray> userNames = UserReader::readNames(root);
    QVector<STSystemProUIData> rows;
    const QVector<STDirProtectContentAsr> directories = calls.make<&ITavProtectMgr::getDirContent>();
    for (const STDirProtectContentAsr &directory : directories) {
        const QString path = QString::fromUtf8(directory.path);
        const QString detail
            = modeAndOwner(root, directory.path, userNames) + ", " + countedText(directory.fileCount, "file");
        rows.append(rowOf(QStringLiteral("directory"), path, path, directory.state == missing ? QString() : detail,
                          directory.state != missing));
    }
    const QVector<STFileProtectContentAsr> files = calls.make<&ITavProtectMgr::getFileContent>();
    for (const STFileProtectContentAsr &file : files) {
        const QString path = QString::fromUtf8(file.path);
        const QString detail = modeAndOwner(root, file.path, userNames) + ", " + countedText(qint64(file.size), "byte");
        rows.append(rowOf(QStringLiteral("file"), path, path, file.state == missing ? QString() : detail,
                          file.state != missing));
    }
    const QVector<STKernelContentAsr> modules = calls.make<&ITavProtectMgr::getKernelContent>();
    for (const STKernelContentAsr &module : modules) {
        const QString name = QString::fromUtf8(module.name);
        rows.append(rowOf(QStringLiteral("module"), name, name,
                          countedText(qint64(module.size), "byte") + ", " + countedText(module.refCount, "user"),
                          module.loaded == 1));
    }
    const QVector<STProProtectContentAsr> processes = calls.make<&ITavProtectMgr::getProContentList>();
    for (const STProProtectContentAsr &process : processes) {
        rows.append(
            rowOf(QStringLiteral("process"), QString::fromUtf8(process.name), QString::number(process.pid),
                  QStringLiteral("%1 %2").arg(QString::fromUtf8(process.userName), QString::fromUtf8(process.path)),
                  process.pid != 0));
    }
    calls.make<&ITavProtectMgr::setProtectUIData>(rows);
    return rows.size();
}
