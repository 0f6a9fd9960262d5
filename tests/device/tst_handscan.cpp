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
    void reportFailure(const HandTarget&, std::string_view operation, std::uint8_t,
                       std::uint8_t) override
    {
        texts.append(QString::fromLatin1(operation.data(), qsizetype(operation.size())));
    }
    QStringList texts;
};
} // namespace

/// A scan without a window; tests_window covers the hands that it finds.
class TestHandScan : public QObject
{
    Q_OBJECT
private slots:
    void outcomes();
};

void TestHandScan::outcomes()
{
    Report report;
    HandScan scan(report);
    const Generation generation;
    QCOMPARE(scan.run("/dev/none", generation.token()), HandScan::Outcome::PortNotOpened);
    QCOMPARE(scan.failedProtocol(), PROTOCOL_TYPE_MODBUS_RTU);
    HandProcess hand;
    QVERIFY(hand.start());
    ReplyLimits::current() = {50, 50, 50, 50};
    Generation other;
    connect(&scan, &HandScan::sig_pause, this, [&other] { other.advance(); });
    QCOMPARE(scan.run(hand.portName(), other.token()), HandScan::Outcome::Superseded);
    QCOMPARE(report.texts, QStringList{"1 timeout"}); // only the first protocol is tried
}

VANTO_TEST(TestHandScan)

} // namespace vanto

#include "tst_handscan.moc"
