#include "firmwareupdater.h"

#include "devicebar.h"
#include "downloaddialog.h"
#include "firmwaredownload.h"
#include "haltcontrol.h"
#include "parameterbackups.h"
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
constexpr int EventIntervalMs = 10; ///< while a file is read

void showMessageBox(QWidget* parent, QMessageBox::Icon icon, const QString& text)
{
    QMessageBox box(icon, Program::title(), text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText); // file names may look like markup
    box.exec();
}
} // namespace

FirmwareUpdater::FirmwareUpdater(QWidget* window, DeviceSession* session, StatusReporter* reporter,
                                 DeviceBar* deviceBar, ParameterBackups* backups,
                                 std::function<QString()> hardware,
                                 std::function<void(int)> progress)
    : m_window(window),
      m_session(session),
      m_reporter(reporter),
      m_deviceBar(deviceBar),
      m_backups(backups),
      m_hardware(std::move(hardware)),
      m_progress(std::move(progress)),
      m_sources{LocalSource, RemoteSource},
      m_knownHardware{QStringLiteral("1B01")}
{
}

void FirmwareUpdater::requestUpdate()
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
        showFailure(tr("Serial port not available"));
        return;
    }
    m_token = m_session->token();
    const QString path = chooseFile();
    if (path.isEmpty())
        return;
    m_backups->saveBeforeUpdate();
    if (!isCurrent())
        return;

    const bool wasOpen = m_session->isConnected();
    m_session->closeIfConnected();
    m_token = m_session->token();
    const QString failure = checkUpdateFile(path);
    if (!failure.isEmpty()) {
        showFailure(failure);
        if (wasOpen && isCurrent())
            m_deviceBar->openCurrentDevice();
        return;
    }
    showInformation(updatePrompt());
    if (isCurrent())
        writeAndReport(path);
}

QString FirmwareUpdater::chooseFile()
{
    const QString source = choose(tr("Please select firmware source:"), m_sources);
    if (source.isEmpty())
        return {};
    if (source == LocalSource) {
        const QString path = QFileDialog::getOpenFileName(m_window, tr("Open update file"), {},
                                                          tr("Upgrade firmware file (*.upd)"));
        return isCurrent() ? path : QString();
    }
    const QString hardware = chooseHardware();
    return hardware.isEmpty() ? QString() : download(hardware);
}

QString FirmwareUpdater::chooseHardware()
{
    QString read = m_hardware();
    if (!read.isEmpty())
        return read;
    const auto answer =
        QMessageBox::question(m_window, Program::title(), tr("Hardware & type not read, proceed?"));
    if (answer != QMessageBox::Yes || !isCurrent())
        return {};
    return choose(tr("Please select hardware type/version:"), m_knownHardware);
}

/// Runs `work` with a busy cursor, and prevents a second update meanwhile. A dialog shows the
/// progress if it takes long. It is not modal, because the port and the scan remain usable.
template<class Work>
auto FirmwareUpdater::waitFor(FirmwareDownload& server, const QString& text, Work work) const
{
    const ControlLock lock = m_deviceBar->lockWindow(DeviceBar::Usable::TopRow, m_disabledActions);
    QApplication::setOverrideCursor(Qt::BusyCursor);
    const auto restore = qScopeGuard(&QApplication::restoreOverrideCursor);
    DownloadDialog dialog(m_window, text);
    QObject::connect(&server, &FirmwareDownload::sig_progress, &dialog,
                     &DownloadDialog::showProgress);
    QObject::connect(&dialog, &QProgressDialog::canceled, &server, &FirmwareDownload::abandon);
    return work();
}

QString FirmwareUpdater::download(const QString& hardware)
{
    FirmwareDownload server(hardware);
    QObject::connect(m_session, &DeviceSession::sig_stop, &server, &FirmwareDownload::abandon);
    const auto offer = waitFor(server, tr("Reading the list of firmware..."),
                               [&] { return server.latestReleases(); });
    if (!isCurrent() || server.isAbandoned())
        return {};
    if (!offer.failure.isEmpty()) {
        showFailure(offer.failure);
        return {};
    }
    const QString type = choose(tr("Please select firmware type:"), offer.releases.keys());
    if (type.isEmpty())
        return {};
    const auto saved = waitFor(server, tr("Downloading the firmware..."),
                               [&] { return server.save(offer.releases.value(type)); });
    if (!isCurrent() || server.isAbandoned())
        return {};
    if (!saved.failure.isEmpty())
        showFailure(saved.failure);
    return saved.path;
}

QString FirmwareUpdater::choose(const QString& prompt, const QStringList& items)
{
    bool accepted = false;
    const QString item = QInputDialog::getItem(m_window, Program::title(), prompt, items, 0,
                                               /*editable=*/false, &accepted);
    return accepted && isCurrent() ? item : QString();
}

void FirmwareUpdater::writeAndReport(const QString& path)
{
    const QString failure = write(path);
    if (failure.isEmpty()) {
        showInformation(updateSucceededText());
    } else {
        showFailure(failure);
        m_session->closeIfConnected();
    }
    m_deviceBar->resetDevices();
}

QString FirmwareUpdater::write(const QString& path)
{
    const ControlLock lock = m_deviceBar->lockWindow(DeviceBar::Usable::Nothing);
    const QScopedValueRollback transferring(m_transferring, true);
    Halt& halt = m_deviceBar->haltControl()->halt();
    halt.setBlocked(true);
    const LineHold line;
    if (!m_dialog)
        m_dialog = new UpdateDialog(m_window);
    m_dialog->begin();
    m_eventTimer.start();
    QString failure = updateFirmware(
        m_deviceBar->portName(), static_cast<QSerialPort::BaudRate>(BaudRate), path,
        [this](const QString& text) { showLog(text); }, m_progress);
    m_dialog->end();
    m_backups->noteUpdate();
    halt.setBlocked(false);
    return failure;
}

void FirmwareUpdater::showLog(const QString& text)
{
    // Called a million times for a large file, mostly with the same text object.
    if (!text.isSharedWith(m_logText)) {
        m_logText = text;
        m_reporter->showMessage(text);
    }
    if (!m_eventTimer.hasExpired(EventIntervalMs))
        return;
    QCoreApplication::processEvents();
    m_eventTimer.start();
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

void FirmwareUpdater::showInformation(const QString& text)
{
    showMessageBox(m_window, QMessageBox::Information, text);
}

void FirmwareUpdater::showFailure(const QString& text)
{
    showMessageBox(m_window, QMessageBox::Critical, text);
}

} // namespace vanto
