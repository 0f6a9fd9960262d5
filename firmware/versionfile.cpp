#include "versionfile.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vanto
{

QMap<QString, FirmwareRelease> readVersionFile(const QByteArray& content)
{
    QMap<QString, FirmwareRelease> releases;
    // Parsed, it would use more than ten times its size.
    if (content.size() > MaxVersionFileSize)
        return releases;
    const QJsonObject types = QJsonDocument::fromJson(content).object();
    if (types.size() > MaxFirmwareTypes)
        return releases;
    for (auto type = types.begin(); type != types.end(); ++type) {
        const QJsonObject members = type->toObject();
        const auto text = [&members](QLatin1String name) { return members[name].toString(); };
        releases[type.key()] = {text(QLatin1String("version")), text(QLatin1String("file")),
                                text(QLatin1String("desc"))};
    }
    return releases;
}

bool isPlainFileName(const QString& name)
{
    const auto isForbidden = [](QChar character) {
        return character == QLatin1Char('/') || character == QLatin1Char('\\') ||
               character.category() == QChar::Other_Control;
    };
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           std::none_of(name.begin(), name.end(), isForbidden);
}

} // namespace vanto
