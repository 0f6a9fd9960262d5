#pragma once

#include "versionfile.h"

#include <QEventLoop>
#include <QNetworkAccessManager>

#include <chrono>
#include <optional>

class QUrl;

namespace vanto
{

/// Downloads update files for one kind of hardware from the firmware server, by HTTP or HTTPS:
///
///   /firmwares/HARDWARE/latest_version.json   the version file
///   /firmwares/HARDWARE/FILE                  the update file
///
/// Possible errors: any status other than 200, including redirects; a time-out; a broken
/// connection; a body that is empty, too long or not JSON; members that are missing or not strings;
/// file names that lead out of the download folder.
///
/// The functions process events while they wait for the server. Their results hold either a
/// failure, as text for the user, or the requested data.
class FirmwareDownload : public QObject
{
    Q_OBJECT
public:
    /// How long the server may stay silent.
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

    /// Ends the waiting call; its result must not be used.
    void abandon();

private:
    QUrl fileUrl(const QString& file) const;
    std::optional<QByteArray> get(const QUrl& address);

    QString m_hardware;
    std::chrono::milliseconds m_maxSilence;
    QNetworkAccessManager m_network;
    QEventLoop m_wait;
};

} // namespace vanto
