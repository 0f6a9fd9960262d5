#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace vanto
{

/// One line of a simulated hand's trace.
struct TracedFrame {
    double ms = 0;     ///< since the hand's start
    QString direction; ///< "rx": request that the hand received, "tx": its reply
    QString protocol;  ///< "serialctrl" or "modbus"
    int node = 0;
    QByteArray bytes; ///< the whole frame
    QString marks;    ///< e.g. "!overlap"
};

/// A simulated hand as a process of its own: starts `vanto-hand`, gives it commands and reads
/// its trace. Ends the process when it is destroyed.
class HandProcess
{
public:
    HandProcess();
    ~HandProcess();
    HandProcess(const HandProcess&) = delete;
    HandProcess& operator=(const HandProcess&) = delete;

    /// Starts the program beside this one with a link and a trace of its own and the given
    /// further options. False when no device path came within some seconds; see errorText().
    bool start(const QStringList& options = {});
    void stop();

    /// A link to the pseudo-terminal that stays the same across unplug and replug.
    QString portName() const;
    /// Gives one command and returns the answer's line, e.g. "ok" or "error: ...".
    QString command(const QString& line);
    QString errorText() const { return m_errorText; }

    /// All frames traced since the start or the last forgetTrace().
    QList<TracedFrame> trace() const;
    /// The requests among them.
    QList<TracedFrame> requests() const;
    /// Command and payload of each SerialCtrl request, e.g. "62 f401"; only those in `commands` if
    /// there are any.
    QStringList frames(const QList<int>& commands = {}) const;
    /// Node and command of each SerialCtrl request, e.g. "02:62".
    QStringList addressed() const;
    /// Register and values of each Modbus write, e.g. "1010: 01f4".
    QStringList modbusWrites() const;
    void forgetTrace();

private:
    QString readLine();

    QTemporaryDir m_folder;
    QProcess m_process;
    QString m_errorText;
    qint64 m_forgotten = 0; ///< bytes at the front of the trace file
};

} // namespace vanto
