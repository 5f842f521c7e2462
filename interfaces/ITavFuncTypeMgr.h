#pragma once

#include "CTavFuncTypeHeader.h"
#include "CTavSubFuncTypeHeader.h"
#include "TavFuncTypeData_.h"
#include "TavSubFuncTypeData_.h"

#include <QObject>
#include <QVector>

/**
 * @brief The navigation catalogue: functions, and the pages under them.
 *
 * Empty until somebody calls loadConfig(); nothing in the plugin does. Any thread may call any operation; a query
 * waits while a load runs and never sees half a catalogue. Results are copies.
 */
class ITavFuncTypeMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Does nothing and returns true.
    virtual bool loadIniConfig() = 0;
    /**
     * @brief Reads "funcTypeConfig.json" (Base64 text of a JSON array) from the application's configuration path.
     *
     * Returns false always, also after success, and kept so: do not take it for failure, look at getFuncInfos().
     * What is held already stays: a second call appends every entry once more. A file that cannot be read or parsed
     * adds nothing and is logged.
     */
    virtual bool loadConfig() = 0;

    /// First function of this type; a default record (type 0, enabled, empty texts) when there is none.
    [[nodiscard]] virtual TavFuncTypeData_ getFuncInfoData(const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType) = 0;
    /// All functions in the order of the file, each before those nested under it.
    [[nodiscard]] virtual QVector<TavFuncTypeData_> getFuncInfos() = 0;

    /// All pages under this function in the order of the file; empty when there are none.
    [[nodiscard]] virtual QVector<TavSubFuncTypeData_> getSubFuncInfo(
        const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType)
        = 0;
    /// First page of this type; a default record (types 0, both flags true, empty texts) when there is none.
    [[nodiscard]] virtual TavSubFuncTypeData_ getSubFuncInfo(
        const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &subFuncType)
        = 0;
    /// All pages in the order of the file.
    [[nodiscard]] virtual QVector<TavSubFuncTypeData_> getSubFuncInfo() = 0;
    /// Type of the first page under this function; 0 when there is none.
    [[nodiscard]] virtual CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ getFirstSubFuncType(
        const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType)
        = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavFuncTypeMgr() = default;
};

Q_DECLARE_INTERFACE(ITavFuncTypeMgr, "ITavFuncTypeMgr")
