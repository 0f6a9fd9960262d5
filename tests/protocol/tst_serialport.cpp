#include "handprocess.h"
#include "operation.h"
#include "serialport.h"
#include "testmain.h"
#include "timing.h"

#include <QRegularExpression>
#include <QTimer>

#include <ctime>

namespace vanto
{

class tst_serialport : public QObject
{
    Q_OBJECT
    const LineHold m_line{}; ///< adapters are called directly

private slots:
    void init()
    {
        m_hand = std::make_unique<HandProcess>();
        QVERIFY2(m_hand->start({"--node", "2:serialctrl", "--node", "2:modbus"}),
                 qPrintable(m_hand->errorText()));
        m_name = m_hand->portName().toStdString();
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    }
    void factory();
    void hangUp_data();
    void hangUp();
    void staleClose();
    void chatter_data() { hangUp_data(); }
    void chatter();

private:
    void unplug() { QCOMPARE(m_hand->command(QStringLiteral("unplug")), QStringLiteral("ok")); }
    void replug()
    {
        m_hand->command(QStringLiteral("clear")); // a fault that no request has met
        QVERIFY(m_hand->command(QStringLiteral("replug")).startsWith(u"ok"));
    }

    std::unique_ptr<HandProcess> m_hand;
    std::string m_name;
};

void tst_serialport::factory()
{
    const auto port = SerialPort::get("qtserial", "one");
    QVERIFY(port && port != SerialPort::get("qtserial", "two"));
    for (const char* type : {"qtserial", "libserial", "other"})
        QCOMPARE(SerialPort::get(type, "one"), port);
    for (const char* type : {"libserial", "libserial", "other", "other", ""})
        QVERIFY2(!SerialPort::get(type, "three"), type);
    QVERIFY(SerialPort::get("qtserial", "three"));
    try {
        SerialPort::get("qtserial", nullptr);
        QFAIL("a null name was accepted");
    } catch (const std::logic_error& error) {
        QCOMPARE(error.what(), "basic_string: construction from null is not valid");
    }
    QVERIFY(SerialPort::get("qtserial", "one")); // the mutex is unlocked
}

void tst_serialport::hangUp_data()
{
    QTest::addColumn<PROTOCOL_TYPE>("protocol");
    QTest::newRow("SerialCtrl") << PROTOCOL_TYPE_SERIALCTRL;
    QTest::newRow("Modbus") << PROTOCOL_TYPE_MODBUS_RTU;
}

void tst_serialport::hangUp()
{
    QFETCH(PROTOCOL_TYPE, protocol);
    const bool modbus = protocol == PROTOCOL_TYPE_MODBUS_RTU;
    const auto adapter = VantoProtocol::getProtocolInstance(protocol, modbus ? 1 : 3, 0);
    const auto connectToHand = [&] { return adapter->connect(m_name.c_str(), BaudRate); };
    const auto readVoltage = [&adapter](int limitMs) {
        ReplyLimits::current().serialCtrl = limitMs;
        std::uint16_t voltage = 0;
        return int(adapter->getBatteryVoltage(HandNode, &voltage));
    };
    constexpr int Patient = PatientLimits.serialCtrl;
    constexpr int Brief = 500;
    const int failure = modbus ? 16 : ResultCode::Timeout;
    for (const bool waiting : {false, true}) {
        QVERIFY(connectToHand());
        QCOMPARE(readVoltage(Patient), 0);
        if (waiting) {
            m_hand->command(QStringLiteral("fault drop"));
            QTimer::singleShot(10, this, &tst_serialport::unplug);
            QCOMPARE(readVoltage(Brief), failure);
        } else {
            unplug();
        }
        const std::clock_t before = std::clock();
        QTest::qWait(1000); // measures processor time: until it is closed, the port may use much
        const auto used = (std::clock() - before) * 1000 / CLOCKS_PER_SEC;
        QVERIFY2(used < 400, qPrintable(QStringLiteral("%1 ms of processor time").arg(used)));
        QCOMPARE(readVoltage(Brief), failure);
        QVERIFY(!connectToHand());
        replug();
    }
    QVERIFY(connectToHand());
    QCOMPARE(readVoltage(Patient), 0);
    adapter->disconnect();
}

void tst_serialport::staleClose()
{
    const auto port = SerialPort::get("qtserial", "one");
    QVERIFY(port->open(m_name.c_str(), BaudRate));
    unplug();
    port->clear(); // detects the hang-up and queues a close
    port->close();
    replug();
    QVERIFY(port->open(m_name.c_str(), BaudRate));
    QCoreApplication::processEvents();
    QVERIFY2(port->bytesAvailable() == 0, "the queued close has closed the new connection");
    unplug();
    port->clear();
    QVERIFY2(port->bytesAvailable() == 0, "closed within its own signal");
    QTRY_VERIFY(port->bytesAvailable() == -1); // the second hang-up closes the port
}

/// A line that is never silent must not fill the memory of an idle program, and the next request
/// must find its reply.
void tst_serialport::chatter()
{
    constexpr int MaxTaken = 1 << 18; // bytes, of which the system keeps most
    QFETCH(PROTOCOL_TYPE, protocol);
    const bool modbus = protocol == PROTOCOL_TYPE_MODBUS_RTU;
    const auto adapter = VantoProtocol::getProtocolInstance(protocol, modbus ? 1 : 3, 0);
    QVERIFY(adapter->connect(m_name.c_str(), BaudRate));
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(m_hand->command(QStringLiteral("chatter")), QStringLiteral("ok"));
        QTest::qWait(1000); // shows that the program stops reading
        const QString answer = m_hand->command(QStringLiteral("chatter off"));
        QVERIFY(answer.startsWith(u"ok "));
        const int taken = answer.sliced(3).toInt();
        QVERIFY2(taken > 0 && taken < MaxTaken, qPrintable(answer));
        std::uint16_t voltage = 0;
        QTRY_COMPARE_WITH_TIMEOUT(int(adapter->getBatteryVoltage(HandNode, &voltage)), 0, 30'000);
        QCOMPARE(voltage, std::uint16_t{7400});
    }
    adapter->disconnect();
}

VANTO_TEST(tst_serialport)

} // namespace vanto

#include "tst_serialport.moc"
