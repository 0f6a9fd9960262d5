#pragma once

#include "connection.h"
#include "lineinput.h"
#include "output.h"

#include <QDeadlineTimer>

#include <memory>

namespace vanto
{

/// What the commands work with: the hand, the output and the user.
class Tool : public QObject
{
    Q_OBJECT
public:
    explicit Tool(GeneralOptions options);
    ~Tool() override;

    const GeneralOptions& options() const { return m_options; }
    Connection& hand() { return m_hand; }
    Output& output() { return m_output; }
    LineInput& input();

    /// Runs a command, halts the fingers if a signal demands it, and writes the answer.
    ExitStatus run(const Command& command, Arguments& arguments);
    /// Runs a command without writing its answer.
    void perform(const Command& command, Arguments& arguments, Answer& answer);

    /// Shows a text and waits for the Return key. False at the end of the input or at a signal.
    bool confirm(const QString& prompt);
    /// Shows a text and reads a line, without echo if it is a secret.
    std::optional<QString> ask(const QString& prompt, bool isSecret = false);
    /// Asks a question that is answered by "y". Without a terminal the answer is no.
    bool askYesNo(const QString& question);

    /// Ends the program after a signal, within a command that cannot end at once.
    [[noreturn]] void endNow();
    /// After a signal the failure is that.
    static void noteInterruption(Answer& answer);

    /// The command has written its results itself.
    void setHasWritten() { m_hasWritten = true; }

signals:
    /// SIGINT, SIGTERM, SIGHUP or SIGQUIT has arrived; nothing more is sent.
    void sig_interrupted();
    /// The program is about to end without a return from the command.
    void sig_ending();

private:
    void endLate();
    void haltIfRequested();
    void write();

    GeneralOptions m_options;
    Output m_output;
    Connection m_hand;
    std::unique_ptr<LineInput> m_input;
    const Command* m_command = nullptr; ///< the one that runs
    Answer* m_answer = nullptr;
    QDeadlineTimer m_secondSignal; ///< until when a second Ctrl-C is awaited
    bool m_hasWritten = false;
};

} // namespace vanto
