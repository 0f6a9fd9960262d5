#include "runtab.h"

#include "conversation.h"
#include "fingerwidgets.h"
#include "focuskeeper.h"
#include "numbertext.h"
#include "pagetimers.h"
#include "positionmode.h"
#include "statusreporter.h"
#include "ui_mainwindow.h"

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

bool RunTab::succeeded(const Target& target, const char* operation, std::uint8_t result)
{
    return m_reporter->succeeded(target, operation, result, StatusReporter::Timeouts::LikeFailures);
}

void RunTab::modeChanged()
{
    m_session->whenQuiet(DeviceSession::Change::ReloadRun, [this] { reload(); });
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
    const Conversation conversation;
    m_inPositions ? readPositions(*target) : readAngles(*target);
    if (!m_session->holds(*target))
        return;
    setWidgetsEnabled(true);
    m_reporter->showMessage(tr("Running info loaded"));
}

void RunTab::followMode()
{
    m_inPositions = PositionMode::isChosen(m_ui->comboBox_RunPosOrAngle);
    PositionMode::apply(m_inPositions, m_ui->label_RunTicksOrDegree, m_sliders);
}

void RunTab::readPositions(const Target& target)
{
    PerFinger<std::uint16_t> targets{};
    PerFinger<std::uint16_t> currents{};
    if (!succeeded(
            target, "getFingerPosAll",
            target->getFingerPosAll(target.node, targets.data(), currents.data(), FingerCount)))
        return;
    for (std::size_t f = 0; f < FingerCount; ++f) {
        m_positions[f]->setText(QString::number(targets[f]));
        m_sliders[f]->setValue(targets[f]);
    }
}

void RunTab::readAngles(const Target& target)
{
    PerFinger<std::int16_t> targets{};
    PerFinger<std::int16_t> currents{};
    if (!succeeded(
            target, "getFingerAngleAll",
            target->getFingerAngleAll(target.node, targets.data(), currents.data(), FingerCount)))
        return;
    for (std::size_t f = 0; f < FingerCount; ++f) {
        m_positions[f]->setText(NumberText::fromAngle(targets[f]));
        m_sliders[f]->setValue(targets[f]);
    }
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
    m_positions[finger]->setText(m_inPositions
                                     ? QString::number(static_cast<std::uint16_t>(value))
                                     : NumberText::fromAngle(static_cast<std::int16_t>(value)));
}

POS_INFO RunTab::commandOf(std::uint8_t finger, std::uint8_t node) const
{
    POS_INFO command;
    command.node = node;
    command.finger = finger;
    command.isPosition = m_inPositions;
    command.speed = NumberText::toByte(m_speeds[finger]->text());
    return command;
}

void RunTab::handleSliderReleased(std::uint8_t finger)
{
    const auto target = m_session->target();
    if (!target)
        return;
    POS_INFO command = commandOf(finger, target->node);
    const int value = m_sliders[finger]->sliderPosition();
    if (command.isPosition)
        command.position = static_cast<std::uint16_t>(value);
    else
        command.angle = static_cast<std::int16_t>(value);
    m_pending.push_back(command);
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
    POS_INFO command = commandOf(finger, asked->node);
    if (command.isPosition)
        command.position = NumberText::toWord(m_positions[finger]->text());
    else
        command.angle = NumberText::toAngle(m_positions[finger]->text());
    const auto* slider = m_sliders[finger];
    m_session->ask([slider] { return slider->isEnabled(); },
                   [this, command](const Target& target) {
                       const Conversation conversation;
                       if (!move(target, command))
                           return;
                       if (command.isPosition)
                           readBackPosition(target, command.finger, "getFingerpos", false, true);
                       else
                           readBackAngle(target, command.finger);
                   });
}

bool RunTab::move(const Target& target, const POS_INFO& command)
{
    const auto speed = static_cast<std::uint8_t>(command.speed);
    if (command.isPosition)
        return succeeded(
            target, "setFingerPos",
            target->setFingerPos(command.node, command.finger, command.position, speed));
    return succeeded(target, "setFingerAngle",
                     target->setFingerAngle(command.node, command.finger,
                                            static_cast<std::int16_t>(command.angle), speed));
}

void RunTab::readBackPosition(const Target& target, std::uint8_t finger, const char* operation,
                              bool intoField, bool intoSlider)
{
    std::uint16_t reached = 0;
    std::uint16_t current = 0;
    const auto result = target->getFingerPos(target.node, finger, &reached, &current);
    // In the meantime the fields may have become angles, or the slider been taken up again.
    if (!succeeded(target, operation, result) || !m_inPositions ||
        m_sliders[finger]->isSliderDown())
        return;
    if (intoField)
        m_positions[finger]->setText(QString::number(reached));
    if (intoSlider)
        m_sliders[finger]->setValue(reached);
}

void RunTab::readBackAngle(const Target& target, std::uint8_t finger)
{
    std::int16_t reached = 0;
    std::int16_t current = 0;
    const auto result = target->getFingerAngle(target.node, finger, &reached, &current);
    if (!succeeded(target, "getFingerAngle", result) || m_inPositions ||
        m_sliders[finger]->isSliderDown())
        return;
    m_positions[finger]->setText(NumberText::fromAngle(reached));
    m_sliders[finger]->setValue(reached);
}

/// A tick ends between two exchanges when somebody waits for it or its page has been left.
bool RunTab::tickGoesOn(const Target& target) const
{
    return m_session->holds(target) && !m_session->requestWaits() && m_timers->runPageTicks();
}

void RunTab::updateCurrent()
{
    if (!m_session->tickMayRun()) {
        m_timers->postponeRunTick();
        return;
    }
    const auto target = m_session->target();
    if (!target)
        return;
    const Conversation conversation;
    sendPending(*target);
    // A tick that was cut short is continued by the next, else the last finger would starve.
    const std::size_t first = std::exchange(m_firstCurrent, 0);
    for (std::size_t i = 0; i < FingerCount; ++i) {
        const auto finger = static_cast<std::uint8_t>((first + i) % FingerCount);
        if (!tickGoesOn(*target)) {
            m_firstCurrent = finger;
            return;
        }
        readCurrent(*target, finger);
    }
}

void RunTab::sendPending(const Target& target)
{
    if (!m_pendingCount.tryAcquire())
        return;
    const POS_INFO command = m_pending.front();
    m_pending.pop_front();
    if (!move(target, command) || !tickGoesOn(target))
        return;
    if (command.isPosition)
        readBackPosition(target, command.finger, "getFingerPos", true, false);
    else
        readBackAngle(target, command.finger);
}

void RunTab::readCurrent(const Target& target, std::uint8_t finger)
{
    std::uint16_t current = 0;
    if (succeeded(target, "getFingerCurrent",
                  target->getFingerCurrent(target.node, finger, &current)))
        m_currents[finger]->setText(QString::number(current));
}
