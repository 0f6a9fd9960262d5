#include "basicpage.h"

#include "basicoperations.h"
#include "devicebar.h"
#include "fingerwidgets.h"
#include "focuskeeper.h"
#include "program.h"
#include "statusreporter.h"
#include "ui_basicpage.h"

#include <QInputDialog>
#include <QMessageBox>
#include <QScopeGuard>

namespace vanto
{

namespace
{
constexpr int MinNewId = 2;
constexpr int MaxNewId = 256;          ///< truncated to its low byte, so 256 means 0
constexpr int WaitForCommandLevel = 0; ///< the self-test level at which the hand waits for Init
constexpr int NothingSelected = -1;
} // namespace

BasicPage::BasicPage(QWidget* parent) : DevicePage(parent), ui(std::make_unique<Ui::BasicPage>())
{
    ui->setupUi(this);
    m_starts = fingerWidgets<QLineEdit>(this, "lineEdit_BasicCaliStart");
    m_ends = fingerWidgets<QLineEdit>(this, "lineEdit_BasicCaliEnd");
    m_thumbRoots = {ui->lineEdit_BasicThumbRootPos0, ui->lineEdit_BasicThumbRootPos1,
                    ui->lineEdit_BasicThumbRootPos2};
    // The index of an item is its value on the device.
    ui->comboBox_BasicSelfTestLevel->addItems(
        {tr("Wait for command"), tr("Stretch only"), tr("Full self-test")});
    ui->comboBox_BasicBeepSwitch->addItems({tr("Basic Only"), tr("All")});
}

BasicPage::~BasicPage() = default;

void BasicPage::setUp(DeviceSession* session, StatusReporter* reporter, DeviceBar* deviceBar)
{
    DevicePage::setUp(session, reporter);
    m_deviceBar = deviceBar;
    connect(ui->comboBox_BasicSelfTestLevel, &QComboBox::currentIndexChanged, this,
            &BasicPage::updateDependentWidgets);
    connect(deviceBar, &DeviceBar::sig_currentDeviceChanged, this,
            &BasicPage::updateDependentWidgets);
}

void BasicPage::on_pushButton_BasicReloadBasic_clicked()
{
    session()->runWhenIdle(DeviceSession::Kind::ReloadBasic, [this] {
        m_deviceBar->reconnectNow();
        if (session()->isPortClosed() && session()->reopenPort())
            m_deviceBar->openCurrentDevice();
        else
            reloadBasicInfo();
    });
}

void BasicPage::reloadBasicInfo()
{
    FocusKeeper focus(window());
    m_reloading = true;
    const auto finish = qScopeGuard([this] {
        m_reloading = false;
        updateDependentWidgets();
    });
    enableWidgetsForBasicTab(false);
    focus.recordFocusMove();
    clearFields();
    if (!m_deviceBar->hasCurrentDevice())
        return;
    if (!session()->isConnected()) {
        QMessageBox::critical(window(), Program::title(), tr("Unknown protocol"));
        return;
    }
    if (const auto target = session()->target())
        readAll(*target);
    else if (const auto lost = session()->lostHand())
        readAll(*lost); // shows that it does not answer
}

void BasicPage::readAll(const HandTarget& target)
{
    HandCall call(target, reporter()->timeoutReport());
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
        if (!call.isCurrent())
            return;
    }
    enableWidgetsForBasicTab(protocolRead);
    ui->pushButton_BasicUpdateFirmware->setEnabled(hardwareRead);
    reporter()->showMessage(tr("Basic info loaded"));
}

void BasicPage::readFirmwareVersion(HandCall& call)
{
    HandIdentity::Firmware firmware;
    if (!call.perform<&VantoProtocol::getFirmwareVersion>(&firmware.major, &firmware.minor,
                                                          &firmware.revision))
        return;
    ui->lineEdit_BasicFirmwareVersion->setText(
        QStringLiteral("V%1.%2.%3").arg(firmware.major).arg(firmware.minor).arg(firmware.revision));
    session()->identity().firmware = firmware;
}

bool BasicPage::readProtocolVersion(HandCall& call)
{
    HandIdentity::Protocol protocol;
    if (!call.perform<&VantoProtocol::getProtocolVersion>(&protocol.major, &protocol.minor))
        return false;
    ui->lineEdit_BasicProtocolVersion->setText(
        QStringLiteral("V%1.%2").arg(protocol.major).arg(protocol.minor));
    session()->identity().protocol = protocol;
    return true;
}

bool BasicPage::readHardwareVersion(HandCall& call)
{
    HandIdentity::Hardware hardware;
    if (!call.perform<&VantoProtocol::getHardwareVersion>(&hardware.type, &hardware.version,
                                                          &hardware.bootLoader))
        return false;
    ui->lineEdit_BasicHardwareTypeVersion->setText(
        (StatusReporter::hex(hardware.type) + StatusReporter::hex(hardware.version)).toUpper());
    ui->lineEdit_BasicBootLoaderVersion->setText(
        QStringLiteral("V%1.%2").arg(hardware.bootLoader >> 8).arg(hardware.bootLoader & 0xFF));
    session()->identity().hardware = hardware;
    return true;
}

void BasicPage::readSelfTestLevel(HandCall& call)
{
    std::uint8_t level = 0;
    if (!call.perform<&VantoProtocol::getSelfTestLevel>(&level))
        return;
    if (level > MaxSelfTestLevel)
        reporter()->showError(
            tr("getSelfTestLevel(0x%1, ...) got invalid value '%2'")
                .arg(StatusReporter::hex(call.target().node), StatusReporter::hex(level)));
    else
        ui->comboBox_BasicSelfTestLevel->setCurrentIndex(level);
}

void BasicPage::readBeepSwitch(HandCall& call)
{
    std::uint8_t on = 0;
    if (!call.perform<&VantoProtocol::getBeepSwitch>(&on))
        return;
    if (on > MaxBeepSwitch) // both placeholders are the node
        reporter()->showError(tr("getBeepSwitch(0x%1, ...) got invalid value '%1'")
                                  .arg(StatusReporter::hex(call.target().node)));
    else
        ui->comboBox_BasicBeepSwitch->setCurrentIndex(on);
}

void BasicPage::readCalibration(HandCall& call)
{
    HandIdentity::Calibration calibration;
    if (!call.perform<&VantoProtocol::getCaliData>(
            calibration.ends.data(), calibration.starts.data(), std::uint8_t{FingerCount},
            calibration.thumbRoots.data(), std::uint8_t{ThumbRootCount}))
        return;
    session()->identity().calibration = calibration;
    const auto show = [](const auto& fields, const auto& values) {
        for (std::size_t i = 0; i < fields.size(); ++i)
            fields[i]->setText(QString::number(values[i]));
    };
    show(m_starts, calibration.starts);
    show(m_ends, calibration.ends);
    show(m_thumbRoots, calibration.thumbRoots);
}

void BasicPage::clearFields()
{
    for (QLineEdit* field : findChildren<QLineEdit*>())
        field->clear();
}

void BasicPage::clearBasicInfo()
{
    clearFields();
    // No value of another hand may remain if those of the new one cannot be read.
    ui->comboBox_BasicSelfTestLevel->setCurrentIndex(NothingSelected);
    ui->comboBox_BasicBeepSwitch->setCurrentIndex(NothingSelected);
}

void BasicPage::enableWidgetsForBasicTab(bool enable)
{
    m_enabled = enable;
    const std::initializer_list<QWidget*> controls{
        ui->comboBox_BasicSelfTestLevel, ui->pushButton_BasicSetSelfTestLevel,
        ui->comboBox_BasicBeepSwitch,    ui->pushButton_BasicSetBeepSwitch,
        ui->pushButton_BasicSetID,       ui->pushButton_BasicBeep,
        ui->pushButton_BasicReset,       ui->pushButton_BasicUpdateFirmware,
        ui->pushButton_BasicRecalibrate};
    for (QWidget* control : controls)
        control->setEnabled(enable);
    updateDependentWidgets();
}

void BasicPage::updateDependentWidgets()
{
    ui->pushButton_BasicStartInit->setEnabled(
        m_enabled && ui->comboBox_BasicSelfTestLevel->currentIndex() == WaitForCommandLevel);
    // Also if the device could not be read, so that the user can try again.
    ui->pushButton_BasicReloadBasic->setEnabled(!m_reloading && m_deviceBar->hasCurrentDevice());
}

template<auto Operation, class... Arguments>
void BasicPage::perform(QWidget* button, const QString& success, Arguments... arguments)
{
    request(button, [=, this](const HandTarget& target) {
        HandCall call(target, reporter()->timeoutReport());
        if (call.perform<Operation>(arguments...))
            reporter()->showMessage(success);
    });
}

void BasicPage::on_pushButton_BasicSetID_clicked()
{
    request(ui->pushButton_BasicSetID, [this](const HandTarget& target) {
        bool accepted = false;
        const int chosen =
            QInputDialog::getInt(window(), Program::title(), tr("Please input new node id:"),
                                 target.node, MinNewId, MaxNewId, 1, &accepted);
        const auto newNode = static_cast<std::uint8_t>(chosen);
        if (accepted && newNode != target.node && target.isCurrent())
            changeId(target, newNode);
    });
}

void BasicPage::changeId(const HandTarget& target, std::uint8_t newNode)
{
    HandCall call(target, reporter()->timeoutReport());
    if (!call.perform<&VantoProtocol::setID>(newNode))
        return;
    session()->stopAtOnce(); // the old id no longer answers
    session()->setNode(newNode);
    m_deviceBar->clearDevices();
    m_deviceBar->clearPages(); // they need a current entry
    m_deviceBar->setSuggestedNode({newNode, newNode, target.adapter->protocolType()});
    const QString text =
        target.adapter->protocolType() == PROTOCOL_TYPE_MODBUS_RTU
            ? tr("node id changed from '0x%1' to '0x%2', please wait for device rebooting then "
                 "rescan devices")
            : tr("node id changed from '0x%1' to '0x%2', need to rescan devices");
    reporter()->showMessage(
        text.arg(StatusReporter::hex(target.node), StatusReporter::hex(newNode)));
}

void BasicPage::on_pushButton_BasicBeep_clicked()
{
    perform<&VantoProtocol::beep>(ui->pushButton_BasicBeep, tr("Beep succeeded"), BeepMs);
}

void BasicPage::on_pushButton_BasicSetSelfTestLevel_clicked()
{
    const int level = ui->comboBox_BasicSelfTestLevel->currentIndex();
    if (static_cast<unsigned>(level) <= MaxSelfTestLevel)
        perform<&VantoProtocol::setSelfTestLevel>(ui->pushButton_BasicSetSelfTestLevel,
                                                  tr("Set self-test level succeeded"),
                                                  static_cast<std::uint8_t>(level));
    else
        showRefusal(ui->pushButton_BasicSetSelfTestLevel,
                    tr("Invalid self-test level '%1'").arg(level));
}

void BasicPage::on_pushButton_BasicSetBeepSwitch_clicked()
{
    const int on = ui->comboBox_BasicBeepSwitch->currentIndex();
    if (static_cast<unsigned>(on) <= MaxBeepSwitch)
        perform<&VantoProtocol::setBeepSwitch>(ui->pushButton_BasicSetBeepSwitch,
                                               tr("Set beep switch succeeded"),
                                               static_cast<std::uint8_t>(on));
    else
        showRefusal(ui->pushButton_BasicSetBeepSwitch, tr("Invalid beep switch level '%d'"));
}

/// Shows why nothing is sent, when the request of the button runs.
void BasicPage::showRefusal(QWidget* button, const QString& reason)
{
    request(button, [=, this](const HandTarget&) {
        QMessageBox::information(window(), Program::title(), reason);
    });
}

void BasicPage::on_pushButton_BasicStartInit_clicked()
{
    perform<&VantoProtocol::startInit>(ui->pushButton_BasicStartInit, tr("Start init succeeded"));
}

void BasicPage::on_pushButton_BasicReset_clicked()
{
    perform<&VantoProtocol::reset>(ui->pushButton_BasicReset, tr("Reset succeeded"), ResetMode);
}

QString BasicPage::hardware() const
{
    return ui->lineEdit_BasicHardwareTypeVersion->text();
}

bool BasicPage::isRead() const
{
    return !ui->lineEdit_BasicProtocolVersion->text().isEmpty();
}

void BasicPage::requestRecalibration(RequestQueue::Request action)
{
    // Timers of the other pages exchange data with the hand, even while a dialog is open.
    session()->request(
        [button = ui->pushButton_BasicRecalibrate] {
            return button->isEnabled() && button->isVisible();
        },
        std::move(action));
}

} // namespace vanto
