#include "trace.h"

#include <cstdio>

namespace vanto::simulator
{

QString Trace::open(const QString& path)
{
    bool opened = false;
    if (path == QLatin1String("-")) {
        opened = m_file.open(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered);
    } else {
        m_file.setFileName(path);
        opened = m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered);
    }
    return opened ? QString() : QStringLiteral("%1: %2").arg(path, m_file.errorString());
}

void Trace::writeRequest(Peer peer, const QByteArray& bytes, const QStringList& marks)
{
    writeLine("rx", peer, bytes, marks);
}

void Trace::writeReply(Peer peer, const QByteArray& bytes, const QStringList& marks)
{
    writeLine("tx", peer, bytes, marks);
}

void Trace::writeWithheldReply(Peer peer, const QString& fault)
{
    writeLine("--", peer, {}, {faultMark(fault)});
}

void Trace::writeMotion(TimePoint time, std::uint8_t node, bool moves, const QStringList& positions)
{
    if (!m_file.isOpen())
        return;
    const QString text =
        QString::asprintf("%08.3f mv %s %02x ", elapsedMs(time), moves ? "moves" : "stands", node);
    m_file.write((text + positions.join(QLatin1Char(' '))).toLatin1() + '\n');
}

double Trace::elapsedMs(TimePoint time) const
{
    return std::chrono::duration<double, std::milli>(time - m_start).count();
}

void Trace::writeLine(const char* direction, Peer peer, const QByteArray& bytes,
                      const QStringList& marks)
{
    if (!m_file.isOpen())
        return;
    QString text = QString::asprintf("%08.3f %s %s %02x ", elapsedMs(Clock::now()), direction,
                                     qPrintable(protocolName(peer.protocol)), peer.node);
    text += QString::fromLatin1(bytes.toHex(' ').toUpper());
    for (const QString& mark : marks)
        text += QLatin1Char(' ') + mark;
    m_file.write(text.toLatin1() + '\n');
}

QString faultMark(const QString& fault)
{
    return QStringLiteral("!fault=") + fault;
}

} // namespace vanto::simulator
