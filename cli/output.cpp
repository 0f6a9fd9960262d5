#include "output.h"

#include "eventwait.h"
#include "interruption.h"

#include <QCoreApplication>
#include <QScopedValueRollback>

#include <algorithm>
#include <cerrno>
#include <cstring>

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
    : m_stream(STDOUT_FILENO),
      m_quiet(quiet),
      m_showsProgress(!quiet && !json && isatty(STDERR_FILENO) != 0),
      m_colorsOutput(!json && isColored(STDOUT_FILENO)),
      m_colorsErrors(isColored(STDERR_FILENO))
{
}

bool Output::write(const QByteArray& bytes, const std::function<bool()>& isOver)
{
    m_pending += bytes;
    if (m_isWriting)
        return m_problem == Problem::None;
    const QScopedValueRollback writing(m_isWriting, true);
    while (!m_pending.isEmpty() && m_problem == Problem::None) {
        const auto count = m_stream.write(m_pending);
        if (count >= 0) {
            m_pending.remove(0, count);
        } else if (errno == EAGAIN) {
            if (!waitForSpace(isOver))
                return false;
        } else if (errno != EINTR) {
            m_errorNumber = errno;
            m_problem = errno == EPIPE ? Problem::Closed : Problem::Failed;
        }
    }
    return m_problem == Problem::None;
}

/// Returns false if a signal or `isOver` has ended the wait.
bool Output::waitForSpace(const std::function<bool()>& isOver)
{
    if (!QCoreApplication::instance()) // a help text
        return m_stream.isReady(-1);
    bool gaveUp = false;
    waitUntil([&] {
        gaveUp = isOver && isOver();
        return gaveUp || Interruption::isRequested() || m_stream.isReady();
    });
    if (m_stream.isReady())
        return true;
    if (gaveUp)
        m_problem = Problem::Closed;
    return false;
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
    ErrorStream::instance().write(bar);
}

QString Output::heading(const QString& text) const
{
    return m_colorsOutput ? QLatin1String(Bold) + text + QLatin1String(Plain) : text;
}

void Output::writeError(const QByteArray& text)
{
    showProgress(0, 0);
    ErrorStream::instance().writeLine(text);
}

} // namespace vanto
