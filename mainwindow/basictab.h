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
    using Target = DeviceSession::Target;
    using Operation = std::function<std::uint8_t(const Target&)>;

    void readFirmwareVersion(const Target& target);
    bool readProtocolVersion(const Target& target);
    bool readHardwareVersion(const Target& target);
    void readSelfTestLevel(const Target& target);
    void readBeepSwitch(const Target& target);
    void readCalibration(const Target& target);
    void readAll(const Target& target);
    void clearFields();

    void ask(QWidget* button, DeviceSession::Request request);
    void perform(const Target& target, const char* name, const QString& success,
                 const Operation& operation);
    void changeId(const Target& target, std::uint8_t newNode);
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
