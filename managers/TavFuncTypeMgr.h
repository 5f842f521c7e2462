#pragma once

#include "ITavFuncTypeMgr.h"

#include <QJsonArray>
#include <QMutex>
#include <QObject>

/// @brief The catalogue of the navigation: function pages and their sub-pages.
class TavFuncTypeMgr : public QObject, public ITavFuncTypeMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavFuncTypeMgr)
public:
    explicit TavFuncTypeMgr(QObject *parent);

    QObject *getObject() override;
    bool loadConfig() override; // before loadIniConfig here, after it in the interface, whose order callers bind to
    bool loadIniConfig() override;
    TavFuncTypeData_ getFuncInfoData(const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType) override;
    QVector<TavFuncTypeData_> getFuncInfos() override;
    QVector<TavSubFuncTypeData_> getSubFuncInfo(const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType) override;
    TavSubFuncTypeData_ getSubFuncInfo(const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ &subFuncType) override;
    QVector<TavSubFuncTypeData_> getSubFuncInfo() override;
    CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ getFirstSubFuncType(
        const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType) override;

private:
    bool parseConfig(const QJsonArray &list, CTavFuncTypeHeader::TavFuncTypeHeader_ parentType);
    bool parseSubFuncConfig(const CTavFuncTypeHeader::TavFuncTypeHeader_ &funcType, const QJsonArray &list);

    QVector<TavFuncTypeData_> funcList;
    QVector<TavSubFuncTypeData_> subFuncList;
    QMutex mutex{QMutex::Recursive}; // the parsers take it again, each for the lists nested in its own
};
