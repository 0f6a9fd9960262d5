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
/// After the first Ctrl-C a second one halts the fingers.
constexpr int SecondSignalMs = 250;
/// The program ends this long after a signal, whatever it waits for.
constexpr int LongestEndMs = 480;
} // namespace

Tool::Tool(GeneralOptions options)
    : m_options(std::move(options)), m_output(m_options.quiet, m_options.json), m_hand(m_options)
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
    Interruption interruption;
    connect(&interruption, &Interruption::sig_requested, this, [&] {
        m_hand.stop();
        emit sig_interrupted();
        QTimer::singleShot(LongestEndMs, this, [&] { endNow(command, answer); });
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
    write(command, answer);
    return answer.status();
}

/// Ends the program within a command that still waits, for example for an absent node.
void Tool::endNow(const Command& command, Answer& answer)
{
    const bool willHalt = Interruption::isHaltRequested() && m_hand.hasMoved();
    if (willHalt || m_hand.isHalting())
        return; // which may take longer
    noteInterruption(answer);
    write(command, answer);
    std::_Exit(static_cast<int>(answer.status()));
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
    if (!Interruption::isRequested() || !m_hand.hasMoved() || !m_hand.isOpen())
        return;
    if (!Interruption::isHaltRequested()) {
        m_output.note(QStringLiteral("The fingers go on to their targets. Ctrl-C halts them."));
        if (!waitUntil([] { return Interruption::isHaltRequested(); }, SecondSignalMs))
            return;
    }
    if (m_hand.haltMoved())
        m_output.note(Halt::stateText(Halt::State::Halted));
}

void Tool::write(const Command& command, Answer& answer)
{
    if (m_options.json && (!m_hasWritten || answer.hasFailed()))
        m_output.write(QJsonDocument(answer.toJson(QLatin1String(command.name)))
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
    m_output.prompt(prompt);
    termios settings = {};
    const bool hideEcho = isSecret && tcgetattr(STDIN_FILENO, &settings) == 0;
    if (hideEcho) {
        termios silent = settings;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    const auto restore = qScopeGuard([&] {
        if (hideEcho)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &settings);
    });
    LineInput& lines = input();
    waitUntil([&] { return lines.hasLine() || lines.hasEnded() || Interruption::isRequested(); });
    if (!lines.hasLine() || Interruption::isRequested())
        return {};
    return QString::fromUtf8(lines.takeLine().text);
}

} // namespace vanto
