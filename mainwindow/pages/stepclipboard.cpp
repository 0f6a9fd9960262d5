#include "stepclipboard.h"

#include "sequencemanager.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>

#include <memory>

namespace vanto
{

namespace
{
const QString JsonType = QStringLiteral("application/json");
} // namespace

void StepClipboard::set(const SequenceData& steps)
{
    if (steps.sequences.isEmpty())
        return;
    const QByteArray json = steps.toJSON();
    auto content = std::make_unique<QMimeData>();
    content->setData(JsonType, json);
    content->setText(QString::fromUtf8(json));
    QGuiApplication::clipboard()->setMimeData(content.release());
}

std::optional<SequenceData> StepClipboard::steps()
{
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    if (!content)
        return std::nullopt;
    const QByteArray bytes =
        content->hasFormat(JsonType) ? content->data(JsonType) : content->text().toUtf8();
    // A text that is not a sequence at all is not logged: it may be a password.
    if (bytes.size() > SequenceManager::MaxFileBytes ||
        !QJsonDocument::fromJson(bytes).object().contains(QLatin1String("sequences")))
        return std::nullopt;
    SequenceData data;
    if (!data.fromJSON(bytes) || data.sequences.isEmpty())
        return std::nullopt;
    return data;
}

} // namespace vanto
