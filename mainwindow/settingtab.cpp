#include "settingtab.h"

#include "conversation.h"
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
    const Conversation conversation;
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        readPid(*target, finger);
        if (m_session->holds(*target))
            readCurrentLimit(*target, finger);
        if (m_session->holds(*target) && m_session->hasForceSensing())
            readForceLimit(*target, finger);
        if (!m_session->holds(*target))
            return;
    }
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

void SettingTab::ask(QPushButton* button, DeviceSession::Request request)
{
    m_session->ask([button] { return button->isEnabled(); }, std::move(request));
}

bool SettingTab::succeeded(const Target& target, const char* operation, std::uint8_t result)
{
    return m_reporter->succeeded(target, operation, result, StatusReporter::Timeouts::LikeFailures);
}

void SettingTab::handleReadPID(std::uint8_t finger)
{
    ask(m_readButtons[Pid][finger], [this, finger](const Target& target) {
        const Conversation conversation;
        readPid(target, finger);
    });
}

void SettingTab::handleWritePID(std::uint8_t finger)
{
    Gains texts;
    std::transform(m_gains.begin(), m_gains.end(), texts.begin(),
                   [finger](const auto& fields) { return fields[finger]->text(); });
    ask(m_writeButtons[Pid][finger], [this, finger, texts](const Target& target) {
        const auto empty = [](const QString& text) { return text.isEmpty(); };
        // The write follows all the same; an empty field counts as 0.
        if (std::any_of(texts.begin(), texts.end(), empty))
            QMessageBox::critical(m_window, Program::title(),
                                  tr("Please check parameter is complete"));
        if (m_session->holds(target))
            writePid(target, finger, texts);
    });
}

void SettingTab::readPid(const Target& target, std::uint8_t finger)
{
    std::array<float, GainCount> gains{};
    if (!succeeded(
            target, "getFingerPID",
            target->getFingerPID(target.node, finger, &gains[0], &gains[1], &gains[2], &gains[3])))
        return;
    for (std::size_t i = 0; i < GainCount; ++i)
        m_gains[i][finger]->setText(NumberText::fromReal(gains[i]));
}

void SettingTab::writePid(const Target& target, std::uint8_t finger, const Gains& texts)
{
    const Conversation conversation;
    if (succeeded(target, "setFingerPID",
                  target->setFingerPID(target.node, finger, NumberText::toReal(texts[0]),
                                       NumberText::toReal(texts[1]), NumberText::toReal(texts[2]),
                                       NumberText::toReal(texts[3]))))
        readPid(target, finger);
}

void SettingTab::handleReadCurrentLimit(std::uint8_t finger)
{
    ask(m_readButtons[CurrentLimit][finger], [this, finger](const Target& target) {
        const Conversation conversation;
        readCurrentLimit(target, finger);
    });
}

void SettingTab::handleWriteCurrentLimit(std::uint8_t finger)
{
    const std::uint16_t limit = NumberText::toWord(m_currentLimits[finger]->text());
    ask(m_writeButtons[CurrentLimit][finger], [this, finger, limit](const Target& target) {
        const Conversation conversation;
        if (succeeded(target, "setFingerCurrentLimit",
                      target->setFingerCurrentLimit(target.node, finger, limit)))
            readCurrentLimit(target, finger);
    });
}

void SettingTab::readCurrentLimit(const Target& target, std::uint8_t finger)
{
    std::uint16_t limit = 0;
    if (succeeded(target, "getFingerCurrentLimit",
                  target->getFingerCurrentLimit(target.node, finger, &limit)))
        m_currentLimits[finger]->setText(QString::number(limit));
}

void SettingTab::handleReadForceLimit(std::uint8_t finger)
{
    ask(m_readButtons[ForceLimit][finger], [this, finger](const Target& target) {
        const Conversation conversation;
        readForceLimit(target, finger);
    });
}

void SettingTab::handleWriteForceLimit(std::uint8_t finger)
{
    const std::uint16_t limit = NumberText::toWord(m_forceLimits[finger]->text());
    ask(m_writeButtons[ForceLimit][finger], [this, finger, limit](const Target& target) {
        if (finger == ThumbRoot) {
            m_forceLimits[finger]->setText(QStringLiteral("NULL"));
            return;
        }
        const Conversation conversation;
        if (succeeded(target, "setFingerForceLimit",
                      target->setFingerForceLimit(target.node, finger, limit)))
            readForceLimit(target, finger);
    });
}

void SettingTab::readForceLimit(const Target& target, std::uint8_t finger)
{
    if (finger == ThumbRoot) { // has no force sensor
        m_forceLimits[finger]->setText(QStringLiteral("NA"));
        return;
    }
    std::uint16_t limit = 0;
    if (succeeded(target, "getFingerForceLimit",
                  target->getFingerForceLimit(target.node, finger, &limit)))
        m_forceLimits[finger]->setText(QString::number(limit));
}
