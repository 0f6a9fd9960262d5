#pragma once

#include "handtaskrunner.h"
#include "parameterreader.h"

#include <memory>
#include <optional>

class QProgressBar;

namespace vanto
{

class DeviceBar;
class NoticeBar;
class StatusReporter;

/// Saves the parameters of a hand before they may be lost, and offers to compare them with the hand
/// after a firmware update. It only reads from the hand.
class ParameterBackups : public QObject
{
    Q_OBJECT
public:
    /// `isRead`: whether the last reload of the Basic page has read the hand.
    ParameterBackups(DeviceSession* session, StatusReporter* reporter, DeviceBar* deviceBar,
                     NoticeBar* notice, std::function<bool()> isRead);
    ~ParameterBackups() override;

    /// Reads the parameters and saves them in the user's data folder. Reports a failure, which ends
    /// nothing. Must not be called in a conversation.
    void save(const HandTarget& target) { backUp(target); }
    /// The same for the open hand, if it can be read.
    void saveBeforeUpdate();
    /// The firmware of the hand that was open may be another one now.
    void noteUpdate() { m_compares = m_backup.has_value(); }

signals:
    void sig_compareRequested(const QString& path);

private:
    struct Backup {
        ParameterSet parameters;
        QString path;
    };

    /// None if it has failed, which is reported.
    std::optional<Backup> backUp(const HandTarget& target);
    void startComparison();
    void startReading(std::shared_ptr<ParameterReader> reader);
    void continueComparison();
    std::shared_ptr<ParameterReader> readerFor(const HandTarget& target,
                                               const QList<ParameterKey>& keys) const;

    DeviceSession* m_session;
    StatusReporter* m_reporter;
    DeviceBar* m_deviceBar;
    NoticeBar* m_notice;
    std::function<bool()> m_isRead;
    QProgressBar* m_progress;
    std::optional<Backup> m_backup; ///< before the last update
    bool m_compares = false;        ///< when the hand of that backup is opened
    bool m_isFound = false;         ///< the open hand is that of the backup
    std::shared_ptr<ParameterReader> m_reader;
    std::unique_ptr<HandTaskRunner> m_runner; ///< of the comparison in progress
};

} // namespace vanto
