#pragma once

#include <QByteArray>

namespace vanto
{

/// An output of the program, to which writing never waits.
///
/// Waiting would stop everything else: polling of currents, watchdog and signals. A flag of the
/// file would be shared with other programs, for example the shell on the same terminal. So pipes
/// and terminals are opened a second time.
class OutputStream
{
public:
    /// `file`: STDOUT_FILENO or STDERR_FILENO.
    explicit OutputStream(int file);
    ~OutputStream();
    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;

    /// Writes as many bytes as there is space for, and returns their number; or -1 with `errno`,
    /// which is EAGAIN if there is no space.
    qsizetype write(QByteArrayView bytes) const;
    /// Whether write() has something to do, or fails for another reason than space. Waits for
    /// `milliseconds`; negative: without limit.
    bool isReady(int milliseconds = 0) const;

private:
    int m_file;
    qsizetype m_longest; ///< bytes of one write
    bool m_isSocket = false;
    bool m_isOwn = false; ///< opened a second time, non-blocking
};

/// The line for people on standard error, which is lost if nothing reads it. Later lines report how
/// many were lost.
class ErrorStream
{
public:
    static ErrorStream& instance();

    void writeLine(const QByteArray& line);
    /// Like writeLine() without a line feed, and the loss is not reported.
    void write(const QByteArray& text);

private:
    ErrorStream();
    bool writeWhole(const QByteArray& text);

    OutputStream m_stream;
    int m_lost = 0;       ///< lines
    bool m_isCut = false; ///< the last line was written in part
};

} // namespace vanto
