#include "firmwaredownload.h"

#include <QDebug>
#include <QDir>
#include <QNetworkReply>
#include <QSaveFile>
#include <QUrl>

#include <memory>

namespace vanto
{

namespace
{
constexpr int StatusOk = 200;
constexpr qint64 MaxBodySize = 64LL * 1024 * 1024; ///< bytes; larger update files are not read
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

bool writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() &&
        file.commit())
        return true;
    qDebug() << "Open file" << path << "for write failed, err:" << file.errorString();
    return false;
}
} // namespace

FirmwareDownload::FirmwareDownload(QString hardware, std::chrono::milliseconds maxSilence)
    : m_hardware(std::move(hardware)), m_maxSilence(maxSilence)
{
}

FirmwareDownload::Offer FirmwareDownload::latestReleases()
{
    Offer offer;
    if (!isPlainFileName(m_hardware)) {
        offer.failure = tr("Error when saving firmware file.");
        return offer;
    }
    const auto body = get(fileUrl(QStringLiteral("latest_version.json")));
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
    const auto body = get(fileUrl(release.file));
    if (!body || body->isEmpty())
        return {{}, tr("Error when reading firmware file from server.")};
    const QString path = QStringLiteral("downloaded/%1/%2").arg(m_hardware, release.file);
    if (!writeFile(path, *body))
        return {{}, tr("Error when saving firmware file.")};
    return {path, {}};
}

void FirmwareDownload::abandon()
{
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

std::optional<QByteArray> FirmwareDownload::get(const QUrl& address)
{
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    // Restarts with every byte received.
    request.setTransferTimeout(static_cast<int>(m_maxSilence.count()));
    const std::unique_ptr<QNetworkReply> reply(m_network.get(request));
    connect(reply.get(), &QNetworkReply::finished, &m_wait, &QEventLoop::quit);
    connect(reply.get(), &QNetworkReply::downloadProgress, reply.get(),
            [reply = reply.get()](qint64 received) {
                if (received > MaxBodySize)
                    reply->abort();
            });
    m_wait.exec();

    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status != StatusOk)
        qDebug() << "status code=" << status;
    else if (reply->error() != QNetworkReply::NoError)
        qDebug() << reply->errorString();
    if (status != StatusOk || reply->error() != QNetworkReply::NoError || !reply->isFinished())
        return std::nullopt;
    return reply->readAll();
}

} // namespace vanto
