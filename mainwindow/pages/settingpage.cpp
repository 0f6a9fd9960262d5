#include "settingpage.h"

#include "fingerwidgets.h"
#include "focuskeeper.h"
#include "numbertext.h"
#include "program.h"
#include "statusreporter.h"
#include "ui_settingpage.h"

#include <QMessageBox>

#include <algorithm>

namespace vanto
{

SettingPage::SettingPage(QWidget* parent)
    : DevicePage(parent), ui(std::make_unique<Ui::SettingPage>())
{
    ui->setupUi(this);
    m_gains = {fingerWidgets<QLineEdit>(this, "lineEdit_SettingP"),
               fingerWidgets<QLineEdit>(this, "lineEdit_SettingI"),
               fingerWidgets<QLineEdit>(this, "lineEdit_SettingD"),
               fingerWidgets<QLineEdit>(this, "lineEdit_SettingG")};
    m_currentLimits = fingerWidgets<QLineEdit>(this, "lineEdit_SettingCurrentLimit");
    m_forceLimits = fingerWidgets<QLineEdit>(this, "lineEdit_SettingForceLimit");
    m_readButtons = {fingerWidgets<QPushButton>(this, "pushButton_SettingReadPID"),
                     fingerWidgets<QPushButton>(this, "pushButton_SettingReadCurrentLimit"),
                     fingerWidgets<QPushButton>(this, "pushButton_SettingReadForceLimit")};
    m_writeButtons = {fingerWidgets<QPushButton>(this, "pushButton_SettingWritePID"),
                      fingerWidgets<QPushButton>(this, "pushButton_SettingWriteCurrentLimit"),
                      fingerWidgets<QPushButton>(this, "pushButton_SettingWriteForceLimit")};
}

SettingPage::~SettingPage() = default;

void SettingPage::reloadSettingInfo()
{
    FocusKeeper focus(window());
    enableWidgetsForSettingTab(false);
    focus.recordFocusMove();
    clearSettingInfo();
    const auto target = session()->target();
    if (!target)
        return;
    HandCall call(*target, reporter()->plainReport());
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        readPid(call, finger);
        readCurrentLimit(call, finger);
        if (session()->hasForceSensing())
            readForceLimit(call, finger);
    }
    if (!call.isCurrent())
        return;
    enableWidgetsForSettingTab(true);
    reporter()->showMessage(tr("Setting loaded"));
}

void SettingPage::clearSettingInfo()
{
    for (QLineEdit* field : findChildren<QLineEdit*>())
        field->clear();
}

void SettingPage::enableWidgetsForSettingTab(bool enable)
{
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setEnabled(enable);
    for (QLineEdit* field : findChildren<QLineEdit*>())
        field->setReadOnly(!enable);
}

void SettingPage::setForceSensing(bool present)
{
    const auto show = [present](const auto& widgets) {
        for (QWidget* widget : widgets)
            widget->setVisible(present);
    };
    show(m_forceLimits);
    show(m_readButtons[ForceLimit]);
    show(m_writeButtons[ForceLimit]);
    ui->label_SettingForceLimit->setVisible(present);
    ui->label_SettingMN->setVisible(present);
}

void SettingPage::tabSetting_handleReadPID(unsigned char finger)
{
    request(m_readButtons[Pid][finger], [this, finger](const HandTarget& target) {
        HandCall call(target, reporter()->plainReport());
        readPid(call, finger);
    });
}

void SettingPage::tabSetting_handleWritePID(unsigned char finger)
{
    Gains texts;
    std::transform(m_gains.begin(), m_gains.end(), texts.begin(),
                   [finger](const auto& fields) { return fields[finger]->text(); });
    request(m_writeButtons[Pid][finger], [this, finger, texts](const HandTarget& target) {
        const auto empty = [](const QString& text) { return text.isEmpty(); };
        // The write follows nevertheless; an empty field counts as 0.
        if (std::any_of(texts.begin(), texts.end(), empty))
            QMessageBox::critical(window(), Program::title(),
                                  tr("Please check parameter is complete"));
        if (target.isCurrent())
            writePid(target, finger, texts);
    });
}

void SettingPage::readPid(HandCall& call, std::uint8_t finger)
{
    std::array<float, GainCount> gains{};
    if (!call.perform<&VantoProtocol::getFingerPID>(finger, &gains[0], &gains[1], &gains[2],
                                                    &gains[3]))
        return;
    for (std::size_t i = 0; i < GainCount; ++i)
        m_gains[i][finger]->setText(NumberText::fromDouble(gains[i]));
}

void SettingPage::writePid(const HandTarget& target, std::uint8_t finger, const Gains& texts)
{
    HandCall call(target, reporter()->plainReport());
    if (call.perform<&VantoProtocol::setFingerPID>(
            finger, NumberText::toFloat(texts[0]), NumberText::toFloat(texts[1]),
            NumberText::toFloat(texts[2]), NumberText::toFloat(texts[3])))
        readPid(call, finger);
}

void SettingPage::tabSetting_handleReadCurrentLimit(unsigned char finger)
{
    request(m_readButtons[CurrentLimit][finger], [this, finger](const HandTarget& target) {
        HandCall call(target, reporter()->plainReport());
        readCurrentLimit(call, finger);
    });
}

void SettingPage::tabSetting_handleWriteCurrentLimit(unsigned char finger)
{
    const std::uint16_t limit = NumberText::toWord(m_currentLimits[finger]->text());
    request(m_writeButtons[CurrentLimit][finger], [this, finger, limit](const HandTarget& target) {
        HandCall call(target, reporter()->plainReport());
        if (call.perform<&VantoProtocol::setFingerCurrentLimit>(finger, limit))
            readCurrentLimit(call, finger);
    });
}

void SettingPage::readCurrentLimit(HandCall& call, std::uint8_t finger)
{
    std::uint16_t limit = 0;
    if (call.perform<&VantoProtocol::getFingerCurrentLimit>(finger, &limit))
        m_currentLimits[finger]->setText(QString::number(limit));
}

void SettingPage::tabSetting_handleReadForceLimit(unsigned char finger)
{
    request(m_readButtons[ForceLimit][finger], [this, finger](const HandTarget& target) {
        HandCall call(target, reporter()->plainReport());
        readForceLimit(call, finger);
    });
}

void SettingPage::tabSetting_handleWriteForceLimit(unsigned char finger)
{
    const std::uint16_t limit = NumberText::toWord(m_forceLimits[finger]->text());
    request(m_writeButtons[ForceLimit][finger], [this, finger, limit](const HandTarget& target) {
        if (finger == ThumbRoot) {
            m_forceLimits[finger]->setText(QStringLiteral("NULL"));
            return;
        }
        HandCall call(target, reporter()->plainReport());
        if (call.perform<&VantoProtocol::setFingerForceLimit>(finger, limit))
            readForceLimit(call, finger);
    });
}

void SettingPage::readForceLimit(HandCall& call, std::uint8_t finger)
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

} // namespace vanto
