#pragma once

#include "devicepage.h"
#include "fingers.h"

class QLineEdit;

namespace vanto
{

class DeviceBar;
namespace Ui
{
class BasicPage;
}

/// The Basic page: identity and stored calibration of the open device, and its one-shot commands.
class BasicPage : public DevicePage
{
    Q_OBJECT
public:
    explicit BasicPage(QWidget* parent = nullptr);
    ~BasicPage() override;

    void setUp(DeviceSession* session, StatusReporter* reporter, DeviceBar* deviceBar);
    void reloadBasicInfo();
    void clearBasicInfo();
    void enableWidgetsForBasicTab(bool enable);

    void reload() override { reloadBasicInfo(); }
    void clear() override { clearBasicInfo(); }
    void enableWidgets(bool enable) override { enableWidgetsForBasicTab(enable); }

    /// Type and version as shown; empty if they have not been read.
    QString hardware() const;
    /// Whether the last reload has read the hand.
    bool isRead() const;
    /// Runs `action` for the Recalibrate button.
    void requestRecalibration(RequestQueue::Request action);

private slots:
    void on_pushButton_BasicReloadBasic_clicked();
    void on_pushButton_BasicSetID_clicked();
    void on_pushButton_BasicBeep_clicked();
    void on_pushButton_BasicSetSelfTestLevel_clicked();
    void on_pushButton_BasicSetBeepSwitch_clicked();
    void on_pushButton_BasicStartInit_clicked();
    void on_pushButton_BasicReset_clicked();

private:
    void readFirmwareVersion(HandCall& call);
    bool readProtocolVersion(HandCall& call);
    bool readHardwareVersion(HandCall& call);
    void readSelfTestLevel(HandCall& call);
    void readBeepSwitch(HandCall& call);
    void readCalibration(HandCall& call);
    void readAll(const HandTarget& target);
    void clearFields();

    template<auto Operation, class... Arguments>
    void perform(QWidget* button, const QString& success, Arguments... arguments);
    void showRefusal(QWidget* button, const QString& reason);
    void changeId(const HandTarget& target, std::uint8_t newNode);
    void updateDependentWidgets();

    std::unique_ptr<Ui::BasicPage> ui;
    DeviceBar* m_deviceBar = nullptr;
    PerFinger<QLineEdit*> m_starts;
    PerFinger<QLineEdit*> m_ends;
    std::array<QLineEdit*, ThumbRootCount> m_thumbRoots;
    bool m_enabled = false;
    bool m_reloading = false;
};

} // namespace vanto
