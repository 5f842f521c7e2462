#pragma once

#include "STDirProtectContentAsr.h"
#include "STFileProtectContentAsr.h"
#include "STKernelContentAsr.h"
#include "STProProtectContentAsr.h"
#include "STProtectCountAsr.h"
#include "STStateAsr.h"
#include "STSystemProUIData.h"
#include "SystemProtect.pb.h"

#include <QObject>
#include <QVector>

/**
 * @brief What the system-protection pages show and edit.
 *
 * Any thread may call any operation. Getters return copies. Before the first set a state is 28, 0 (the odd 28 is
 * meant), a count is 0, a message or list is empty. Nothing is signalled on a set: readers ask again.
 */
class ITavProtectMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the state of self protection.
    virtual void setSelfState(const STStateAsr &state) = 0;
    /// Copy of the state of self protection.
    [[nodiscard]] virtual STStateAsr getSelfState() = 0;

    /// Replaces the number of protected kernel modules.
    virtual void setKernelCount(const STProtectCountAsr &count) = 0;
    /// Copy of the number of protected kernel modules.
    [[nodiscard]] virtual STProtectCountAsr getKernelCount() = 0;

    /// Replaces the list of protected kernel modules.
    virtual void setKernelContent(const QVector<STKernelContentAsr> &content) = 0;
    /// Copy of the list of protected kernel modules.
    [[nodiscard]] virtual QVector<STKernelContentAsr> getKernelContent() = 0;

    /// Replaces the number of protected processes.
    virtual void setProCount(const STProtectCountAsr &count) = 0;
    /// Copy of the number of protected processes.
    [[nodiscard]] virtual STProtectCountAsr getProCount() = 0;

    /// Replaces the list of protected processes.
    virtual void setProContentList(const QVector<STProProtectContentAsr> &content) = 0;
    /// Copy of the list of protected processes.
    [[nodiscard]] virtual QVector<STProProtectContentAsr> getProContentList() = 0;

    /// Replaces the number of protected directories.
    virtual void setDirCount(const STProtectCountAsr &count) = 0;
    /// Copy of the number of protected directories.
    [[nodiscard]] virtual STProtectCountAsr getDirCount() = 0;

    /// Replaces the list of protected directories.
    virtual void setDirContent(const QVector<STDirProtectContentAsr> &content) = 0;
    /// Copy of the list of protected directories.
    [[nodiscard]] virtual QVector<STDirProtectContentAsr> getDirContent() = 0;

    /// Replaces the number of protected files.
    virtual void setFileCount(const STProtectCountAsr &count) = 0;
    /// Copy of the number of protected files.
    [[nodiscard]] virtual STProtectCountAsr getFileCount() = 0;

    /// Replaces the list of protected files.
    virtual void setFileContent(const QVector<STFileProtectContentAsr> &content) = 0;
    /// Copy of the list of protected files.
    [[nodiscard]] virtual QVector<STFileProtectContentAsr> getFileContent() = 0;

    /// Replaces all rows of the protection list.
    virtual void setProtectUIData(const QVector<STSystemProUIData> &rows) = 0;
    /// Copy of the rows of the protection list.
    [[nodiscard]] virtual QVector<STSystemProUIData> getProtectUIData() = 0;

    /// Replaces the state of kernel-module protection.
    virtual void setKernelState(const STStateAsr &state) = 0;
    /// Copy of the state of kernel-module protection.
    [[nodiscard]] virtual STStateAsr getKernelState() = 0;

    /// Replaces the state of process protection.
    virtual void setProState(const STStateAsr &state) = 0;
    /// Copy of the state of process protection.
    [[nodiscard]] virtual STStateAsr getProState() = 0;

    /// Replaces the state of directory protection.
    virtual void setDirState(const STStateAsr &state) = 0;
    /// Copy of the state of directory protection.
    [[nodiscard]] virtual STStateAsr getDirState() = 0;

    /// Replaces the state of file protection.
    virtual void setFileState(const STStateAsr &state) = 0;
    /// Copy of the state of file protection.
    [[nodiscard]] virtual STStateAsr getFileState() = 0;

    /// Replaces the count of protected objects.
    virtual void setProtoCount(const Tav::SystemProtect::ContentCountAsr &count) = 0;
    /// Copy of the count of protected objects.
    [[nodiscard]] virtual Tav::SystemProtect::ContentCountAsr getProtoCount() = 0;

    /// Replaces the list of blocked kernel modules.
    virtual void setKernelBlkContent(const Tav::SystemProtect::KernelBlkProtectContentAsr &content) = 0;
    /// Copy of the list of blocked kernel modules.
    [[nodiscard]] virtual Tav::SystemProtect::KernelBlkProtectContentAsr getKernelBlkContent() = 0;

    /// Replaces the mode of kernel blocking.
    virtual void setKernelBlkMode(const STStateAsr &mode) = 0;
    /// Copy of the mode of kernel blocking.
    [[nodiscard]] virtual STStateAsr getKernelBlkMode() = 0;

    /// Replaces the state of file smashing.
    virtual void setFileSmash(const Tav::SystemProtect::FileSmashAsr &answer) = 0;
    /// Copy of the state of file smashing.
    [[nodiscard]] virtual Tav::SystemProtect::FileSmashAsr getFileSmash() = 0;

    /// Replaces the count of software protected against removal.
    virtual void setSoftUnloadCount(const Tav::SystemProtect::ContentCountAsr &count) = 0;
    /// Copy of the count of software protected against removal.
    [[nodiscard]] virtual Tav::SystemProtect::ContentCountAsr getSoftUnloadCount() = 0;

    /// Replaces the list of software protected against removal.
    virtual void setSoftUnloadContent(const Tav::SystemProtect::SoftUnloadProtectContentAsr &content) = 0;
    /// Copy of the list of software protected against removal.
    [[nodiscard]] virtual Tav::SystemProtect::SoftUnloadProtectContentAsr getSoftUnloadContent() = 0;

    /// Replaces the mode of protection against software removal.
    virtual void setSoftUnloadMode(const STStateAsr &mode) = 0;
    /// Copy of the mode of protection against software removal.
    [[nodiscard]] virtual STStateAsr getSoftUnloadMode() = 0;

    /// Overwrites the first row with this `itemKey`; no other field takes part. None: nothing changes, none is added.
    virtual void updateUIItem(const STSystemProUIData &item) = 0;
    /// Sets the check mark of every row and nothing else.
    virtual void setUIAllCheck(bool check) = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavProtectMgr() = default;
};

Q_DECLARE_INTERFACE(ITavProtectMgr, "ITavProtectMgr")
