#pragma once

#include "calibration.h"
#include "devicesession.h"

#include <QCoreApplication>

class QDialog;
class QWidget;

namespace vanto
{

class DeviceBar;
class ParameterBackups;
class StatusReporter;

/// Guides the user through the calibration of the hand. The hand measures and stores the data
/// itself; the program sends the key that starts the calibration, the position of the thumb root
/// and, as the button count, the number of the prepared stage.
///
/// If the procedure ends early, the hand stays at the stage that it has reached; the next run
/// starts from the beginning.
class CalibrationProcedure
{
    Q_DECLARE_TR_FUNCTIONS(CalibrationProcedure)
public:
    CalibrationProcedure(QWidget* window, DeviceSession* session, StatusReporter* reporter,
                         const DeviceBar* deviceBar, ParameterBackups* backups);

    void run(const HandTarget& target);

    /// Time that the hand needs for a stage, in milliseconds. Tests set a shorter time.
    static inline int stageMs = Calibration::StageMs;

private:
    using Prompt = Calibration::Prompt;

    int exec(QDialog& dialog);
    // Each step returns true if the next one may follow.
    bool confirm(Prompt prompt);
    bool backUp(const HandTarget& target);
    bool requestKey(const HandTarget& target, std::uint16_t& key);
    bool startCalibrating(const HandTarget& target, std::uint16_t key);
    bool positionThumbRoot(const HandTarget& target, const QString& prompt);
    bool pressButton(const HandTarget& target, std::uint8_t count);
    bool pressButtonAndWait(const HandTarget& target, std::uint8_t count);

    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    const DeviceBar* m_deviceBar;
    ParameterBackups* m_backups;
};

} // namespace vanto
