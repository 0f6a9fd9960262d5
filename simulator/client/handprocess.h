#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

namespace vanto
{

/// One line of the trace of a simulated hand.
struct TracedFrame {
    double ms = 0;     ///< since the start of the hand
    QString direction; ///< "rx": request that the hand received, "tx": its reply
    QString protocol;  ///< "serialctrl" or "modbus"
    int node = 0;
    QByteArray bytes; ///< the whole frame
    QString marks;    ///< e.g. "!overlap"
};

/// A change of motion of a simulated hand: a finger begins to move, changes its velocity, stands or
/// is placed elsewhere. Until the next mark of the hand all positions are linear in time.
struct MotionMark {
    double ms = 0; ///< since the start of the hand, computed: not delayed by the processor
    int node = 0;
    bool moving = false;  ///< at least one finger; false: all fingers stand
    QList<int> positions; ///< logical, from finger 0 on
};

/// Runs `vanto-hand` as a separate process, sends it commands and reads its trace. The destructor
/// ends the process.
class HandProcess
{
public:
    HandProcess();
    ~HandProcess();
    HandProcess(const HandProcess&) = delete;
    HandProcess& operator=(const HandProcess&) = delete;

    /// Starts the program, which must be in the folder of this one, with its own link and trace and
    /// with `options`. Returns false if it prints no port within 10 s; see errorText().
    bool start(const QStringList& options = {});
    void stop();

    /// A link to the pseudo-terminal. It is the same again after unplug and replug.
    QString portName() const;
    /// Sends one command and returns the answer, e.g. "ok" or "error: ...".
    QString command(const QString& line);
    QString errorText() const { return m_errorText; }

    /// All frames traced since the start or the last clearTrace().
    QList<TracedFrame> trace() const;
    /// The requests in trace().
    QList<TracedFrame> requests() const;
    /// Command and payload of each SerialCtrl request, e.g. "62 f401"; limited to `commands` unless
    /// it is empty.
    QStringList frames(const QList<int>& commands = {}) const;
    /// Node and command of each SerialCtrl request, e.g. "02:62".
    QStringList addressed() const;
    /// Register and values of each Modbus write, e.g. "1010: 01f4".
    QStringList modbusWrites() const;
    /// The changes of motion traced since the start or the last clearTrace(). The end of a motion
    /// is written at most some milliseconds late.
    QList<MotionMark> motionMarks() const;
    /// The logical positions of a hand at a time between the first and the last of its marks;
    /// otherwise those of the nearest mark. Empty without marks.
    static QList<double> positionsAt(const QList<MotionMark>& marks, int node, double ms);
    void clearTrace();
    struct TracePart {
        QList<TracedFrame> frames;
        QList<MotionMark> marks;
    };
    /// Returns what trace() and motionMarks() return and forgets it, without losing what the hand
    /// writes meanwhile.
    TracePart takeTrace();

private:
    QString readLine();
    QByteArray readTrace() const;
    QStringList traceLines(bool ofMotion) const;

    QTemporaryDir m_directory;
    QProcess m_process;
    QString m_errorText;
    qint64 m_traceStart = 0; ///< offset in the trace file
};

} // namespace vanto
