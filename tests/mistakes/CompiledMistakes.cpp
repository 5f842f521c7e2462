// Mistakes that are seen, or not, before a page runs. Compiled as it stands, this file has the correct form of each,
// and not a warning; with TAV_MISTAKES the wrong one. A line that begins with two slashes and an exclamation mark is a
// row of the table in the guide: mistake, who sees it, what to write instead. The diagnosis of the wrong line stands
// beside it.
#include "ITavAccessControlMgr.h"
#include "ITavFuncTypeMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavPicResourceMgr.h"
#include "ITavSelectFuncMgr.h"
#include "STImaContentAsr.h"
#include "TavAccessObjects.h"
#include "TavAccessPrincipals.h"
#include "TavAnswer.h"
#include "TavEvents.h"
#include "TavPictureDirectory.h"
#include "TavSubscription.h"
#include "TavTestClient.h"
#include "TavWorker.h"

#include <cstring>

namespace Mistakes
{
//! The result of a getter is dropped | clang, clang-tidy | use it, or leave the call out
int dropAResult(ITavNetControlMgr &network)
{
#ifdef TAV_ACCEPTED_MISTAKES
    network.getUIData(); // clang: ignoring return value
    return 0;
#else
    return network.getUIData().size();
#endif
}

//! A keyed read is made to insert its key | clang, clang-tidy | set what you want to be there
void insertByReading(ITavAccessControlMgr &access)
{
#ifdef TAV_ACCEPTED_MISTAKES
    access.getObjectCount(true, 5); // clang: ignoring return value
#else
    access.setObjectCount(0, true, 5);
#endif
}

//! Count and key of `setObjectCount` are swapped | clang-tidy, by their names | `TavAccessObjects`
void swapCountAndKey(ITavAccessControlMgr &access, int count, bool flag, int key)
{
#ifdef TAV_ACCEPTED_MISTAKES
    access.setObjectCount(key, flag, count); // clang-tidy: suspicious-call-argument
#else
    access.setObjectCount(count, flag, key);
#endif
}

//! Key and flag of `getObjectDetail` are swapped | clang-tidy | `TavAccessObjects`
QVector<STObjectDetailAsr> swapKeyAndFlag(ITavAccessControlMgr &access, int key, bool flag)
{
#ifdef TAV_ACCEPTED_MISTAKES
    return access.getObjectDetail(flag, key); // clang-tidy: implicit-bool-conversion
#else
    return access.getObjectDetail(key, flag);
#endif
}

//! Table and level of `TavAccessObjects` are swapped | compiler | the order that the compiler takes
TavAccessObjects swapTableAndLevel(ITavAccessControlMgr &access)
{
    using Objects = TavAccessObjects;
#ifdef TAV_REFUSED_MISTAKES
    return Objects(access, TavAccessLevel::High, Objects::Table::Files); // compiler: no match
#else
    return Objects(access, Objects::Table::Files, TavAccessLevel::High);
#endif
}

//! A temporary is passed where the interface takes a list that it could change | compiler | a variable
void passATemporary(ITavAccessControlMgr &access)
{
#ifdef TAV_REFUSED_MISTAKES
    access.updateUserDetail(3, QVector<STPriDetailAsr>(2)); // compiler: cannot bind
#else
    QVector<STPriDetailAsr> details(2);
    access.updateUserDetail(3, details);
#endif
}

//! The key of `getUserDetail` is forgotten, which then reads all keys | nobody | `TavAccessPrincipals`
QVector<STPriDetailAsr> forgetTheKey(ITavAccessControlMgr &access)
{
#ifdef TAV_ACCEPTED_MISTAKES
    return access.getUserDetail();
#else
    return TavAccessPrincipals(access, TavAccessLevel::High).details();
#endif
}

//! Directory and picture of `getImageRef` are swapped | clang-tidy, by their names | `TavPictureDirectory`
std::shared_ptr<QImage> swapDirectoryAndPicture(ITavPicResourceMgr &pictures, const QString &dirName,
                                                const QString &imageName)
{
#ifdef TAV_ACCEPTED_MISTAKES
    return pictures.getImageRef(imageName, dirName); // clang-tidy: suspicious-call-argument
#else
    return TavPictureDirectory(pictures, dirName).picture(imageName);
#endif
}

//! A subscription is a temporary, and ends in the same line | compiler | a member, the last one
class SubscribeForALine : public QObject
{
public:
    SubscribeForALine()
    {
#ifdef TAV_ACCEPTED_MISTAKES
        TavSubscription(eventFuncPageUpdate, this, [](auto){}); // compiler: ignoring (return value|temporary)
#else
        m_pageChanges = TavSubscription(eventFuncPageUpdate, this, [](auto) {});
#endif
    }

private:
    TavSubscription m_pageChanges;
};

//! The page that was selected is compared with a function | compiler | the enumeration of the pages
bool compareWithAFunction(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
#ifdef TAV_ACCEPTED_MISTAKES
    return page == CTavFuncTypeHeader::Func_HostInfo; // compiler: comparison
#else
    return page == CTavSubFuncTypeHeader::SubFunc_serverResourceInfo;
#endif
}

//! Page and function are swapped when a page is selected | compiler | function first
void swapFunctionAndPage(ITavSelectFuncMgr &selection)
{
    const auto function = CTavFuncTypeHeader::Func_HostInfo;
    const auto page = CTavSubFuncTypeHeader::SubFunc_serverResourceInfo;
#ifdef TAV_REFUSED_MISTAKES
    selection.setCurSelType(page, function); // compiler: (cannot convert|could not bind|no viable)
#else
    selection.setCurSelType(function, page);
#endif
}

//! A manager is deleted | compiler | leave it to the registry
void deleteAManager(ITavNetControlMgr *&network)
{
#ifdef TAV_REFUSED_MISTAKES
    delete network; // compiler: protected
#else
    network = nullptr;
#endif
}

//! A message is parsed without a look at the result | clang-tidy | `tavMessage`
void parseBlindly(ITavNetControlMgr &network, const QByteArray &answer)
{
#ifdef TAV_ACCEPTED_MISTAKES
    Tav::NetControl::NetDeviceInfos devices;
    devices.ParseFromArray(answer.constData(), answer.size()); // clang-tidy: unused-return-value
    network.setDeviceInfo(devices);
#else
    if (const auto devices = tavMessage<Tav::NetControl::NetDeviceInfos>(answer)) {
        network.setDeviceInfo(*devices);
    }
#endif
}

//! An answer is taken for a message before it is known to be one | compiler | look whether there is one
void takeForAMessage(ITavNetControlMgr &network, const QByteArray &answer)
{
    const auto devices = tavMessage<Tav::NetControl::NetDeviceInfos>(answer);
#ifdef TAV_REFUSED_MISTAKES
    network.setDeviceInfo(devices); // compiler: (cannot convert|could not bind|no viable)
#else
    if (devices) {
        network.setDeviceInfo(*devices);
    }
#endif
}

//! Records with texts of Qt are read as they lie in memory | compiler | only records that end in `Asr`
auto readRowsAsBytes(const QByteArray &answer)
{
#ifdef TAV_REFUSED_MISTAKES
    return tavRecords<STPriAddUIData>(answer); // compiler: only records of plain bytes
#else
    return tavRecords<STPriDetailAsr>(answer);
#endif
}

//! A text is cut within a character by `qstrncpy` | nobody | `tavSetText`
void cutWithinACharacter(STImaContentAsr &record, const QString &path)
{
#ifdef TAV_ACCEPTED_MISTAKES
    qstrncpy(record.path, path.toUtf8().constData(), sizeof record.path);
#else
    tavSetText(record.path, path);
#endif
}

//! A text is copied into a buffer without a look at its length | clang-tidy | `tavSetText`
void writeBeyondTheBuffer(STImaContentAsr &record, const QString &path)
{
#ifdef TAV_ACCEPTED_MISTAKES
    std::strcpy(record.path, path.toUtf8().constData()); // clang-tidy: strcpy
#else
    tavSetText(record.path, path);
#endif
}

//! A text is written through a pointer, which knows no length | compiler | the buffer itself
void writeThroughAPointer(STImaContentAsr &record, const QString &path)
{
#ifdef TAV_REFUSED_MISTAKES
    char *const buffer = record.path;
    tavSetText(buffer, path); // compiler: no matching function
#else
    tavSetText(record.path, path);
#endif
}

//! A worker is copied | compiler | one worker; pass it by reference
void copyAWorker(TavWorker &worker)
{
#ifdef TAV_REFUSED_MISTAKES
    auto other = worker; // compiler: deleted
#else
    TavWorker &other = worker;
#endif
    other.post([] {});
}

//! What a test's play returns is dropped: it cannot fail | compiler | compare it with an empty text
bool dropAVerdict(TavTestClient &client)
{
#ifdef TAV_ACCEPTED_MISTAKES
    client.playFile("scenario.jsonl"); // compiler: ignoring return value
    return true;
#else
    return client.playFile("scenario.jsonl").isEmpty();
#endif
}

//! What `end` returns is dropped: what was left behind is not seen | compiler | compare it with an empty text
bool dropWhatIsLeftBehind(TavTestClient &client)
{
#ifdef TAV_ACCEPTED_MISTAKES
    client.end(); // compiler: ignoring return value
    return true;
#else
    return client.end().isEmpty();
#endif
}

//! `false` from `loadConfig` is taken for a failure | nobody | look at `getFuncInfos`
bool takeFalseForFailure(ITavFuncTypeMgr &catalogue)
{
#ifdef TAV_ACCEPTED_MISTAKES
    return catalogue.loadConfig();
#else
    catalogue.loadConfig();
    return !catalogue.getFuncInfos().isEmpty();
#endif
}
}
