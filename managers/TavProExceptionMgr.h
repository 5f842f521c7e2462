#pragma once

#include "ITavProExceptionMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The process-exception answer and the rows of the page's exception list.
class TavProExceptionMgr : public QObject, public ITavProExceptionMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavProExceptionMgr)
public:
    explicit TavProExceptionMgr(QObject *parent);

    QObject *getObject() override;
    void setPriException(const Tav::Base::PriExceptionAsr &value) override;
    Tav::Base::PriExceptionAsr getPriException() override;
    void setUIData(const QVector<STProtoDataContainer> &value) override;
    QVector<STProtoDataContainer> getUIData() override;
    void setUIData(const STProtoDataContainer &item) override;

private:
    QMutex mutex;
    Tav::Base::PriExceptionAsr priException;
    QVector<STProtoDataContainer> uiData;
};
