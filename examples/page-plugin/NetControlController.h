#pragma once

#include "CTavSubFuncTypeHeader.h"
#include "ITavNetControlMgr.h"
#include "ITavPage.h"
#include "TavSubscription.h"
#include "TavWorker.h"

#include <QMutex>
#include <QObject>
#include <QVector>

/// @brief One line of the page. Its device is known by its name: positions change with every answer.
struct NetControlLine {
    QString deviceName;
    bool allowed; ///< the device may be used
    bool checked;
};

/**
 * @brief Stands between the network-control page and its model in the data plugin, and makes the page.
 *
 * Lives in the GUI thread; receiveAnswer() alone may be called from any thread. Registered behind the managers, it ends
 * before them.
 */
class NetControlController : public QObject, public ITavPage
{
    Q_OBJECT
    Q_INTERFACES(ITavPage)
public:
    explicit NetControlController(QObject *parent = nullptr);

    QWidget *createPage(QWidget *parent) override;

    /// Takes a backend answer, a serialised Tav::NetControl::NetDeviceInfos, and returns at once: it is worked off on
    /// the worker thread. One that cannot be parsed changes nothing.
    Q_INVOKABLE void receiveAnswer(const QByteArray &answer);

    /// What the page shows; empty before the first answer.
    [[nodiscard]] QVector<NetControlLine> lines() const;

    /// Sets the check mark of this device. A device that is no longer there is left alone.
    void setChecked(const QString &name, bool checked);

    /// Blocks or allows this device in the client's copy. A device that is no longer there is left alone.
    void toggleDevice(const QString &name);

signals:
    /// There is something new to read with lines(). Always in the GUI thread.
    void changed();

    /// The user has blocked or allowed a device, in the client's copy only: connect what sends the command to the
    /// agent. Always in the GUI thread.
    void deviceToggled(const QString &name, bool allowed);

private:
    void workOff(const QByteArray &answer);
    void pageSelected(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page);

    ITavNetControlMgr *const m_model; // null when the data plugin is not loaded
    QMutex m_mutex; // held over what looks at the model's devices and then changes them, and over what replaces them
    // Last, so that they end first: nothing is called while the rest is taken down.
    TavWorker m_worker{QStringLiteral("NetControl")};
    TavSubscription m_pageChanges;
};
