#pragma once

#include "devicesession.h"
#include "fingers.h"
#include "tabroom.h"

#include <QCoreApplication>

class QLineEdit;
class QPushButton;
class QWidget;
class StatusReporter;
namespace Ui
{
class MainWindow;
}

/// The Setting tab: gains, current limit and force limit of every finger.
class SettingTab : public TabRoom
{
    Q_DECLARE_TR_FUNCTIONS(SettingTab)
public:
    SettingTab(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
               StatusReporter* reporter);

    void reload() override;
    void clear() override;
    void setWidgetsEnabled(bool enabled) override;
    void setForceSensing(bool present) override;

    void handleReadPID(std::uint8_t finger);
    void handleWritePID(std::uint8_t finger);
    void handleReadCurrentLimit(std::uint8_t finger);
    void handleWriteCurrentLimit(std::uint8_t finger);
    void handleReadForceLimit(std::uint8_t finger);
    void handleWriteForceLimit(std::uint8_t finger);

private:
    static constexpr std::size_t GainCount = 4;
    using Gains = std::array<QString, GainCount>;
    enum Quantity { Pid, CurrentLimit, ForceLimit };
    static constexpr std::size_t QuantityCount = 3;

    void request(QPushButton* button, RequestQueue::Request action);
    void readPid(HandCall& call, std::uint8_t finger);
    void writePid(const HandTarget& target, std::uint8_t finger, const Gains& texts);
    void readCurrentLimit(HandCall& call, std::uint8_t finger);
    void readForceLimit(HandCall& call, std::uint8_t finger);

    Ui::MainWindow* m_ui;
    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    std::array<PerFinger<QLineEdit*>, GainCount> m_gains; ///< P, I, D, G
    PerFinger<QLineEdit*> m_currentLimits;
    PerFinger<QLineEdit*> m_forceLimits;
    std::array<PerFinger<QPushButton*>, QuantityCount> m_readButtons;
    std::array<PerFinger<QPushButton*>, QuantityCount> m_writeButtons;
};
