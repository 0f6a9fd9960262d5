#include "runpage.h"

#include "fingerwidgets.h"
#include "focuskeeper.h"
#include "numbertext.h"
#include "statusreporter.h"
#include "ui_runpage.h"
#include "unitdisplay.h"

#include <utility>

namespace vanto
{

namespace
{
constexpr int RunIntervalMs = 100;
constexpr int PostponedTickMs = 20;
} // namespace

RunPage::RunPage(QWidget* parent)
    : DevicePage(parent), ui(std::make_unique<Ui::RunPage>()), m_timer(this)
{
    ui->setupUi(this);
    m_sliders = fingerWidgets<QSlider>(this, "verticalSlider_RunPos");
    m_positions = fingerWidgets<QLineEdit>(this, "lineEdit_RunPos");
    m_speeds = fingerWidgets<QLineEdit>(this, "lineEdit_RunSpeed");
    m_currents = fingerWidgets<QLineEdit>(this, "lineEdit_RunCurrent");
    for (QLineEdit* speed : m_speeds)
        speed->setText(QStringLiteral("255"));
    m_timer.setObjectName(QStringLiteral("runTimer"));
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (m_timer.interval() != RunIntervalMs)
            m_timer.start(RunIntervalMs);
        updateCurrent();
    });
}

RunPage::~RunPage() = default;

void RunPage::setUp(DeviceSession* session, StatusReporter* reporter)
{
    DevicePage::setUp(session, reporter);
    connect(session, &DeviceSession::sig_stop, &m_timer, &QTimer::stop);
    connect(session, &DeviceSession::sig_interrupted, this, &RunPage::dropMotions);
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_idle, this, [this] {
        if (std::exchange(m_missedTick, false) && m_timer.isActive())
            m_timer.start(0);
    });
    // What has been typed keeps its unit.
    connect(session, &DeviceSession::sig_stateChanged, this, [this] {
        ui->comboBox_RunPosOrAngle->setEnabled(this->session()->state() !=
                                               DeviceSession::State::PortLost);
    });
}

void RunPage::follow(bool isCurrent)
{
    // Pending commands of an earlier visit must not be sent.
    dropPending();
    if (isCurrent && session()->target())
        m_timer.start(RunIntervalMs);
    else
        m_timer.stop();
}

/// Postpones a tick that cannot run now; one that always coincided with the same clicks would never
/// run.
void RunPage::postponeTick()
{
    if (!m_timer.isActive())
        return;
    m_timer.start(PostponedTickMs);
    m_missedTick = Conversation::isBackground();
}

void RunPage::on_comboBox_RunPosOrAngle_currentIndexChanged()
{
    session()->runWhenIdle(DeviceSession::Kind::ReloadRun, [this] {
        // What a lost hand has said stays readable; the unit follows when it is back.
        if (session()->state() != DeviceSession::State::PortLost)
            reloadRunInfo();
    });
}

void RunPage::reloadRunInfo()
{
    FocusKeeper focus(window());
    enableWidgetsForRunTab(false);
    focus.recordFocusMove();
    clearRunInfo();
    applyMode();
    const auto target = session()->target();
    if (!target)
        return;
    HandCall call(*target, reporter()->plainReport());
    if (const auto pose = m_unit->readPose(call)) {
        for (std::size_t f = 0; f < FingerCount; ++f) {
            m_positions[f]->setText(UnitDisplay::text(*m_unit, pose->targets[f]));
            m_sliders[f]->setValue(pose->targets[f]);
        }
    }
    if (!call.isCurrent())
        return;
    enableWidgetsForRunTab(true);
    reporter()->showMessage(tr("Running info loaded"));
}

void RunPage::applyMode()
{
    m_unit = &UnitDisplay::selectedUnit(ui->comboBox_RunPosOrAngle);
    UnitDisplay::apply(*m_unit, ui->label_RunTicksOrDegree, m_sliders);
}

void RunPage::clearRunInfo()
{
    for (std::size_t f = 0; f < FingerCount; ++f) {
        m_positions[f]->clear();
        m_currents[f]->clear();
        m_sliders[f]->setValue(0);
    }
}

void RunPage::enableWidgetsForRunTab(bool enable)
{
    const auto apply = [enable](const auto& widgets) {
        for (QWidget* widget : widgets)
            widget->setEnabled(enable);
    };
    apply(m_sliders);
    apply(m_positions);
    apply(m_speeds);
    apply(m_currents);
    apply(findChildren<QPushButton*>());
}

void RunPage::tabRun_handleSliderMoved(unsigned char finger, int value)
{
    m_positions[finger]->setText(UnitDisplay::text(*m_unit, value));
}

POS_INFO RunPage::makeCommand(std::uint8_t finger, std::uint8_t node, int value) const
{
    POS_INFO command;
    command.node = node;
    command.finger = finger;
    command.isPosition = m_unit->isPosition();
    command.speed = NumberText::toByte(m_speeds[finger]->text());
    if (command.isPosition)
        command.position = static_cast<std::uint16_t>(value);
    else
        command.angle = static_cast<std::int16_t>(value);
    return command;
}

void RunPage::tabRun_handleSliderReleased(unsigned char finger)
{
    const auto target = session()->target();
    if (!target)
        return;
    if (MotionGate::state() == MotionGate::State::Latched) {
        reporter()->plainReport().reportHalted(); // it must not move after Continue
        return;
    }
    m_pending.push_back(makeCommand(finger, target->node, m_sliders[finger]->sliderPosition()));
    m_pendingCount.release();
}

/// A slider that is held now sends nothing when it is released.
void RunPage::dropMotions()
{
    dropPending();
    cancelDrags(m_sliders);
}

void RunPage::dropPending()
{
    m_pendingCount.tryAcquire(m_pendingCount.available());
    m_pending.clear();
    m_firstCurrent = 0;
}

void RunPage::tabRun_handleButtonSetPosClick(unsigned char finger)
{
    const auto currentTarget = session()->target();
    if (!currentTarget)
        return;
    const POS_INFO command = makeCommand(finger, currentTarget->node,
                                         UnitDisplay::value(*m_unit, m_positions[finger]->text()));
    request(m_sliders[finger], [this, command](const HandTarget& target) {
        HandCall call(target, reporter()->plainReport());
        if (!move(call, command))
            return;
        if (command.isPosition)
            readBack(call, command, ReadBack::IntoSlider, "getFingerpos");
        else
            readBack(call, command, ReadBack::IntoBoth);
    });
}

const MotionUnit& RunPage::unitOf(const POS_INFO& command)
{
    return command.isPosition ? MotionUnit::position() : MotionUnit::angle();
}

bool RunPage::move(HandCall& call, const POS_INFO& command)
{
    const int value = command.isPosition ? int{command.position} : static_cast<int>(command.angle);
    return unitOf(command).move(call, command.finger, value,
                                static_cast<std::uint8_t>(command.speed));
}

void RunPage::readBack(HandCall& call, const POS_INFO& command, ReadBack into,
                       std::string_view operation)
{
    const auto reached = unitOf(command).readTarget(call, command.finger, operation);
    QSlider* slider = m_sliders[command.finger];
    // Meanwhile the mode may have changed, or the user may be dragging the slider again.
    if (!reached || &unitOf(command) != m_unit || slider->isSliderDown())
        return;
    if (into != ReadBack::IntoSlider)
        m_positions[command.finger]->setText(UnitDisplay::text(*m_unit, *reached));
    if (into != ReadBack::IntoField)
        slider->setValue(*reached);
}

/// A tick ends early if a request is waiting or the user has left the page.
bool RunPage::canContinueTick(const HandCall& call) const
{
    return call.isCurrent() && !session()->isSilent() && !session()->hasWaitingJobs() &&
           m_timer.isActive();
}

void RunPage::updateCurrent()
{
    if (!session()->canTick()) {
        postponeTick();
        return;
    }
    const auto target = session()->target();
    if (!target)
        return;
    HandCall call(*target, reporter()->plainReport());
    sendPending(call);
    if (session()->isSilent())
        return; // the session probes the hand once a second
    // The next tick continues one that ended early; otherwise the last finger would starve.
    const std::size_t first = std::exchange(m_firstCurrent, 0);
    for (std::size_t i = 0; i < FingerCount; ++i) {
        const auto finger = static_cast<std::uint8_t>((first + i) % FingerCount);
        if (!canContinueTick(call)) {
            m_firstCurrent = finger;
            return;
        }
        readCurrent(call, finger);
    }
}

void RunPage::sendPending(HandCall& call)
{
    if (!m_pendingCount.tryAcquire())
        return;
    const POS_INFO command = m_pending.front();
    m_pending.pop_front();
    if (command.node == call.target().node && move(call, command) && canContinueTick(call))
        readBack(call, command, command.isPosition ? ReadBack::IntoField : ReadBack::IntoBoth);
}

void RunPage::readCurrent(HandCall& call, std::uint8_t finger)
{
    std::uint16_t current = 0;
    if (call.perform<&VantoProtocol::getFingerCurrent>(finger, &current))
        m_currents[finger]->setText(QString::number(current));
}

} // namespace vanto
