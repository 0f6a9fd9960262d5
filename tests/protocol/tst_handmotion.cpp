#include "handprocess.h"
#include "modbusrtuprotocolv1.h"
#include "operation.h"
#include "serialprotocolv3.h"
#include "testmain.h"

#include <algorithm>
#include <memory>

namespace vanto
{

namespace
{
constexpr int AllFingers = 0x3F;
constexpr int NodeOfAll = 255;
} // namespace

/// The motion of a simulated hand and the options that make it unlike most hands.
class tst_handmotion : public QObject
{
    Q_OBJECT
    const LineHold m_line{}; ///< adapters are called directly

private slots:
    void stop_data() { addOption("--latch-stop"); }
    void stop();
    void speedDuringMotion_data() { addOption("--speed-at-once"); }
    void speedDuringMotion();
    void collision_data() { addOption("--collide"); }
    void collision();
    void thumbRootPresets();

private:
    static void addOption(const char* option)
    {
        QTest::addColumn<QString>("option");
        QTest::newRow("default") << QString();
        QTest::newRow(option) << QString::fromLatin1(option);
    }
    bool start(VantoProtocol& adapter, const QString& options)
    {
        m_hand = std::make_unique<HandProcess>();
        return m_hand->start(options.split(u' ', Qt::SkipEmptyParts)) &&
               adapter.connect(qPrintable(m_hand->portName()), BaudRate) != 0;
    }
    QString value(const char* name)
    {
        return m_hand->command(QStringLiteral("get ") + QLatin1String(name));
    }
    MotionMark lastMark() const
    {
        return m_hand->motionMarks().value(m_hand->motionMarks().size() - 1);
    }

    std::unique_ptr<HandProcess> m_hand;
};

void tst_handmotion::stop()
{
    QFETCH(QString, option);
    const bool latches = option == u"--latch-stop";
    constexpr std::uint8_t speed = 48;
    constexpr double ticksPerMs = 4 * 65.535 * speed / 255;
    constexpr int target = 60000;
    SerialProtocolV3 adapter;
    QVERIFY(start(adapter, QStringLiteral("--speed 4 ") + option));
    QCOMPARE(int(adapter.setFingerPos(HandNode, 1, target, speed)), 0);
    QTRY_VERIFY(value("2 position 1").mid(3).toInt() > 0);

    m_hand->clearTrace();
    QCOMPARE(int(adapter.fingerStop(HandNode, AllFingers)), 0);
    const QList<TracedFrame> exchange = m_hand->trace();
    const MotionMark stopped = lastMark();
    QVERIFY(!stopped.moving);
    QVERIFY(exchange.at(0).ms <= stopped.ms && stopped.ms <= exchange.at(1).ms);
    QCOMPARE(value("2 stopped 1"), QStringLiteral("ok 1"));
    QCOMPARE(value("2 target 1"), QStringLiteral("ok 60000"));

    QCOMPARE(int(adapter.setFingerPos(HandNode, 0, 30000, 255)), 0);
    QCOMPARE(m_hand->motionMarks().size() == 1, latches);
    QCOMPARE(int(adapter.fingerStart(HandNode, AllFingers)), 0);
    QTRY_COMPARE(lastMark().positions, (QList{30000, target, 0, 0, 0, 0}));
    QVERIFY(!lastMark().moving);

    const QList<MotionMark> marks = m_hand->motionMarks();
    const double travel = (target - stopped.positions[1]) / ticksPerMs;
    for (const double part : {1.5, 1.0, 0.5}) {
        const double expected = target - std::min(part, 1.0) * travel * ticksPerMs;
        const double ms = marks.last().ms - part * travel;
        const double position = HandProcess::positionsAt(marks, HandNode, ms)[1];
        QVERIFY2(qAbs(position - expected) < 2, qPrintable(QString::number(position)));
    }
}

void tst_handmotion::speedDuringMotion()
{
    QFETCH(QString, option);
    ModBusRTUProtocolV1 adapter;
    QVERIFY(start(adapter, QStringLiteral("--node 2:modbus --speed 10 ") + option));
    QCOMPARE(int(adapter.setFingerPos(HandNode, 0, 65535, 1)), 0);
    // The hand accepts the speed and refuses the target.
    QCOMPARE(m_hand->command(QStringLiteral("fault refuse skip=1")), QStringLiteral("ok"));
    QCOMPARE(int(adapter.setFingerPos(HandNode, 0, 100, 255)), 16);
    const QList<MotionMark> marks = m_hand->motionMarks();
    if (option != u"--speed-at-once") {
        QCOMPARE(marks.size(), 1);
        return;
    }
    QVERIFY(marks.size() >= 2);
    QVERIFY(marks[1].moving);
    QTRY_VERIFY(!lastMark().moving);
    QCOMPARE(lastMark().positions[0], 65535);
    const double travel = (65535 - marks[1].positions[0]) / 655.35;
    QVERIFY(qAbs(lastMark().ms - marks[1].ms - travel) < 0.01);
}

void tst_handmotion::collision()
{
    QFETCH(QString, option);
    const bool collides = option == u"--collide";
    SerialProtocolV3 adapter;
    QVERIFY(start(adapter, QStringLiteral("--node 2 --node 3 ") + option));
    QCOMPARE(int(adapter.setBeepSwitch(NodeOfAll, 0)), collides ? 1 : 0);
    QCOMPARE(value("3 beepswitch"), QStringLiteral("ok 0"));
    QCOMPARE(m_hand->trace().size(), 2);
    QCOMPARE(m_hand->trace()[1].marks, collides ? QStringLiteral("!collision") : QString());
    QCOMPARE(int(adapter.setBeepSwitch(3, 1)), 0);
    QCOMPARE(m_hand->command(QStringLiteral("set 3 powered 0")), QStringLiteral("ok"));
    QCOMPARE(int(adapter.setBeepSwitch(NodeOfAll, 1)), 0);
}

/// The presets and the position of the thumb root have the same unit, whichever protocol reads
/// them.
void tst_handmotion::thumbRootPresets()
{
    using Presets = std::array<std::uint16_t, 3>;
    SerialProtocolV3 serialCtrl;
    ModBusRTUProtocolV1 modbus;
    const auto stored = [](VantoProtocol& adapter, Presets& presets) {
        PerFinger<std::uint16_t> ends{};
        PerFinger<std::uint16_t> starts{};
        return int(adapter.getCaliData(HandNode, ends.data(), starts.data(), 6, presets.data(), 3));
    };
    QVERIFY(start(serialCtrl, QStringLiteral("--node 2:serialctrl --node 2:modbus")));
    for (VantoProtocol* const adapter :
         std::initializer_list<VantoProtocol*>{&serialCtrl, &modbus}) {
        serialCtrl.disconnect();
        QVERIFY(adapter->connect(qPrintable(m_hand->portName()), BaudRate));
        for (const auto& [raw, preset] : {std::pair{"600", 0}, {"1900", 1}, {"3300", 2}}) {
            m_hand->command(QStringLiteral("set 2 raw 5 ") + QLatin1String(raw));
            std::uint16_t position = 0;
            std::uint8_t index = 255;
            QCOMPARE(int(adapter->getThumbRootPos(HandNode, &position, &index)), 0);
            QCOMPARE(int{index}, preset);
        }
    }
    Presets presets{};
    QCOMPARE(stored(modbus, presets), 0);
    QCOMPARE(presets, (Presets{2901, 30834, 60915})); // of the range 465 to 3515
    const PerFinger<std::uint16_t> ends{3600, 3583, 3566, 3549, 3532, 3515};
    const PerFinger<std::uint16_t> starts{400, 413, 426, 439, 452, 465};
    const Presets chosen{1, 1000, 65535};
    QCOMPARE(int(modbus.setCaliData(HandNode, ends.data(), starts.data(), chosen.data(), 6, 3)), 0);
    QCOMPARE(stored(modbus, presets), 0);
    QCOMPARE(presets, chosen);
    modbus.disconnect();
}

VANTO_TEST(tst_handmotion)

} // namespace vanto

#include "tst_handmotion.moc"
