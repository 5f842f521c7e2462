#pragma once

#include "CTavFuncTypeHeader.h"
#include "CTavSubFuncTypeHeader.h"

#include <QObject>

/**
 * @brief The function and the page that the user has selected.
 *
 * Any thread may call any operation. Both types are 0 before the first set.
 */
class ITavSelectFuncMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Stores the selected function; announces nothing.
    virtual void setCurSelFuncType(const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType) = 0;
    /// The selected function.
    [[nodiscard]] virtual CTavFuncTypeHeader::TavFuncTypeHeader_ getCurSelFuncType() = 0;

    /// Stores the selected page; announces nothing.
    virtual void setCurSelSubFuncType(const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &subFuncType) = 0;
    /// The selected page.
    [[nodiscard]] virtual CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ getCurSelSubFuncType() = 0;

    /**
     * @brief Stores both and announces the page through eventFuncPageUpdate.
     *
     * Announces on every call, also when nothing has changed. Subscribers run later, each in its own thread, never
     * inside this call, and may call back into this manager.
     */
    virtual void setCurSelType(const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType,
                               const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &subFuncType)
        = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavSelectFuncMgr() = default;
};

Q_DECLARE_INTERFACE(ITavSelectFuncMgr, "ITavSelectFuncMgr")
