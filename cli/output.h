#pragma once

#include "outputstream.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace vanto
{

/// Standard output, which carries results only, and standard error, which carries all else.
class Output
{
public:
    enum class Problem {
        None,
        Closed, ///< the reader has closed the pipe, or has been given up
        Failed  ///< for example a full disk
    };

    Output(bool quiet, bool json);

    /// Writes a result. Waits until it is read, while events are processed; a signal ends the wait.
    /// Returns false if it could not be written as a whole. A nested call leaves its bytes to the
    /// outer one.
    /// Once `isOver` returns true during the wait, the rest and everything later are dropped.
    bool write(const QByteArray& bytes, const std::function<bool()>& isOver = {});
    Problem problem() const { return m_problem; }
    /// The reason of Problem::Failed.
    QString problemText() const;

    /// A message for the user, unless the program is quiet.
    void note(const QString& text);
    void error(const QString& text);
    /// A question or a request to the user.
    void prompt(const QString& text) { writeError(text.toUtf8()); }
    /// Ends the line of an answer that was typed without echo.
    void endHiddenLine() { writeError({}); }
    /// Shows a progress bar on a terminal. A `total` of 0 removes it.
    void showProgress(int done, int total);

    /// A heading, in bold if standard output is a terminal.
    QString heading(const QString& text) const;

private:
    void writeError(const QByteArray& text);
    bool waitForSpace(const std::function<bool()>& isOver);

    OutputStream m_stream;
    QByteArray m_pending; ///< not written yet
    bool m_isWriting = false;
    bool m_quiet;
    bool m_showsProgress;
    bool m_colorsOutput;
    bool m_colorsErrors;
    bool m_barShown = false;
    Problem m_problem = Problem::None;
    int m_errorNumber = 0;
};

} // namespace vanto
