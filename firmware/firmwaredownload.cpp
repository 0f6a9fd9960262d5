#include "firmwaredownload.h"

#include "wholefile.h"

#include <QDebug>
#include <QDir>
#include <QNetworkReply>
#include <QSaveFile>
#include <QTimer>
#include <QUrl>

#include <memory>

namespace vanto
{

namespace
{
constexpr int StatusOk = 200;
constexpr qint64 MaxUpdateFileSize = 64LL * 1024 * 1024; ///< bytes; larger ones are not read
constexpr const char* ServerVariable = "VANTO_FIRMWARE_SERVER";

QString serverAddress()
{
    QString address = qEnvironmentVariable(ServerVariable);
    if (address.isEmpty())
        address = QStringLiteral(VANTO_FIRMWARE_SERVER);
    while (address.endsWith(QLatin1Char('/')))
        address.chop(1);
    return address;
}

/// Whether the path, or a folder on it, is a symbolic link. A download must not end up
/// in another folder.
bool leadsElsewhere(const QString& path)
{
    for (qsizetype end = 0; end >= 0; end = path.indexOf(QLatin1Char('/'), end + 1)) {
        if (end > 0 && QFileInfo(path.first(end)).isSymLink())
            return true;
    }
    return QFileInfo(path).isSymLink();
}

/// `path` is relative to the working directory.
bool writeFile(const QString& path, const QByteArray& content)
{
    if (leadsElsewhere(path)) {
        qDebug() << "Open file" << path << "for write failed, err: symbolic link";
        return false;
    }
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && writeWhole(file, content))
        return true;
    qDebug() << "Open file" << path << "for write failed, err:" << file.errorString();
    return false;
}
} // namespace

FirmwareDownload::FirmwareDownload(QString hardware)
    : FirmwareDownload(std::move(hardware), Limits())
{
}

FirmwareDownload::FirmwareDownload(QString hardware, Limits limits)
    : m_hardware(std::move(hardware)), m_limits(limits)
{
}

FirmwareDownload::Offer FirmwareDownload::latestReleases()
{
    Offer offer;
    if (!isPlainFileName(m_hardware)) {
        offer.failure = tr("Error when saving firmware file.");
        return offer;
    }
    const auto body = get(fileUrl(QStringLiteral("latest_version.json")), MaxVersionFileSize);
    if (!body) {
        offer.failure = tr("Error when reading version file from server.");
        return offer;
    }
    offer.releases = readVersionFile(*body);
    // An answer that is not an object, or offers no release, counts as none.
    if (offer.releases.isEmpty())
        offer.failure = tr("Error when parsing version file.");
    return offer;
}

FirmwareDownload::SavedFile FirmwareDownload::save(const FirmwareRelease& release)
{
    qDebug() << "Select version:" << release.version << ", filename:" << release.file
             << ", desc:" << release.description;
    if (!isPlainFileName(m_hardware) || !isPlainFileName(release.file))
        return {{}, tr("Error when saving firmware file.")};
    const auto body = get(fileUrl(release.file), MaxUpdateFileSize);
    if (!body || body->isEmpty())
        return {{}, tr("Error when reading firmware file from server.")};
    const QString path = QStringLiteral("downloaded/%1/%2").arg(m_hardware, release.file);
    if (!writeFile(path, *body))
        return {{}, tr("Error when saving firmware file.")};
    return {path, {}};
}

void FirmwareDownload::abandon()
{
    m_abandoned = true;
    m_wait.quit();
}

QUrl FirmwareDownload::fileUrl(const QString& file) const
{
    const auto encoded = [](const QString& part) {
        return QString::fromLatin1(QUrl::toPercentEncoding(part));
    };
    return QUrl::fromUserInput(serverAddress() + QStringLiteral("/firmwares/") +
                               encoded(m_hardware) + QLatin1Char('/') + encoded(file));
}

std::optional<QByteArray> FirmwareDownload::get(const QUrl& address, qint64 maxSize)
{
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    // Restarts with every byte received.
    request.setTransferTimeout(static_cast<int>(m_limits.silence.count()));
    bool isTooLong = false;
    const std::unique_ptr<QNetworkReply> reply(m_network.get(request));
    connect(reply.get(), &QNetworkReply::finished, &m_wait, &QEventLoop::quit);
    connect(reply.get(), &QNetworkReply::downloadProgress, reply.get(),
            [this, reply = reply.get(), maxSize, &isTooLong](qint64 received, qint64 total) {
                isTooLong = isTooLong || received > maxSize; // stays so after the abort
                if (isTooLong)
                    reply->abort();
                else
                    emit sig_progress(received, total);
            });
    QTimer::singleShot(m_limits.file, reply.get(), &QNetworkReply::abort);
    m_wait.exec();

    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    m_connectionFailed =
        !isTooLong &&
        (status == 0 || (status == StatusOk && reply->error() != QNetworkReply::NoError));
    if (status != StatusOk)
        qDebug() << "status code=" << status;
    else if (reply->error() != QNetworkReply::NoError)
        qDebug() << reply->errorString();
    if (status != StatusOk || reply->error() != QNetworkReply::NoError || !reply->isFinished())
        return std::nullopt;
    // Progress is reported only now and then, so a fast server may have sent too much.
    if (reply->bytesAvailable() > maxSize)
        return std::nullopt;
    return reply->readAll();
}

} // namespace vanto
