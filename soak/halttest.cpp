#include "halttest.h"

#include "calibrationprocedure.h"
#include "conversation.h"
#include "devicebar.h"
#include "dialogwatch.h"
#include "haltcontrol.h"
#include "haltrecord.h"
#include "handclock.h"
#include "handprocess.h"
#include "messagelog.h"
#include "monitor.h"
#include "sequencemanager.h"
#include "windowdriver.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRandomGenerator>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <vector>

namespace vanto
{

namespace
{
constexpr int HandNode = 1;
constexpr int FingerTotal = 6;
constexpr int RowCount = 30;
constexpr int MaxPosition = 65535;
constexpr int MaxStep = 20'000; ///< of a position of the sequence; a step lasts up to 300 ms
constexpr int MovingFingers = 3;
constexpr int ClicksInRow = 10;
constexpr int SpinSteps = 40;
constexpr int MaxSpinMs = 150;

constexpr int IdleLimitMs = 2000;
constexpr int HaltLimitMs = 1000;
constexpr int MessageLimitMs = 300;
constexpr int ContinueAfterMs = 710; ///< an earlier click halts once more
constexpr int EarlyAfterMs = 350;
constexpr int EarlyClickEvery = 8;
constexpr int AfterContinueMs = 60;
constexpr int PollMs = 2;

constexpr QLatin1String PlainKind("plain");
constexpr QLatin1String HaltButton("pushButton_Halt");
constexpr QLatin1String RefusedText("Halted. Press Continue.");

/// What the window does at the press.
enum Action {
    InPlay,
    InPose,
    SliderReleased,
    SliderHeld,
    SetClicked,
    Inserted,
    GainsWritten,
    Reloading,
    Calibrating,
    ActionCount
};
struct ActionInfo {
    const char* name;
    int page;
    int maxMs; ///< until the press
};
constexpr std::array<ActionInfo, ActionCount> Actions{{{"play", SequenceTab, 600},
                                                       {"preparation pose", SequenceTab, 300},
                                                       {"slider release", RunTab, 150},
                                                       {"held slider", RunTab, 150},
                                                       {"ten clicks on Set", RunTab, 100},
                                                       {"Insert", SequenceTab, 200},
                                                       {"gains", SettingTab, 25},
                                                       {"reload", BasicTab, 60},
                                                       {"calibration", BasicTab, 1}}};

class HaltCampaign : public QObject
{
public:
    HaltCampaign(HandProcess& hand, Monitor& monitor, std::uint32_t seed, int patience);

    void run(int count);
    void printSummary(const QString& title, std::uint32_t seed);

private:
    int between(int least, int most) { return m_random.bounded(least, most + 1); }
    QString numbered(const char* name, int finger) const
    {
        return QLatin1String(name) + QString::number(finger);
    }
    QString stateText() const
    {
        return m_driver.find<QLabel>(QStringLiteral("label_ConnectionState"))->text();
    }
    bool waitFor(const std::function<bool()>& condition, int limitMs) const;
    void waitUntil(double ms) const
    {
        waitFor([=, this] { return m_clock.now() > ms; }, IdleLimitMs);
    }
    bool openPage(int page);
    void addFinding(const QString& what);
    void noteMessage(const QString& line);
    void noteState();

    void loadSequence();
    void answerDialog(QDialog& dialog);
    void spin(QDialog& dialog, QSpinBox& spinBox);
    void moveFinger(int finger);
    void releaseSlider(int finger, bool held);
    void runHalt();
    void act();
    void press();
    void useWindow();
    void proceed();
    void checkHalt();

    HandProcess& m_hand;
    Monitor& m_monitor;
    HandClock m_clock;
    QRandomGenerator m_random;
    int m_patience;
    WindowDriver m_driver;
    DialogWatch m_dialogs;
    Halt* m_halt;
    QTimer m_pressTimer;

    std::vector<Action> m_actions; ///< still to come, before each has its turn again
    Action m_action = InPlay;
    HaltMoments m_moments;
    QSlider* m_heldSlider = nullptr;
    bool m_wasFar[FingerTotal] = {};
    int m_refusals = 0;

    int m_remaining = 0;
    int m_earlyClicks = 0;
    std::array<int, ActionCount> m_counts{};
    HaltTotals m_totals;
};

HaltCampaign::HaltCampaign(HandProcess& hand, Monitor& monitor, std::uint32_t seed, int patience)
    : m_hand(hand),
      m_monitor(monitor),
      m_clock(hand, HandNode),
      m_random(seed),
      m_patience(patience),
      m_driver({hand.portName()}),
      m_dialogs([this](QDialog& dialog) {
          // Queued, as an answer can open the next dialog.
          QTimer::singleShot(0, &dialog, [this, &dialog] { answerDialog(dialog); });
      }),
      m_halt(&m_driver.find<DeviceBar>(QStringLiteral("deviceBar"))->haltControl()->halt())
{
    m_pressTimer.setSingleShot(true);
    m_pressTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_pressTimer, &QTimer::timeout, this, &HaltCampaign::press);
    connect(m_halt, &Halt::sig_stateChanged, this, &HaltCampaign::noteState);
    const auto* log = m_driver.window()->findChild<MessageLog*>();
    connect(log, &MessageLog::sig_added, this, &HaltCampaign::noteMessage);
    connect(log, &MessageLog::sig_repeated, this,
            [this](int, const QString& line) { noteMessage(line); });
}

void HaltCampaign::run(int count)
{
    m_driver.openHand(m_hand.portName());
    m_hand.command(QStringLiteral("set %1 reboot-time 0").arg(HandNode));
    loadSequence();
    for (m_remaining = count; m_remaining > 0; --m_remaining)
        runHalt();
}

bool HaltCampaign::waitFor(const std::function<bool()>& condition, int limitMs) const
{
    QElapsedTimer timer;
    timer.start();
    QTimer slices;
    slices.start(PollMs);
    while (!condition()) {
        if (timer.hasExpired(limitMs))
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void HaltCampaign::addFinding(const QString& what)
{
    m_monitor.addFinding(QStringLiteral("%1 (%2 to go): %3")
                             .arg(QLatin1String(Actions.at(m_action).name))
                             .arg(m_remaining)
                             .arg(what));
}

/// Nothing but the refusals of a halted hand may be reported.
void HaltCampaign::noteMessage(const QString& line)
{
    const QString text = line.section(QLatin1String(" ! "), 1);
    if (text.startsWith(RefusedText))
        ++m_refusals;
    else if (!text.isEmpty())
        addFinding(QStringLiteral("message: ") + text);
}

void HaltCampaign::noteState()
{
    if (m_halt->state() != Halt::State::Halted)
        return;
    (m_moments.secondPress > 0 ? m_moments.secondHalted : m_moments.halted) = m_clock.now();
}

void HaltCampaign::loadSequence()
{
    SequenceManager manager;
    for (int row = 0; row < RowCount; ++row) {
        QList<int> positions;
        for (int finger = 0; finger < FingerTotal; ++finger)
            positions.append(between(0, MaxStep));
        manager.insertSequenceDataItem(row, {positions, QList<int>(FingerTotal, 255), 0});
    }
    QFile file(QDir::current().absoluteFilePath(QStringLiteral("poses.json")));
    manager.saveSequenceData(file);
    openPage(SequenceTab);
    m_driver.click(QStringLiteral("pushButton_SeqLoad"));
}

void HaltCampaign::answerDialog(QDialog& dialog)
{
    if (!dialog.isVisible())
        return;
    if (qobject_cast<QFileDialog*>(&dialog))
        return chooseFile(dialog, QDir::current().absoluteFilePath(QStringLiteral("poses.json")));
    if (auto* spinBox = dialog.findChild<QSpinBox*>(QStringLiteral("spinBox_ThumbRootPos")))
        return spin(dialog, *spinBox);
    if (auto* input = qobject_cast<QInputDialog*>(&dialog))
        input->setTextValue(QStringLiteral("1A2B"));
    if (auto* box = qobject_cast<QMessageBox*>(&dialog))
        box->button(QMessageBox::Ok)->click();
    else
        dialog.accept();
}

/// Moves the thumb root until the halt closes the dialog.
void HaltCampaign::spin(QDialog& dialog, QSpinBox& spinBox)
{
    m_pressTimer.start(between(0, MaxSpinMs));
    auto* steps = new QTimer(&dialog);
    connect(steps, &QTimer::timeout, &spinBox, [this, &spinBox] {
        const bool upwards = spinBox.value() < (spinBox.minimum() + spinBox.maximum()) / 2;
        spinBox.stepBy(upwards ? between(1, SpinSteps) : -between(1, SpinSteps));
    });
    steps->start(10);
}

/// Opens the page and waits until it has been read.
bool HaltCampaign::openPage(int page)
{
    m_driver.showPage(page);
    const bool idle = waitFor([] { return !Conversation::isActive(); }, IdleLimitMs * m_patience);
    if (!idle)
        addFinding(QStringLiteral("the page is not idle"));
    return idle;
}

/// Sends a finger to its other end. The Run page must be open.
void HaltCampaign::moveFinger(int finger)
{
    m_wasFar[finger] = !m_wasFar[finger];
    const int position =
        m_wasFar[finger] ? between(MaxPosition - 5000, MaxPosition) : between(0, 5000);
    m_driver.setField(numbered("lineEdit_RunPos", finger), QString::number(position));
    m_driver.click(numbered("pushButton_RunSetPos", finger));
}

void HaltCampaign::releaseSlider(int finger, bool held)
{
    auto* slider = m_driver.find<QSlider>(numbered("verticalSlider_RunPos", finger));
    slider->setSliderDown(true);
    slider->setSliderPosition(between(0, MaxPosition));
    if (held)
        m_heldSlider = slider;
    else
        slider->setSliderDown(false);
}

void HaltCampaign::runHalt()
{
    if (m_actions.empty()) {
        for (int action = 0; action < ActionCount; ++action)
            m_actions.push_back(static_cast<Action>(action));
        std::shuffle(m_actions.begin(), m_actions.end(), m_random);
    }
    m_action = m_actions.back();
    m_actions.pop_back();
    ++m_counts.at(m_action);
    m_moments = {};
    m_refusals = 0;
    m_monitor.checkTrace(); // clears it
    openPage(RunTab);
    for (int i = 0; i < MovingFingers; ++i)
        moveFinger(between(0, FingerTotal - 1));
    openPage(Actions.at(m_action).page);
    if (m_action != Calibrating)
        m_pressTimer.start(between(0, Actions.at(m_action).maxMs));
    act();
    const auto halted = [this] { return m_moments.halted > 0; };
    if (!waitFor(halted, HaltLimitMs * m_patience) || stateText() != QLatin1String("Halted"))
        addFinding(QStringLiteral("the state is shown as '%1'").arg(stateText()));
    if (!waitFor(halted, IdleLimitMs * m_patience))
        return;
    useWindow();
    proceed();
    checkHalt();
}

void HaltCampaign::act()
{
    const int finger = between(0, FingerTotal - 1);
    switch (m_action) {
    case InPlay:
        return m_driver.click(QStringLiteral("pushButton_SeqRun"));
    case InPose:
        m_driver.find<QTableWidget>(QStringLiteral("tableWidget_Seq"))
            ->setCurrentCell(between(0, RowCount - 1), 0);
        break;
    case SliderReleased:
    case SliderHeld:
        return releaseSlider(finger, m_action == SliderHeld);
    case SetClicked:
        for (int i = 0; i < ClicksInRow; ++i)
            moveFinger(finger);
        break;
    case Inserted:
        return m_driver.click(QStringLiteral("pushButton_SeqInsert"));
    case GainsWritten:
        return m_driver.click(numbered("pushButton_SettingWritePID", finger));
    case Reloading:
        return m_driver.click(QStringLiteral("pushButton_BasicReloadBasic"));
    case Calibrating:
        return m_driver.click(QStringLiteral("pushButton_BasicRecalibrate"));
    case ActionCount:
        break;
    }
}

/// Half of the time with the button, which a dialog covers.
void HaltCampaign::press()
{
    QWidget* dialog = QApplication::activeModalWidget();
    QPushButton* button = nullptr;
    if (between(0, 1) == 0)
        button = dialog ? dialog->findChild<QPushButton*>(QStringLiteral("pushButton_DialogHalt"))
                        : m_driver.find<QPushButton>(HaltButton);
    const QPointer<QWidget> target = dialog ? dialog : m_driver.window();
    m_moments.press = m_clock.now();
    if (button && dialog) {
        button->click();
    } else if (button) {
        m_driver.click(HaltButton);
    } else {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, Qt::Key_Pause, Qt::NoModifier);
            if (target)
                QApplication::sendEvent(target, &event);
        }
    }
}

/// Every motion must be refused, by Set at once and by a slider at the next tick.
void HaltCampaign::useWindow()
{
    if (QSlider* slider = std::exchange(m_heldSlider, nullptr))
        slider->setSliderDown(false);
    openPage(
        std::array{BasicTab, SettingTab, SequenceTab}[static_cast<std::size_t>(between(0, 2))]);
    openPage(RunTab);
    m_refusals = 0;
    moveFinger(between(0, FingerTotal - 1));
    const int limit = MessageLimitMs * m_patience;
    if (!waitFor([this] { return m_refusals > 0; }, limit))
        addFinding(QStringLiteral("Set is not refused"));
    m_refusals = 0;
    releaseSlider(between(0, FingerTotal - 1), false);
    if (!waitFor([this] { return m_refusals > 0; }, limit))
        addFinding(QStringLiteral("the slider is not refused"));
}

void HaltCampaign::proceed()
{
    double halted = m_moments.halted;
    if (between(1, EarlyClickEvery) == 1) {
        waitUntil(halted + EarlyAfterMs);
        // Otherwise the click would continue.
        if (m_clock.now() < halted + ContinueAfterMs - EarlyAfterMs / 4.0) {
            ++m_earlyClicks;
            m_moments.secondPress = m_clock.now();
            m_driver.click(HaltButton);
            if (!waitFor([this] { return m_moments.secondHalted > 0; }, HaltLimitMs * m_patience))
                addFinding(QStringLiteral("the early click does not halt"));
            halted = m_moments.secondHalted;
        }
    }
    waitUntil(halted + ContinueAfterMs);
    m_moments.proceed = m_clock.now();
    m_driver.click(HaltButton);
    if (!waitFor([this] { return stateText() == QLatin1String("Connected"); },
                 HaltLimitMs * m_patience))
        addFinding(QStringLiteral("after Continue the state is '%1'").arg(stateText()));
    waitUntil(m_clock.now() + AfterContinueMs);
    m_moments.end = m_clock.now();
}

/// Checks the halt, and that Set moves a finger again.
void HaltCampaign::checkHalt()
{
    const int finger = between(0, FingerTotal - 1);
    const QString position = QStringLiteral("get %1 position %2").arg(HandNode).arg(finger);
    m_wasFar[finger] =
        m_hand.command(position).section(QLatin1Char(' '), 1).toInt() > MaxPosition / 2;
    const QString moving = QStringLiteral("get %1 moving %2").arg(HandNode).arg(finger);
    moveFinger(finger);
    if (!waitFor([&] { return m_hand.command(moving) == QLatin1String("ok 1"); },
                 MessageLimitMs * m_patience))
        addFinding(QStringLiteral("Set does not move the finger"));
    if (m_action == Calibrating) // until then it stays in the calibrating state
        m_hand.command(QStringLiteral("power-cycle %1").arg(HandNode));
    const HaltRecord record(m_hand, HandNode, m_moments);
    for (const QString& finding : record.findings)
        addFinding(finding);
    m_totals.add(record, m_moments);
}

void HaltCampaign::printSummary(const QString& title, std::uint32_t seed)
{
    QStringList actions;
    for (std::size_t action = 0; action < ActionCount; ++action)
        actions.append(QStringLiteral("%1 %2")
                           .arg(m_counts.at(action))
                           .arg(QLatin1String(Actions.at(action).name)));
    std::printf("%s, seed %u: halts: %s; %s; %d early clicks, clock within %.2f ms; %d findings\n",
                qPrintable(title), seed, qPrintable(actions.join(QLatin1String(", "))),
                qPrintable(m_totals.text()), m_earlyClicks, m_clock.error(),
                static_cast<int>(m_monitor.findings().size()));
}

int runKind(int count, std::uint32_t seed, const QString& protocol, const QString& kind,
            int patience)
{
    QStringList options{QStringLiteral("--node"),
                        QStringLiteral("%1:%2").arg(HandNode).arg(protocol)};
    if (kind != PlainKind)
        options.append(QStringLiteral("--") + kind);
    HandProcess hand;
    if (!hand.start(options)) {
        std::fprintf(stderr, "%s\n", qPrintable(hand.errorText()));
        return 1;
    }
    Monitor monitor(hand, Sanitized, patience > 1);
    HaltCampaign campaign(hand, monitor, seed, patience);
    campaign.run(count);
    monitor.checkTrace();
    campaign.printSummary(protocol + QLatin1Char(' ') + kind, seed);
    return static_cast<int>(monitor.findings().size());
}
} // namespace

int HaltTest::run(int count, std::uint32_t seed, const QString& protocol, const QString& kind,
                  int patience)
{
    const QString special = protocol == QLatin1String("modbus") ? QStringLiteral("speed-at-once")
                                                                : QStringLiteral("latch-stop");
    const QStringList kinds = kind.isEmpty() ? QStringList{PlainKind, special} : QStringList{kind};
    int findings = 0;
    for (const QString& each : kinds)
        findings += runKind(count, seed, protocol, each, patience);
    return findings == 0 ? 0 : 1;
}

} // namespace vanto
