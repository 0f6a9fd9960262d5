#include "handprocess.h"
#include "telemetryreader.h"
#include "testmain.h"

#include "sequenceplayer.h"

#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace vanto
{

namespace
{
constexpr std::uint8_t TestedNode = 2;
constexpr int GetFingerCurrent = 0x06;

/// The hand of a test, without a window.
struct OpenHand {
    OpenHand(PROTOCOL_TYPE protocol, const QStringList& options = {})
    {
        const bool modbus = protocol == PROTOCOL_TYPE_MODBUS_RTU;
        adapter = VantoProtocol::getProtocolInstance(protocol, modbus ? 1 : 3, 0);
        const QStringList node{QStringLiteral("--node"), modbus ? QStringLiteral("2:modbus")
                                                                : QStringLiteral("2:serialctrl")};
        isOpen = hand.start(node + options) &&
                 adapter->connect(qPrintable(hand.portName()), BaudRate) != 0;
    }
    ~OpenHand() { adapter->disconnect(); }
    HandTarget target() const { return {adapter, TestedNode, generation.token()}; }
    TelemetryReader::Line line() const
    {
        return {[this] { return std::optional(target()); }, {}};
    }
    /// The requests that are not reads.
    int writes() const
    {
        int count = static_cast<int>(hand.modbusWrites().size());
        for (const QString& frame : hand.frames())
            count += frame.first(2).toInt(nullptr, 16) >= 0x40;
        return count;
    }
    bool hasOverlaps() { return !hand.command(QStringLiteral("stats")).contains(u"overlaps=0"); }

    HandProcess hand;
    std::shared_ptr<VantoProtocol> adapter;
    Generation generation;
    bool isOpen = false;
};
} // namespace

/// Samples of a hand, as the reader takes them.
class TestTelemetry : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { ReplyLimits::current() = PatientLimits; }
    void reads_data() { addProtocols(); }
    void reads();
    void readsNothingTwice();
    void yieldsToPlayer_data() { addProtocols(); }
    void yieldsToPlayer();
    void refused();
    void silent();
    void gaps_data();
    void gaps();

private:
    static void addProtocols()
    {
        QTest::addColumn<PROTOCOL_TYPE>("protocol");
        QTest::newRow("SerialCtrl") << PROTOCOL_TYPE_SERIALCTRL;
        QTest::newRow("Modbus") << PROTOCOL_TYPE_MODBUS_RTU;
    }
    const TelemetryClock m_clock;
};

void TestTelemetry::reads()
{
    QFETCH(PROTOCOL_TYPE, protocol);
    OpenHand open(protocol);
    QVERIFY(open.isOpen);
    for (int finger = 0; finger < 6; ++finger) {
        open.hand.command(QString("set 2 current %1 %2").arg(finger).arg(100 + finger));
        open.hand.command(QString("set 2 position %1 %2").arg(finger).arg(60'000 + finger));
        open.hand.command(QString("set 2 force %1 %2").arg(finger).arg(200 + finger));
    }
    TelemetryReader reader(open.line(), m_clock);
    QList<Sample> samples;
    bool nested = false; // a sample within a conversation
    connect(&reader, &TelemetryReader::sig_sample, &reader, [&](const Sample& sample) {
        samples.append(sample);
        nested |= Conversation::isActive();
    });
    reader.setChannels(channelsOf(Quantity::Current) | channelsOf(Quantity::Position) |
                       channelsOf(Quantity::Force));
    reader.setRate(25);
    reader.start();
    QTRY_VERIFY(samples.size() >= 20);
    reader.stop();
    QVERIFY(reader.achievedRate() > 0 && reader.achievedRate() <= 27);
    for (std::size_t finger = 0; finger < FingerCount; ++finger) {
        QCOMPARE(samples.last().values[finger], std::int32_t(100 + finger));
        QCOMPARE(samples.last().values[6 + finger], std::int32_t(60'000 + finger));
        QCOMPARE(samples.last().values[12 + finger], MissingValue);
        if (finger < ForceFingerCount)
            QCOMPARE(samples.last().values[18 + finger], std::int32_t(200 + finger));
    }
    const std::int64_t period = 40'000;
    QVERIFY(samples.last().timeUs - samples.first().timeUs >= (samples.size() - 3) * period);
    QVERIFY(!nested);
    QCOMPARE(open.writes(), 0);
    QVERIFY(!open.hasOverlaps());
    const qsizetype requests = open.hand.requests().size();
    QTest::qWait(200); // a stopped reader sends nothing
    QCOMPARE(open.hand.requests().size(), requests);
}

/// What others read within a period is taken from them.
void TestTelemetry::readsNothingTwice()
{
    OpenHand open(PROTOCOL_TYPE_SERIALCTRL);
    QVERIFY(open.isOpen);
    TelemetryReader reader(open.line(), m_clock);
    reader.setChannels(channelsOf(Quantity::Current));
    reader.setRate(0.5); // time for the other exchanges on a busy machine
    QSignalSpy samples(&reader, &TelemetryReader::sig_sample);
    reader.start();
    QTRY_COMPARE(samples.count(), 1);
    QCOMPARE(open.hand.frames({GetFingerCurrent}).size(), 6);
    open.hand.command("set 2 current 3 333");
    {
        HandCall other(open.target());
        std::uint16_t current = 0;
        for (const std::uint8_t finger : {0, 1, 2, 3})
            QCOMPARE(int(other.attempt<&VantoProtocol::getFingerCurrent>(finger, &current)), 0);
    }
    QTRY_COMPARE(samples.count(), 2);
    reader.stop();
    QCOMPARE(samples.at(1).at(0).value<Sample>().values[3], 333);
    QCOMPARE(open.hand.frames({GetFingerCurrent}).size(), 6 + 4 + 2);
}

/// The fastest reader does not keep the player from polling, and the player's values are used.
void TestTelemetry::yieldsToPlayer()
{
    QFETCH(PROTOCOL_TYPE, protocol);
    OpenHand open(protocol, {"--baud", "115200"});
    QVERIFY(open.isOpen);
    SequenceData data;
    data.position_type = SequenceData::POS_TYPE_POSITION;
    for (const int position : {20'000, 0, 20'000})
        data.sequences.append({QList<int>(6, position), QList<int>(6, 255), 0});
    SequencePlayer player;
    player.setVantoProtocol(open.adapter, TestedNode);
    TelemetryReader reader(open.line(), m_clock);
    reader.setChannels(channelsOf(Quantity::Current) | channelsOf(Quantity::Force));
    reader.setRate(TelemetryReader::AsFastAsPossible);
    const QSignalSpy samples(&reader, &TelemetryReader::sig_sample);
    reader.start();
    QTRY_VERIFY(samples.count() > 0);
    QString failure;
    connect(&player, &SequencePlayer::sig_updatePlaying, &player,
            [&](bool, int, qint64, const QString& message) { failure += message; });
    bool started = false; // play() refuses while an exchange is in progress
    QTRY_VERIFY(started || (started = player.play(data, 0, -1, false)));
    const int before = samples.count();
    QTRY_VERIFY_WITH_TIMEOUT(!player.isPlaying(), 60'000);
    QCOMPARE(failure, QString());
    QVERIFY(std::any_of(samples.begin() + before, samples.end(), [](const QVariantList& sample) {
        return sample.at(0).value<Sample>().values[0] != MissingValue;
    }));
    reader.stop();
    QVERIFY(!open.hasOverlaps());
}

void TestTelemetry::refused()
{
    OpenHand open(PROTOCOL_TYPE_SERIALCTRL, {"--no-force"});
    QVERIFY(open.isOpen);
    TelemetryReader reader(open.line(), m_clock);
    reader.setChannels(channelsOf(Quantity::Current) | channelsOf(Quantity::Force));
    reader.setRate(TelemetryReader::AsFastAsPossible);
    QSignalSpy samples(&reader, &TelemetryReader::sig_sample);
    int refusals = 0;
    connect(&reader, &TelemetryReader::sig_refused, &reader,
            [&](std::string_view operation, std::uint8_t, std::uint8_t result) {
                refusals += operation == "getFingerForce" && result == 0xFF;
            });
    reader.start();
    QTRY_VERIFY(samples.count() >= 20);
    QCOMPARE(refusals, int{ForceFingerCount});
    QCOMPARE(open.hand.frames({0x08}).size(), qsizetype{3 * ForceFingerCount});
    const Sample last = samples.last().at(0).value<Sample>();
    QVERIFY(last.values[0] != MissingValue && last.values[18] == MissingValue);
}

void TestTelemetry::silent()
{
    ReplyLimits::current().serialCtrl = 100;
    OpenHand open(PROTOCOL_TYPE_SERIALCTRL);
    QVERIFY(open.isOpen);
    TelemetryReader reader(open.line(), m_clock);
    reader.setChannels(channelsOf(Quantity::Current));
    reader.setRate(TelemetryReader::AsFastAsPossible);
    QList<Sample> samples;
    connect(&reader, &TelemetryReader::sig_sample, &reader,
            [&](const Sample& sample) { samples.append(sample); });
    const QSignalSpy noAnswer(&reader, &TelemetryReader::sig_noAnswer);
    reader.start();
    QTRY_VERIFY(samples.size() > 3);
    open.hand.command("hang");
    QTRY_COMPARE(noAnswer.count(), 1);
    open.hand.clearTrace();
    QTest::qWait(2500); // few requests are sent
    QVERIFY(open.hand.requests().size() <= 3);
    QCOMPARE(noAnswer.count(), 1);
    open.hand.command("hang off");
    ReplyLimits::current() = PatientLimits;
    samples.clear();
    QTRY_VERIFY_WITH_TIMEOUT(samples.size() > 3, 30'000);
    QVERIFY(std::ranges::any_of(samples, &Sample::afterGap));
    QVERIFY(samples.last().values[0] != MissingValue);
}

void TestTelemetry::gaps_data()
{
    QTest::addColumn<double>("rate");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("50 Hz") << 50.0 << QStringList();
    QTest::newRow("10 Hz") << 10.0 << QStringList();
    QTest::newRow("fast") << TelemetryReader::AsFastAsPossible << QStringList();
    QTest::newRow("slow hand") << 50.0 << QStringList{"--baud", "2400"}; // a read takes 0.1 s
}

/// A pause, long for the machine, and the intervals without a pause.
void TestTelemetry::gaps()
{
    QFETCH(double, rate);
    QFETCH(QStringList, options);
    OpenHand open(PROTOCOL_TYPE_SERIALCTRL, options);
    QVERIFY(open.isOpen);
    bool isPaused = false;
    TelemetryReader::Line line = open.line();
    line.canRead = [&](Quantity) { return !isPaused; };
    TelemetryReader reader(line, m_clock);
    reader.setChannels(channelsOf(Quantity::Position));
    std::vector<Sample> samples;
    connect(&reader, &TelemetryReader::sig_sample, &reader,
            [&](const Sample& sample) { samples.push_back(sample); });
    reader.setRate(rate);
    reader.start();
    QTRY_VERIFY_WITH_TIMEOUT(samples.size() > 20, 30'000);
    std::int64_t longest = rate > 0 ? 1'000'000 / std::int64_t(rate) : 0;
    for (std::size_t i = 1; i < samples.size(); ++i)
        longest = std::max(longest, samples[i].timeUs - samples[i - 1].timeUs);
    // A slow hand makes no gaps, once the average interval is known.
    QVERIFY(std::ranges::count_if(samples, &Sample::afterGap) < std::ssize(samples) / 2);
    const std::size_t next = samples.size();
    isPaused = true;
    QTest::qWait(int(TelemetryReader::PeriodsOfGap * longest / 1000) + 50);
    isPaused = false;
    QTRY_VERIFY_WITH_TIMEOUT(samples.size() > next + 5, 30'000);
    reader.stop();
    QVERIFY(samples[next].afterGap);
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const double interval = double(samples[i].timeUs - samples[i - 1].timeUs);
        if (interval * rate < TelemetryReader::PeriodsOfGap * 1'000'000 && rate > 0)
            QVERIFY(!samples[i].afterGap);
    }
}

VANTO_TEST(TestTelemetry)

} // namespace vanto

#include "tst_telemetry.moc"
