#pragma once

#include "devicepage.h"
#include "fingers.h"
#include "fingerslots.h"

class QLineEdit;
class QPushButton;

namespace vanto
{

namespace Ui
{
class SettingPage;
}

/// The Setting page: gains, current limit and force limit of every finger.
class SettingPage : public DevicePage
{
    Q_OBJECT
public:
    explicit SettingPage(QWidget* parent = nullptr);
    ~SettingPage() override;

    void reloadSettingInfo();
    void clearSettingInfo();
    void enableWidgetsForSettingTab(bool enable);
    void tabSetting_handleReadPID(unsigned char finger);
    void tabSetting_handleWritePID(unsigned char finger);
    void tabSetting_handleReadCurrentLimit(unsigned char finger);
    void tabSetting_handleWriteCurrentLimit(unsigned char finger);
    void tabSetting_handleReadForceLimit(unsigned char finger);
    void tabSetting_handleWriteForceLimit(unsigned char finger);

    void reload() override { reloadSettingInfo(); }
    void clear() override { clearSettingInfo(); }
    void enableWidgets(bool enable) override { enableWidgetsForSettingTab(enable); }
    void setForceSensing(bool present) override;

private slots:
    // Six slots each, for example on_pushButton_SettingReadPID0_clicked().
    VANTO_FINGER_SLOTS(pushButton_SettingReadPID, clicked, tabSetting_handleReadPID)
    VANTO_FINGER_SLOTS(pushButton_SettingWritePID, clicked, tabSetting_handleWritePID)
    VANTO_FINGER_SLOTS(pushButton_SettingReadCurrentLimit, clicked,
                       tabSetting_handleReadCurrentLimit)
    VANTO_FINGER_SLOTS(pushButton_SettingWriteCurrentLimit, clicked,
                       tabSetting_handleWriteCurrentLimit)
    VANTO_FINGER_SLOTS(pushButton_SettingReadForceLimit, clicked, tabSetting_handleReadForceLimit)
    VANTO_FINGER_SLOTS(pushButton_SettingWriteForceLimit, clicked, tabSetting_handleWriteForceLimit)

private:
    static constexpr std::size_t GainCount = 4;
    using Gains = std::array<QString, GainCount>;
    enum Quantity { Pid, CurrentLimit, ForceLimit };
    static constexpr std::size_t QuantityCount = 3;

    void readPid(HandCall& call, std::uint8_t finger);
    void writePid(const HandTarget& target, std::uint8_t finger, const Gains& texts);
    void readCurrentLimit(HandCall& call, std::uint8_t finger);
    void readForceLimit(HandCall& call, std::uint8_t finger);

    std::unique_ptr<Ui::SettingPage> ui;
    std::array<PerFinger<QLineEdit*>, GainCount> m_gains; ///< P, I, D, G
    PerFinger<QLineEdit*> m_currentLimits;
    PerFinger<QLineEdit*> m_forceLimits;
    std::array<PerFinger<QPushButton*>, QuantityCount> m_readButtons;
    std::array<PerFinger<QPushButton*>, QuantityCount> m_writeButtons;
};

} // namespace vanto
