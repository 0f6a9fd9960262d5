#include "playcommand.h"

#include "eventwait.h"
#include "interruption.h"
#include "motionguard.h"
#include "playpeaks.h"
#include "sequencemanager.h"
#include "sequenceplayer.h"
#include "tool.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

#include <limits>

namespace vanto
{

namespace
{
constexpr qsizetype MaxSteps = 100'000;            ///< in the result; an endurance run has more
constexpr qint64 MaxFileSize = 64LL * 1024 * 1024; ///< bytes

bool load(const QString& path, SequenceManager& manager, Answer& answer)
{
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > MaxFileSize) {
        answer.fail(ExitStatus::File,
                    QStringLiteral("'%1' is not a file of at most 64 MiB.").arg(path));
        return false;
    }
    QFile file(path);
    if (!info.isReadable() || !manager.loadSequenceData(file))
        answer.fail(ExitStatus::File, QStringLiteral("'%1' is not a sequence.").arg(path));
    return !answer.hasFailed();
}

/// Plays a sequence and keeps the time and the highest currents of each step.
class Playback : public QObject
{
    Q_OBJECT
public:
    Playback(Tool& tool, Answer& answer) : m_tool(tool), m_answer(answer)
    {
        connect(&m_player, &SequencePlayer::sig_updatePlaying, this,
                [this](bool, int, qint64, const QString& error) {
                    if (!error.isEmpty())
                        failAt(error);
                });
        connect(&m_player, &SequencePlayer::sig_currentRead, this,
                [this](std::uint8_t, std::uint16_t current) {
                    m_overCurrent = m_overCurrent || MotionGuard::isOverCurrent(current);
                });
        connect(new PeakCollector(&m_player), &PeakCollector::sig_stepEnded, this,
                &Playback::addStep);
        connect(&m_player, &SequencePlayer::sig_refused, this,
                [this](const QString&, std::uint8_t result, std::uint8_t subError) {
                    m_result = result;
                    m_subError = subError;
                });
        connect(&tool.hand(), &Connection::sig_stopped, &m_player, &SequencePlayer::stop);
    }

    /// Indices of the first step and of the one after the last.
    bool playOnce(const SequenceData& data, int first, int end)
    {
        const HandTarget hand = m_tool.hand().target();
        if (!hand.isCurrent())
            return false;
        m_player.setVantoProtocol(hand.adapter, hand.node);
        m_tool.hand().noteMotion();
        if (!m_player.play(data, first, end, false) && !Interruption::isRequested())
            failAt({});
        waitUntil([this] { return !m_player.isPlaying() && !m_player.isSending(); });
        if (!m_answer.hasFailed() && !Interruption::isRequested()) {
            m_tool.hand().noteArrival();
            return true;
        }
        if (m_answer.status() == ExitStatus::OverCurrent)
            m_tool.hand().halt();
        return false;
    }

    void writeResult()
    {
        m_answer.data.insert(QStringLiteral("steps"), m_steps);
        if (m_omitted > 0)
            m_answer.data.insert(QStringLiteral("stepsOmitted"), m_omitted);
    }

private:
    void addStep(const StepPeaks& peaks)
    {
        if (m_tool.options().json)
            keepStep(peaks);
        m_tool.output().note(
            QStringLiteral("Step %1: %2 ms").arg(peaks.step + 1).arg(peaks.milliseconds));
    }

    void keepStep(const StepPeaks& peaks)
    {
        if (m_steps.size() == MaxSteps)
            ++m_omitted;
        else
            m_steps.append(peaks.toJson());
    }

    void failAt(const QString& error)
    {
        if (m_overCurrent)
            m_answer.fail(ExitStatus::OverCurrent, error);
        else if (m_result != 0)
            m_answer.fail(Connection::failureStatus(m_tool.hand().target(),
                                                    static_cast<std::uint8_t>(m_result)),
                          error, m_result, m_subError);
        else
            m_answer.fail(ExitStatus::NoAnswer,
                          error.isEmpty() ? QStringLiteral("The step could not be sent.") : error,
                          ResultCode::Timeout);
    }

    Tool& m_tool;
    Answer& m_answer;
    SequencePlayer m_player;
    QJsonArray m_steps;
    qint64 m_omitted = 0; ///< steps that are not in m_steps
    bool m_overCurrent = false;
    int m_result = 0;
    int m_subError = 0;
};

void play(Tool& tool, Arguments& arguments, Answer& answer)
{
    SequenceManager manager;
    if (!load(arguments.values.value(0), manager, answer))
        return;
    const SequenceData& data = manager.sequenceData();
    const auto count = static_cast<int>(data.sequences.size());
    if (count == 0) {
        answer.fail(ExitStatus::File, QStringLiteral("The sequence has no steps."));
        return;
    }
    const auto step = [&](const char* option, int otherwise) {
        return arguments.has(option)
                   ? arguments.number(arguments.option(option), "A step", 1, count)
                   : otherwise;
    };
    const int first = step("--from", 1);
    const int last = step("--to", count);
    const int repeat = arguments.has("--repeat")
                           ? arguments.number(arguments.option("--repeat"), "The number", 1,
                                              std::numeric_limits<int>::max())
                           : 1;
    if (last < first)
        arguments.setError(QStringLiteral("Step %1 comes before step %2.").arg(last).arg(first));
    if (!arguments.error().isEmpty() || !tool.hand().open())
        return;
    Playback playback(tool, answer);
    for (int i = 0; i < repeat; ++i)
        if (!playback.playOnce(data, first - 1, last))
            break;
    playback.writeResult();
}
} // namespace

std::vector<Command> playCommands()
{
    return {{"play",
             "Play a sequence",
             Effect::Writes,
             false,
             {{"file", 1, 1, "A sequence file"}},
             {{"--from", "STEP", 1, "First step, counted from 1"},
              {"--to", "STEP", 1, "Last step"},
              {"--repeat", "TIMES", 1, "Number of repetitions; 1 if omitted"}},
             play}};
}

} // namespace vanto

#include "playcommand.moc"
