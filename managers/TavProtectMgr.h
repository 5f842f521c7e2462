#pragma once

#include "ITavProtectMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The state of the system-protection pages and the rows of the protection list.
class TavProtectMgr : public QObject, public ITavProtectMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavProtectMgr)
public:
    explicit TavProtectMgr(QObject *parent);

    QObject *getObject() override;
    void setSelfState(const STStateAsr &value) override;
    STStateAsr getSelfState() override;
    void setKernelCount(const STProtectCountAsr &value) override;
    STProtectCountAsr getKernelCount() override;
    void setKernelContent(const QVector<STKernelContentAsr> &value) override;
    QVector<STKernelContentAsr> getKernelContent() override;
    void setProCount(const STProtectCountAsr &value) override;
    STProtectCountAsr getProCount() override;
    void setProContentList(const QVector<STProProtectContentAsr> &value) override;
    QVector<STProProtectContentAsr> getProContentList() override;
    void setDirCount(const STProtectCountAsr &value) override;
    STProtectCountAsr getDirCount() override;
    void setDirContent(const QVector<STDirProtectContentAsr> &value) override;
    QVector<STDirProtectContentAsr> getDirContent() override;
    void setFileCount(const STProtectCountAsr &value) override;
    STProtectCountAsr getFileCount() override;
    void setFileContent(const QVector<STFileProtectContentAsr> &value) override;
    QVector<STFileProtectContentAsr> getFileContent() override;
    void setProtectUIData(const QVector<STSystemProUIData> &value) override;
    QVector<STSystemProUIData> getProtectUIData() override;
    void setKernelState(const STStateAsr &value) override;
    STStateAsr getKernelState() override;
    void setProState(const STStateAsr &value) override;
    STStateAsr getProState() override;
    void setDirState(const STStateAsr &value) override;
    STStateAsr getDirState() override;
    void setProtoCount(const Tav::SystemProtect::ContentCountAsr &value) override;
    Tav::SystemProtect::ContentCountAsr getProtoCount() override;
    void setKernelBlkContent(const Tav::SystemProtect::KernelBlkProtectContentAsr &value) override;
    Tav::SystemProtect::KernelBlkProtectContentAsr getKernelBlkContent() override;
    void setKernelBlkMode(const STStateAsr &value) override;
    STStateAsr getKernelBlkMode() override;
    void setSoftUnloadCount(const Tav::SystemProtect::ContentCountAsr &value) override;
    Tav::SystemProtect::ContentCountAsr getSoftUnloadCount() override;
    void setSoftUnloadContent(const Tav::SystemProtect::SoftUnloadProtectContentAsr &value) override;
    Tav::SystemProtect::SoftUnloadProtectContentAsr getSoftUnloadContent() override;
    void setSoftUnloadMode(const STStateAsr &value) override;
    STStateAsr getSoftUnloadMode() override;
    // Here, unlike in the interface, whose order callers bind to.
    void setFileState(const STStateAsr &value) override;
    STStateAsr getFileState() override;
    void setFileSmash(const Tav::SystemProtect::FileSmashAsr &value) override;
    Tav::SystemProtect::FileSmashAsr getFileSmash() override;
    void updateUIItem(const STSystemProUIData &item) override;
    void setUIAllCheck(bool check) override;

private:
    /// What the getters return before the first answer. The odd 28 is what pages expect there, and is kept.
    static constexpr STStateAsr unknownState = {28, 0};

    QMutex mutex{QMutex::Recursive}; // recursive as the client's own class has it; nothing here takes it twice
    STStateAsr selfState = unknownState;
    STStateAsr kernelState = unknownState;
    STProtectCountAsr kernelCount = {};
    QVector<STKernelContentAsr> kernelContent;
    STStateAsr proState = unknownState;
    STProtectCountAsr proCount = {};
    QVector<STProProtectContentAsr> proContentList;
    STStateAsr dirState = unknownState;
    STProtectCountAsr dirCount = {};
    QVector<STDirProtectContentAsr> dirContent;
    Tav::SystemProtect::FileSmashAsr fileSmash;
    STStateAsr fileState = unknownState;
    STProtectCountAsr fileCount = {};
    QVector<STFileProtectContentAsr> fileContent;
    STStateAsr kernelBlkMode = unknownState;
    Tav::SystemProtect::ContentCountAsr protoCount;
    Tav::SystemProtect::KernelBlkProtectContentAsr kernelBlkContent;
    STStateAsr softUnloadMode = unknownState;
    Tav::SystemProtect::ContentCountAsr softUnloadCount;
    Tav::SystemProtect::SoftUnloadProtectContentAsr softUnloadContent;
    QVector<STSystemProUIData> protectUIData;
};
