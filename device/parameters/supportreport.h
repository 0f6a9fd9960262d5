#pragma once

#include "framelog.h"
#include "handinformation.h"

namespace vanto
{

/// Everything that helps to explain a fault from afar, in one file. The calibration key is not part
/// of it: its frames are blanked.
struct SupportReport {
    QDateTime time;
    QString toolVersion;
    QString port;                ///< name, may be empty
    HandInformation information; ///< may be empty
    ParameterSet parameters;     ///< may be empty
    QStringList messages;        ///< of the message list, oldest first
    std::vector<FrameLog::Frame> frames;

    /// English, in every locale.
    QByteArray toText() const;
    QByteArray toJson() const;
    /// JSON if the name ends in ".json", otherwise text. Returns an error, empty on success.
    QString write(const QString& path) const;
};

} // namespace vanto
