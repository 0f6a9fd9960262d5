#include "supportreport.h"

#include "parameterfile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSysInfo>

namespace vanto
{

namespace
{
constexpr int ReportVersion = 1;

QString systemText()
{
    return QStringLiteral("%1, %2 %3, Qt %4")
        .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(), QSysInfo::kernelVersion(),
             QString::fromLatin1(qVersion()));
}

QString refusedText(const RefusedParameter& refused)
{
    return QStringLiteral("%1: result %2, sub error %3")
        .arg(refused.key.name(), hexCode(refused.result), hexCode(refused.subError));
}

QString section(const char* title)
{
    return QStringLiteral("\n[%1]\n").arg(QLatin1String(title));
}
} // namespace

QByteArray SupportReport::toText() const
{
    QString text =
        QStringLiteral("Support report\ntime: %1\ntool: %2\nsystem: %3\nport: %4\n")
            .arg(time.toUTC().toString(Qt::ISODateWithMs), toolVersion, systemText(), port);
    text += section("hand") + information.toEnglish() + section("parameters");
    for (const auto& [key, value] : parameters.values)
        text += key.name() + QStringLiteral(": ") + ParameterValues::text(key.kind, value) +
                QLatin1Char('\n');
    for (const RefusedParameter& refused : parameters.refused)
        text += refusedText(refused) + QLatin1Char('\n');
    text += section("messages");
    for (const QString& message : messages)
        text += message + QLatin1Char('\n');
    text += section("frames");
    for (const FrameLog::Frame& frame : frames)
        text += frame.text() + QLatin1Char('\n');
    return text.toUtf8();
}

QByteArray SupportReport::toJson() const
{
    QJsonArray refusedParameters;
    for (const RefusedParameter& refused : parameters.refused)
        refusedParameters.append(refusedText(refused));
    QJsonArray frameTexts;
    for (const FrameLog::Frame& frame : frames)
        frameTexts.append(frame.text());
    const QJsonObject report{
        {QStringLiteral("kind"), QStringLiteral("support report")},
        {QStringLiteral("version"), ReportVersion},
        {QStringLiteral("time"), time.toUTC().toString(Qt::ISODateWithMs)},
        {QStringLiteral("tool"), toolVersion},
        {QStringLiteral("system"), systemText()},
        {QStringLiteral("port"), port},
        {QStringLiteral("hand"), information.toJson()},
        {QStringLiteral("notKnown"), information.missingToJson()},
        {QStringLiteral("parameters"),
         QJsonDocument::fromJson(ParameterFile::format(parameters)).object()},
        {QStringLiteral("refused"), refusedParameters},
        {QStringLiteral("messages"), QJsonArray::fromStringList(messages)},
        {QStringLiteral("frames"), frameTexts},
    };
    return QJsonDocument(report).toJson();
}

QString SupportReport::write(const QString& path) const
{
    const bool isJson = path.endsWith(QStringLiteral(".json"), Qt::CaseInsensitive);
    return ParameterFile::writeBytes(path, isJson ? toJson() : toText());
}

} // namespace vanto
