#pragma once

#include "versionfile.h"

#include <QEventLoop>
#include <QNetworkAccessManager>

#include <chrono>
#include <optional>

class QUrl;

namespace vanto
{

/// Gets update files for one kind of hardware from the firmware server, over HTTP or HTTPS:
///
///   /firmwares/HARDWARE/latest_version.json   the version file
///   /firmwares/HARDWARE/FILE                  the update file
///
/// What can go wrong: any status but 200, redirects too; silence; a connection that is cut; a body
/// that is empty, endless or no JSON; members that are missing or no texts; names that would lead
/// out of the folder for downloads.
///
/// The calls wait for the server while events are processed. Their results have a failure, in
/// words for the person, or what was asked for.
class FirmwareDownload : public QObject
{
    Q_OBJECT
public:
    /// How long the server may send nothing.
    static constexpr std::chrono::seconds MaxSilence{30};

    struct Offer {
        QMap<QString, FirmwareRelease> releases; ///< by type of firmware
        QString failure;
    };
    struct SavedFile {
        QString path; ///< below the working directory
        QString failure;
    };

    explicit FirmwareDownload(QString hardware, std::chrono::milliseconds maxSilence = MaxSilence);

    Offer latestReleases();
    SavedFile save(const FirmwareRelease& release);

    /// Ends the call that waits; its result is of no use then.
    void abandon();

private:
    QUrl addressOf(const QString& file) const;
    std::optional<QByteArray> get(const QUrl& address);

    QString m_hardware;
    std::chrono::milliseconds m_maxSilence;
    QNetworkAccessManager m_network;
    QEventLoop m_wait;
};

} // namespace vanto
