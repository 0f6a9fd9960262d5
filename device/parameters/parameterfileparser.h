#pragma once

#include "parameterfile.h"

#include <QJsonObject>

namespace vanto
{

/// Turns the bytes of a parameter file into parameters. The first error counts.
class ParameterFileParser
{
public:
    explicit ParameterFileParser(const QByteArray& bytes);

    const ParameterFile::Content& content() const { return m_content; }

private:
    // All return false once there is an error.
    bool parseDocument(const QByteArray& bytes);
    bool checkKind(const QJsonObject& root);
    bool parseMember(const QString& key, const QJsonValue& json);
    bool parseHandParameter(const QString& key, const QJsonValue& json);
    bool parseTime(const QString& path, const QJsonValue& json);
    bool parseHandFacts(const QString& path, const QJsonValue& json);
    bool parseHand(const QString& key, const QJsonValue& json);
    bool parseFinger(const QString& name, const QJsonValue& json);
    bool parseFingerParameter(std::uint8_t finger, const QString& name, const QJsonValue& json);
    bool parseCalibration(const QJsonObject& calibration);

    using MemberParser = bool (ParameterFileParser::*)(const QString& key, const QJsonValue& json);
    bool parseMembers(const QString& path, const QJsonValue& json, MemberParser parse);
    bool toObject(const QString& path, const QJsonValue& json, QJsonObject& object);
    bool toText(const QString& path, const QJsonValue& json, QString& text);
    bool toNumbers(const QString& path, const QJsonValue& json, qsizetype count,
                   ParameterValue& numbers);
    bool store(const QString& path, const ParameterKey& key, ParameterValue value);
    bool failUnknown(const QString& path);
    bool fail(const QString& path, const QString& reason);

    ParameterSet& parameters() { return m_content.parameters; }

    ParameterFile::Content m_content;
};

} // namespace vanto
