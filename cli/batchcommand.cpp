#include "batchcommand.h"

#include "batchline.h"
#include "interruption.h"
#include "tool.h"

#include <QCoreApplication>
#include <QJsonDocument>
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
    explicit Batch(Tool& tool) : m_tool(tool)
    {
        m_watchdog.setSingleShot(true);
        m_watchdog.setTimerType(Qt::PreciseTimer);
        connect(&m_watchdog, &QTimer::timeout, this, &Batch::haltAtSilence);
    }

    void setWatchdog(int milliseconds) { m_watchdog.setInterval(milliseconds); }

    void run()
    {
        LineInput& input = m_tool.input();
        if (m_watchdog.interval() > 0)
            m_watchdog.start();
        while (!Interruption::isRequested() && m_tool.output().problem() == Output::Problem::None) {
            if (input.hasLine()) {
                const auto line = input.takeLine();
                m_watchdog.stop(); // the command reports to another answer
                perform(line);
                if (m_watchdog.interval() > 0)
                    m_watchdog.start();
            } else if (input.hasEnded()) {
                break;
            } else {
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
        }
    }

    /// Fails if a hand has not answered, or the port could not be opened.
    void reportLost(Answer& answer) const
    {
        if (m_lost != ExitStatus::Done)
            answer.fail(m_lost, m_lostReason);
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
        write(line.command ? QLatin1String(line.command->name) : QLatin1String(), answer);
    }

    void write(const QString& command, Answer& answer)
    {
        answer.data.insert(QStringLiteral("line"), m_number);
        m_tool.output().write(QJsonDocument(answer.toJson(command)).toJson(QJsonDocument::Compact) +
                              '\n');
    }

    void haltAtSilence()
    {
        if (!m_tool.hand().hasMoved())
            return;
        Answer answer;
        answer.data.insert(QStringLiteral("event"), QStringLiteral("watchdog"));
        m_tool.hand().reportTo(&answer);
        m_tool.hand().haltMoved();
        m_tool.hand().reportTo(nullptr);
        write({}, answer);
    }

    Tool& m_tool;
    QTimer m_watchdog;
    int m_number = 0; ///< of the line
    ExitStatus m_lost = ExitStatus::Done;
    QString m_lostReason;
};

void batch(Tool& tool, Arguments& arguments, Answer& answer)
{
    Batch running(tool);
    if (arguments.has("--watchdog"))
        running.setWatchdog(arguments.number(arguments.option("--watchdog"), "The watchdog time", 1,
                                             MaxWatchdogMs));
    if (!arguments.error().isEmpty())
        return;
    tool.setHasWritten();
    Interruption::haltAtFirst();
    running.run();
    tool.hand().reportTo(&answer);
    // After a signal the tool halts the hands.
    if (!Interruption::isRequested() && tool.hand().isOpen() && tool.hand().hasMoved())
        tool.hand().haltMoved();
    running.reportLost(answer);
}
} // namespace

std::vector<Command> batchCommands()
{
    return {{"batch",
             "Run commands from standard input over one open port, one on each line after its node",
             Effect::NoHand,
             false,
             {},
             {{"--watchdog", "MS", 1, "Halt the hands when no line comes for so long"}},
             batch}};
}

} // namespace vanto

#include "batchcommand.moc"
