#include "settingtab.h"

#include "fingerwidgets.h"
#include "focuskeeper.h"
#include "numbertext.h"
#include "program.h"
#include "statusreporter.h"
#include "ui_mainwindow.h"

#include <QMessageBox>

#include <algorithm>

SettingTab::SettingTab(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
                       StatusReporter* reporter)
    : m_ui(ui),
      m_window(window),
      m_session(session),
      m_reporter(reporter),
      m_gains{fingerWidgets<QLineEdit>(window, "lineEdit_SettingP"),
              fingerWidgets<QLineEdit>(window, "lineEdit_SettingI"),
              fingerWidgets<QLineEdit>(window, "lineEdit_SettingD"),
              fingerWidgets<QLineEdit>(window, "lineEdit_SettingG")},
      m_currentLimits(fingerWidgets<QLineEdit>(window, "lineEdit_SettingCurrentLimit")),
      m_forceLimits(fingerWidgets<QLineEdit>(window, "lineEdit_SettingForceLimit")),
      m_readButtons{fingerWidgets<QPushButton>(window, "pushButton_SettingReadPID"),
                    fingerWidgets<QPushButton>(window, "pushButton_SettingReadCurrentLimit"),
                    fingerWidgets<QPushButton>(window, "pushButton_SettingReadForceLimit")},
      m_writeButtons{fingerWidgets<QPushButton>(window, "pushButton_SettingWritePID"),
                     fingerWidgets<QPushButton>(window, "pushButton_SettingWriteCurrentLimit"),
                     fingerWidgets<QPushButton>(window, "pushButton_SettingWriteForceLimit")}
{
}

void SettingTab::reload()
{
    FocusKeeper focus(m_window);
    setWidgetsEnabled(false);
    focus.noteMove();
    clear();
    const auto target = m_session->target();
    if (!target)
        return;
    HandCall call(*target, m_reporter->plain());
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        readPid(call, finger);
        readCurrentLimit(call, finger);
        if (m_session->hasForceSensing())
            readForceLimit(call, finger);
    }
    if (!call.isCurrent())
        return;
    setWidgetsEnabled(true);
    m_reporter->showMessage(tr("Setting loaded"));
}

void SettingTab::clear()
{
    for (QLineEdit* field : m_ui->tab_Setting->findChildren<QLineEdit*>())
        field->clear();
}

void SettingTab::setWidgetsEnabled(bool enabled)
{
    for (QPushButton* button : m_ui->tab_Setting->findChildren<QPushButton*>())
        button->setEnabled(enabled);
    for (QLineEdit* field : m_ui->tab_Setting->findChildren<QLineEdit*>())
        field->setReadOnly(!enabled);
}

void SettingTab::setForceSensing(bool present)
{
    const auto show = [present](const auto& widgets) {
        for (QWidget* widget : widgets)
            widget->setVisible(present);
    };
    show(m_forceLimits);
    show(m_readButtons[ForceLimit]);
    show(m_writeButtons[ForceLimit]);
    m_ui->label_SettingForceLimit->setVisible(present);
    m_ui->label_SettingMN->setVisible(present);
}

void SettingTab::request(QPushButton* button, RequestQueue::Request action)
{
    m_session->request([button] { return button->isEnabled(); }, std::move(action));
}

void SettingTab::handleReadPID(std::uint8_t finger)
{
    request(m_readButtons[Pid][finger], [this, finger](const HandTarget& target) {
        HandCall call(target, m_reporter->plain());
        readPid(call, finger);
    });
}

void SettingTab::handleWritePID(std::uint8_t finger)
{
    Gains texts;
    std::transform(m_gains.begin(), m_gains.end(), texts.begin(),
                   [finger](const auto& fields) { return fields[finger]->text(); });
    request(m_writeButtons[Pid][finger], [this, finger, texts](const HandTarget& target) {
        const auto empty = [](const QString& text) { return text.isEmpty(); };
        // The write follows all the same; an empty field counts as 0.
        if (std::any_of(texts.begin(), texts.end(), empty))
            QMessageBox::critical(m_window, Program::title(),
                                  tr("Please check parameter is complete"));
        if (target.isCurrent())
            writePid(target, finger, texts);
    });
}

void SettingTab::readPid(HandCall& call, std::uint8_t finger)
{
    std::array<float, GainCount> gains{};
    if (!call.perform<&VantoProtocol::getFingerPID>(finger, &gains[0], &gains[1], &gains[2],
                                                    &gains[3]))
        return;
    for (std::size_t i = 0; i < GainCount; ++i)
        m_gains[i][finger]->setText(NumberText::fromReal(gains[i]));
}

void SettingTab::writePid(const HandTarget& target, std::uint8_t finger, const Gains& texts)
{
    HandCall call(target, m_reporter->plain());
    if (call.perform<&VantoProtocol::setFingerPID>(
            finger, NumberText::toReal(texts[0]), NumberText::toReal(texts[1]),
            NumberText::toReal(texts[2]), NumberText::toReal(texts[3])))
        readPid(call, finger);
}

void SettingTab::handleReadCurrentLimit(std::uint8_t finger)
{
    request(m_readButtons[CurrentLimit][finger], [this, finger](const HandTarget& target) {
        HandCall call(target, m_reporter->plain());
        readCurrentLimit(call, finger);
    });
}

void SettingTab::handleWriteCurrentLimit(std::uint8_t finger)
{
    const std::uint16_t limit = NumberText::toWord(m_currentLimits[finger]->text());
    request(m_writeButtons[CurrentLimit][finger], [this, finger, limit](const HandTarget& target) {
        HandCall call(target, m_reporter->plain());
        if (call.perform<&VantoProtocol::setFingerCurrentLimit>(finger, limit))
            readCurrentLimit(call, finger);
    });
}

void SettingTab::readCurrentLimit(HandCall& call, std::uint8_t finger)
{
    std::uint16_t limit = 0;
    if (call.perform<&VantoProtocol::getFingerCurrentLimit>(finger, &limit))
        m_currentLimits[finger]->setText(QString::number(limit));
}

void SettingTab::handleReadForceLimit(std::uint8_t finger)
{
    request(m_readButtons[ForceLimit][finger], [this, finger](const HandTarget& target) {
        HandCall call(target, m_reporter->plain());
        readForceLimit(call, finger);
    });
}

void SettingTab::handleWriteForceLimit(std::uint8_t finger)
{
    const std::uint16_t limit = NumberText::toWord(m_forceLimits[finger]->text());
    request(m_writeButtons[ForceLimit][finger], [this, finger, limit](const HandTarget& target) {
        if (finger == ThumbRoot) {
            m_forceLimits[finger]->setText(QStringLiteral("NULL"));
            return;
        }
        HandCall call(target, m_reporter->plain());
        if (call.perform<&VantoProtocol::setFingerForceLimit>(finger, limit))
            readForceLimit(call, finger);
    });
}

void SettingTab::readForceLimit(HandCall& call, std::uint8_t finger)
{
    if (!call.isCurrent())
        return;
    if (finger == ThumbRoot) { // has no force sensor
        m_forceLimits[finger]->setText(QStringLiteral("NA"));
        return;
    }
    std::uint16_t limit = 0;
    if (call.perform<&VantoProtocol::getFingerForceLimit>(finger, &limit))
        m_forceLimits[finger]->setText(QString::number(limit));
}
