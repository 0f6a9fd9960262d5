#pragma once

#include "protocol.h"
#include "timepoint.h"

#include <QByteArray>
#include <QFile>
#include <QStringList>

namespace vanto::simulator
{

/// Writes one line per frame: milliseconds since the start, direction from the hand's point of
/// view, protocol, node, bytes, marks.
class Trace
{
public:
    explicit Trace(TimePoint start) : m_start(start) {}

    /// "-" is standard error. Returns an error, or an empty string.
    QString open(const QString& path);

    void writeRequest(Peer peer, const QByteArray& bytes, const QStringList& marks);
    void writeReply(Peer peer, const QByteArray& bytes, const QStringList& marks);
    void writeWithheldReply(Peer peer, const QString& fault);

private:
    void writeLine(const char* direction, Peer peer, const QByteArray& bytes,
                   const QStringList& marks);

    TimePoint m_start;
    QFile m_file;
};

QString faultMark(const QString& fault);

} // namespace vanto::simulator
