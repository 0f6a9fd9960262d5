#pragma once

#include <QProcess>
#include <QStringList>

namespace vanto
{

class HandProcess;

/// Runs vantoctl, which must be in the folder of the test program.
class CliProcess
{
public:
    struct Result {
        int status = -1; ///< -1: it has crashed or does not end
        QString output;
        QString errors;
    };

    /// Its port and node are those of `hand`, node 2; time-outs last `patience` times as long as
    /// those for a real hand.
    explicit CliProcess(const HandProcess& hand, int patience = 400);
    ~CliProcess();

    void setVariable(const QString& name, const QString& value);
    /// Starts the program with words that blanks separate.
    void start(const QString& words, const QByteArray& input = {});
    QProcess& process() { return m_process; }
    void sendSignal(int number) const;
    /// Whether a signal has not been handled yet; another one of its number would be lost.
    bool hasPendingSignal() const;
    Result finish();
    Result run(const QString& words, const QByteArray& input = {});

private:
    QProcess m_process;
};

} // namespace vanto
