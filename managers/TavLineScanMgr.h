#pragma once

#include "ITavLineScanMgr.h"

#include <QMap>
#include <QMutex>
#include <QObject>

/// @brief The baseline scan's state and its catalogue of check items.
class TavLineScanMgr : public QObject, public ITavLineScanMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavLineScanMgr)
public:
    explicit TavLineScanMgr(QObject *parent);

    QObject *getObject() override;
    void setLineScanContent(const Tav::Reinforce::LineScanContentAsr &value) override;
    Tav::Reinforce::LineScanContentAsr getLineScanContent() override;
    void setLineCount(const Tav::Reinforce::LineCountAsr &value) override;
    Tav::Reinforce::LineCountAsr getLineCount() override;
    void setscanState(const Tav::Reinforce::LineScanStateAsr &value) override;
    Tav::Reinforce::LineScanStateAsr getscanState() override;
    void setScanItemConfigErr(const Tav::Reinforce::LineScanItemConfigErr &value) override;
    Tav::Reinforce::LineScanItemConfigErr getScanItemConfigErr() override;
    void setLineLevel(const Tav::Reinforce::LineScanLevelState &value) override;
    Tav::Reinforce::LineScanLevelState getLineLevel() override;
    bool loadJsonConfig() override;
    STBLEnableConfig getItemConfig(int itemId) override;

private:
    QMutex mutex;
    Tav::Reinforce::LineScanContentAsr lineScanContent;
    Tav::Reinforce::LineCountAsr lineCount;
    Tav::Reinforce::LineScanStateAsr scanState;
    Tav::Reinforce::LineScanItemConfigErr scanItemConfigErr;
    Tav::Reinforce::LineScanLevelState lineLevel;
    QMap<int, STBLEnableConfig> itemConfig;
};
