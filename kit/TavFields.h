#pragma once

#include "STAccessSetUIData.h"
#include "STAuditContentAsr.h"
#include "STAuditCountAsr.h"
#include "STAuditMonthCountAsr.h"
#include "STAuditTypeCountAsr.h"
#include "STBLEnableConfig.h"
#include "STDirProtectContentAsr.h"
#include "STFileProtectContentAsr.h"
#include "STImaContentAsr.h"
#include "STImaCountAsr.h"
#include "STImaInitStateAsr.h"
#include "STImaStateAsr.h"
#include "STKernelContentAsr.h"
#include "STLookUsersAsr.h"
#include "STObjectAddUIData.h"
#include "STObjectDetailAsr.h"
#include "STPriAddUIData.h"
#include "STPriDetailAsr.h"
#include "STProProtectContentAsr.h"
#include "STProtectCountAsr.h"
#include "STProtoDataContainer.h"
#include "STResourceInfoAsr.h"
#include "STSingleScanAsr.h"
#include "STStateAsr.h"
#include "STStateInfo.h"
#include "STStaticCurPathAsr.h"
#include "STSystemProUIData.h"
#include "STSystemScanStateAsr.h"
#include "TavFuncTypeData_.h"
#include "TavSubFuncTypeData_.h"

#include "TavTypeList.h"

#include <string_view>
#include <tuple>
#include <type_traits>

/**
 * @brief Every field of every plain record, each once: its member, its name, and what kind of value it is.
 *
 * The messages are not here: they describe themselves.
 */
namespace TavFields
{
/// What a field's value means, and so how it is shown. A field whose kind follows from its type does not name it.
enum class Kind {
    Number, ///< a count, an identifier, or a code whose meaning stands in the record's header
    Percent, ///< 0 to 100
    Permille, ///< 0 to 1000
    Hundredths, ///< a fraction, times 100
    Size, ///< bytes
    Duration, ///< seconds
    Time, ///< seconds since the epoch
    Permissions, ///< bits: 1: execute, 2: write, 4: read
    FileMode, ///< permission bits as chmod takes them
    Flag, ///< true or 1: yes, false or 0: no
    FlagOrUnknown, ///< 1: yes, 0: no, -1: unknown
    Success, ///< 1: succeeded, 0: failed
    CheckMark, ///< the row is ticked
    Enumeration, ///< a function or page of the navigation
    Text, ///< UTF-8 in a buffer, or a QString
    Texts, ///< a list of texts
    Digest, ///< a text of hexadecimal digits
    Bytes, ///< any bytes
};

/// The unit of a field of this kind as documentation names it; empty when it has none.
[[nodiscard]] const char *unitOf(Kind kind);

template<class Member>
struct MemberTypes;

template<class Class, class Member>
struct MemberTypes<Member Class::*> {
    using Record = Class;
    using Type = Member;
};

/// The kind of a field of this type that its table does not give another.
template<class Type>
[[nodiscard]] constexpr Kind kindOf()
{
    if constexpr (std::is_same_v<Type, bool>) {
        return Kind::Flag;
    } else if constexpr (std::is_enum_v<Type>) {
        return Kind::Enumeration;
    } else if constexpr (std::is_integral_v<Type>) {
        return Kind::Number;
    } else if constexpr (std::is_same_v<Type, QVector<QString>>) {
        return Kind::Texts;
    } else if constexpr (std::is_same_v<Type, std::string>) {
        return Kind::Bytes;
    } else {
        return Kind::Text;
    }
}

/// @brief One field. Its member, record and type are known at compile time, too.
template<auto Member>
struct Field : MemberTypes<decltype(Member)> {
    static constexpr auto member = Member; ///< pointer to the member

    /// The member's type.
    using Type = typename MemberTypes<decltype(Member)>::Type;
    /// Bytes of a text buffer, the terminating NUL included; 0 for all other fields.
    static constexpr int bufferSize = std::is_array_v<Type> ? int(sizeof(Type)) : 0;

    std::string_view name; ///< the member's name
    Kind kind; ///< how it is shown
};

/// One entry of a table.
template<auto Member>
constexpr Field<Member> field(std::string_view name, Kind kind = kindOf<typename Field<Member>::Type>())
{
    return {{}, name, kind};
}

/// The fields of one record, in their order: `Table<Record>::list` is a tuple of Field.
template<class Record>
struct Table;

// One entry a line, in short tables, too.
// clang-format off

template<>
struct Table<STAccessSetUIData> {
    using R = STAccessSetUIData;
    static constexpr auto list = std::tuple{
        field<&R::level>("level"),
        field<&R::labels>("labels"),
        field<&R::extraFlag>("extraFlag"),
        field<&R::checked>("checked", Kind::CheckMark),
    };
};

template<>
struct Table<STAuditContentAsr> {
    using R = STAuditContentAsr;
    static constexpr auto list = std::tuple{
        field<&R::time>("time", Kind::Time),
        field<&R::type>("type"),
        field<&R::result>("result", Kind::Success),
        field<&R::pid>("pid"),
        field<&R::uid>("uid"),
        field<&R::userName>("userName"),
        field<&R::processName>("processName"),
        field<&R::object>("object"),
        field<&R::detail>("detail"),
    };
};

template<>
struct Table<STAuditCountAsr> {
    using R = STAuditCountAsr;
    static constexpr auto list = std::tuple{
        field<&R::count>("count"),
    };
};

template<>
struct Table<STAuditMonthCountAsr> {
    using R = STAuditMonthCountAsr;
    static constexpr auto list = std::tuple{
        field<&R::year>("year"),
        field<&R::month>("month"),
        field<&R::count>("count"),
    };
};

template<>
struct Table<STAuditTypeCountAsr> {
    using R = STAuditTypeCountAsr;
    static constexpr auto list = std::tuple{
        field<&R::type>("type"),
        field<&R::count>("count"),
    };
};

template<>
struct Table<STBLEnableConfig> {
    using R = STBLEnableConfig;
    static constexpr auto list = std::tuple{
        field<&R::name>("name"),
        field<&R::itemId>("itemId"),
        field<&R::standardValue>("standardValue"),
        field<&R::extraText>("extraText"),
        field<&R::desc>("desc"),
        field<&R::checkValueScript>("checkValueScript"),
        field<&R::btntext>("btntext"),
        field<&R::type>("type"),
    };
};

template<>
struct Table<STDirProtectContentAsr> {
    using R = STDirProtectContentAsr;
    static constexpr auto list = std::tuple{
        field<&R::updateTime>("updateTime", Kind::Time),
        field<&R::id>("id"),
        field<&R::state>("state"),
        field<&R::recursive>("recursive", Kind::Flag),
        field<&R::fileCount>("fileCount"),
        field<&R::path>("path"),
    };
};

template<>
struct Table<STFileProtectContentAsr> {
    using R = STFileProtectContentAsr;
    static constexpr auto list = std::tuple{
        field<&R::size>("size", Kind::Size),
        field<&R::modifyTime>("modifyTime", Kind::Time),
        field<&R::id>("id"),
        field<&R::state>("state"),
        field<&R::uid>("uid"),
        field<&R::gid>("gid"),
        field<&R::mode>("mode", Kind::FileMode),
        field<&R::path>("path"),
        field<&R::algorithm>("algorithm"),
        field<&R::digest>("digest", Kind::Digest),
    };
};

template<>
struct Table<STImaContentAsr> {
    using R = STImaContentAsr;
    static constexpr auto list = std::tuple{
        field<&R::pcr>("pcr"),
        field<&R::state>("state"),
        field<&R::templateHash>("templateHash", Kind::Digest),
        field<&R::templateName>("templateName"),
        field<&R::algorithm>("algorithm"),
        field<&R::fileDigest>("fileDigest", Kind::Digest),
        field<&R::path>("path"),
    };
};

template<>
struct Table<STImaCountAsr> {
    using R = STImaCountAsr;
    static constexpr auto list = std::tuple{
        field<&R::count>("count"),
    };
};

template<>
struct Table<STImaInitStateAsr> {
    using R = STImaInitStateAsr;
    static constexpr auto list = std::tuple{
        field<&R::initState>("initState"),
    };
};

template<>
struct Table<STImaStateAsr> {
    using R = STImaStateAsr;
    static constexpr auto list = std::tuple{
        field<&R::mode>("mode"),
        field<&R::state>("state"),
        field<&R::violations>("violations"),
        field<&R::hasTpm>("hasTpm", Kind::Flag),
    };
};

template<>
struct Table<STKernelContentAsr> {
    using R = STKernelContentAsr;
    static constexpr auto list = std::tuple{
        field<&R::size>("size", Kind::Size),
        field<&R::id>("id"),
        field<&R::state>("state"),
        field<&R::loaded>("loaded", Kind::Flag),
        field<&R::refCount>("refCount"),
        field<&R::name>("name"),
        field<&R::path>("path"),
        field<&R::algorithm>("algorithm"),
        field<&R::digest>("digest", Kind::Digest),
    };
};

template<>
struct Table<STLookUsersAsr> {
    using R = STLookUsersAsr;
    static constexpr auto list = std::tuple{
        field<&R::uid>("uid"),
        field<&R::gid>("gid"),
        field<&R::locked>("locked", Kind::FlagOrUnknown),
        field<&R::canLogin>("canLogin", Kind::Flag),
        field<&R::name>("name"),
        field<&R::fullName>("fullName"),
        field<&R::home>("home"),
        field<&R::shell>("shell"),
    };
};

template<>
struct Table<STObjectAddUIData> {
    using R = STObjectAddUIData;
    static constexpr auto list = std::tuple{
        field<&R::checked>("checked", Kind::CheckMark),
        field<&R::fileName>("fileName"),
        field<&R::filePath>("filePath"),
    };
};

template<>
struct Table<STObjectDetailAsr> {
    using R = STObjectDetailAsr;
    static constexpr auto list = std::tuple{
        field<&R::size>("size", Kind::Size),
        field<&R::updateTime>("updateTime", Kind::Time),
        field<&R::level>("level"),
        field<&R::permission>("permission", Kind::Permissions),
        field<&R::type>("type"),
        field<&R::state>("state", Kind::Flag),
        field<&R::uid>("uid"),
        field<&R::userName>("userName"),
        field<&R::fileName>("fileName"),
        field<&R::filePath>("filePath"),
    };
};

template<>
struct Table<STPriAddUIData> {
    using R = STPriAddUIData;
    static constexpr auto list = std::tuple{
        field<&R::checked>("checked", Kind::CheckMark),
        field<&R::userName>("userName"),
        field<&R::userNumber>("userNumber"),
        field<&R::userText>("userText"),
    };
};

template<>
struct Table<STPriDetailAsr> {
    using R = STPriDetailAsr;
    static constexpr auto list = std::tuple{
        field<&R::userName>("userName"),
        field<&R::uid>("uid"),
        field<&R::level>("level"),
        field<&R::permission>("permission", Kind::Permissions),
        field<&R::state>("state", Kind::Flag),
        field<&R::updateTime>("updateTime", Kind::Time),
        field<&R::processPath>("processPath"),
    };
};

template<>
struct Table<STProProtectContentAsr> {
    using R = STProProtectContentAsr;
    static constexpr auto list = std::tuple{
        field<&R::startTime>("startTime", Kind::Time),
        field<&R::id>("id"),
        field<&R::state>("state"),
        field<&R::pid>("pid"),
        field<&R::uid>("uid"),
        field<&R::userName>("userName"),
        field<&R::name>("name"),
        field<&R::path>("path"),
    };
};

template<>
struct Table<STProtectCountAsr> {
    using R = STProtectCountAsr;
    static constexpr auto list = std::tuple{
        field<&R::count>("count"),
    };
};

template<>
struct Table<STProtoDataContainer> {
    using R = STProtoDataContainer;
    static constexpr auto list = std::tuple{
        field<&R::isChecked>("isChecked", Kind::CheckMark),
        field<&R::index>("index"),
        field<&R::protoData>("protoData"),
    };
};

template<>
struct Table<STResourceInfoAsr> {
    using R = STResourceInfoAsr;
    static constexpr auto list = std::tuple{
        field<&R::memoryTotal>("memoryTotal", Kind::Size),
        field<&R::memoryAvailable>("memoryAvailable", Kind::Size),
        field<&R::swapTotal>("swapTotal", Kind::Size),
        field<&R::swapFree>("swapFree", Kind::Size),
        field<&R::rootDiskTotal>("rootDiskTotal", Kind::Size),
        field<&R::rootDiskFree>("rootDiskFree", Kind::Size),
        field<&R::diskTotal>("diskTotal", Kind::Size),
        field<&R::diskFree>("diskFree", Kind::Size),
        field<&R::uptime>("uptime", Kind::Duration),
        field<&R::sampleTime>("sampleTime", Kind::Time),
        field<&R::cpuCores>("cpuCores"),
        field<&R::cpuUsage>("cpuUsage", Kind::Permille),
        field<&R::loadAverage1>("loadAverage1", Kind::Hundredths),
        field<&R::loadAverage5>("loadAverage5", Kind::Hundredths),
        field<&R::loadAverage15>("loadAverage15", Kind::Hundredths),
        field<&R::processCount>("processCount"),
        field<&R::cpuModel>("cpuModel"),
        field<&R::kernelRelease>("kernelRelease"),
        field<&R::machine>("machine"),
        field<&R::osName>("osName"),
        field<&R::hostName>("hostName"),
    };
};

template<>
struct Table<STSingleScanAsr> {
    using R = STSingleScanAsr;
    static constexpr auto list = std::tuple{
        field<&R::scanId>("scanId"),
    };
};

template<>
struct Table<STStateAsr> {
    using R = STStateAsr;
    static constexpr auto list = std::tuple{
        field<&R::stateValue>("stateValue"),
        field<&R::stateExtra>("stateExtra"),
    };
};

template<>
struct Table<STStateInfo> {
    using R = STStateInfo;
    static constexpr auto list = std::tuple{
        field<&R::itemText>("itemText"),
        field<&R::stateText>("stateText"),
    };
};

template<>
struct Table<STStaticCurPathAsr> {
    using R = STStaticCurPathAsr;
    static constexpr auto list = std::tuple{
        field<&R::path>("path"),
    };
};

template<>
struct Table<STSystemProUIData> {
    using R = STSystemProUIData;
    static constexpr auto list = std::tuple{
        field<&R::isChecked>("isChecked", Kind::CheckMark),
        field<&R::title>("title"),
        field<&R::itemKey>("itemKey"),
        field<&R::detail>("detail"),
        field<&R::status>("status"),
    };
};

template<>
struct Table<STSystemScanStateAsr> {
    using R = STSystemScanStateAsr;
    static constexpr auto list = std::tuple{
        field<&R::scanId>("scanId"),
        field<&R::state>("state"),
        field<&R::progress>("progress", Kind::Percent),
        field<&R::scannedCount>("scannedCount"),
        field<&R::totalCount>("totalCount"),
        field<&R::abnormalCount>("abnormalCount"),
        field<&R::startTime>("startTime", Kind::Time),
        field<&R::endTime>("endTime", Kind::Time),
    };
};

template<>
struct Table<TavFuncTypeData_> {
    using R = TavFuncTypeData_;
    static constexpr auto list = std::tuple{
        field<&R::funcTitle>("funcTitle"),
        field<&R::funcIcon>("funcIcon"),
        field<&R::funcType>("funcType"),
        field<&R::parentFuncType>("parentFuncType"),
        field<&R::funcEnabled>("funcEnabled"),
        field<&R::usrList>("usrList"),
    };
};

template<>
struct Table<TavSubFuncTypeData_> {
    using R = TavSubFuncTypeData_;
    static constexpr auto list = std::tuple{
        field<&R::subFuncTitle>("subFuncTitle"),
        field<&R::funcType>("funcType"),
        field<&R::subFuncType>("subFuncType"),
        field<&R::realParentType>("realParentType"),
        field<&R::subFuncClassName>("subFuncClassName"),
        field<&R::subFuncHelp>("subFuncHelp"),
        field<&R::subFuncHasParent>("subFuncHasParent"),
        field<&R::subFuncEnabled>("subFuncEnabled"),
    };
};

// clang-format on

/// All records.
using Records
    = TavTypeList<STAccessSetUIData, STAuditContentAsr, STAuditCountAsr, STAuditMonthCountAsr, STAuditTypeCountAsr,
                  STBLEnableConfig, STDirProtectContentAsr, STFileProtectContentAsr, STImaContentAsr, STImaCountAsr,
                  STImaInitStateAsr, STImaStateAsr, STKernelContentAsr, STLookUsersAsr, STObjectAddUIData,
                  STObjectDetailAsr, STPriAddUIData, STPriDetailAsr, STProProtectContentAsr, STProtectCountAsr,
                  STProtoDataContainer, STResourceInfoAsr, STSingleScanAsr, STStateAsr, STStateInfo, STStaticCurPathAsr,
                  STSystemProUIData, STSystemScanStateAsr, TavFuncTypeData_, TavSubFuncTypeData_>;

/// Calls @p visit with each Field of @p Record, in their order.
template<class Record, class Visitor>
constexpr void forEachField(Visitor &&visit)
{
    std::apply([&](const auto &...fields) { (visit(fields), ...); }, Table<Record>::list);
}
}
