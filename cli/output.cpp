#include "output.h"

#include "interruption.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <poll.h>
#include <unistd.h>

namespace vanto
{

namespace
{
constexpr int BarWidth = 30; ///< characters
constexpr const char* Red = "\033[31m";
constexpr const char* Bold = "\033[1m";
constexpr const char* Plain = "\033[0m";
constexpr const char* ClearLine = "\r\033[K";

bool isColored(int file)
{
    return isatty(file) != 0 && qEnvironmentVariableIsEmpty("NO_COLOR") &&
           qgetenv("TERM") != "dumb";
}
} // namespace

Output::Output(bool quiet, bool json)
    : m_quiet(quiet),
      m_showsProgress(!quiet && !json && isatty(STDERR_FILENO) != 0),
      m_colorsOutput(!json && isColored(STDOUT_FILENO)),
      m_colorsErrors(isColored(STDERR_FILENO))
{
}

bool Output::write(const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size() && m_problem == Problem::None) {
        const auto count = ::write(STDOUT_FILENO, bytes.constData() + done,
                                   static_cast<std::size_t>(bytes.size() - done));
        if (count >= 0) {
            done += count;
            continue;
        }
        if (errno == EAGAIN) { // another program has made the pipe non-blocking
            pollfd output{STDOUT_FILENO, POLLOUT, 0};
            poll(&output, 1, -1);
        }
        if ((errno == EINTR || errno == EAGAIN) && !Interruption::isRequested())
            continue;
        m_errorNumber = errno;
        m_problem =
            errno == EPIPE || Interruption::isRequested() ? Problem::Closed : Problem::Failed;
    }
    return m_problem == Problem::None;
}

QString Output::problemText() const
{
    return QStringLiteral("Writing to standard output failed: %1")
        .arg(QString::fromLocal8Bit(std::strerror(m_errorNumber)));
}

void Output::note(const QString& text)
{
    if (!m_quiet)
        writeError(text.toUtf8());
}

void Output::error(const QString& text)
{
    const QByteArray line = "vantoctl: " + text.toUtf8();
    writeError(m_colorsErrors ? Red + line + Plain : line);
}

void Output::showProgress(int done, int total)
{
    if (!m_showsProgress || (total == 0 && !m_barShown))
        return;
    QByteArray bar = ClearLine;
    if (total > 0) {
        const int filled = std::clamp(BarWidth * done / total, 0, BarWidth);
        bar += '[' + QByteArray(filled, '#') + QByteArray(BarWidth - filled, ' ') + "] " +
               QByteArray::number(100 * done / total) + " %";
    }
    m_barShown = total > 0;
    [[maybe_unused]] const auto written =
        ::write(STDERR_FILENO, bar.constData(), static_cast<std::size_t>(bar.size()));
}

QString Output::heading(const QString& text) const
{
    return m_colorsOutput ? QLatin1String(Bold) + text + QLatin1String(Plain) : text;
}

void Output::writeError(const QByteArray& text)
{
    showProgress(0, 0);
    const QByteArray line = text + '\n';
    // There is nowhere to report a failure.
    [[maybe_unused]] const auto written =
        ::write(STDERR_FILENO, line.constData(), static_cast<std::size_t>(line.size()));
}

} // namespace vanto
