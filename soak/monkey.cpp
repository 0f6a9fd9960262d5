#include "monkey.h"

#include "conversation.h"
#include "messagelog.h"
#include "monitor.h"
#include "motiongate.h"

#include <QApplication>
#include <QComboBox>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>
#include <numeric>
#include <utility>

namespace vanto
{

namespace
{
constexpr int MaxPauseMs = 120;
constexpr int CheckIntervalMs = 100;
constexpr int PhaseMs = 6000;
constexpr int SettleMs = 3000; ///< until what was begun before a quiet phase is requested
constexpr int MaxSettleMs = 30'000;
constexpr int IdleCheckMs = 10;
constexpr int MaxNesting = 4;
constexpr int StuckMs = 60'000; ///< without an action; includes the time of an update
constexpr int CloseRetryMs = 200;

QString dialogText(const QWidget* dialog)
{
    if (const auto* box = qobject_cast<const QMessageBox*>(dialog))
        return box->text();
    if (const auto* progress = qobject_cast<const QProgressDialog*>(dialog))
        return progress->labelText();
    return dialog ? dialog->windowTitle() : QString();
}
} // namespace

const std::vector<Monkey::Action>& Monkey::actionTable()
{
    static const std::vector<Action> actions{
        {"click", 20, false, false, &Monkey::clickRandomButton},
        {"click that moves", 14, true, false, &Monkey::clickMotionButton},
        {"page", 14, false, false, &Monkey::changePage},
        {"key", 10, false, false, &Monkey::pressKey},
        {"type", 10, false, false, &Monkey::enterRandomText},
        {"slider", 12, true, false, &Monkey::dragSlider},
        {"choice", 5, false, false, &Monkey::changeComboBox},
        {"device", 3, false, true, &Monkey::changeDevice},
        {"port", 1, false, true, &Monkey::changePort},
        {"connect", 4, false, true, &Monkey::reconnect},
        {"row", 8, true, false, &Monkey::selectRow},
        {"stop", 5, false, false, &Monkey::stopSequence},
        {"halt", 3, false, false, &Monkey::pressHalt},
        {"menu", 2, false, false, &Monkey::triggerAction},
        {"parameters", 10, false, false, &Monkey::useParameters},
        {"edit", 12, false, false, &Monkey::editSequence},
        {"insert before", 2, true, false, &Monkey::insertBefore},
        {"typed target", 4, true, false, &Monkey::typeTarget},
        {"repetition", 2, false, false, &Monkey::changeRepetition},
        {"monitor", 10, false, false, &Monkey::useMonitor},
        {"modeless", 6, false, false, &Monkey::useModelessDialog},
        {"fault", 25, false, false, &Monkey::injectFault},
        {"cable", 1, false, true, &Monkey::interruptConnection},
        {"silence", 1, false, true, &Monkey::silenceHands},
    };
    return actions;
}

Monkey::Monkey(HandProcess& hand, Monitor& monitor, std::uint32_t seed)
    : m_hand(hand),
      m_monitor(monitor),
      m_random(seed),
      m_driver({hand.portName()}),
      m_dialogs([this](QDialog& dialog) {
          // Queued: an answer can open the next dialog, and would block the timer of DialogWatch.
          if (!qobject_cast<QProgressDialog*>(&dialog))
              QTimer::singleShot(0, &dialog, [this, &dialog] { answerDialog(&dialog); });
      })
{
}

void Monkey::start(int seconds)
{
    startTimer(CheckIntervalMs);
    leaveDrafts();
    m_scanText = m_driver.find<QPushButton>("pushButton_ScanDevices")->text();
    m_stuckMs = std::min(StuckMs, 1000 * seconds / 2);
    m_sinceAction.start();
    connect(m_driver.window()->findChild<MessageLog*>(), &MessageLog::sig_added, this,
            [this](const QString& line) {
                if (line.endsWith(QLatin1String("Reconnected")))
                    ++m_counts[QStringLiteral("reconnection")];
            });
    QTimer::singleShot(seconds * 1000, this, [this] { closeWindow(); });
    reconnect();
    scheduleAction();
    changePhase();
}

/// Retries, as the window does not close while it writes firmware.
void Monkey::closeWindow()
{
    m_closing = true;
    if (!m_driver.window()->close())
        QTimer::singleShot(CloseRetryMs, this, [this] { closeWindow(); });
}

/// Each action first schedules the next one, as it can wait for the hand in an event loop.
void Monkey::scheduleAction()
{
    if (m_closing)
        return;
    QTimer::singleShot(randomBelow(MaxPauseMs), this, [this] {
        scheduleAction();
        if (m_nesting >= MaxNesting || QApplication::activeModalWidget())
            return;
        const auto& actions = actionTable();
        int choice = randomBelow(
            std::accumulate(actions.begin(), actions.end(), 0,
                            [](int sum, const Action& action) { return sum + action.weight; }));
        auto chosen = std::find_if(actions.begin(), actions.end(), [&choice](const Action& action) {
            return (choice -= action.weight) < 0;
        });
        if ((m_quiet && chosen->movesFinger) || (chosen->changesConnection && !m_left.hasExpired()))
            return;
        if (m_driver.devices()->count() == 0 && randomBelow(3) == 0)
            chosen = std::find_if(actions.begin(), actions.end(), [](const Action& action) {
                return action.run == &Monkey::reconnect;
            });
        m_sinceAction.start();
        m_monitor.noteAction(chosen->name);
        ++m_actions;
        ++m_counts[QLatin1String(chosen->name)];
        ++m_nesting;
        (this->*chosen->run)();
        --m_nesting;
    });
}

void Monkey::changePhase()
{
    m_quiet = ++m_phase % 2 == 0;
    if (m_streams)
        setStreaming(!m_quiet); // otherwise the line would hardly be idle for a quiet phase
    if (m_quiet) {
        stopSequence();
        if (auto* pages = m_driver.find<QTabWidget>("tabWidget"); pages->isEnabled())
            pages->setCurrentIndex(0); // clears the queue of the Run page
        m_settling.setRemainingTime(MaxSettleMs);
        m_wasIdle = false;
        QTimer::singleShot(SettleMs, this, [this] { beginQuietPhase(); });
    } else {
        QTimer::singleShot(PhaseMs, this, [this] {
            m_monitor.checkTrace();
            changePhase();
        });
    }
}

/// Begins when the requests from before have been sent: with long time-outs this takes long. At the
/// end of a conversation the waiting requests are sent by the event loop, so the line must be idle
/// twice.
void Monkey::beginQuietPhase()
{
    stopSequence();
    const bool isIdle = !Conversation::isActive();
    if (!std::exchange(m_wasIdle, isIdle) || !isIdle) {
        if (!m_settling.hasExpired()) {
            QTimer::singleShot(IdleCheckMs, this, [this] { beginQuietPhase(); });
            return;
        }
        ++m_counts[QStringLiteral("omitted quiet phase")];
        changePhase();
        return;
    }
    // A halt that has not been confirmed yet is repeated until it is.
    m_monitor.allowHalt(MotionGate::state() == MotionGate::State::Closed);
    m_monitor.beginQuietPhase();
    QTimer::singleShot(PhaseMs, this, [this] {
        m_monitor.endQuietPhase();
        changePhase();
    });
}

/// Checks whether the window still accepts actions.
void Monkey::timerEvent(QTimerEvent*)
{
    if (!m_sinceAction.hasExpired(m_stuckMs))
        return;
    m_sinceAction.start();
    const QWidget* modal = QApplication::activeModalWidget();
    m_monitor.addFinding(
        QStringLiteral("no action is possible; %1 actions are waiting, %2 is open with '%3'")
            .arg(m_nesting)
            .arg(QLatin1String(modal ? modal->metaObject()->className() : "no dialog"),
                 dialogText(modal)));
}

} // namespace vanto
