#include "versionfile.h"

#include "fuzz.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

namespace vanto
{

namespace
{
QByteArray toJson(const QMap<QString, FirmwareRelease>& releases)
{
    QJsonObject types;
    for (auto release = releases.begin(); release != releases.end(); ++release)
        types[release.key()] = QJsonObject{{QStringLiteral("version"), release->version},
                                           {QStringLiteral("file"), release->file},
                                           {QStringLiteral("desc"), release->description}};
    return QJsonDocument(types).toJson();
}

/// A name accepted as a plain file name must refer to an entry of the folder.
void checkName(const QString& name)
{
    if (!isPlainFileName(name))
        return;
    const QString folder = QStringLiteral("/downloaded/hardware");
    const QString path = folder + QLatin1Char('/') + name;
    check(QDir::cleanPath(path) == path, "a name refers to another folder");
    check(!name.contains(QChar::Null), "a name contains a null character");
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto releases = readVersionFile(content);
    const QByteArray written = toJson(releases);
    check(written.size() > MaxVersionFileSize || readVersionFile(written) == releases,
          "the releases differ after writing");
    for (const FirmwareRelease& release : releases)
        checkName(release.file);
    checkName(QString::fromUtf8(content));
    return 0;
}

} // namespace vanto
