#pragma once

#include "devicesession.h"
#include "motionunit.h"
#include "tabroom.h"

#include <QCoreApplication>
#include <QSemaphore>

#include <deque>

class PageTimers;
class QLineEdit;
class QSlider;
class QWidget;
class StatusReporter;
namespace Ui
{
class MainWindow;
}

/// A motion command that waits for the run timer.
struct POS_INFO {
    std::uint8_t node = 0;
    std::uint8_t finger = 0;
    bool isPosition = true;
    std::uint16_t speed = 0;    ///< 0..255
    std::uint16_t position = 0; ///< in position mode
    float angle = 0;            ///< in angle mode, hundredths of a degree
};

/// The Run tab: moves the fingers by position or angle and shows their currents live.
class RunTab : public TabRoom
{
    Q_DECLARE_TR_FUNCTIONS(RunTab)
public:
    RunTab(Ui::MainWindow* ui, QWidget* window, DeviceSession* session, StatusReporter* reporter,
           PageTimers* timers);

    void reload() override;
    void clear() override;
    void setWidgetsEnabled(bool enabled) override;

    /// The mode selector has changed: all is shown anew in the other unit.
    void modeChanged();
    /// Previews only; nothing is sent.
    void handleSliderMoved(std::uint8_t finger, int value);
    /// Queues a command; the timer sends it.
    void handleSliderReleased(std::uint8_t finger);
    /// Sends what is typed, without the queue.
    void handleButtonSetPosClick(std::uint8_t finger);
    /// One tick of the run timer: at most one queued command, then the six currents.
    void updateCurrent();
    void dropPending();

private:
    /// What shows a value that has been read back.
    enum class ReadBack { IntoField, IntoSlider, IntoBoth };

    bool tickGoesOn(const HandCall& call) const;
    void followMode();
    POS_INFO commandOf(std::uint8_t finger, std::uint8_t node, int value) const;
    static const MotionUnit& unitOf(const POS_INFO& command);
    static bool move(HandCall& call, const POS_INFO& command);
    /// `operation` as in MotionUnit::readTarget().
    void readBack(HandCall& call, const POS_INFO& command, ReadBack into,
                  std::string_view operation = {});
    void sendPending(HandCall& call);
    void readCurrent(HandCall& call, std::uint8_t finger);

    Ui::MainWindow* m_ui;
    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    PageTimers* m_timers;
    PerFinger<QSlider*> m_sliders;
    PerFinger<QLineEdit*> m_positions;
    PerFinger<QLineEdit*> m_speeds;
    PerFinger<QLineEdit*> m_currents;
    /// Of what fields and sliders show. The mode selector may be ahead of it for a moment.
    const MotionUnit* m_unit = &MotionUnit::position();
    std::deque<POS_INFO> m_pending;
    QSemaphore m_pendingCount;      ///< counts what is pending
    std::size_t m_firstCurrent = 0; ///< finger whose current the next tick reads first
};
