#pragma once

#include "devicesession.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QList>
#include <QStringList>

#include <functional>

class QAction;
class QWidget;

namespace vanto
{

class DeviceBar;
class FirmwareDownload;
class ParameterBackups;
class StatusReporter;
class UpdateDialog;

/// Guides the user through a firmware update: selection of the file, power cycle of the hand,
/// transfer, result.
class FirmwareUpdater
{
    Q_DECLARE_TR_FUNCTIONS(FirmwareUpdater)
public:
    /// `hardware` returns the type and version of the hand if they are known; `progress` is called
    /// with the percentages of the transfer.
    FirmwareUpdater(QWidget* window, DeviceSession* session, StatusReporter* reporter,
                    DeviceBar* deviceBar, ParameterBackups* backups,
                    std::function<QString()> hardware, std::function<void(int)> progress);
    /// Sets the actions that are disabled during a download.
    void disableDuringDownload(const QList<QAction*>& actions) { m_disabledActions = actions; }

    void requestUpdate();
    void showProgress(int percent);
    /// Whether the window may close. During a transfer, shows a message and returns false.
    bool canClose();

private:
    void update();
    // Each of these returns an empty string if the user has cancelled, if it has reported a
    // failure, or if another request has superseded the update.
    QString chooseFile();
    QString chooseHardware();
    QString download(const QString& hardware);
    template<class Work>
    auto waitFor(FirmwareDownload& server, const QString& text, Work work) const;
    QString choose(const QString& prompt, const QStringList& items);

    void writeAndReport(const QString& path);
    QString write(const QString& path);
    void showLog(const QString& text);

    bool isCurrent() const { return m_token.isCurrent(); }
    void showInformation(const QString& text);
    void showFailure(const QString& text);

    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    DeviceBar* m_deviceBar;
    ParameterBackups* m_backups;
    std::function<QString()> m_hardware;
    QList<QAction*> m_disabledActions;
    std::function<void(int)> m_progress;
    QStringList m_sources;
    QStringList m_knownHardware;
    UpdateDialog* m_dialog = nullptr;
    Generation::Token m_token;
    bool m_running = false;
    bool m_transferring = false;
    QString m_logText; ///< last text of the log
    QElapsedTimer m_eventTimer;
};

} // namespace vanto
