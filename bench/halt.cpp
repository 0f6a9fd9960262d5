// The time from the press of Halt to its first frame and until all fingers stand, and with a hand
// that does not answer.

#include "bench.h"
#include "conversation.h"
#include "devicebar.h"
#include "figures.h"
#include "haltcontrol.h"
#include "halttrace.h"
#include "handcall.h"
#include "handclock.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <string_view>

namespace vanto
{

namespace
{
constexpr int HandNode = 1;
constexpr int Halts = 41;
constexpr int WarmUps = 20;
constexpr int Exchanges = 201;
constexpr int MaxDelayMs = 100; ///< from the start of the motions to the press: one tick
constexpr int LimitMs = 5000;
constexpr int ContinueTries = 10;
constexpr int PollMs = 2;
constexpr double MsPerNs = 1e-6;

struct Setup {
    const char* protocol;
    int baud;                 ///< 0 is unlimited
    double firstFrameBar;     ///< in exchanges
    double standBar;          ///< in exchanges
    double silentReadLimitMs; ///< 0 if it is not measured
    double silentWriteLimitMs;
};
// An exchange lasts one tick of 1 ms over SerialCtrl, two when paced. A register read over Modbus
// lasts 2.3 ms, 4.0 ms when paced.
constexpr Setup Setups[] = {{"serialctrl", 0, 2, 10, 55, 155},
                            {"serialctrl", BaudRate, 2, 5, 0, 0},
                            {"modbus", 0, 3, 17, 220, 410},
                            {"modbus", BaudRate, 3, 22, 0, 0}};

/// Median in ms of the shortest exchange; negative if the hand does not answer.
double exchangeMs(const Setup& setup, const HandProcess& hand)
{
    const bool modbus = setup.protocol == std::string_view("modbus");
    const auto adapter = modbus
                             ? VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_MODBUS_RTU, 1, 0)
                             : VantoProtocol::getProtocolInstance(PROTOCOL_TYPE_SERIALCTRL, 3, 0);
    adapter->connect(hand.portName().toUtf8().constData(), BaudRate);
    std::vector<double> times;
    for (int i = -WarmUps; i < Exchanges; ++i) {
        const LineHold line;
        QElapsedTimer timer;
        timer.start();
        std::uint16_t voltage = 0;
        const bool answered = adapter->getBatteryVoltage(HandNode, &voltage) == ResultCode::Success;
        if (i >= 0 && answered)
            times.push_back(static_cast<double>(timer.nsecsElapsed()) * MsPerNs);
    }
    adapter->disconnect();
    return times.empty() ? -1 : median(times);
}

bool waitFor(const std::function<bool()>& condition, int limitMs = LimitMs)
{
    QElapsedTimer timer;
    timer.start();
    QTimer slices;
    slices.start(PollMs);
    while (!condition() && !timer.hasExpired(limitMs))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

/// Halts one hand many times in the real window.
class HaltBench : public QObject
{
public:
    enum class Silence { None, InRead, InWrite };

    explicit HaltBench(HandProcess& hand)
        : m_hand(hand),
          m_clock(hand, HandNode),
          m_tool({hand.portName()}),
          m_halt(&m_tool.find<DeviceBar>(QStringLiteral("deviceBar"))->haltControl()->halt())
    {
        m_tool.openHand(hand.portName());
        connect(m_halt, &Halt::sig_stateChanged, this, [this] {
            if (m_halt->state() == Halt::State::Halted)
                m_halted = m_clock.now();
        });
    }

    /// False if a halt has failed.
    bool run(Silence silence);

    std::vector<double> firstFrames;
    std::vector<double> stands;

private:
    bool halt(Silence silence);
    void move();
    std::optional<double> firstFrame() const;

    HandProcess& m_hand;
    HandClock m_clock;
    WindowDriver m_tool;
    Halt* m_halt;
    QRandomGenerator m_random{1};
    double m_press = 0;
    double m_halted = 0;
    bool m_far = false;
};

bool HaltBench::run(Silence silence)
{
    firstFrames.clear();
    stands.clear();
    for (int i = 0; i < Halts; ++i) {
        if (!halt(silence)) {
            std::fprintf(stderr, "halt %d has failed: state %d, %s\n", i,
                         static_cast<int>(m_halt->state()), qPrintable(m_tool.errorText()));
            return false;
        }
    }
    return true;
}

/// Sends two fingers to their other ends.
void HaltBench::move()
{
    m_far = !m_far;
    for (const int finger : {1, 4}) {
        m_tool.setField(QStringLiteral("lineEdit_RunPos%1").arg(finger),
                        m_far ? QStringLiteral("65535") : QStringLiteral("0"));
        m_tool.click(QStringLiteral("pushButton_RunSetPos%1").arg(finger));
    }
}

std::optional<double> HaltBench::firstFrame() const
{
    HaltFrames filter;
    for (const TracedFrame& frame : m_hand.requests())
        if (filter.accept(frame) && m_press > 0 && frame.ms >= m_press)
            return frame.ms;
    return {};
}

bool HaltBench::halt(Silence silence)
{
    const auto isIdle = [] { return !Conversation::isActive(); };
    m_tool.showPage(silence == Silence::InRead    ? BasicTab
                    : silence == Silence::InWrite ? SettingTab
                                                  : RunTab);
    waitFor(isIdle);
    m_hand.clearTrace();
    m_press = m_halted = 0;
    QTimer::singleShot(silence == Silence::None ? m_random.bounded(1, MaxDelayMs) : PollMs,
                       Qt::PreciseTimer, this, [this] {
                           m_press = m_clock.now();
                           m_tool.click(QStringLiteral("pushButton_Halt"));
                       });
    if (silence == Silence::None) {
        move();
    } else {
        for (const char* gain : {"P1", "I1", "D1", "G1"}) // an empty one would open a dialog
            m_tool.setField(QStringLiteral("lineEdit_Setting") + QLatin1String(gain),
                            QStringLiteral("1"));
        m_hand.command(QStringLiteral("hang"));
        m_tool.click(silence == Silence::InRead ? QStringLiteral("pushButton_BasicReloadBasic")
                                                : QStringLiteral("pushButton_SettingWritePID1"));
    }
    bool silent = silence != Silence::None;
    const bool halted = waitFor([this, &silent] {
        if (silent && firstFrame()) {
            m_hand.command(QStringLiteral("hang off"));
            silent = false;
        }
        return m_halted > 0;
    });
    const auto first = firstFrame();
    if (!halted || !first)
        return false;
    firstFrames.push_back(*first - m_press);
    const double stand = standsFrom(m_hand.motionMarks(), HandNode, m_press, m_halted) - m_press;
    if (stand > 0)
        stands.push_back(stand);
    // Without the pause in which a click on Continue halts again. It can be refused on a busy
    // machine.
    const auto isReady = [this] { return m_halt->state() == Halt::State::Ready; };
    for (int i = 0; i < ContinueTries && !isReady(); ++i) {
        m_halt->proceed();
        waitFor(isReady, LimitMs / ContinueTries);
    }
    return isReady();
}

bool judge(const char* what, std::vector<double> values, double base, double bar)
{
    if (values.empty())
        return false;
    const bool good = report({what, median(values), "ms", base, bar});
    std::printf("     longest of %zu: %.2f ms\n", values.size(),
                *std::max_element(values.begin(), values.end()));
    return good;
}

bool measureSilence(HaltBench& bench, HaltBench::Silence silence, const char* what, double limitMs)
{
    return bench.run(silence) && judge(what, bench.firstFrames, limitMs, 1);
}

bool measure(const Setup& setup)
{
    BenchHand hand({QStringLiteral("--node"),
                    QStringLiteral("%1:%2").arg(HandNode).arg(QLatin1String(setup.protocol)),
                    QStringLiteral("--baud"), QString::number(setup.baud)});
    std::printf("%s, %s\n", setup.protocol, setup.baud == 0 ? "no pacing" : "115200 baud");
    const double exchange = exchangeMs(setup, hand);
    if (exchange < 0) {
        std::fprintf(stderr, "the hand does not answer\n");
        return false;
    }
    HaltBench bench(hand);
    if (!bench.run(HaltBench::Silence::None))
        return false;
    bool good = judge("press to the first frame, in exchanges", bench.firstFrames, exchange,
                      setup.firstFrameBar);
    good &= judge("press until all fingers stand, in exchanges", bench.stands, exchange,
                  setup.standBar);
    if (setup.silentReadLimitMs == 0)
        return good;
    good &= measureSilence(bench, HaltBench::Silence::InRead,
                           "silent hand, in a read, of its limit", setup.silentReadLimitMs);
    good &= measureSilence(bench, HaltBench::Silence::InWrite,
                           "silent hand, in a write, of its limit", setup.silentWriteLimitMs);
    return good;
}
} // namespace

int runProgram(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    silenceLog();
    const QApplication application(argc, argv);
    const QTemporaryDir work;
    QDir::setCurrent(work.path());
    bool good = true;
    for (const Setup& setup : Setups)
        good &= measure(setup);
    return good ? 0 : 1;
}

} // namespace vanto

int main(int argc, char* argv[])
{
    return vanto::runProgram(argc, argv);
}
