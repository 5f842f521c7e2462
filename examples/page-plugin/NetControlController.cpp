#include "NetControlController.h"

#include "NetControlPage.h"
#include "TavAnswer.h"
#include "TavEvents.h"
#include "TavObjectMgr.h"

#include <QSet>

namespace
{
// The page that shows the network devices.
constexpr auto ownPage = CTavSubFuncTypeHeader::SubFunc_serverResourceInfo;

QString nameOf(const Tav::NetControl::NetDeviceInfo &device)
{
    return QString::fromStdString(device.name());
}

// -1 when there is no such device.
int findDevice(const QString &name, const Tav::NetControl::NetDeviceInfos &devices)
{
    for (int position = 0; position < devices.devices_size(); ++position) {
        if (nameOf(devices.devices(position)) == name) {
            return position;
        }
    }
    return -1;
}

// Of this manager's rows the index is the position.
STProtoDataContainer rowOf(const Tav::NetControl::NetDeviceInfo &device, int position, bool checked)
{
    return {checked, position, device.SerializeAsString()};
}
}

NetControlController::NetControlController(QObject *parent) : QObject(parent), m_model(tavObject<ITavNetControlMgr>())
{
    m_pageChanges = TavSubscription(eventFuncPageUpdate, this, [this](auto page) { pageSelected(page); });
}

QWidget *NetControlController::createPage(QWidget *parent)
{
    return new NetControlPage(*this, parent);
}

void NetControlController::receiveAnswer(const QByteArray &answer)
{
    m_worker.post([this, answer] { workOff(answer); });
}

// Runs on the worker thread: parsing a long answer must not hold the GUI up.
void NetControlController::workOff(const QByteArray &answer)
{
    const auto devices = tavMessage<Tav::NetControl::NetDeviceInfos>(answer);
    if (!m_model || !devices) {
        return;
    }
    {
        QMutexLocker lock(&m_mutex);
        QSet<QString> checked; // a check mark belongs to the device, whatever its position in the next answer
        const QVector<NetControlLine> before = lines();
        for (const NetControlLine &line : before) {
            if (line.checked) {
                checked.insert(line.deviceName);
            }
        }
        QVector<STProtoDataContainer> rows;
        for (const auto &device : devices->devices()) {
            rows.append(rowOf(device, rows.size(), checked.contains(nameOf(device))));
        }
        m_model->setDeviceInfo(*devices);
        m_model->setUIData(rows);
    }
    // The managers announce nothing, so the controller does; queued, so that the page hears of it in the GUI thread.
    QMetaObject::invokeMethod(this, &NetControlController::changed, Qt::QueuedConnection);
}

QVector<NetControlLine> NetControlController::lines() const
{
    QVector<NetControlLine> lines;
    if (!m_model) {
        return lines;
    }
    const QVector<STProtoDataContainer> rows = m_model->getUIData(); // a copy, which no later answer changes
    for (const STProtoDataContainer &row : rows) {
        Tav::NetControl::NetDeviceInfo device;
        device.ParseFromString(row.protoData); // ours, or empty: then the line is empty too
        lines.append({nameOf(device), device.state() == 1, row.isChecked});
    }
    return lines;
}

void NetControlController::setChecked(const QString &name, bool checked)
{
    if (!m_model) {
        return;
    }
    {
        QMutexLocker lock(&m_mutex);
        const Tav::NetControl::NetDeviceInfos devices = m_model->getDeviceInfo();
        const int position = findDevice(name, devices);
        if (position < 0) {
            return;
        }
        m_model->updateUIItem(rowOf(devices.devices(position), position, checked));
    }
    emit changed();
}

void NetControlController::toggleDevice(const QString &name)
{
    if (!m_model) {
        return;
    }
    bool allowed = false;
    {
        QMutexLocker lock(&m_mutex);
        // The page's line may be of an older answer: the device may stand elsewhere now, or be gone, and
        // reverseDeviceState ends the process when nothing stands there. The lock keeps the list until we are done.
        const int position = findDevice(name, m_model->getDeviceInfo());
        if (position < 0) {
            return;
        }
        m_model->reverseDeviceState(position);
        const Tav::NetControl::NetDeviceInfos devices = m_model->getDeviceInfo();
        const bool checked = m_model->getUIData().value(position).isChecked;
        m_model->updateUIItem(rowOf(devices.devices(position), position, checked));
        allowed = devices.devices(position).state() == 1;
    }
    emit changed();
    emit deviceToggled(name, allowed);
}

void NetControlController::pageSelected(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
    if (page == ownPage) {
        emit changed(); // another page may have set the model meanwhile
    }
}
