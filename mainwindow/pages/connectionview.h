#pragma once

#include "devicesession.h"

#include <QHash>

class QLabel;

namespace vanto
{

class Halt;
class StatusReporter;

/// Shows the state of the connection: an icon and a word in the row above the pages, what to do
/// next beside the tabs, and a message when a hand is lost or found again.
class ConnectionView : public QObject
{
    Q_OBJECT
public:
    ConnectionView(QLabel* icon, QLabel* state, QLabel* nextStep, DeviceSession* session);

    void reportTo(StatusReporter* reporter);
    /// A halt is shown instead of the state of the connection.
    void setHalt(const Halt* halt);
    /// The state may have changed.
    void update();
    void reportPortLost();
    void reportNotOpened(const QString& cause);
    void reportWaiting();
    void reportReconnected();
    void reportOtherHand(const QString& description);

    /// What node 255 means for hands that speak SerialCtrl.
    static QString anyNodeHint();

private:
    QString toolTip(DeviceSession::State state) const;
    void show(const QString& text, const QString& tip, const char* look);

    QLabel* m_icon;
    QLabel* m_state;
    QLabel* m_nextStep;
    DeviceSession* m_session;
    const QHash<DeviceSession::State, QString> m_names;
    StatusReporter* m_reporter = nullptr;
    const Halt* m_halt = nullptr;
};

} // namespace vanto
