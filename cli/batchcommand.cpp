#include "batchcommand.h"

#include "batchline.h"
#include "interruption.h"
#include "tool.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QScopedValueRollback>
#include <QTimer>

namespace vanto
{

namespace
{
constexpr int MaxWatchdogMs = 3'600'000;

/// Runs the lines of standard input, one after the other, each with one line as its answer.
class Batch : public QObject
{
    Q_OBJECT
public:
    Batch(Tool& tool, Answer& answer) : m_tool(tool), m_answer(answer)
    {
        m_watchdog.setSingleShot(true);
        m_watchdog.setTimerType(Qt::PreciseTimer);
        connect(&m_watchdog, &QTimer::timeout, this, &Batch::haltAtSilence);
    }

    void setWatchdog(int milliseconds) { m_watchdog.setInterval(milliseconds); }

    void run()
    {
        LineInput& input = m_tool.input();
        connect(&input, &LineInput::sig_received, this, [this] {
            if (m_writing) // the answers are not read
                haltAtEnd();
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
        m_watchdog.stop(); // the command reports to another answer
        Answer answer;
        if (line.node)
            answer.data.insert(QStringLiteral("node"), *line.node);
        if (!line.error.isEmpty()) {
            answer.fail(ExitStatus::Usage, line.error);
        } else {
            m_tool.hand().setNode(*line.node);
            m_tool.perform(*line.command, line.arguments, answer);
        }
        if (Interruption::isRequested() && !answer.hasFailed())
            answer.fail(ExitStatus::Interrupted, QStringLiteral("Interrupted."));
        if (m_lost == ExitStatus::Done && (answer.status() == ExitStatus::NoAnswer ||
                                           answer.status() == ExitStatus::PortNotOpened)) {
            m_lost = answer.status();
            m_lostReason = answer.reason();
        }
        startWatchdog();
        // Writing waits for a reader that may not come.
        if (Interruption::isRequested())
            haltAll();
        else
            haltAtEnd();
        write(line.command ? QLatin1String(line.command->name) : QLatin1String(), answer);
    }

    void startWatchdog()
    {
        if (m_watchdog.interval() > 0)
            m_watchdog.start();
    }

    void write(const QString& command, Answer& answer)
    {
        const QScopedValueRollback writing(m_writing, true);
        answer.data.insert(QStringLiteral("line"), m_number);
        m_tool.output().write(QJsonDocument(answer.toJson(command)).toJson(QJsonDocument::Compact) +
                              '\n');
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
    bool m_writing = false;
    bool m_halting = false;
    int m_number = 0; ///< of the line
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
