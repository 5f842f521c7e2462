#pragma once

#include "CTavSubFuncTypeHeader.h"
#include "ITavNetControlMgr.h"
#include "TavSubscription.h"

#include <QMutex>
#include <QObject>
#include <QThread>
#include <QVector>

/// @brief One line of the page.
struct NetControlLine {
    QString deviceName;
    bool allowed; ///< the device may be used
    bool checked;
};

/**
 * @brief Stands between the network-control page and its model in the data plugin.
 *
 * Lives in the GUI thread; receiveAnswer() alone may be called from any thread. Must end before the client's registry
 * does, as the managers end with that.
 */
class NetControlController : public QObject
{
    Q_OBJECT
public:
    explicit NetControlController(QObject *parent = nullptr);
    ~NetControlController() override;

    /// Takes a backend answer, a serialised Tav::NetControl::NetDeviceInfos, and returns at once: it is worked off on
    /// the worker thread. One that cannot be parsed changes nothing.
    void receiveAnswer(const QByteArray &answer);

    /// What the page shows; empty before the first answer.
    QVector<NetControlLine> lines() const;

    /// Sets the check mark of the line at this position. A position that is no longer there is left alone.
    void setChecked(int position, bool checked);

    /// Blocks or allows the device at this position. A position that is no longer there is left alone.
    void toggleDevice(int position);

signals:
    /// There is something new to read with lines(). Always in the GUI thread.
    void changed();

private:
    void workOff(const QByteArray &answer);
    void pageSelected(CTavSubFuncTypeHeader::TavSubFuncTypeHeader_ page);

    ITavNetControlMgr *const m_model; // null when the data plugin is not loaded
    QMutex m_edit; // held over what reads the model and then changes it, which must not meet a new answer half-way
    QThread m_thread;
    QObject *m_worker; // lives in m_thread and ends with it
    TavSubscription m_pageChanges; // last, so that it ends first: nothing is called while the rest is taken down
};
