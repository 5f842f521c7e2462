#include "NetControlController.h"

#include "TavEvents.h"
#include "TavObjectMgr.h"

namespace
{
// The page that shows the network devices.
constexpr auto ownPage = CTavSubFuncTypeHeader::SubFunc_serverResourceInfo;

STProtoDataContainer rowOf(const Tav::NetControl::NetDeviceInfo &device, int position, bool checked)
{
    return {checked, position, device.SerializeAsString()};
}
}

NetControlController::NetControlController(QObject *parent)
    : QObject(parent), m_model(tavObject<ITavNetControlMgr>("ITavNetControlMgr")), m_worker(new QObject)
{
    m_worker->moveToThread(&m_thread);
    // Deleted in its own thread, when that has left its event loop: no answer can be at work any more.
    connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
    m_thread.start();

    m_pageChanges = TavSubscription(eventFuncPageUpdate, this, [this](auto page) { pageSelected(page); });
}

NetControlController::~NetControlController()
{
    // The running answer is finished, those that wait are dropped; then nobody uses this object but us.
    m_thread.quit();
    m_thread.wait();
}

void NetControlController::receiveAnswer(const QByteArray &answer)
{
    QMetaObject::invokeMethod(
        m_worker, [this, answer] { workOff(answer); }, Qt::QueuedConnection);
}

// Runs on the worker thread: parsing a long answer must not hold the GUI up.
void NetControlController::workOff(const QByteArray &answer)
{
    Tav::NetControl::NetDeviceInfos devices;
    if (!m_model || !devices.ParseFromArray(answer.constData(), answer.size())) {
        return;
    }
    QVector<STProtoDataContainer> rows;
    for (const auto &device : devices.devices()) {
        rows.append(rowOf(device, rows.size(), false));
    }
    {
        QMutexLocker lock(&m_edit);
        m_model->setDeviceInfo(devices);
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
        lines.append({QString::fromStdString(device.name()), device.state() == 1, row.isChecked});
    }
    return lines;
}

void NetControlController::setChecked(int position, bool checked)
{
    if (!m_model) {
        return;
    }
    {
        QMutexLocker lock(&m_edit);
        const QVector<STProtoDataContainer> rows = m_model->getUIData();
        if (position < 0 || position >= rows.size()) {
            return;
        }
        STProtoDataContainer row = rows[position];
        row.isChecked = checked;
        row.index = position; // of this manager's rows the index is the position
        m_model->updateUIItem(row);
    }
    emit changed();
}

void NetControlController::toggleDevice(int position)
{
    if (!m_model) {
        return;
    }
    {
        QMutexLocker lock(&m_edit);
        // The page's line may be of an older answer, and reverseDeviceState ends the process when there is no such
        // device. The lock keeps the list as long as it is now until we are done.
        const QVector<STProtoDataContainer> rows = m_model->getUIData();
        if (position < 0 || position >= rows.size() || position >= m_model->getDeviceInfo().devices_size()) {
            return;
        }
        m_model->reverseDeviceState(position);
        m_model->updateUIItem(rowOf(m_model->getDeviceInfo().devices(position), position, rows[position].isChecked));
    }
    emit changed();
}

void NetControlController::pageSelected(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page)
{
    if (page == ownPage) {
        emit changed(); // others may have set the model meanwhile
    }
}
