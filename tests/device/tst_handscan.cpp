#include "devicesession.h"
#include "handprocess.h"
#include "handscan.h"
#include "testmain.h"

#include <QTest>

namespace vanto
{

namespace
{
struct Report : CallReport {
    bool reportTimeout(const HandTarget& target) override
    {
        texts.append(QString("%1 timeout").arg(target.node));
        return true;
    }
    void reportFailure(const HandTarget& target, std::string_view operation, std::uint8_t result,
                       std::uint8_t) override
    {
        texts.append(QString("%1 %2 %3")
                         .arg(target.node)
                         .arg(QLatin1String(operation.data(), qsizetype(operation.size())))
                         .arg(result));
    }
    QStringList texts;
};
} // namespace

/// Finds, opens and reads hands without a window.
class TestHandScan : public QObject
{
    Q_OBJECT
private slots:
    void scanOpenRead();
    void endings();
};

void TestHandScan::scanOpenRead()
{
    HandProcess hand;
    QVERIFY(hand.start({"--node", "1:modbus", "--node", "2:serialctrl", "--no-force"}));
    ReplyLimits::current() = {1000, 1000, 1000, 1000};
    QList<DeviceEntry> found;
    std::optional<std::uint8_t> current;
    DeviceSession session([&current] { return current; });
    Report report;
    HandScan scan(report);
    connect(&scan, &HandScan::sig_found, this, [&](const DeviceEntry& entry) {
        found.append(entry);
        if (found.size() == 2)
            scan.stop();
    });
    QCOMPARE(scan.run(hand.portName(), session.token(), {}), HandScan::Outcome::Stopped);
    QCOMPARE(found.size(), 2);
    QCOMPARE(found[0].text(), "0x01 (ModBus-RTU V1.4.7, Protocol V1.0)");
    QCOMPARE(found[1].text(), "0x02 (SerialCtrl V1.4.7, Protocol V3.1)");
    QCOMPARE(report.texts, (QStringList{"1 timeout", "2 timeout"}));

    ReplyLimits::current() = PatientLimits;
    report.texts.clear();
    for (const DeviceEntry& entry : found) {
        DeviceAddress address;
        QCOMPARE(parseDeviceEntry(entry.text(), address), EntryError::None);
        current = entry.node;
        const auto target = session.open(
            VantoProtocol::getProtocolInstance(address.type, address.major, address.minor),
            PortEntry{hand.portName(), {}});
        QVERIFY(target && !session.hasForceSensing());
        std::uint16_t voltage = 0;
        {
            HandCall call(*target, report);
            QVERIFY(call.perform<&VantoProtocol::getBatteryVoltage>(&voltage));
            QCOMPARE(voltage, 7400);
            hand.command("fault refuse error=0x21");
            QVERIFY(!call.perform<&VantoProtocol::beep>(std::uint16_t{1}));
        }
        session.close();
        HandCall stale(*target, report);
        QVERIFY(!stale.perform<&VantoProtocol::getBatteryVoltage>(&voltage)); // and is not reported
    }
    QCOMPARE(report.texts, (QStringList{"1 beep 16", "2 beep 255"}));
}

void TestHandScan::endings()
{
    Report report;
    HandScan scan(report);
    const Generation generation;
    QCOMPARE(scan.run("/dev/none", generation.token(), {}), HandScan::Outcome::PortNotOpened);
    QCOMPARE(scan.failedProtocol(), PROTOCOL_TYPE_MODBUS_RTU);
    HandProcess hand;
    QVERIFY(hand.start());
    ReplyLimits::current() = {50, 50, 50, 50};
    Generation other;
    connect(&scan, &HandScan::sig_pause, this, [&other] { other.advance(); });
    QCOMPARE(scan.run(hand.portName(), other.token(), {}), HandScan::Outcome::Superseded);
    QCOMPARE(report.texts,
             QStringList{"1 timeout"}); // of the first protocol; the rest is not tried
}

VANTO_TEST(TestHandScan)

} // namespace vanto

#include "tst_handscan.moc"
