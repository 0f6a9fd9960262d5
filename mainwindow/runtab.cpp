#include "runtab.h"

#include "fingerwidgets.h"
#include "focuskeeper.h"
#include "numbertext.h"
#include "pagetimers.h"
#include "statusreporter.h"
#include "ui_mainwindow.h"
#include "unitdisplay.h"

#include <utility>

RunTab::RunTab(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
               StatusReporter* reporter, PageTimers* timers)
    : m_ui(ui),
      m_window(window),
      m_session(session),
      m_reporter(reporter),
      m_timers(timers),
      m_sliders(fingerWidgets<QSlider>(window, "verticalSlider_RunPos")),
      m_positions(fingerWidgets<QLineEdit>(window, "lineEdit_RunPos")),
      m_speeds(fingerWidgets<QLineEdit>(window, "lineEdit_RunSpeed")),
      m_currents(fingerWidgets<QLineEdit>(window, "lineEdit_RunCurrent"))
{
    for (QLineEdit* speed : m_speeds)
        speed->setText(QStringLiteral("255"));
    QObject::connect(timers, &PageTimers::sig_runPageEntered, window, [this] { dropPending(); });
    QObject::connect(timers, &PageTimers::sig_runPageLeft, window, [this] { dropPending(); });
}

void RunTab::modeChanged()
{
    m_session->runWhenIdle(DeviceSession::Kind::ReloadRun, [this] { reload(); });
}

void RunTab::reload()
{
    FocusKeeper focus(m_window);
    setWidgetsEnabled(false);
    focus.noteMove();
    clear();
    followMode();
    const auto target = m_session->target();
    if (!target)
        return;
    HandCall call(*target, m_reporter->plain());
    if (const auto pose = m_unit->readPose(call)) {
        for (std::size_t f = 0; f < FingerCount; ++f) {
            m_positions[f]->setText(UnitDisplay::text(*m_unit, pose->targets[f]));
            m_sliders[f]->setValue(pose->targets[f]);
        }
    }
    if (!call.isCurrent())
        return;
    setWidgetsEnabled(true);
    m_reporter->showMessage(tr("Running info loaded"));
}

void RunTab::followMode()
{
    m_unit = &UnitDisplay::chosen(m_ui->comboBox_RunPosOrAngle);
    UnitDisplay::apply(*m_unit, m_ui->label_RunTicksOrDegree, m_sliders);
}

void RunTab::clear()
{
    for (std::size_t f = 0; f < FingerCount; ++f) {
        m_positions[f]->clear();
        m_currents[f]->clear();
        m_sliders[f]->setValue(0);
    }
}

void RunTab::setWidgetsEnabled(bool enabled)
{
    const auto enable = [enabled](const auto& widgets) {
        for (QWidget* widget : widgets)
            widget->setEnabled(enabled);
    };
    enable(m_sliders);
    enable(m_positions);
    enable(m_speeds);
    enable(m_currents);
    enable(m_ui->tab_Run->findChildren<QPushButton*>());
}

void RunTab::handleSliderMoved(std::uint8_t finger, int value)
{
    m_positions[finger]->setText(UnitDisplay::text(*m_unit, value));
}

POS_INFO RunTab::commandOf(std::uint8_t finger, std::uint8_t node, int value) const
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

void RunTab::handleSliderReleased(std::uint8_t finger)
{
    const auto target = m_session->target();
    if (!target)
        return;
    m_pending.push_back(commandOf(finger, target->node, m_sliders[finger]->sliderPosition()));
    m_pendingCount.release();
}

void RunTab::dropPending()
{
    m_pendingCount.tryAcquire(m_pendingCount.available());
    m_pending.clear();
    m_firstCurrent = 0;
}

void RunTab::handleButtonSetPosClick(std::uint8_t finger)
{
    const auto asked = m_session->target();
    if (!asked)
        return;
    const POS_INFO command =
        commandOf(finger, asked->node, UnitDisplay::value(*m_unit, m_positions[finger]->text()));
    const auto* slider = m_sliders[finger];
    m_session->request([slider] { return slider->isEnabled(); },
                       [this, command](const HandTarget& target) {
                           HandCall call(target, m_reporter->plain());
                           if (!move(call, command))
                               return;
                           if (command.isPosition)
                               readBack(call, command, ReadBack::IntoSlider, "getFingerpos");
                           else
                               readBack(call, command, ReadBack::IntoBoth);
                       });
}

const MotionUnit& RunTab::unitOf(const POS_INFO& command)
{
    return command.isPosition ? MotionUnit::position() : MotionUnit::angle();
}

bool RunTab::move(HandCall& call, const POS_INFO& command)
{
    const int value = command.isPosition ? int{command.position} : static_cast<int>(command.angle);
    return unitOf(command).move(call, command.finger, value,
                                static_cast<std::uint8_t>(command.speed));
}

void RunTab::readBack(HandCall& call, const POS_INFO& command, ReadBack into,
                      std::string_view operation)
{
    const auto reached = unitOf(command).readTarget(call, command.finger, operation);
    QSlider* slider = m_sliders[command.finger];
    // Meanwhile the mode may have changed, or the slider is held again.
    if (!reached || &unitOf(command) != m_unit || slider->isSliderDown())
        return;
    if (into != ReadBack::IntoSlider)
        m_positions[command.finger]->setText(UnitDisplay::text(*m_unit, *reached));
    if (into != ReadBack::IntoField)
        slider->setValue(*reached);
}

/// A tick ends between two exchanges when somebody waits for it or its page has been left.
bool RunTab::tickGoesOn(const HandCall& call) const
{
    return call.isCurrent() && !m_session->requestWaits() && m_timers->runPageTicks();
}

void RunTab::updateCurrent()
{
    if (!m_session->canTick()) {
        m_timers->postponeRunTick();
        return;
    }
    const auto target = m_session->target();
    if (!target)
        return;
    HandCall call(*target, m_reporter->plain());
    sendPending(call);
    // A tick that was cut short is continued by the next, else the last finger would starve.
    const std::size_t first = std::exchange(m_firstCurrent, 0);
    for (std::size_t i = 0; i < FingerCount; ++i) {
        const auto finger = static_cast<std::uint8_t>((first + i) % FingerCount);
        if (!tickGoesOn(call)) {
            m_firstCurrent = finger;
            return;
        }
        readCurrent(call, finger);
    }
}

void RunTab::sendPending(HandCall& call)
{
    if (!m_pendingCount.tryAcquire())
        return;
    const POS_INFO command = m_pending.front();
    m_pending.pop_front();
    if (command.node == call.target().node && move(call, command) && tickGoesOn(call))
        readBack(call, command, command.isPosition ? ReadBack::IntoField : ReadBack::IntoBoth);
}

void RunTab::readCurrent(HandCall& call, std::uint8_t finger)
{
    std::uint16_t current = 0;
    if (call.perform<&VantoProtocol::getFingerCurrent>(finger, &current))
        m_currents[finger]->setText(QString::number(current));
}
