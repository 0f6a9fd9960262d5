#include "lineinput.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>

#include <unistd.h>

namespace vanto
{

QList<LineSplitter::Line> LineSplitter::feed(QByteArrayView bytes)
{
    QList<Line> lines;
    for (qsizetype end = bytes.indexOf('\n'); end >= 0; end = bytes.indexOf('\n')) {
        append(bytes.first(end));
        lines.append(take());
        bytes = bytes.sliced(end + 1);
    }
    append(bytes);
    return lines;
}

QList<LineSplitter::Line> LineSplitter::finish()
{
    return m_line.text.isEmpty() ? QList<Line>() : QList<Line>{take()};
}

void LineSplitter::append(QByteArrayView part)
{
    const qsizetype left = MaxLength - m_line.text.size();
    if (part.size() > left) {
        m_line.isTooLong = true;
        part = part.first(left);
    }
    m_line.text.append(part);
}

LineSplitter::Line LineSplitter::take()
{
    Line line = std::exchange(m_line, {});
    if (line.text.endsWith('\r'))
        line.text.chop(1);
    return line;
}

LineInput::LineInput(QObject* parent) : QObject(parent)
{
    m_notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &LineInput::receive);
}

LineSplitter::Line LineInput::takeLine()
{
    LineSplitter::Line line = m_lines.takeFirst();
    m_notifier->setEnabled(!m_ended && m_lines.isEmpty());
    return line;
}

void LineInput::discard()
{
    m_lines.clear();
    m_splitter = {};
    m_notifier->setEnabled(!m_ended);
}

void LineInput::receive()
{
    std::array<char, 65536> buffer;
    const auto count = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (count > 0) {
        m_lines += m_splitter.feed(QByteArrayView(buffer.data(), count));
    } else {
        m_lines += m_splitter.finish();
        m_ended = true;
    }
    m_notifier->setEnabled(!m_ended && m_lines.isEmpty());
    emit sig_received();
}

} // namespace vanto
