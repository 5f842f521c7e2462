#include "TavFuncTypeMgr.h"

#include "TavCommonUtils.h"
#include "TavGlobalInfoMgr.h"
#include "TavHeldValue.h"
#include "TavNanolog.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>

#include <algorithm>

namespace
{
using FuncType = CTavFuncTypeHeader::TavFuncTypeHeader_;
using SubFuncType = CTavSubFuncTypeHeader::TavSubFuncTypeHeader_;

/// The member of Enum that the string @p key names; -1 for an unknown one.
template<class Enum>
Enum enumValue(const QJsonValue &key)
{
    return static_cast<Enum>(QMetaEnum::fromType<Enum>().keyToValue(key.toString().toUtf8().constData()));
}

void log(int level, const char *function, int line, const QString &message)
{
    if (TavNanolog::is_logged(level)) {
        TavNanolog::TavNanoLogLine logLine(level, "TavFuncTypeMgr", function, line);
        logLine.encode(message);
        TavNanolog::NanoLog(logLine);
    }
}
}

TavFuncTypeMgr::TavFuncTypeMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavFuncTypeMgr::getObject()
{
    return this;
}

bool TavFuncTypeMgr::loadConfig()
{
    QMutexLocker lock(&mutex);
    const QString path
        = TavGlobalInfoMgr::getInstance()->getAppPath().configPath + QLatin1String("/funcTypeConfig.json");
    const QByteArray json = QByteArray::fromBase64(TavCommonUtils::readAll(path).toLocal8Bit());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        log(1, __func__, __LINE__, QStringLiteral("parse json file error！"));
        return false;
    }
    return parseConfig(document.array(), CTavFuncTypeHeader::Func_None);
}

bool TavFuncTypeMgr::loadIniConfig()
{
    return true;
}

TavFuncTypeData_ TavFuncTypeMgr::getFuncInfoData(const FuncType &funcType)
{
    QMutexLocker lock(&mutex);
    for (const TavFuncTypeData_ &func : qAsConst(funcList)) {
        if (func.funcType == funcType) {
            return func;
        }
    }
    return {};
}

QVector<TavFuncTypeData_> TavFuncTypeMgr::getFuncInfos()
{
    return TavHeldValue::get(mutex, funcList);
}

QVector<TavSubFuncTypeData_> TavFuncTypeMgr::getSubFuncInfo(const FuncType &funcType)
{
    QMutexLocker lock(&mutex);
    QVector<TavSubFuncTypeData_> matches;
    std::copy_if(subFuncList.cbegin(), subFuncList.cend(), std::back_inserter(matches),
                 [funcType](const auto &subFunc) { return subFunc.funcType == funcType; });
    return matches;
}

TavSubFuncTypeData_ TavFuncTypeMgr::getSubFuncInfo(const SubFuncType &subFuncType)
{
    QMutexLocker lock(&mutex);
    for (const TavSubFuncTypeData_ &subFunc : qAsConst(subFuncList)) {
        if (subFunc.subFuncType == subFuncType) {
            return subFunc;
        }
    }
    return {};
}

QVector<TavSubFuncTypeData_> TavFuncTypeMgr::getSubFuncInfo()
{
    return TavHeldValue::get(mutex, subFuncList);
}

SubFuncType TavFuncTypeMgr::getFirstSubFuncType(const FuncType &funcType)
{
    QMutexLocker lock(&mutex);
    for (const TavSubFuncTypeData_ &subFunc : qAsConst(subFuncList)) {
        if (subFunc.funcType == funcType) {
            return subFunc.subFuncType;
        }
    }
    return CTavSubFuncTypeHeader::SubFunc_None;
}

/// Appends the functions of @p list and, through itself, those nested in them. Always false: callers of loadConfig
/// get no verdict.
bool TavFuncTypeMgr::parseConfig(const QJsonArray &list, FuncType parentType)
{
    QMutexLocker lock(&mutex); // which loadConfig holds already
    for (const QJsonValue &element : list) {
        const QJsonObject object = element.toObject();
        if (!object.contains(QLatin1String("funcType"))) {
            log(3, __func__, __LINE__, QStringLiteral("json format is error"));
            continue;
        }
        TavFuncTypeData_ func;
        func.funcTitle = object.value(QLatin1String("funcTitle")).toString();
        func.funcIcon = object.value(QLatin1String("funcIcon")).toString();
        func.funcType = enumValue<FuncType>(object.value(QLatin1String("funcType")));
        func.parentFuncType = parentType;
        func.usrList = object.value(QLatin1String("usrList")).toString();
        funcList.append(func);
        // Never both: nested functions are read only where there is no list of sub-functions, not even an empty one.
        if (object.contains(QLatin1String("subFunList"))) {
            parseSubFuncConfig(func.funcType, object.value(QLatin1String("subFunList")).toArray());
        } else {
            parseConfig(object.value(QLatin1String("funcList")).toArray(), func.funcType);
        }
    }
    return false;
}

/// Appends the sub-functions of @p list that are not disabled. Always false, as parseConfig.
bool TavFuncTypeMgr::parseSubFuncConfig(const FuncType &funcType, const QJsonArray &list)
{
    QMutexLocker lock(&mutex); // which loadConfig holds already
    for (const QJsonValue &element : list) {
        const QJsonObject object = element.toObject();
        if (object.value(QLatin1String("disable")).toBool()) {
            continue;
        }
        TavSubFuncTypeData_ subFunc;
        subFunc.subFuncTitle = object.value(QLatin1String("subFuncTitile")).toString(); // the key is spelt so
        subFunc.funcType = funcType;
        subFunc.subFuncType = enumValue<SubFuncType>(object.value(QLatin1String("subFuncType")));
        subFunc.subFuncClassName = object.value(QLatin1String("subFuncClassName")).toString();
        subFunc.subFuncHelp = object.value(QLatin1String("subFuncHelp")).toString();
        // Present and anything but true: the page stands alone, and only then its real parent is read.
        if (object.contains(QLatin1String("subFuncHasParent"))
            && !object.value(QLatin1String("subFuncHasParent")).toBool()) {
            subFunc.subFuncHasParent = false;
            subFunc.realParentType = enumValue<SubFuncType>(object.value(QLatin1String("realParentType")));
        }
        subFuncList.append(subFunc);
    }
    return false;
}
