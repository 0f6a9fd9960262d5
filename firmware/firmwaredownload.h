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
/// Possible errors: any status other than 200, including redirects; a server that is silent or too
/// slow; a broken connection; a body that is empty, too long or not JSON; members that are missing
/// or not strings; file names that lead out of the download folder; symbolic links in it.
///
/// The functions process events while they wait for the server. Their results hold either a
/// failure, as text for the user, or the requested data.
class FirmwareDownload : public QObject
{
    Q_OBJECT
public:
    struct Limits {
        std::chrono::milliseconds silence = std::chrono::seconds(30);
        std::chrono::milliseconds file = std::chrono::minutes(10); ///< for a whole file
    };

    struct Offer {
        QMap<QString, FirmwareRelease> releases; ///< by type of firmware
        QString failure;
    };
    struct SavedFile {
        QString path; ///< below the working directory
        QString failure;
    };

    explicit FirmwareDownload(QString hardware);
    FirmwareDownload(QString hardware, Limits limits);

    Offer latestReleases();
    SavedFile save(const FirmwareRelease& release);

    /// Ends the waiting call; its result must not be used.
    void abandon();
    bool isAbandoned() const { return m_abandoned; }
    /// Whether the last failure is one of the connection, not of what the server has sent.
    bool hasConnectionFailed() const { return m_connectionFailed; }

signals:
    /// `total` is negative if the server has not sent the size.
    void sig_progress(qint64 received, qint64 total);

private:
    QUrl fileUrl(const QString& file) const;
    std::optional<QByteArray> get(const QUrl& address, qint64 maxSize);

    QString m_hardware;
    Limits m_limits;
    QNetworkAccessManager m_network;
    QEventLoop m_wait;
    bool m_abandoned = false;
    bool m_connectionFailed = false;
};

} // namespace vanto
