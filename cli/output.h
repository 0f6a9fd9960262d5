#pragma once

#include <QByteArray>
#include <QString>

namespace vanto
{

/// Standard output, which carries results only, and standard error, which carries all else.
class Output
{
public:
    enum class Problem {
        None,
        Closed, ///< the reader has closed the pipe
        Failed  ///< for example a full disk
    };

    Output(bool quiet, bool json);

    /// Writes a result at once. Returns false if it could not be written as a whole.
    bool write(const QByteArray& bytes);
    Problem problem() const { return m_problem; }
    /// The reason of Problem::Failed.
    QString problemText() const;

    /// A message for the user, unless the program is quiet.
    void note(const QString& text);
    void error(const QString& text);
    /// A question or a request to the user.
    void prompt(const QString& text) { writeError(text.toUtf8()); }
    /// Shows a progress bar on a terminal. A `total` of 0 removes it.
    void showProgress(int done, int total);

    /// A heading, in bold if standard output is a terminal.
    QString heading(const QString& text) const;

private:
    void writeError(const QByteArray& text);

    bool m_quiet;
    bool m_showsProgress;
    bool m_colorsOutput;
    bool m_colorsErrors;
    bool m_barShown = false;
    Problem m_problem = Problem::None;
    int m_errorNumber = 0;
};

} // namespace vanto
