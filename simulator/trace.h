#pragma once

#include "moment.h"
#include "protocol.h"

#include <QByteArray>
#include <QFile>
#include <QStringList>

namespace vanto::simulator
{

// Writes one line per frame: milliseconds since the start, direction as the hand sees it,
// protocol, node, bytes, marks.
class Trace
{
public:
    explicit Trace(Moment start) : m_start(start) {}

    // "-" is standard error. Returns the reason of a failure, else nothing.
    QString open(const QString& path);

    void received(Peer peer, const QByteArray& bytes, const QStringList& marks);
    void sent(Peer peer, const QByteArray& bytes, const QStringList& marks);
    void withheld(Peer peer, const QString& fault);

private:
    void line(const char* direction, Peer peer, const QByteArray& bytes, const QStringList& marks);

    Moment m_start;
    QFile m_file;
};

QString faultMark(const QString& fault);

} // namespace vanto::simulator
