#pragma once

#include "Reinforce.pb.h"
#include "STBLEnableConfig.h"

#include <QObject>

/**
 * @brief State of the baseline scan, and the configured check items.
 *
 * Any thread may call any operation; a call waits while loadJsonConfig() reads its file. Getters return copies, empty
 * messages before the first set. Nothing is signalled on a set: readers ask again.
 */
class ITavLineScanMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the results of the scan.
    virtual void setLineScanContent(const Tav::Reinforce::LineScanContentAsr &content) = 0;
    /// Copy of the results of the scan.
    [[nodiscard]] virtual Tav::Reinforce::LineScanContentAsr getLineScanContent() = 0;

    /// Replaces the counts of the scan.
    virtual void setLineCount(const Tav::Reinforce::LineCountAsr &count) = 0;
    /// Copy of the counts of the scan.
    [[nodiscard]] virtual Tav::Reinforce::LineCountAsr getLineCount() = 0;

    // The lower-case "s" in the next two names is part of them.
    /// Replaces the progress of the scan.
    virtual void setscanState(const Tav::Reinforce::LineScanStateAsr &state) = 0;
    /// Copy of the progress of the scan.
    [[nodiscard]] virtual Tav::Reinforce::LineScanStateAsr getscanState() = 0;

    /// Replaces the faults found in the check-item configuration.
    virtual void setScanItemConfigErr(const Tav::Reinforce::LineScanItemConfigErr &errors) = 0;
    /// Copy of the faults found in the check-item configuration.
    [[nodiscard]] virtual Tav::Reinforce::LineScanItemConfigErr getScanItemConfigErr() = 0;

    /// Replaces the state of the baseline level.
    virtual void setLineLevel(const Tav::Reinforce::LineScanLevelState &level) = 0;
    /// Copy of the state of the baseline level.
    [[nodiscard]] virtual Tav::Reinforce::LineScanLevelState getLineLevel() = 0;

    /**
     * @brief Reads the check items from "/etc/tavsec.d/baselineConfig/baseline.json".
     *
     * Call it before the first getItemConfig(); nothing in the plugin does. Returns true always: a missing or broken
     * file loads nothing. Items held already stay unless the file has one of the same id, which replaces them.
     */
    virtual bool loadJsonConfig() = 0;
    /// Check item of this id; a default record (empty texts, id and type 0) when there is none. Inserts nothing.
    [[nodiscard]] virtual STBLEnableConfig getItemConfig(int itemId) = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavLineScanMgr() = default;
};

Q_DECLARE_INTERFACE(ITavLineScanMgr, "ITavLineScanMgr")
