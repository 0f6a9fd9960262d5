#include "lineinput.h"

#include <QSocketNotifier>

#include <algorithm>
#include <array>
#include <cerrno>

#include <unistd.h>

namespace vanto
{

namespace
{
constexpr qsizetype MaxWaiting = qsizetype{1024} * 1024; ///< bytes of lines that are not taken
}

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
    m_size -= line.text.size() + 1;
    followSpace();
    return line;
}

void LineInput::discard()
{
    m_lines.clear();
    m_size = 0;
    m_splitter = {};
    followSpace();
}

void LineInput::append(const QList<LineSplitter::Line>& lines)
{
    for (const LineSplitter::Line& line : lines)
        m_size += line.text.size() + 1;
    m_lines += lines;
}

void LineInput::followSpace()
{
    m_notifier->setEnabled(!m_ended && m_size < MaxWaiting);
}

void LineInput::receive()
{
    std::array<char, 65536> buffer;
    // Not more than fits, so that reading never pauses for long.
    const auto space = std::clamp<qsizetype>(MaxWaiting - m_size, 1, sizeof buffer);
    const auto count = read(STDIN_FILENO, buffer.data(), static_cast<std::size_t>(space));
    if (count < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    const qsizetype before = m_lines.size();
    if (count > 0) {
        append(m_splitter.feed(QByteArrayView(buffer.data(), count)));
    } else {
        append(m_splitter.finish());
        m_ended = true;
    }
    followSpace();
    if (m_ended || m_lines.size() > before)
        emit sig_received();
}

} // namespace vanto
