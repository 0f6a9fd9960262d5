#pragma once

#include "dialogwatch.h"
#include "handprocess.h"
#include "windowdriver.h"

#include <deque>
#include <span>

namespace vanto
{

class Stage;

/// One stop of the tour. `run` drives the window, complains to the stage of what is wrong and
/// returns what was seen, in a few words.
struct Step {
    const char* name;
    QString (*run)(Stage& stage);
};

/// What differs from one tour to the next.
struct TourManner {
    bool modbus;  ///< the hand with which the steps work speaks Modbus
    bool english; ///< the language of the window
};

/// The window and the simulated hands, and what the steps do with them.
class Stage : public WindowDriver
{
public:
    /// Pictures go to `folder`, which must exist.
    Stage(HandProcess& hands, QString folder, TourManner manner);

    /// Runs the steps in order up to the first that fails; a line on standard output and a
    /// picture for each. True when all of them worked.
    bool play(std::span<const Step> steps);

    /// The step that runs fails because of this.
    void complain(const QString& what) { m_complaints.append(what); }
    void expect(const QString& what, const QString& seen, const QString& wanted);
    /// The same for what the window says; in other languages only the pictures tell.
    void expectText(const QString& what, const QString& seen, const QString& wanted);

    /// Complains if the button is disabled.
    void click(const QString& button);
    /// Runs `open`, which shows one dialog, and has it answered.
    void withDialog(const std::function<void()>& open, DialogWatch::Answer answer);
    /// The same with several dialogs that follow each other.
    void withDialogs(const std::function<void()>& open, std::deque<DialogWatch::Answer> answers);
    /// Waits for a condition while events are processed; complains when it never comes true.
    void await(const QString& what, const std::function<bool()>& condition);

    bool modbus() const { return m_manner.modbus; }
    bool english() const { return m_manner.english; }
    QString portName() const { return m_hands.portName(); }
    /// What the hands answer to a command, without the leading "ok".
    QString askHands(const QString& command);

    /// A picture beside the one that is taken at the end of every step. With a dialog, it is
    /// shown over the window.
    void takePicture(const QString& suffix, QDialog* dialog = nullptr);

private:
    bool playStep(const Step& step);
    void answer(QDialog& dialog);

    HandProcess& m_hands;
    QString m_folder;
    TourManner m_manner;
    QString m_stepName; ///< number and name, e.g. "03-port"
    QStringList m_complaints;
    std::deque<DialogWatch::Answer> m_answers; ///< for the next dialogs, one each
    DialogWatch m_dialogs{[this](QDialog& dialog) { answer(dialog); }};
};

/// Answers a file dialog with this file and takes a picture of it.
DialogWatch::Answer withFile(Stage& stage, const QString& name);

} // namespace vanto
