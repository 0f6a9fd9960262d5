#include "batchcommand.h"

#include "batchline.h"
#include "interruption.h"
#include "tool.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QScopedValueRollback>
#include <QTimer>

#include <utility>

namespace vanto
{

namespace
{
constexpr int MaxWatchdogMs = 3'600'000;
constexpr int BlockedMs = 500; ///< after the end of the input, until a reader counts as lost

/// Runs the lines of standard input, one after the other, each with one line as its answer.
class Batch : public QObject
{
    Q_OBJECT
public:
    Batch(Tool& tool, Answer& answer) : m_tool(tool), m_answer(answer)
    {
        m_watchdog.setSingleShot(true);
        m_watchdog.setTimerType(Qt::PreciseTimer);
        connect(&m_watchdog, &QTimer::timeout, this, &Batch::expire);
        m_blocked.setSingleShot(true);
        m_blocked.setInterval(BlockedMs);
        connect(&m_blocked, &QTimer::timeout, this, [this] {
            if (m_tool.input().hasEnded())
                haltAll();
        });
    }

    void setWatchdog(int milliseconds) { m_watchdog.setInterval(milliseconds); }

    void run()
    {
        LineInput& input = m_tool.input();
        connect(&input, &LineInput::sig_received, this, [this, &input] {
            if (input.hasEnded())
                m_watchdog.stop(); // the writer is not silent, it has finished
            else
                startWatchdog();
            if (m_writing) { // the answers are not read
                haltAtEnd();
                m_blocked.start();
            }
        });
        startWatchdog();
        while (!Interruption::isRequested() && m_tool.output().problem() == Output::Problem::None) {
            if (input.hasLine())
                perform(input.takeLine());
            else if (input.hasEnded())
                break;
            else
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        m_watchdog.stop();
        haltAll();
    }

    /// Fails if a hand has not answered, or the port could not be opened.
    void reportLost()
    {
        if (m_lost != ExitStatus::Done)
            m_answer.fail(m_lost, m_lostReason);
    }

private:
    void perform(const LineSplitter::Line& text)
    {
        ++m_number;
        BatchLine line;
        if (text.isTooLong)
            line.error = QStringLiteral("The line is too long.");
        else
            line = parseBatchLine(text.text);
        if (!line.command && line.error.isEmpty())
            return;
        Answer answer;
        if (line.node)
            answer.data.insert(QStringLiteral("node"), *line.node);
        if (!line.error.isEmpty())
            answer.fail(ExitStatus::Usage, line.error);
        else
            performCommand(line, answer);
        if (Interruption::isRequested() && !answer.hasFailed())
            answer.fail(ExitStatus::Interrupted, QStringLiteral("Interrupted."));
        if (m_lost == ExitStatus::Done && (answer.status() == ExitStatus::NoAnswer ||
                                           answer.status() == ExitStatus::PortNotOpened)) {
            m_lost = answer.status();
            m_lostReason = answer.reason();
        }
        // Writing waits for a reader that may not come.
        if (Interruption::isRequested())
            haltAll();
        else
            haltAtEnd();
        write(line.command ? QLatin1String(line.command->name) : QLatin1String(), answer);
    }

    void performCommand(BatchLine& line, Answer& answer)
    {
        Connection& hand = m_tool.hand();
        hand.setNode(*line.node);
        hand.refuseMotions(m_number <= m_lastStale
                               ? QStringLiteral("The watchdog has expired while this line waited.")
                               : QString());
        m_present = &answer;
        m_presentHalts = QLatin1String(line.command->name) == QLatin1String("halt");
        m_tool.perform(*line.command, line.arguments, answer);
        m_present = nullptr;
        if (std::exchange(m_expired, false))
            haltAtSilence();
    }

    /// The time counts from the arrival of a line, also while it or another one runs.
    void startWatchdog()
    {
        if (m_watchdog.interval() > 0)
            m_watchdog.start();
    }

    void write(const QString& command, Answer& answer)
    {
        const bool isOuter = !m_writing;
        const QScopedValueRollback writing(m_writing, true);
        m_blocked.start();
        answer.data.insert(QStringLiteral("line"), m_number);
        m_tool.output().write(QJsonDocument(answer.toJson(command)).toJson(QJsonDocument::Compact) +
                              '\n');
        if (isOuter)
            m_blocked.stop();
    }

    /// What has arrived before moves nothing any more.
    void expire()
    {
        m_lastStale = m_number + m_tool.input().lineCount();
        if (!m_present) {
            haltAtSilence();
            return;
        }
        // Two halts must not be nested, and a command may be halting.
        m_expired = true;
        if (m_presentHalts)
            return;
        const QString reason = QStringLiteral("The watchdog has expired during this command.");
        m_present->fail(ExitStatus::Refused, reason);
        m_tool.hand().refuseMotions(reason);
        m_tool.hand().interrupt();
    }

    void haltAtSilence()
    {
        Answer answer;
        answer.data.insert(QStringLiteral("event"), QStringLiteral("watchdog"));
        if (haltMoved(answer))
            write({}, answer);
    }

    /// At the end of the input, once no command is left.
    void haltAtEnd()
    {
        if (m_tool.input().hasEnded() && !m_tool.input().hasLine())
            haltAll();
    }

    void haltAll()
    {
        Tool::noteInterruption(m_answer);
        haltMoved(m_answer);
    }

    /// Returns false if there is nothing to halt.
    bool haltMoved(Answer& answer)
    {
        if (m_halting || !m_tool.hand().isOpen() || !m_tool.hand().hasMoved())
            return false;
        const QScopedValueRollback halting(m_halting, true);
        m_tool.hand().reportTo(&answer);
        m_tool.hand().haltMoved();
        m_tool.hand().reportTo(nullptr);
        return true;
    }

    Tool& m_tool;
    Answer& m_answer; ///< of the whole batch
    QTimer m_watchdog;
    QTimer m_blocked;
    Answer* m_present = nullptr; ///< of the command that runs
    bool m_presentHalts = false; ///< that command is a halt
    bool m_expired = false;      ///< the watchdog, during that command
    bool m_writing = false;
    bool m_halting = false;
    qsizetype m_number = 0;    ///< of the line
    qsizetype m_lastStale = 0; ///< of the lines that had arrived when the watchdog expired
    ExitStatus m_lost = ExitStatus::Done;
    QString m_lostReason;
};

void batch(Tool& tool, Arguments& arguments, Answer& answer)
{
    Batch running(tool, answer);
    if (arguments.has("--watchdog"))
        running.setWatchdog(arguments.number(arguments.option("--watchdog"), "The watchdog time", 1,
                                             MaxWatchdogMs));
    if (!arguments.error().isEmpty())
        return;
    tool.setHasWritten();
    Interruption::haltAtFirst();
    running.run();
    running.reportLost();
}
} // namespace

std::vector<Command> batchCommands()
{
    return {{"batch",
             "Run commands from standard input over one open port, one on each line after its node",
             Effect::NoHand,
             false,
             {},
             {{"--watchdog", "MS", 1, "Halt the hands if no line arrives for this time"}},
             batch}};
}

} // namespace vanto

#include "batchcommand.moc"
