#include "parameterfile.h"

#include "jsontext.h"
#include "parameterfileparser.h"
#include "wholefile.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QSaveFile>

namespace vanto
{

namespace
{
QString jsonNumbers(ParameterKind kind, const ParameterValue& value)
{
    return QLatin1Char('[') + ParameterValues::text(kind, value) + QLatin1Char(']');
}

void writeHand(JsonText& json, const HandFacts& hand)
{
    json.begin(QStringLiteral("hand"));
    if (hand.node)
        json.raw(QStringLiteral("node"), hand.nodeText());
    const std::pair<const char*, QString> texts[] = {
        {"protocol", hand.protocolName()},     {"protocolVersion", hand.protocolVersion()},
        {"firmware", hand.firmwareText()},     {"hardware", hand.hardwareText()},
        {"bootLoader", hand.bootLoaderText()}, {"uid", hand.uidText()},
    };
    for (const auto& [key, text] : texts)
        if (!text.isEmpty())
            json.string(QString::fromLatin1(key), text);
    json.end();
}

void writeCalibration(JsonText& json, const ParameterValue& value)
{
    constexpr qsizetype count = FingerCount;
    constexpr auto kind = ParameterKind::Calibration;
    json.begin(QStringLiteral("calibration"));
    json.raw(QStringLiteral("start"), jsonNumbers(kind, value.first(count)));
    json.raw(QStringLiteral("end"), jsonNumbers(kind, value.mid(count, count)));
    json.raw(QStringLiteral("thumbRoot"), jsonNumbers(kind, value.mid(2 * count)));
    json.end();
}

/// A value of another size than its kind has cannot be written; none of the readers gives one.
void writeValue(JsonText& json, const ParameterSet& parameters, const ParameterKey& key)
{
    const auto value = parameters.value(key);
    const ParameterDescriptor& descriptor = describe(key.kind);
    if (!value || !descriptor.check(*value).isEmpty())
        return;
    if (key.kind == ParameterKind::Calibration)
        writeCalibration(json, *value);
    else
        json.raw(QString::fromLatin1(descriptor.name), descriptor.valueCount == 1
                                                           ? ParameterValues::text(key.kind, *value)
                                                           : jsonNumbers(key.kind, *value));
}

void writeFingers(JsonText& json, const ParameterSet& parameters)
{
    json.begin(QStringLiteral("fingers"));
    for (std::uint8_t finger = 0; finger < FingerCount; ++finger) {
        json.begin(ParameterNames::finger(finger));
        for (const ParameterDescriptor& descriptor : parameterDescriptors())
            if (finger < descriptor.fingers)
                writeValue(json, parameters, {descriptor.kind, finger});
        json.end();
    }
    json.end();
}

QString fileError(const char* english)
{
    return QCoreApplication::translate("ParameterFile", english);
}
} // namespace

ParameterFile::Content ParameterFile::parse(const QByteArray& bytes)
{
    return ParameterFileParser(bytes).content();
}

QByteArray ParameterFile::format(const ParameterSet& parameters)
{
    JsonText json;
    json.string(QStringLiteral("kind"), Kind);
    json.raw(QStringLiteral("version"), QString::number(SchemaVersion));
    if (!parameters.toolVersion.isEmpty())
        json.string(QStringLiteral("tool"), parameters.toolVersion);
    if (parameters.time.isValid())
        json.string(QStringLiteral("time"), parameters.time.toUTC().toString(Qt::ISODate));
    if (!parameters.comment.isEmpty())
        json.string(QStringLiteral("comment"), parameters.comment);
    writeHand(json, parameters.hand);
    writeFingers(json, parameters);
    for (const ParameterDescriptor& descriptor : parameterDescriptors())
        if (!descriptor.isPerFinger())
            writeValue(json, parameters, {descriptor.kind});
    return json.finish();
}

ParameterFile::Content ParameterFile::read(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return {{}, fileError(QT_TRANSLATE_NOOP("ParameterFile", "The file does not exist."))};
    if (!info.isFile()) // a FIFO would never end
        return {{}, fileError(QT_TRANSLATE_NOOP("ParameterFile", "This is not a regular file."))};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, file.errorString()};
    const QByteArray bytes = file.read(MaxSize + 1);
    if (file.error() != QFile::NoError)
        return {{}, file.errorString()};
    return parse(bytes);
}

QString ParameterFile::write(const QString& path, const ParameterSet& parameters)
{
    return writeBytes(path, format(parameters));
}

QString ParameterFile::writeBytes(const QString& path, const QByteArray& bytes)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        return fileError(QT_TRANSLATE_NOOP("ParameterFile", "This is not a regular file."));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !writeWhole(file, bytes))
        return file.errorString();
    return {};
}

} // namespace vanto
