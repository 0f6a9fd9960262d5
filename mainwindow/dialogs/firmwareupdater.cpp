#include "firmwareupdater.h"

#include "devicebar.h"
#include "firmwaredownload.h"
#include "program.h"
#include "statusreporter.h"
#include "updatedialog.h"
#include "updatefirmware.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QScopeGuard>
#include <QScopedValueRollback>

namespace vanto
{

namespace
{
constexpr QLatin1String LocalSource("local");
constexpr QLatin1String RemoteSource("remote");
constexpr qint64 MaxHeaderLength = 1024; ///< bytes
constexpr int EventsEveryMs = 10;        ///< while a file is read

void showBox(QWidget* parent, QMessageBox::Icon icon, const QString& text)
{
    QMessageBox box(icon, Program::title(), text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText); // names of files are shown, whatever they look like
    box.exec();
}
} // namespace

FirmwareUpdater::FirmwareUpdater(QWidget* window, DeviceSession* session, StatusReporter* reporter,
                                 DeviceBar* deviceBar, std::function<QString()> hardware,
                                 std::function<void(int)> progress)
    : m_window(window),
      m_session(session),
      m_reporter(reporter),
      m_deviceBar(deviceBar),
      m_hardware(std::move(hardware)),
      m_progress(std::move(progress)),
      m_sources{LocalSource, RemoteSource},
      m_knownHardware{QStringLiteral("1B01")}
{
}

void FirmwareUpdater::updateClicked()
{
    if (m_running)
        return;
    m_session->stopMotion();
    m_session->runWhenIdle(DeviceSession::Kind::Update, [this] { update(); });
}

void FirmwareUpdater::update()
{
    const QScopedValueRollback running(m_running, true);
    if (!m_deviceBar->hasPort()) {
        tellFailure(tr("Serial port not available"));
        return;
    }
    m_token = m_session->token();
    const QString path = chooseFile();
    if (path.isEmpty())
        return;

    const bool wasOpen = m_session->connected();
    m_session->closeIfConnected();
    m_token = m_session->token();
    const QString failure = headerFailure(path);
    if (!failure.isEmpty()) {
        tellFailure(failure);
        if (wasOpen && wanted())
            m_deviceBar->openCurrentDevice();
        return;
    }
    tell(tr("Power off the device and remove app other devices from bus, press OK when ready.\n"
            "Power on the device when prompted."));
    if (wanted())
        writeAndTell(path);
}

QString FirmwareUpdater::chooseFile()
{
    const QString source = choose(tr("Please select firmware source:"), m_sources);
    if (source.isEmpty())
        return {};
    if (source == LocalSource) {
        const QString path = QFileDialog::getOpenFileName(m_window, tr("Open update file"), {},
                                                          tr("Upgrade firmware file (*.upd)"));
        return wanted() ? path : QString();
    }
    const QString hardware = chooseHardware();
    return hardware.isEmpty() ? QString() : download(hardware);
}

QString FirmwareUpdater::chooseHardware()
{
    const QString read = m_hardware();
    if (!read.isEmpty())
        return read;
    const auto answer =
        QMessageBox::question(m_window, Program::title(), tr("Hardware & type not read, proceed?"));
    if (answer != QMessageBox::Yes || !wanted())
        return {};
    return choose(tr("Please select hardware type/version:"), m_knownHardware);
}

/// Shows that the program works but still listens, and keeps a second update from starting.
template<class Work>
auto FirmwareUpdater::waitFor(Work work) const
{
    const ControlLock lock = m_deviceBar->lockWindow(DeviceBar::Usable::TopRow, m_disabled);
    QApplication::setOverrideCursor(Qt::BusyCursor);
    const auto restore = qScopeGuard(&QApplication::restoreOverrideCursor);
    return work();
}

QString FirmwareUpdater::download(const QString& hardware)
{
    FirmwareDownload server(hardware);
    QObject::connect(m_session, &DeviceSession::sig_stop, &server, &FirmwareDownload::abandon);
    const auto offer = waitFor([&] { return server.latestReleases(); });
    if (!wanted())
        return {};
    if (!offer.failure.isEmpty()) {
        tellFailure(offer.failure);
        return {};
    }
    const QString type = choose(tr("Please select firmware type:"), offer.releases.keys());
    if (type.isEmpty())
        return {};
    const auto saved = waitFor([&] { return server.save(offer.releases.value(type)); });
    if (!wanted())
        return {};
    if (!saved.failure.isEmpty())
        tellFailure(saved.failure);
    return saved.path;
}

QString FirmwareUpdater::choose(const QString& prompt, const QStringList& items)
{
    bool accepted = false;
    const QString item = QInputDialog::getItem(m_window, Program::title(), prompt, items, 0,
                                               /*editable=*/false, &accepted);
    return accepted && wanted() ? item : QString();
}

QString FirmwareUpdater::headerFailure(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
        return tr("Open file '%1' failed.").arg(path);
    return parseUpdateHeader(file.readLine(MaxHeaderLength)) ? QString()
                                                             : tr("Invalid update file");
}

void FirmwareUpdater::writeAndTell(const QString& path)
{
    const QString failure = write(path);
    if (failure.isEmpty()) {
        tell(tr("Firmware updated successfully"));
    } else {
        tellFailure(failure);
        m_session->closeIfConnected();
    }
    m_deviceBar->forgetDevices();
}

QString FirmwareUpdater::write(const QString& path)
{
    const ControlLock lock = m_deviceBar->lockWindow(DeviceBar::Usable::Nothing);
    const QScopedValueRollback transferring(m_transferring, true);
    const LineHold line;
    if (!m_dialog)
        m_dialog = new UpdateDialog(m_window);
    m_dialog->begin();
    m_sinceEvents.start();
    const QString failure = updateFirmware(
        m_deviceBar->portName(), static_cast<QSerialPort::BaudRate>(BaudRate), path,
        [this](const QString& text) { showLog(text); }, m_progress);
    m_dialog->end();
    return failure;
}

void FirmwareUpdater::showLog(const QString& text)
{
    // Called a million times for a large file, mostly with the very text of the last time.
    if (!text.isSharedWith(m_logText)) {
        m_logText = text;
        m_reporter->showMessage(text);
    }
    if (!m_sinceEvents.hasExpired(EventsEveryMs))
        return;
    QCoreApplication::processEvents();
    m_sinceEvents.start();
}

void FirmwareUpdater::showProgress(int percent)
{
    if (m_dialog)
        m_dialog->showProgress(percent);
}

bool FirmwareUpdater::canClose()
{
    if (m_transferring)
        m_reporter->showError(tr("Firmware update in progress. Please wait until it finishes."));
    return !m_transferring;
}

void FirmwareUpdater::tell(const QString& text)
{
    showBox(m_window, QMessageBox::Information, text);
}

void FirmwareUpdater::tellFailure(const QString& text)
{
    showBox(m_window, QMessageBox::Critical, text);
}

} // namespace vanto
