#include "tool.h"

#include "deviceentry.h"
#include "eventwait.h"
#include "interruption.h"

#include <QJsonDocument>
#include <QScopeGuard>

#include <cstdlib>

#include <termios.h>
#include <unistd.h>

namespace vanto
{

namespace
{
/// For so long after the first Ctrl-C a second one halts the fingers.
constexpr int SecondSignalMs = 430;
/// The program ends this long after a signal, whatever it waits for.
constexpr int LongestEndMs = 470;
} // namespace

Tool::Tool(GeneralOptions options)
    : m_options(std::move(options)),
      m_output(m_options.quiet, m_options.json),
      m_hand(m_options),
      m_secondSignal(QDeadlineTimer::Forever)
{
}

Tool::~Tool() = default;

LineInput& Tool::input()
{
    if (!m_input)
        m_input = std::make_unique<LineInput>();
    return *m_input;
}

void Tool::perform(const Command& command, Arguments& arguments, Answer& answer)
{
    m_hand.reportTo(&answer);
    if (command.effect == Effect::Writes && m_hand.node() == AnyNode && !m_options.anyNode)
        answer.fail(ExitStatus::Usage,
                    QStringLiteral("Node 255 stands for every hand on the bus. Writing to it "
                                   "needs --any-node."));
    else
        command.run(*this, arguments, answer);
    // What is not sent reports nothing.
    if (command.effect != Effect::NoHand && !answer.hasFailed() && m_hand.isOpen())
        m_hand.isReady();
    if (!arguments.error().isEmpty())
        answer.fail(ExitStatus::Usage, arguments.error());
    m_hand.reportTo(nullptr);
}

ExitStatus Tool::run(const Command& command, Arguments& arguments)
{
    Answer answer;
    m_command = &command;
    m_answer = &answer;
    Interruption interruption;
    connect(&interruption, &Interruption::sig_requested, this, [this] {
        if (m_secondSignal.isForever()) {
            m_secondSignal.setRemainingTime(SecondSignalMs, Qt::PreciseTimer);
            QTimer::singleShot(LongestEndMs, Qt::PreciseTimer, this, &Tool::endLate);
        }
        m_hand.stop();
        emit sig_interrupted();
    });
    if (command.effect != Effect::NoHand && !m_options.node)
        answer.fail(ExitStatus::Usage,
                    QStringLiteral("No node is given; use --node or VANTO_NODE."));
    else
        perform(command, arguments, answer);
    m_hand.reportTo(&answer);
    noteInterruption(answer);
    haltIfRequested();
    m_hand.close();
    m_hand.reportTo(nullptr);
    m_output.showProgress(0, 0);
    noteInterruption(answer);
    write();
    return answer.status();
}

/// A command still waits, for example for an absent node.
void Tool::endLate()
{
    const bool willHalt = Interruption::isHaltRequested() && m_hand.hasMoved();
    if (!willHalt && !m_hand.isHalting()) // which may take longer
        endNow();
}

void Tool::endNow()
{
    emit sig_ending();
    noteInterruption(*m_answer);
    write();
    std::_Exit(static_cast<int>(m_answer->status()));
}

void Tool::noteInterruption(Answer& answer)
{
    if (Interruption::isRequested() && answer.status() != ExitStatus::OverCurrent &&
        answer.status() != ExitStatus::Interrupted)
        answer.replaceFailure(ExitStatus::Interrupted, QStringLiteral("Interrupted."));
}

/// A motion that has been sent goes on without a halt.
void Tool::haltIfRequested()
{
    if (!Interruption::isRequested() || !m_hand.hasMoved() || !m_hand.isOpen() ||
        m_answer->data.contains(Connection::HaltedMember)) // the command has tried it
        return;
    if (!Interruption::isHaltRequested()) {
        m_output.note(QStringLiteral("The fingers go on to their targets. A second Ctrl-C within "
                                     "half a second halts them."));
        if (!waitUntil([] { return Interruption::isHaltRequested(); },
                       static_cast<int>(m_secondSignal.remainingTime())))
            return;
    }
    if (m_hand.haltMoved())
        m_output.note(Halt::stateText(Halt::State::Halted));
}

void Tool::write()
{
    Answer& answer = *m_answer;
    if (m_options.json && (!m_hasWritten || answer.hasFailed()))
        m_output.write(QJsonDocument(answer.toJson(QLatin1String(m_command->name)))
                           .toJson(QJsonDocument::Compact) +
                       '\n');
    else if (!m_options.json)
        m_output.write(answer.text.toUtf8());
    if (m_output.problem() == Output::Problem::Failed)
        answer.fail(ExitStatus::File, m_output.problemText());
    if (answer.hasFailed() && !answer.reason().isEmpty())
        m_output.error(answer.reason());
}

bool Tool::confirm(const QString& prompt)
{
    return ask(prompt).has_value();
}

bool Tool::askYesNo(const QString& question)
{
    if (isatty(STDIN_FILENO) == 0)
        return false;
    const QString answer = ask(question + QStringLiteral(" [y/N]")).value_or(QString());
    return answer.startsWith(QLatin1Char('y'), Qt::CaseInsensitive);
}

std::optional<QString> Tool::ask(const QString& prompt, bool isSecret)
{
    // Keys that were typed earlier do not answer a question that the user has not seen.
    if (isatty(STDIN_FILENO) != 0) {
        tcflush(STDIN_FILENO, TCIFLUSH);
        input().discard();
    }
    if (!prompt.isEmpty())
        m_output.prompt(prompt);
    termios settings = {};
    const bool hideEcho = isSecret && tcgetattr(STDIN_FILENO, &settings) == 0;
    if (hideEcho) {
        termios silent = settings;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    const auto restore = qScopeGuard([&] {
        if (!hideEcho)
            return;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &settings);
        m_output.endHiddenLine();
    });
    LineInput& lines = input();
    waitUntil([&] { return lines.hasLine() || lines.hasEnded() || Interruption::isRequested(); });
    if (!lines.hasLine() || Interruption::isRequested())
        return {};
    return QString::fromUtf8(lines.takeLine().text);
}

} // namespace vanto
