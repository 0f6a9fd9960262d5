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
class StatusReporter;
class UpdateDialog;

/// The firmware update as the person goes through it: where the file comes from, switching the
/// hand off and on, the transfer, its outcome.
class FirmwareUpdater
{
    Q_DECLARE_TR_FUNCTIONS(FirmwareUpdater)
public:
    /// `hardware` returns the type and version of the hand if they are known; `progress` is called
    /// with the percentages of the transfer.
    FirmwareUpdater(QWidget* window, DeviceSession* session, StatusReporter* reporter,
                    DeviceBar* deviceBar, std::function<QString()> hardware,
                    std::function<void(int)> progress);
    /// These actions are disabled during a download.
    void disableDuringDownload(const QList<QAction*>& actions) { m_disabled = actions; }

    void updateClicked();
    void showProgress(int percent);
    /// Whether the program may end. During a transfer it may not, and the person is told so.
    bool canClose();

private:
    void update();
    // Each of these is empty when the person has cancelled, when it has failed, which has been
    // told then, or when another wish has overtaken the update.
    QString chooseFile();
    QString chooseHardware();
    QString download(const QString& hardware);
    template<class Work>
    auto waitFor(Work work) const;
    QString choose(const QString& prompt, const QStringList& items);

    /// Why the file is none for an update; empty if it is one.
    static QString headerFailure(const QString& path);
    void writeAndTell(const QString& path);
    QString write(const QString& path);
    void showLog(const QString& text);

    bool wanted() const { return m_token.isCurrent(); }
    void tell(const QString& text);
    void tellFailure(const QString& text);

    QWidget* m_window;
    DeviceSession* m_session;
    StatusReporter* m_reporter;
    DeviceBar* m_deviceBar;
    std::function<QString()> m_hardware;
    QList<QAction*> m_disabled;
    std::function<void(int)> m_progress;
    QStringList m_sources;
    QStringList m_knownHardware;
    UpdateDialog* m_dialog = nullptr;
    Generation::Token m_token;
    bool m_running = false;
    bool m_transferring = false;
    QString m_logText; ///< last text of the log
    QElapsedTimer m_sinceEvents;
};

} // namespace vanto
