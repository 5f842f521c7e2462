/// The catalogue of a standard installation, as the text that its configuration file holds in Base64. Nothing falls
/// back to it: it is carried for whoever writes that file. External linkage keeps it in the binary.
extern const char tavDefaultFuncTypeConfig[];
const char tavDefaultFuncTypeConfig[] = R"json([
    {
        "funcType": "Func_HostInfo",
        "funcTitle": "主机信息",
        "funcIcon": "hostIcon",
        "subFunList": [
            {
                "subFuncType": "SubFunc_serverResourceInfo",
                "subFuncTitile": "服务器详情",
                "subFuncClassName": "ITavHostInfoController"
            }
        ]
    },
    {
        "funcType": "Func_ReInforceConfig",
        "funcTitle": "加固方案",
        "funcIcon": "reinfoceIcon",
        "subFunList": [
            {
                "subFuncType": "SubFunc_OneClickReinforcement",
                "subFuncTitile": "一键加固",
                "subFuncClassName": "ITavOneReinforceController"
            },
            {
                "subFuncType": "SubFunc_BaselineScan",
                "subFuncTitile": "基线扫描",
                "subFuncClassName": "ITavLineScanController"
            }
        ]
    },
    {
        "funcType": "Func_CompleteControl",
        "funcTitle": "完整性度量",
        "funcIcon": "completeIcon",
        "subFunList": [
            {
                "subFuncType": "SubFunc_StaticMeasurements",
                "subFuncTitile": "文件度量",
                "subFuncClassName": "ITavStaticMeasureController"
            },
            {
                "subFuncType": "SubFunc_DynamicMeasurements",
                "subFuncTitile": "动态度量",
                "subFuncClassName": "ITavDynamicMeasureController"
            }
        ]
    },
    {
        "funcType": "Func_AccessControl",
        "funcTitle": "访问控制",
        "funcIcon": "accessIcon",
        "subFunList": [
            {
                "subFuncType": "SubFunc_PrincipalSettings",
                "subFuncTitile": "主体设置",
                "subFuncClassName": "ITavPrincipalSetController"
            },
            {
                "subFuncType": "SubFunc_ObjectSetting",
                "subFuncTitile": "客体设置",
                "subFuncClassName": "ITavObjectSetController"
            },
            {
                "subFuncType": "SubFunc_PrincipalAdd",
                "subFuncTitile": "主体添加",
                "subFuncClassName": "ITavPrincipalAddController",
                "subFuncHasParent": false
            },
            {
                "subFuncType": "SubFunc_ObjectAdd",
                "subFuncTitile": "客体添加",
                "subFuncClassName": "ITavObjectAddController",
                "subFuncHasParent": false
            }
        ]
    },
    {
        "funcType": "Func_SystemProtect",
        "funcTitle": "系统保护",
        "funcIcon": "systemProtectIcon",
        "subFunList": [
            {
                "subFuncType": "SubFunc_SelfProtect",
                "subFuncTitile": "自身保护",
                "subFuncClassName": "ITavSelfProtectController"
            },
            {
                "subFuncType": "SubFunc_ProcessProtect",
                "subFuncTitile": "进程保护",
                "subFuncClassName": "ITavProcessProtectController"
            },
            {
                "subFuncType": "SubFunc_KernelProtect",
                "subFuncTitile": "内核文件保护",
                "subFuncClassName": "ITavKernelProtectController"
            },
            {
                "subFuncType": "SubFunc_KeyDirAmperProof",
                "subFuncTitile": "关键目录防篡改",
                "subFuncClassName": "ITavDirAmperProofController"
            }
        ]
    },
    {
        "funcType": "Func_SystemAudit",
        "funcTitle": "系统审计",
        "funcIcon": "systemAuditIcon",
        "subFunList": [
            {
                "subFuncType": "SubFunc_LogAudit",
                "subFuncTitile": "审计日志",
                "subFuncClassName": "ITavLogAuditController"
            }
        ]
    }
]
)json";
