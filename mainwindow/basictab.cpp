#include "basictab.h"

#include "focuskeeper.h"
#include "program.h"
#include "statusreporter.h"
#include "ui_mainwindow.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QScopeGuard>

namespace
{
constexpr int MinNewId = 2;
constexpr int MaxNewId = 256; ///< cut to its low byte, so 256 means 0
constexpr std::uint16_t BeepMs = 500;
constexpr std::uint8_t ResetMode = 0;
constexpr unsigned MaxSelfTestLevel = 2;
constexpr unsigned MaxBeepSwitch = 1;
constexpr int WaitForCommandLevel = 0; ///< the self-test level at which the hand waits for Init
constexpr int NothingSelected = -1;
} // namespace

BasicTab::BasicTab(Ui::MainWindow* ui, QWidget* window, DeviceSession* session,
                   StatusReporter* reporter)
    : m_ui(ui),
      m_window(window),
      m_session(session),
      m_reporter(reporter),
      m_starts{ui->lineEdit_BasicCaliStart0, ui->lineEdit_BasicCaliStart1,
               ui->lineEdit_BasicCaliStart2, ui->lineEdit_BasicCaliStart3,
               ui->lineEdit_BasicCaliStart4, ui->lineEdit_BasicCaliStart5},
      m_ends{ui->lineEdit_BasicCaliEnd0, ui->lineEdit_BasicCaliEnd1, ui->lineEdit_BasicCaliEnd2,
             ui->lineEdit_BasicCaliEnd3, ui->lineEdit_BasicCaliEnd4, ui->lineEdit_BasicCaliEnd5},
      m_thumbRoots{ui->lineEdit_BasicThumbRootPos0, ui->lineEdit_BasicThumbRootPos1,
                   ui->lineEdit_BasicThumbRootPos2}
{
    // The index of an item is the value that the device knows it by.
    ui->comboBox_BasicSelfTestLevel->addItems(
        {tr("Wait for command"), tr("Stretch only"), tr("Full self-test")});
    ui->comboBox_BasicBeepSwitch->addItems({tr("Basic Only"), tr("All")});
    const auto follow = [this] { updateDependentWidgets(); };
    QObject::connect(ui->comboBox_BasicSelfTestLevel, &QComboBox::currentIndexChanged, window,
                     follow);
    QObject::connect(ui->comboBox_Devices, &QComboBox::currentIndexChanged, window, follow);
}

void BasicTab::reloadClicked()
{
    m_session->runWhenIdle(DeviceSession::Kind::ReloadBasic, [this] { reload(); });
}

void BasicTab::reload()
{
    FocusKeeper focus(m_window);
    m_reloading = true;
    const auto finish = qScopeGuard([this] {
        m_reloading = false;
        updateDependentWidgets();
    });
    setWidgetsEnabled(false);
    focus.noteMove();
    clearFields();
    if (m_ui->comboBox_Devices->currentIndex() < 0)
        return;
    if (!m_session->connected()) {
        QMessageBox::critical(m_window, Program::title(), tr("Unknown protocol"));
        return;
    }
    if (const auto target = m_session->target())
        readAll(*target);
}

void BasicTab::readAll(const HandTarget& target)
{
    HandCall call(target, m_reporter->namingTimeouts());
    bool protocolRead = false;
    bool hardwareRead = false;
    const std::array<std::function<void()>, 6> reads{
        [&] { readFirmwareVersion(call); },
        [&] { protocolRead = readProtocolVersion(call); },
        [&] { hardwareRead = readHardwareVersion(call); },
        [&] { readSelfTestLevel(call); },
        [&] { readBeepSwitch(call); },
        [&] { readCalibration(call); },
    };
    for (const auto& read : reads) {
        read();
        if (!target.isCurrent())
            return;
    }
    setWidgetsEnabled(protocolRead);
    m_ui->pushButton_BasicUpdateFirmware->setEnabled(hardwareRead);
    m_reporter->showMessage(tr("Basic info loaded"));
}

void BasicTab::readFirmwareVersion(HandCall& call)
{
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
    std::uint16_t revision = 0;
    if (call.perform<&VantoProtocol::getFirmwareVersion>(&major, &minor, &revision))
        m_ui->lineEdit_BasicFirmwareVersion->setText(
            QStringLiteral("V%1.%2.%3").arg(major).arg(minor).arg(revision));
}

bool BasicTab::readProtocolVersion(HandCall& call)
{
    std::uint8_t major = 0;
    std::uint8_t minor = 0;
    if (!call.perform<&VantoProtocol::getProtocolVersion>(&major, &minor))
        return false;
    m_ui->lineEdit_BasicProtocolVersion->setText(QStringLiteral("V%1.%2").arg(major).arg(minor));
    return true;
}

bool BasicTab::readHardwareVersion(HandCall& call)
{
    std::uint8_t type = 0;
    std::uint8_t version = 0;
    std::uint16_t bootLoader = 0;
    if (!call.perform<&VantoProtocol::getHardwareVersion>(&type, &version, &bootLoader))
        return false;
    m_ui->lineEdit_BasicHardwareTypeVersion->setText(
        (StatusReporter::hex(type) + StatusReporter::hex(version)).toUpper());
    m_ui->lineEdit_BasicBootLoaderVersion->setText(
        QStringLiteral("V%1.%2").arg(bootLoader >> 8).arg(bootLoader & 0xFF));
    return true;
}

void BasicTab::readSelfTestLevel(HandCall& call)
{
    std::uint8_t level = 0;
    if (!call.perform<&VantoProtocol::getSelfTestLevel>(&level))
        return;
    if (level > MaxSelfTestLevel)
        m_reporter->showError(
            tr("getSelfTestLevel(0x%1, ...) got invalid value '%2'")
                .arg(StatusReporter::hex(call.target().node), StatusReporter::hex(level)));
    else
        m_ui->comboBox_BasicSelfTestLevel->setCurrentIndex(level);
}

void BasicTab::readBeepSwitch(HandCall& call)
{
    std::uint8_t on = 0;
    if (!call.perform<&VantoProtocol::getBeepSwitch>(&on))
        return;
    if (on > MaxBeepSwitch) // both places of the text name the node
        m_reporter->showError(tr("getBeepSwitch(0x%1, ...) got invalid value '%1'")
                                  .arg(StatusReporter::hex(call.target().node)));
    else
        m_ui->comboBox_BasicBeepSwitch->setCurrentIndex(on);
}

void BasicTab::readCalibration(HandCall& call)
{
    PerFinger<std::uint16_t> ends{};
    PerFinger<std::uint16_t> starts{};
    std::array<std::uint16_t, ThumbRootCount> thumbRoots{};
    if (!call.perform<&VantoProtocol::getCaliData>(ends.data(), starts.data(),
                                                   std::uint8_t{FingerCount}, thumbRoots.data(),
                                                   std::uint8_t{ThumbRootCount}))
        return;
    const auto show = [](const auto& fields, const auto& values) {
        for (std::size_t i = 0; i < fields.size(); ++i)
            fields[i]->setText(QString::number(values[i]));
    };
    show(m_starts, starts);
    show(m_ends, ends);
    show(m_thumbRoots, thumbRoots);
}

void BasicTab::clearFields()
{
    for (QLineEdit* field : m_ui->tab_Basic->findChildren<QLineEdit*>())
        field->clear();
}

void BasicTab::clear()
{
    clearFields();
    // So that nothing of another hand stays when the new one's cannot be read.
    m_ui->comboBox_BasicSelfTestLevel->setCurrentIndex(NothingSelected);
    m_ui->comboBox_BasicBeepSwitch->setCurrentIndex(NothingSelected);
}

void BasicTab::setWidgetsEnabled(bool enabled)
{
    m_enabled = enabled;
    const std::initializer_list<QWidget*> controls{
        m_ui->comboBox_BasicSelfTestLevel, m_ui->pushButton_BasicSetSelfTestLevel,
        m_ui->comboBox_BasicBeepSwitch,    m_ui->pushButton_BasicSetBeepSwitch,
        m_ui->pushButton_BasicSetID,       m_ui->pushButton_BasicBeep,
        m_ui->pushButton_BasicReset,       m_ui->pushButton_BasicUpdateFirmware,
        m_ui->pushButton_BasicRecalibrate};
    for (QWidget* control : controls)
        control->setEnabled(enabled);
    updateDependentWidgets();
}

void BasicTab::updateDependentWidgets()
{
    m_ui->pushButton_BasicStartInit->setEnabled(
        m_enabled && m_ui->comboBox_BasicSelfTestLevel->currentIndex() == WaitForCommandLevel);
    // Also when the device could not be read: it is the way to try again.
    m_ui->pushButton_BasicReloadBasic->setEnabled(!m_reloading &&
                                                  m_ui->comboBox_Devices->currentIndex() >= 0);
}

void BasicTab::request(QWidget* button, RequestQueue::Request request)
{
    m_session->request([button] { return button->isEnabled(); }, std::move(request));
}

template<auto Operation, class... Arguments>
void BasicTab::perform(QWidget* button, const QString& success, Arguments... arguments)
{
    request(button, [=, this](const HandTarget& target) {
        HandCall call(target, m_reporter->namingTimeouts());
        if (call.perform<Operation>(arguments...))
            m_reporter->showMessage(success);
    });
}

void BasicTab::setIdClicked()
{
    request(m_ui->pushButton_BasicSetID, [this](const HandTarget& target) {
        bool accepted = false;
        const int chosen =
            QInputDialog::getInt(m_window, Program::title(), tr("Please input new node id:"),
                                 target.node, MinNewId, MaxNewId, 1, &accepted);
        const auto newNode = static_cast<std::uint8_t>(chosen);
        if (accepted && newNode != target.node && target.isCurrent())
            changeId(target, newNode);
    });
}

void BasicTab::changeId(const HandTarget& target, std::uint8_t newNode)
{
    HandCall call(target, m_reporter->namingTimeouts());
    if (!call.perform<&VantoProtocol::setID>(newNode))
        return;
    m_session->stopAtOnce(); // nobody answers at the old id any more
    clear();
    m_ui->comboBox_Devices->clear();
    setWidgetsEnabled(false); // they act on the current entry, and there is none
    const QString text =
        target.adapter->protocolType() == PROTOCOL_TYPE_MODBUS_RTU
            ? tr("node id changed from '0x%1' to '0x%2', please wait for device rebooting then "
                 "rescan devices")
            : tr("node id changed from '0x%1' to '0x%2', need to rescan devices");
    m_reporter->showMessage(
        text.arg(StatusReporter::hex(target.node), StatusReporter::hex(newNode)));
}

void BasicTab::beepClicked()
{
    perform<&VantoProtocol::beep>(m_ui->pushButton_BasicBeep, tr("Beep succeeded"), BeepMs);
}

void BasicTab::setSelfTestLevelClicked()
{
    const int level = m_ui->comboBox_BasicSelfTestLevel->currentIndex();
    if (static_cast<unsigned>(level) <= MaxSelfTestLevel)
        perform<&VantoProtocol::setSelfTestLevel>(m_ui->pushButton_BasicSetSelfTestLevel,
                                                  tr("Set self-test level succeeded"),
                                                  static_cast<std::uint8_t>(level));
    else
        refuse(m_ui->pushButton_BasicSetSelfTestLevel,
               tr("Invalid self-test level '%1'").arg(level));
}

void BasicTab::setBeepSwitchClicked()
{
    const int on = m_ui->comboBox_BasicBeepSwitch->currentIndex();
    if (static_cast<unsigned>(on) <= MaxBeepSwitch)
        perform<&VantoProtocol::setBeepSwitch>(m_ui->pushButton_BasicSetBeepSwitch,
                                               tr("Set beep switch succeeded"),
                                               static_cast<std::uint8_t>(on));
    else
        refuse(m_ui->pushButton_BasicSetBeepSwitch, tr("Invalid beep switch level '%d'"));
}

/// Says in the button's turn why nothing is sent.
void BasicTab::refuse(QWidget* button, const QString& reason)
{
    request(button, [=, this](const HandTarget&) {
        QMessageBox::information(m_window, Program::title(), reason);
    });
}

void BasicTab::startInitClicked()
{
    perform<&VantoProtocol::startInit>(m_ui->pushButton_BasicStartInit, tr("Start init succeeded"));
}

void BasicTab::resetClicked()
{
    perform<&VantoProtocol::reset>(m_ui->pushButton_BasicReset, tr("Reset succeeded"), ResetMode);
}
