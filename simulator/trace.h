#pragma once

#include "protocol.h"
#include "timepoint.h"

#include <QByteArray>
#include <QFile>
#include <QStringList>

namespace vanto::simulator
{

/// Writes one line per frame: milliseconds since the start, direction from the hand's point of
/// view, protocol, node, bytes, marks; and one line per change of motion: milliseconds, "mv",
/// "moves" or "stands", node, logical positions of all fingers.
class Trace
{
public:
    explicit Trace(TimePoint start) : m_start(start) {}

    /// "-" is standard error. Returns an error, or an empty string.
    QString open(const QString& path);

    void writeRequest(Peer peer, const QByteArray& bytes, const QStringList& marks);
    void writeReply(Peer peer, const QByteArray& bytes, const QStringList& marks);
    void writeWithheldReply(Peer peer, const QString& fault);
    void writeMotion(TimePoint time, std::uint8_t node, bool moves, const QStringList& positions);

    bool isOpen() const { return m_file.isOpen(); }

private:
    void writeLine(const char* direction, Peer peer, const QByteArray& bytes,
                   const QStringList& marks);

    double elapsedMs(TimePoint time) const;

    TimePoint m_start;
    QFile m_file;
};

QString faultMark(const QString& fault);

} // namespace vanto::simulator
