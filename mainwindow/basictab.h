#pragma once

#include "devicesession.h"
#include "fingers.h"
#include "tabroom.h"

#include <QCoreApplication>

#include <array>
#include <functional>

class QLineEdit;
class QWidget;
class StatusReporter;
namespace Ui
{
class MainWindow;
}

/// The Basic tab: identity and stored calibration of the open device, and its one-shot commands.
class BasicTab : public TabRoom
{
    Q_DECLARE_TR_FUNCTIONS(BasicTab)
public:
    static constexpr std::size_t ThumbRootCount = 3;

    BasicTab(Ui::MainWindow* ui, QWidget* window, DeviceSession* session, StatusReporter* reporter);

    void reload() override;
    void clear() override;
    void setWidgetsEnabled(bool enabled) override;

    void reloadClicked();
    void setIdClicked();
    void beepClicked();
    void setSelfTestLevelClicked();
    void setBeepSwitchClicked();
    void startInitClicked();
    void resetClicked();

private:
    void readFirmwareVersion(HandCall& call);
    bool readProtocolVersion(HandCall& call);
    bool readHardwareVersion(HandCall& call);
    void readSelfTestLevel(HandCall& call);
    void readBeepSwitch(HandCall& call);
    void readCalibration(HandCall& call);
    void readAll(const HandTarget& target);
    void clearFields();

    void request(QWidget* button, RequestQueue::Request request);
    template<auto Operation, class... Arguments>
    void perform(QWidget* button, const QString& success, Arguments... arguments);
    void refuse(QWidget* button, const QString& reason);
    void changeId(const HandTarget& target, std::uint8_t newNode);
    void updateDependentWidgets();

    Ui::MainWindow* m_ui;
    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    PerFinger<QLineEdit*> m_starts;
    PerFinger<QLineEdit*> m_ends;
    std::array<QLineEdit*, ThumbRootCount> m_thumbRoots;
    bool m_enabled = false;
    bool m_reloading = false;
};
