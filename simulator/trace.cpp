#include "trace.h"

#include <cstdio>

namespace simulator
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

void Trace::received(quint8 node, const QByteArray& bytes, const QStringList& marks)
{
    line("rx", node, bytes, marks);
}

void Trace::sent(quint8 node, const QByteArray& bytes, const QStringList& marks)
{
    line("tx", node, bytes, marks);
}

void Trace::withheld(quint8 node, const QString& fault)
{
    line("--", node, {}, {faultMark(fault)});
}

void Trace::line(const char* direction, quint8 node, const QByteArray& bytes,
                 const QStringList& marks)
{
    if (!m_file.isOpen())
        return;
    const std::chrono::duration<double, std::milli> elapsed = Clock::now() - m_start;
    QString text =
        QString::asprintf("%08.3f %s serialctrl %02x ", elapsed.count(), direction, node);
    text += QString::fromLatin1(bytes.toHex(' ').toUpper());
    for (const QString& mark : marks)
        text += QLatin1Char(' ') + mark;
    m_file.write(text.toLatin1() + '\n');
}

QString faultMark(const QString& fault)
{
    return QStringLiteral("!fault=") + fault;
}

} // namespace simulator
