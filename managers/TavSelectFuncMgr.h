#pragma once

#include "ITavSelectFuncMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The page that the user has selected.
class TavSelectFuncMgr : public QObject, public ITavSelectFuncMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavSelectFuncMgr)
public:
    explicit TavSelectFuncMgr(QObject *parent);

    QObject *getObject() override;
    void setCurSelFuncType(const CTavFuncTypeHeader::TavFuncTypeHeader_ &value) override;
    CTavFuncTypeHeader::TavFuncTypeHeader_ getCurSelFuncType() override;
    void setCurSelSubFuncType(const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &value) override;
    CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ getCurSelSubFuncType() override;
    void setCurSelType(const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType,
                       const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &subFuncType) override;

private:
    CTavFuncTypeHeader::TavFuncTypeHeader_ curSelFuncType = CTavFuncTypeHeader::Func_None;
    CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ curSelSubFuncType = CTavSubFuncTypeHeader::SubFunc_None;
    QMutex mutex;
};
