#include "losstest.h"

#include "conversation.h"
#include "dialogwatch.h"
#include "handprocess.h"
#include "messagelog.h"
#include "monitor.h"
#include "stoptest.h"
#include "windowdriver.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QMessageBox>
#include <QRandomGenerator>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <vector>

namespace vanto
{

namespace
{
constexpr int MinUseMs = 100; ///< from the start of the use to the loss
constexpr int MaxUseMs = 900;
constexpr int MinLostMs = 200; ///< from the report of the loss to the return of the port
constexpr int MaxLostMs = 2500;
constexpr int NoticeLimitMs = 300;
constexpr int ReconnectLimitMs = 1500; ///< the window looks for the port once a second
constexpr int NoSearchMs = 1300;       ///< longer than that second
constexpr int PauseBetweenMs = 100;
constexpr double SlowFrameMs = 30;
constexpr double ProcessorLimit = 0.02; ///< of one processor, while the port is lost

constexpr QLatin1String LostText("The port has been lost. Check the cable.");
constexpr QLatin1String ReconnectedText("Reconnected");

/// What the window does when the port is lost.
enum Use { OnBasicPage, OnSettingPage, OnRunPage, InPlayback, InScan, UnderDialog, UseCount };
constexpr std::array<const char*, UseCount> UseNames{"Basic page", "Setting page", "Run page",
                                                     "playback",   "scan",         "dialog"};

/// The processor time of all threads.
double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

int countDescriptors()
{
    return static_cast<int>(
        std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

/// Runs in the event loop, as scans and dialogs block their caller.
class LossCampaign : public QObject
{
public:
    LossCampaign(HandProcess& hand, Monitor& monitor, std::uint32_t seed, int patience);

    void run(int count);
    void printSummary(const QString& protocol, std::uint32_t seed);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Phase { InUse, Unplugged, Lost, Replugged };

    int between(int least, int most) { return m_random.bounded(least, most + 1); }
    void after(int ms, void (LossCampaign::*step)())
    {
        QTimer::singleShot(ms, Qt::PreciseTimer, this, step);
    }
    QString stateText() const
    {
        return m_driver.find<QLabel>(QStringLiteral("label_ConnectionState"))->text();
    }
    void addFinding(const QString& what);

    void loadSequence() const;
    void noteMessage(const QString& line);
    void beginLoss();
    void beginUse();
    bool isInUse() const;
    void unplug();
    void noteLoss();
    void beginMeasurement();
    void replug();
    void missDeadline();
    void scanAgain();
    void endReconnection();
    void endLoss();
    void checkMessages();
    void printSlowFrames() const;
    static void closeDialog();

    HandProcess& m_hand;
    Monitor& m_monitor;
    QRandomGenerator m_random;
    int m_patience;
    WindowDriver m_driver;
    QEventLoop m_loop;
    QTimer m_deadline;          ///< of the current phase
    QElapsedTimer m_sincePhase; ///< since unplug or replug
    Phase m_phase = Phase::InUse;

    std::vector<Use> m_uses; ///< still to come, before each has its turn again
    Use m_use = OnBasicPage;
    QStringList m_errors; ///< shown since the start of the use, then since the unplug
    int m_boxes = 0;      ///< since the unplug
    bool m_measuring = false;
    QElapsedTimer m_sinceMeasured;
    double m_processorStart = 0;

    int m_remaining = 0;
    std::array<int, UseCount> m_counts{};
    qint64 m_longestNoticeMs = 0;
    std::vector<qint64> m_reconnectMs;
    double m_lostSeconds = 0;
    double m_processorSeconds = 0;
    int m_firstDescriptors = 0;
    int m_lastDescriptors = 0;
};

LossCampaign::LossCampaign(HandProcess& hand, Monitor& monitor, std::uint32_t seed, int patience)
    : m_hand(hand),
      m_monitor(monitor),
      m_random(seed),
      m_patience(patience),
      m_driver({hand.portName()})
{
    m_deadline.setSingleShot(true);
    m_deadline.setTimerType(Qt::PreciseTimer);
    connect(&m_deadline, &QTimer::timeout, this, &LossCampaign::missDeadline);
    connect(m_driver.window()->findChild<MessageLog*>(), &MessageLog::sig_added, this,
            &LossCampaign::noteMessage);
    connect(&ConversationMonitor::instance(), &ConversationMonitor::sig_idle, this,
            &LossCampaign::beginMeasurement);
    qApp->installEventFilter(this);
}

void LossCampaign::run(int count)
{
    m_remaining = count;
    m_driver.openHand(m_hand.portName());
    loadSequence();
    m_monitor.beginQuietPhase();
    after(0, &LossCampaign::beginLoss);
    m_loop.exec();
    m_monitor.checkTrace();
    if (m_firstDescriptors != m_lastDescriptors)
        addFinding(QStringLiteral("the number of open descriptors has changed"));
    if (!Sanitized && m_processorSeconds > ProcessorLimit * m_patience * m_lostSeconds)
        addFinding(QStringLiteral("too much processor time while lost"));
}

void LossCampaign::loadSequence() const
{
    m_driver.showPage(SequenceTab);
    const DialogWatch files(
        [name = StopTest::writeSequence()](QDialog& dialog) { chooseFile(dialog, name); });
    m_driver.click(QStringLiteral("pushButton_SeqLoad"));
}

void LossCampaign::addFinding(const QString& what)
{
    m_monitor.addFinding(
        QStringLiteral("%1 (%2 to go): %3").arg(UseNames.at(m_use)).arg(m_remaining).arg(what));
}

/// A failed scan reports the loss in a box.
bool LossCampaign::eventFilter(QObject* watched, QEvent* event)
{
    auto* box = event->type() == QEvent::Show ? qobject_cast<QMessageBox*>(watched) : nullptr;
    if (box &&
        box->text().startsWith(QStringLiteral("Open port '%1' failed, ").arg(m_hand.portName()))) {
        ++m_boxes;
        QTimer::singleShot(0, box, &QDialog::reject);
        if (m_use == InScan)
            noteLoss();
    }
    return QObject::eventFilter(watched, event);
}

void LossCampaign::noteMessage(const QString& line)
{
    const QString text = line.section(QLatin1String(" ! "), 1);
    if (!text.isEmpty())
        m_errors.append(text);
    if (text == LostText && m_use != InScan) {
        if (m_driver.errorText() != LostText)
            addFinding(QStringLiteral("the loss is not shown"));
        noteLoss();
    } else if (m_phase == Phase::Replugged && line.endsWith(ReconnectedText)) {
        m_deadline.stop();
        m_reconnectMs.push_back(m_sincePhase.elapsed());
        if (m_reconnectMs.back() > qint64{ReconnectLimitMs} * m_patience)
            addFinding(QStringLiteral("reconnected after %1 ms").arg(m_reconnectMs.back()));
        after(PauseBetweenMs, &LossCampaign::endReconnection);
    }
}

void LossCampaign::beginLoss()
{
    if (m_uses.empty()) {
        for (int use = 0; use < UseCount; ++use)
            m_uses.push_back(static_cast<Use>(use));
        std::shuffle(m_uses.begin(), m_uses.end(), m_random);
    }
    m_use = m_uses.back();
    m_uses.pop_back();
    ++m_counts.at(m_use);
    m_phase = Phase::InUse;
    m_errors.clear();
    beginUse();
    after(between(MinUseMs, MaxUseMs), &LossCampaign::unplug);
}

void LossCampaign::beginUse()
{
    const int page = m_use == OnSettingPage ? SettingTab
                     : m_use == OnRunPage   ? RunTab
                     : m_use == InPlayback  ? SequenceTab
                     : m_use == UnderDialog ? (between(0, 1) == 0 ? BasicTab : RunTab)
                                            : BasicTab;
    m_driver.showPage(page);
    const auto later = [this](auto act) { QTimer::singleShot(0, m_driver.window(), act); };
    if (m_use == InPlayback) {
        m_monitor.endQuietPhase();
        later([this] { m_driver.click(QStringLiteral("pushButton_SeqRun")); });
    } else if (m_use == InScan) {
        later([this] { m_driver.click(QStringLiteral("pushButton_ScanDevices")); });
    } else if (m_use == UnderDialog) {
        later([this, about = between(0, 1) == 0] {
            m_driver.trigger(about ? QStringLiteral("action_About")
                                   : QStringLiteral("action_Open_Node"));
        });
    }
}

bool LossCampaign::isInUse() const
{
    if (m_use == InScan)
        return stateText() == QLatin1String("Scanning");
    if (stateText() != QLatin1String("Connected"))
        return false;
    if (m_use == OnRunPage)
        return m_driver.find<QTimer>(QStringLiteral("runTimer"))->isActive();
    if (m_use == InPlayback)
        return m_driver.enabled(QStringLiteral("pushButton_SeqStop"));
    return m_use != UnderDialog || QApplication::activeModalWidget();
}

void LossCampaign::unplug()
{
    if (!isInUse())
        addFinding(QStringLiteral("the use has ended: ") + m_errors.join(QLatin1String(" | ")));
    m_errors.clear();
    m_boxes = 0;
    m_phase = Phase::Unplugged;
    m_sincePhase.start();
    m_deadline.start(NoticeLimitMs * m_patience);
    m_hand.command(QStringLiteral("unplug"));
    m_monitor.beginQuietPhase(); // until the next playback
}

void LossCampaign::noteLoss()
{
    if (m_phase != Phase::Unplugged)
        return; // checkMessages() reports it
    m_deadline.stop();
    const qint64 took = m_sincePhase.elapsed();
    m_longestNoticeMs = std::max(m_longestNoticeMs, took);
    if (took >= qint64{NoticeLimitMs} * m_patience)
        addFinding(QStringLiteral("the loss is reported after %1 ms").arg(took));
    m_phase = Phase::Lost;
    m_measuring = false;
    if (!Conversation::isActive())
        beginMeasurement();
    after(between(MinLostMs, MaxLostMs), &LossCampaign::replug);
}

/// Not earlier than the end of the exchange that was cut: over SerialCtrl it polls the port until
/// its time-out.
void LossCampaign::beginMeasurement()
{
    if (m_phase != Phase::Lost || m_measuring)
        return;
    m_measuring = true;
    m_sinceMeasured.start();
    m_processorStart = processorSeconds();
}

void LossCampaign::replug()
{
    if (m_measuring) {
        m_processorSeconds += processorSeconds() - m_processorStart;
        m_lostSeconds += 1e-9 * static_cast<double>(m_sinceMeasured.nsecsElapsed());
    }
    const QLatin1String expected(m_use == InScan ? "Not connected" : "Port lost");
    if (stateText() != expected)
        addFinding(QStringLiteral("the state is shown as '%1'").arg(stateText()));
    m_phase = Phase::Replugged;
    m_sincePhase.start();
    m_hand.command(QStringLiteral("replug"));
    if (m_use == InScan)
        after(NoSearchMs, &LossCampaign::scanAgain);
    else
        m_deadline.start(ReconnectLimitMs * m_patience);
}

void LossCampaign::missDeadline()
{
    if (m_phase == Phase::Unplugged) {
        noteLoss(); // and checkMessages() if it is never reported
        return;
    }
    m_phase = Phase::InUse; // a late reconnection ends nothing
    addFinding(QStringLiteral("the hand is not reconnected in time"));
    checkMessages();
    closeDialog();
    after(PauseBetweenMs, &LossCampaign::scanAgain);
}

void LossCampaign::scanAgain()
{
    if (Conversation::isActive() || QApplication::activeModalWidget()) { // the scan would wait
        after(PauseBetweenMs, &LossCampaign::scanAgain);
        return;
    }
    if (m_use == InScan && !m_hand.requests().isEmpty())
        addFinding(QStringLiteral("requests without a search"));
    if (m_use == InScan)
        checkMessages();
    m_driver.openHand(m_hand.portName());
    endLoss();
}

void LossCampaign::endReconnection()
{
    checkMessages();
    endLoss();
}

void LossCampaign::endLoss()
{
    if (stateText() != QLatin1String("Connected"))
        addFinding(QStringLiteral("the hand is not open again"));
    if (m_use == OnRunPage && !m_driver.find<QTimer>(QStringLiteral("runTimer"))->isActive())
        addFinding(QStringLiteral("the Run page does not read again"));
    closeDialog();
    m_monitor.checkTrace();
    m_lastDescriptors = countDescriptors();
    if (m_firstDescriptors == 0)
        m_firstDescriptors = m_lastDescriptors;
    if (--m_remaining > 0)
        after(PauseBetweenMs, &LossCampaign::beginLoss);
    else
        QTimer::singleShot(PauseBetweenMs, &m_loop, &QEventLoop::quit);
}

/// A scan also reports the time-outs of its nodes.
void LossCampaign::checkMessages()
{
    const bool inScan = m_use == InScan;
    if (m_boxes != (inScan ? 1 : 0))
        addFinding(QStringLiteral("%1 boxes").arg(m_boxes));
    if (inScan ? m_errors.contains(LostText) : m_errors != QStringList{LostText}) {
        addFinding(QStringLiteral("wrong messages: ") + m_errors.join(QLatin1String(" | ")));
        printSlowFrames();
    }
}

/// Whether a time-out is due to the machine: then the hand has read requests late.
void LossCampaign::printSlowFrames() const
{
    double previous = 0;
    for (const TracedFrame& frame : m_hand.trace()) {
        if (!frame.marks.isEmpty() || frame.ms - previous > SlowFrameMs)
            std::fprintf(stderr, "    %.1f ms, %.1f ms after the last frame: %s %s %s\n", frame.ms,
                         frame.ms - previous, qPrintable(frame.direction),
                         frame.bytes.toHex(' ').constData(), qPrintable(frame.marks));
        previous = frame.ms;
    }
}

void LossCampaign::closeDialog()
{
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}

void LossCampaign::printSummary(const QString& protocol, std::uint32_t seed)
{
    QStringList uses;
    for (std::size_t use = 0; use < UseCount; ++use)
        uses.append(QStringLiteral("%1 %2").arg(m_counts.at(use)).arg(UseNames.at(use)));
    std::sort(m_reconnectMs.begin(), m_reconnectMs.end());
    const bool none = m_reconnectMs.empty();
    std::printf("%s, seed %u: losses: %s; noticed within %lld ms; reconnected after %lld ms "
                "(median), at most %lld ms; processor %.2f %% of %.0f s lost; descriptors %d, "
                "then %d; %d findings\n",
                qPrintable(protocol), seed, qPrintable(uses.join(QLatin1String(", "))),
                m_longestNoticeMs, none ? 0 : m_reconnectMs[m_reconnectMs.size() / 2],
                none ? 0 : m_reconnectMs.back(), 100 * m_processorSeconds / m_lostSeconds,
                m_lostSeconds, m_firstDescriptors, m_lastDescriptors,
                static_cast<int>(m_monitor.findings().size()));
}
} // namespace

int LossTest::run(int count, std::uint32_t seed, const QString& protocol, int patience)
{
    HandProcess hand;
    if (!hand.start({QStringLiteral("--node"), QStringLiteral("1:") + protocol,
                     QStringLiteral("--speed"), QStringLiteral("50")})) {
        std::fprintf(stderr, "%s\n", qPrintable(hand.errorText()));
        return 1;
    }
    Monitor monitor(hand, Sanitized, patience > 1);
    LossCampaign campaign(hand, monitor, seed, patience);
    campaign.run(count);
    campaign.printSummary(protocol, seed);
    return static_cast<int>(monitor.findings().size());
}

} // namespace vanto
