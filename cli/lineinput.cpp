#include "lineinput.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>

#include <fcntl.h>
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
    const qsizetype room = MaxLength - m_line.text.size();
    if (part.size() > room) {
        m_line.isTooLong = true;
        part = part.first(room);
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
    if (fcntl(STDIN_FILENO, F_GETFD) < 0) { // closed
        m_ended = true;
        return;
    }
    m_notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &LineInput::receive);
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
        m_notifier->setEnabled(false);
        m_lines += m_splitter.finish();
        m_ended = true;
    }
    emit sig_received();
}

} // namespace vanto
