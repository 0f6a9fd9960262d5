#pragma once

#include "devicesession.h"

#include <QCoreApplication>

class QWidget;

namespace vanto
{

class DeviceBar;
class StatusReporter;

/// Walks the person through the calibration of the hand. The hand measures and stores by itself;
/// what it is told is the key that lets it begin, where the thumb root shall stand, and, by the
/// count of its button, that a stage is prepared.
///
/// Whatever ends the walk leaves the hand at the stage that it has reached; the next walk starts
/// from the beginning.
class CalibrationProcedure
{
    Q_DECLARE_TR_FUNCTIONS(CalibrationProcedure)
public:
    CalibrationProcedure(QWidget* window, DeviceSession* session, StatusReporter* reporter,
                         const DeviceBar* deviceBar);

    void run(const HandTarget& target);

    /// What the hand needs for a stage, in milliseconds. Tests need less.
    static inline int stageMs = 2000;

private:
    // The steps; each is true when the next may follow.
    bool confirm(const QString& prompt);
    bool askKey(const HandTarget& target, std::uint16_t& key);
    bool startCalibrating(const HandTarget& target, std::uint16_t key);
    bool placeThumbRoot(const HandTarget& target, const QString& prompt);
    bool pressButton(const HandTarget& target, std::uint8_t count);
    bool pressButtonAndWait(const HandTarget& target, std::uint8_t count);

    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    const DeviceBar* m_deviceBar;
};

} // namespace vanto
