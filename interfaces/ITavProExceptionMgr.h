#pragma once

#include "Base.pb.h"
#include "STProtoDataContainer.h"

#include <QObject>
#include <QVector>

/**
 * @brief What the process-exception page shows and edits.
 *
 * Any thread may call any operation. Getters return copies, empty before the first set. Nothing is signalled on a
 * set: readers ask again.
 */
class ITavProExceptionMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the answer on process exceptions.
    virtual void setPriException(const Tav::Base::PriExceptionAsr &answer) = 0;
    /// Copy of the answer on process exceptions.
    [[nodiscard]] virtual Tav::Base::PriExceptionAsr getPriException() = 0;

    /// Replaces all rows of the page's list.
    virtual void setUIData(const QVector<STProtoDataContainer> &rows) = 0;
    /// Copy of the rows of the page's list.
    [[nodiscard]] virtual QVector<STProtoDataContainer> getUIData() = 0;
    /// Changes the first row whose stored `index` equals the item's, wherever it stands; none: nothing changes, none is
    /// added. The name is the same as for the whole list, and kept so: the argument decides.
    virtual void setUIData(const STProtoDataContainer &item) = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavProExceptionMgr() = default;
};

Q_DECLARE_INTERFACE(ITavProExceptionMgr, "ITavProExceptionMgr")
