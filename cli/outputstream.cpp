#include "outputstream.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <limits>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vanto
{

OutputStream::OutputStream(int file)
    : m_file(file), m_longest(std::numeric_limits<qsizetype>::max())
{
    struct stat status = {};
    if (fstat(file, &status) != 0)
        return;
    m_isSocket = S_ISSOCK(status.st_mode);
    if (!S_ISFIFO(status.st_mode) && !S_ISCHR(status.st_mode))
        return;
    if ((fcntl(file, F_GETFL) & O_ACCMODE) == O_RDONLY)
        return; // writing has to fail
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(file);
    const int own = open(path.constData(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    m_isOwn = own >= 0;
    if (m_isOwn)
        m_file = own;
    else // not permitted; so little fits whenever poll() reports space
        m_longest = S_ISFIFO(status.st_mode) ? PIPE_BUF : 1;
}

OutputStream::~OutputStream()
{
    if (m_isOwn)
        close(m_file);
}

qsizetype OutputStream::write(QByteArrayView bytes) const
{
    const auto size = static_cast<std::size_t>(std::min(bytes.size(), m_longest));
    if (m_isSocket)
        return send(m_file, bytes.data(), size, MSG_DONTWAIT | MSG_NOSIGNAL);
    if (!m_isOwn && !isReady()) {
        errno = EAGAIN;
        return -1;
    }
    return ::write(m_file, bytes.data(), size);
}

bool OutputStream::isReady(int milliseconds) const
{
    pollfd output{m_file, POLLOUT, 0};
    return poll(&output, 1, milliseconds) > 0;
}

ErrorStream::ErrorStream() : m_stream(STDERR_FILENO) {}

ErrorStream& ErrorStream::instance()
{
    static ErrorStream stream;
    return stream;
}

void ErrorStream::writeLine(const QByteArray& line)
{
    if (m_lost > 0 &&
        writeWhole("(" + QByteArray::number(m_lost) +
                   " lines are missing here: standard error was not read in time.)\n"))
        m_lost = 0;
    if (m_lost > 0 || !writeWhole(line + '\n'))
        ++m_lost;
}

void ErrorStream::write(const QByteArray& text)
{
    if (m_lost == 0)
        writeWhole(text);
}

bool ErrorStream::writeWhole(const QByteArray& text)
{
    const QByteArray bytes = m_isCut ? '\n' + text : text;
    qsizetype done = 0;
    while (done < bytes.size()) {
        const auto count = m_stream.write(QByteArrayView(bytes).sliced(done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            break;
        done += count;
    }
    if (done > 0)
        m_isCut = done < bytes.size();
    return done == bytes.size();
}

} // namespace vanto
