#include "calibrationprocedure.h"

#include "calibratingdialog.h"
#include "calibration.h"
#include "conversation.h"
#include "devicebar.h"
#include "fingers.h"
#include "haltcontrol.h"
#include "parameterbackups.h"
#include "program.h"
#include "statusreporter.h"

#include <QDeadlineTimer>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QTimer>

#include <functional>
#include <optional>
#include <utility>

namespace vanto
{

namespace
{
constexpr int EventSliceMs = 10; ///< longest sleep between two reads of the clock

/// Moves the thumb root, one move at a time. A position requested during a move follows it; of
/// several only the last one counts.
class ThumbRootMover
{
public:
    ThumbRootMover(const HandTarget& target, StatusReporter* reporter)
        : m_target(target), m_reporter(reporter)
    {
    }

    void moveTo(int position)
    {
        m_requested = static_cast<std::uint16_t>(position);
        if (m_moving)
            return;
        const QScopedValueRollback moving(m_moving, true);
        HandCall call(m_target, m_reporter->timeoutReport());
        while (m_requested && call.isCurrent()) {
            const auto next = std::exchange(m_requested, std::nullopt);
            const std::uint8_t result = Calibration::moveThumbRoot(call, *next);
            if (m_cancelled)
                return; // cancelled, which is not a failure of the hand
            m_failed = !call.accept<&VantoProtocol::setFingerPosAbs>(result);
        }
    }

    /// Sends nothing more, not even the rest of the current move.
    void cancel()
    {
        m_cancelled = true;
        m_requested.reset();
        Exchange::abandon();
    }
    /// Whether the last move has failed.
    bool failed() const { return m_failed; }

private:
    const HandTarget& m_target;
    StatusReporter* m_reporter;
    std::optional<std::uint16_t> m_requested;
    bool m_moving = false;
    bool m_cancelled = false;
    bool m_failed = false;
};
} // namespace

CalibrationProcedure::CalibrationProcedure(QWidget* window, DeviceSession* session,
                                           StatusReporter* reporter, const DeviceBar* deviceBar,
                                           ParameterBackups* backups)
    : m_window(window),
      m_session(session),
      m_reporter(reporter),
      m_deviceBar(deviceBar),
      m_backups(backups)
{
}

void CalibrationProcedure::run(const HandTarget& target)
{
    m_session->dropRequests(); // minutes later the user would not expect them
    const ControlLock lock = m_deviceBar->lockWindow(DeviceBar::Usable::Nothing);
    std::uint16_t key = 0;
    const std::initializer_list<std::function<bool()>> steps{
        [&] { return confirm(Prompt::Prepare); },
        [&] { return backUp(target); },
        [&] { return requestKey(target, key); },
        [&] { return confirm(Prompt::BeforeReboot); },
        [&] { return startCalibrating(target, key); },
        [&] { return confirm(Prompt::AfterReboot); },
        [&] { return positionThumbRoot(target, Calibration::promptText(Prompt::OnBase)); },
        [&] { return pressButtonAndWait(target, 1); },
        [&] { return confirm(Prompt::TakeUp); },
        [&] { return pressButtonAndWait(target, 2); },
        [&] { return positionThumbRoot(target, Calibration::promptText(Prompt::OffBase)); },
        [&] { return pressButton(target, 3); },
    };
    for (const auto& step : steps) {
        if (!step() || !target.isCurrent())
            return;
        m_session->openWaitingDialogs();
        if (!target.isCurrent())
            return;
    }
    QMessageBox box(QMessageBox::Information, Program::title(),
                    Calibration::promptText(Prompt::Finished), QMessageBox::Ok, m_window);
    exec(box);
}

/// Runs a dialog with a Halt button, which ends the procedure.
int CalibrationProcedure::exec(QDialog& dialog)
{
    dialog.sizeHint(); // creates the buttons of an input dialog
    auto* buttons = dialog.findChild<QDialogButtonBox*>();
    m_deviceBar->haltControl()->addTo(buttons);
    QObject::connect(m_session, &DeviceSession::sig_interrupted, &dialog, &QDialog::reject,
                     Qt::UniqueConnection);
    return dialog.exec();
}

bool CalibrationProcedure::confirm(Prompt prompt)
{
    QMessageBox box(QMessageBox::Information, Program::title(), Calibration::promptText(prompt),
                    QMessageBox::Ok | QMessageBox::Cancel, m_window);
    return exec(box) == QMessageBox::Ok;
}

/// The calibration goes on without a backup if the hand cannot be read.
bool CalibrationProcedure::backUp(const HandTarget& target)
{
    m_backups->save(target);
    return true;
}

bool CalibrationProcedure::requestKey(const HandTarget& target, std::uint16_t& key)
{
    QInputDialog dialog(m_window);
    dialog.setWindowTitle(Program::title());
    dialog.setLabelText(Calibration::promptText(Prompt::Key));
    dialog.setTextEchoMode(QLineEdit::Password);
    if (exec(dialog) != QDialog::Accepted || !target.isCurrent())
        return false;
    const auto entered = Calibration::parseKey(dialog.textValue());
    if (!entered)
        QMessageBox::critical(m_window, Program::title(), Calibration::invalidKeyText());
    key = entered.value_or(key);
    return entered.has_value();
}

bool CalibrationProcedure::startCalibrating(const HandTarget& target, std::uint16_t key)
{
    HandCall call(target, m_reporter->timeoutReport());
    m_session->identity().calibration.reset(); // the hand is about to change it
    return Calibration::start(call, m_reporter->timeoutReport(), key) != Calibration::Start::Failed;
}

bool CalibrationProcedure::positionThumbRoot(const HandTarget& target, const QString& prompt)
{
    std::uint16_t unusedTarget = 0;
    std::uint16_t current = 0;
    {
        HandCall call(target, m_reporter->timeoutReport());
        if (!call.perform<&VantoProtocol::getFingerPosAbs>(std::uint8_t{ThumbRoot}, &unusedTarget,
                                                           &current))
            return false;
    }
    ThumbRootMover mover(target, m_reporter);
    // Moves run in the dialog's event loop, so it ends after the last of them.
    bool failedAfterOk = false;
    CalibratingDialog dialog(m_window, prompt, current, Calibration::ThumbRootStep,
                             [&](int position) {
                                 mover.moveTo(position);
                                 failedAfterOk = mover.failed() && !dialog.isOpen();
                             });
    QObject::connect(&dialog, &QDialog::rejected, &dialog, [&mover] { mover.cancel(); });
    int answer = QDialog::Rejected;
    do {
        failedAfterOk = false;
        answer = exec(dialog);
    } while (answer == QDialog::Accepted && failedAfterOk && target.isCurrent());
    return answer == QDialog::Accepted;
}

bool CalibrationProcedure::pressButton(const HandTarget& target, std::uint8_t count)
{
    HandCall call(target, m_reporter->timeoutReport());
    return call.perform<&VantoProtocol::setButtonPressedCnt>(count);
}

bool CalibrationProcedure::pressButtonAndWait(const HandTarget& target, std::uint8_t count)
{
    const LineHold line; // keeps other requests from the busy hand
    if (!pressButton(target, count))
        return false;
    const QDeadlineTimer deadline(stageMs);
    QTimer slices;
    slices.start(EventSliceMs);
    while (!deadline.hasExpired() && target.isCurrent()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (target.isCurrent()) // otherwise what waits for the line comes first
            emit ConversationMonitor::instance().sig_pause();
    }
    return true;
}

} // namespace vanto
