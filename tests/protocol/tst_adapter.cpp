#include "conversation.h"
#include "handprocess.h"
#include "operation.h"
#include "serialport.h"
#include "serialprotocolv3.h"
#include "testmain.h"

#include <QTimer>

namespace vanto
{

namespace
{
struct Operation {
    const char* name;
    QString (*call)(VantoProtocol*, const char*);
    const char* inputs;
};

constexpr Operation readAll{OPERATION(getFingerAngleAll), "6"};
constexpr Operation writeOne{OPERATION(setFingerPos), "1 1000 20"};
constexpr Operation readGains{OPERATION(getFingerPID), "1"};
constexpr Operation writeGains{OPERATION(setFingerPID), "1 1 2 3 4"};

constexpr ReplyLimits Stretched = ReplyLimits().scaled(6);
} // namespace

class tst_adapter : public QObject
{
    Q_OBJECT
    const LineHold m_line{}; ///< adapters are called directly

private slots:
    void initTestCase() { QVERIFY2(m_hand.start(), qPrintable(m_hand.errorText())); }
    void init() { QVERIFY(connectToHand(PatientLimits)); }
    void cleanup() { m_adapter.disconnect(); }
    void longerTimeoutForGains();
    void interruptions();
    void nodeErrors();
    void lateReply();
    void factory();

private:
    int result(const Operation& operation)
    {
        return operation.call(&m_adapter, operation.inputs).section(u' ', 0, 0).toInt();
    }
    /// Applies a fault to the reply; returns when the hand has sent or dropped the reply.
    int result(const char* fault, const Operation& operation)
    {
        m_hand.clearTrace();
        const bool accepted =
            m_hand.command(QStringLiteral("fault ") + QLatin1String(fault)) == u"ok";
        const int result = this->result(operation);
        const bool done =
            QTest::qWaitFor([this] { return m_hand.trace().size() == 2; }, ConditionMs);
        return accepted && done ? result : -1;
    }
    bool connectToHand(const ReplyLimits& limits = Stretched)
    {
        ReplyLimits::current() = limits;
        m_adapter.disconnect();
        return m_adapter.connect(qPrintable(m_hand.portName()), BaudRate);
    }

    HandProcess m_hand;
    SerialProtocolV3 m_adapter;
};

void tst_adapter::longerTimeoutForGains()
{
    QVERIFY(connectToHand());
    QCOMPARE(result("late ms=600", writeGains), 0);
    QCOMPARE(result("drop", writeGains), 3);
    QCOMPARE(result("late ms=600", writeGains), 0);
    QCOMPARE(result("late ms=600", readGains), 3);
    QCOMPARE(result("late ms=1200", writeGains), 3);
    QCOMPARE(result("late ms=600", readGains), 3);
}

void tst_adapter::interruptions()
{
    QVERIFY(connectToHand());
    for (const Operation& operation : {readAll, writeGains}) {
        bool inside = false;
        QTimer::singleShot(10, this, [&] {
            inside = Exchange::active();
            m_adapter.disconnect();
        });
        QCOMPARE(result("drop", operation), 3);
        QVERIFY(inside);
        QCOMPARE(result(operation), 2);
        QVERIFY(connectToHand());
        QCOMPARE(result(operation), 0);
        QTimer::singleShot(10, this, [&] {
            m_adapter.disconnect();
            connectToHand();
        });
        QCOMPARE(result("drop", operation), 3);
        QCOMPARE(result(operation), 0);
    }
}

void tst_adapter::nodeErrors()
{
    QCOMPARE(int(m_adapter.getNodeError(HandNode)), 0);
    m_adapter.setNodeError(3, 0x44);
    QCOMPARE(result("refuse error=0x21", writeOne), 255);
    QCOMPARE(int(m_adapter.getNodeError(HandNode)), 0x21);
    QCOMPARE(int(m_adapter.getNodeError(3)), 0x44);
    QCOMPARE(int(m_adapter.getNodeError(4)), 0);
    QCOMPARE(result("garble", writeOne), 1);
    QCOMPARE(int(m_adapter.getNodeError(HandNode)), 0);
}

void tst_adapter::lateReply()
{
    QVERIFY(connectToHand());
    m_hand.command(QStringLiteral("set 2 current 1 111"));
    m_hand.command(QStringLiteral("fault late ms=500"));
    std::uint16_t current = 0;
    QCOMPARE(int(m_adapter.getFingerCurrent(HandNode, 1, &current)), 3);
    const auto port = SerialPort::get("qtserial", qPrintable(m_hand.portName()));
    QTRY_VERIFY(port->bytesAvailable() == 10);
    m_hand.command(QStringLiteral("set 2 current 1 222"));
    QCOMPARE(int(m_adapter.getFingerCurrent(HandNode, 1, &current)), 0);
    QCOMPARE(current, std::uint16_t{222});
}

void tst_adapter::factory()
{
    const auto get = [](int type, int major, int minor) {
        return VantoProtocol::getProtocolInstance(PROTOCOL_TYPE(type), std::uint8_t(major),
                                                  std::uint8_t(minor));
    };
    const auto adapter = get(2, 3, 0);
    QCOMPARE(get(2, 3, 0), adapter);
    QCOMPARE(get(2, 3, 255), adapter);
    QCOMPARE(int(adapter->protocolType()), 2);
    QCOMPARE(adapter->protocolName(), "SerialCtrl");
    QCOMPARE(adapter->protocolVersion(), 3);
    const std::pair<int, int> unsupported[] = {{2, 2}, {2, 4}, {2, 1}, {1, 2}, {1, 3}, {0, 3}};
    for (const auto& [type, major] : unsupported)
        QVERIFY2(!get(type, major, 0), qPrintable(QStringLiteral("%1, %2").arg(type).arg(major)));
}

VANTO_TEST(tst_adapter)

} // namespace vanto

#include "tst_adapter.moc"
