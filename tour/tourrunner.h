#pragma once

#include "dialogwatch.h"
#include "handprocess.h"
#include "windowdriver.h"

#include <deque>
#include <span>

namespace vanto
{

class TourRunner;

/// A step of the tour. `run` operates the window, adds failures to `tour` and returns a summary.
struct Step {
    const char* name;
    QString (*run)(TourRunner& tour);
};

/// The variants of a tour.
struct TourOptions {
    bool modbus;  ///< whether the hand that the steps operate uses Modbus
    bool english; ///< whether the window is in English
};

/// Runs the steps with the window and the simulated hands, and records failures.
class TourRunner : public WindowDriver
{
public:
    /// Screenshots are saved in `folder`, which must exist.
    TourRunner(HandProcess& hands, QString folder, TourOptions options);

    /// Runs the steps in order until one fails. Prints a line and saves a screenshot for each.
    /// Returns whether all of them succeeded.
    bool run(std::span<const Step> steps);

    /// Makes the current step fail.
    void addFailure(const QString& what) { m_failures.append(what); }
    void expect(const QString& what, const QString& actual, const QString& expected);
    /// The same for a text of the window, which is only checked in English.
    void expectText(const QString& what, const QString& actual, const QString& expected);

    /// Adds a failure if the button is disabled.
    void click(const QString& button);
    /// Runs `open`, which shows one dialog, and answers the dialog.
    void withDialog(const std::function<void()>& open, DialogWatch::Answer answer);
    /// The same with several successive dialogs.
    void withDialogs(const std::function<void()>& open, std::deque<DialogWatch::Answer> answers);
    /// Processes events until the condition is true; adds a failure on a time-out.
    void waitFor(const QString& what, const std::function<bool()>& condition);

    bool modbus() const { return m_options.modbus; }
    bool english() const { return m_options.english; }
    QString portName() const { return m_hands.portName(); }
    /// Sends a control command to the hands and returns their answer without the leading "ok".
    QString command(const QString& line);

    /// Saves a screenshot in addition to the one at the end of every step. A dialog or a
    /// menu is drawn over the window.
    void saveScreenshot(const QString& suffix, QWidget* popup = nullptr);

private:
    bool runStep(const Step& step);
    void answer(QDialog& dialog);

    HandProcess& m_hands;
    QString m_folder;
    TourOptions m_options;
    QString m_stepName; ///< number and name, e.g. "03-port"
    QStringList m_failures;
    std::deque<DialogWatch::Answer> m_answers; ///< for the next dialogs, one each
    DialogWatch m_dialogs{[this](QDialog& dialog) { answer(dialog); }};
};

/// Answers a file dialog with this file and saves a screenshot of it.
DialogWatch::Answer answerWithFile(TourRunner& tour, const QString& name);

} // namespace vanto
