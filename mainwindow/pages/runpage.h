#pragma once

#include "devicepage.h"
#include "fingerslots.h"
#include "motionunit.h"

#include <QSemaphore>
#include <QTimer>

#include <deque>

class QLineEdit;
class QSlider;

namespace vanto
{

namespace Ui
{
class RunPage;
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

/// The Run page: moves the fingers by position or angle and shows their currents live.
class RunPage : public DevicePage
{
    Q_OBJECT
public:
    explicit RunPage(QWidget* parent = nullptr);
    ~RunPage() override;

    void setUp(DeviceSession* session, StatusReporter* reporter);
    void reloadRunInfo();
    void clearRunInfo();
    void enableWidgetsForRunTab(bool enable);
    /// Previews only; nothing is sent.
    void tabRun_handleSliderMoved(unsigned char finger, int value);
    /// Queues a command; the timer sends it.
    void tabRun_handleSliderReleased(unsigned char finger);
    /// Sends the typed value, without the queue.
    void tabRun_handleButtonSetPosClick(unsigned char finger);
    /// One tick of the run timer: at most one queued command, then the six currents.
    void updateCurrent();

    void reload() override { reloadRunInfo(); }
    void clear() override { clearRunInfo(); }
    void enableWidgets(bool enable) override { enableWidgetsForRunTab(enable); }
    void follow(bool isCurrent) override;

private slots:
    void on_comboBox_RunPosOrAngle_currentIndexChanged();
    VANTO_FINGER_VALUE_SLOTS(verticalSlider_RunPos, sliderMoved, tabRun_handleSliderMoved)
    VANTO_FINGER_SLOTS(verticalSlider_RunPos, sliderReleased, tabRun_handleSliderReleased)
    VANTO_FINGER_SLOTS(pushButton_RunSetPos, clicked, tabRun_handleButtonSetPosClick)

private:
    /// The widgets in which to show a value that has been read back.
    enum class ReadBack { IntoField, IntoSlider, IntoBoth };

    void postponeTick();
    bool canContinueTick(const HandCall& call) const;
    void dropMotions();
    void dropPending();
    void applyMode();
    POS_INFO makeCommand(std::uint8_t finger, std::uint8_t node, int value) const;
    static const MotionUnit& unitOf(const POS_INFO& command);
    static bool move(HandCall& call, const POS_INFO& command);
    /// `operation` as in MotionUnit::readTarget().
    void readBack(HandCall& call, const POS_INFO& command, ReadBack into,
                  std::string_view operation = {});
    void sendPending(HandCall& call);
    void readCurrent(HandCall& call, std::uint8_t finger);

    std::unique_ptr<Ui::RunPage> ui;
    PerFinger<QSlider*> m_sliders;
    PerFinger<QLineEdit*> m_positions;
    PerFinger<QLineEdit*> m_speeds;
    PerFinger<QLineEdit*> m_currents;
    QTimer m_timer; ///< runs while the page is current and a device is open
    /// The unit of fields and sliders. The mode selector may briefly differ from it.
    const MotionUnit* m_unit = &MotionUnit::position();
    std::deque<POS_INFO> m_pending;
    QSemaphore m_pendingCount;      ///< number of pending commands
    std::size_t m_firstCurrent = 0; ///< finger whose current the next tick reads first
    bool m_missedTick = false;      ///< because of a background conversation
};

} // namespace vanto
