#include "handprocess.h"
#include "modbusrtuclientqt.h"
#include "modbusrtuprotocolv1.h"
#include "operation.h"
#include "serialprotocolv3.h"
#include "testmain.h"

#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSerialPort>
#include <QThread>
#include <QTimer>

#include <optional>

namespace vanto
{

class tst_client : public QObject
{
    Q_OBJECT
    using Error = ModBusRTUClient::Error;
    const LineHold m_line{}; ///< adapters are called directly

private slots:
    void init();
    void client();
    void interruptions();
    void quit();
    void staleClose();
    void trace();
    void lateReplies_data();
    void lateReplies();
    void timeouts();

private:
    QString command(const QString& text) { return m_hand->command(text); }
    bool connectToHand() { return m_adapter->connect(m_name.c_str(), BaudRate); }
    int readVoltage()
    {
        std::uint16_t voltage = 0;
        return m_adapter->getBatteryVoltage(HandNode, &voltage);
    }

    std::unique_ptr<HandProcess> m_hand;
    std::string m_name;
    std::unique_ptr<ModBusRTUProtocolV1> m_adapter;
};

void tst_client::init()
{
    m_hand = std::make_unique<HandProcess>();
    QVERIFY2(m_hand->start(QStringLiteral("--node 2:modbus --node 2:serialctrl").split(u' ')),
             qPrintable(m_hand->errorText()));
    m_name = m_hand->portName().toStdString();
    ReplyLimits::current() = PatientLimits;
    m_adapter = std::make_unique<ModBusRTUProtocolV1>();
    QVERIFY(connectToHand());
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
}

void tst_client::client()
{
    for (const char* name : {"libmodbus", "", "other", static_cast<const char*>(nullptr)})
        QVERIFY(!ModBusRTUClient::create(name));
    for (int error = 0; error < 16; ++error) // all values that the type can have
        QCOMPARE(int(ModBusRTUClientQT::translateError(QModbusDevice::Error(error))),
                 std::min(error, 8));
    const auto client = ModBusRTUClient::create("qtmodbus");
    QList<std::uint16_t> values{0x77};
    const auto read = [&] { return client->readRegisters(HandNode, 1007, 2, values); };
    m_adapter->disconnect();
    QSerialPort port(m_hand->portName());
    for (const char* name : {"/dev/there-is-no-such-port", "", m_name.c_str(), m_name.c_str()}) {
        QTest::ignoreMessage(QtDebugMsg, "Device not connected.");
        QCOMPARE(read(), Error::ConnectionError);
        QTest::ignoreMessage(QtDebugMsg, "Device not connected.");
        QCOMPARE(client->writeRegisters(HandNode, 1010, {1}), Error::ConnectionError);
        QCOMPARE(client->connect(name, BaudRate), name == m_name);
        QVERIFY(!client->connect(nullptr, BaudRate));
        client->disconnect();
        QVERIFY2(port.open(QIODevice::ReadWrite), "still in use after disconnecting");
        port.close();
    }
    QVERIFY(client->connect(m_name.c_str(), BaudRate));
    const QRegularExpression refused(QStringLiteral("^sendWriteRequest replied ProtocolError, ."));
    QTest::ignoreMessage(QtDebugMsg, refused);
    QCOMPARE(client->writeRegisters(HandNode, 1010, {}), Error::ProtocolError);
    QTest::ignoreMessage(QtDebugMsg, "sendWriteRequest replied NoError, ");
    QCOMPARE(client->writeRegisters(HandNode, 1010, {1}), Error::NoError);
    QCOMPARE(values, QList<std::uint16_t>{0x77});
    command(QStringLiteral("fault short"));
    QTest::ignoreMessage(QtDebugMsg, "Invalid values.size() 1, expected 2");
    QCOMPARE(read(), Error::ReadError);
    // A timer sends a request while another is outstanding.
    std::optional<Error> inner;
    QTimer::singleShot(0, this, [&] {
        QList<std::uint16_t> others;
        inner = client->readRegisters(HandNode, 1000, 1, others);
        QCOMPARE(others, QList<std::uint16_t>{0x0100});
    });
    QCOMPARE(read(), Error::NoError);
    QCOMPARE(values, (QList<std::uint16_t>{7400, 2}));
    QCOMPARE(inner, Error::NoError);
}

void tst_client::interruptions()
{
    // Disconnects before Qt sends the request, which it does two milliseconds later.
    QTimer::singleShot(0, this, [this] { m_adapter->disconnect(); });
    QCOMPARE(readVoltage(), 16);
    QTest::qWait(10); // Qt does not warn about the closed port
    QVERIFY(connectToHand());
    for (const bool reconnect : {false, true}) {
        command(QStringLiteral("fault drop skip=1"));
        m_hand->clearTrace();
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (m_hand->requests().size() < 2)
                return;
            timer.stop();
            m_adapter->disconnect();
            if (reconnect)
                connectToHand();
        });
        timer.start(5);
        std::uint16_t target = 0x77;
        std::uint16_t current = 0x77;
        QCOMPARE(int(m_adapter->getFingerPos(HandNode, 1, &target, &current)), 16);
        QCOMPARE(target, std::uint16_t{0x77}); // not all reads have succeeded
        QCOMPARE(current, std::uint16_t{0x77});
        QCOMPARE(readVoltage(), reconnect ? 0 : 16);
        m_adapter->disconnect();
        QVERIFY(connectToHand());
        QCOMPARE(readVoltage(), 0);
    }
}

void tst_client::quit()
{
    QList<int> results;
    QTimer::singleShot(0, this, [&] {
        command(QStringLiteral("fault drop"));
        QTimer::singleShot(10, this, [] { QCoreApplication::exit(5); });
        results += readVoltage();
        results += m_adapter->beep(HandNode, 1);
        results += readVoltage();
    });
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(QCoreApplication::exec(), 5);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(results, (QList<int>{16, 16, 16}));
}

void tst_client::staleClose()
{
    command(QStringLiteral("unplug"));
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_adapter->disconnect();
            command(QStringLiteral("replug"));
            QVERIFY(connectToHand());
        },
        Qt::QueuedConnection);
    // The request detects the hang-up and queues a close, which follows the new connection.
    QCOMPARE(readVoltage(), 16);
    QCoreApplication::processEvents();
    QVERIFY2(readVoltage() == 0, "the queued close has closed the new connection");
}

/// The log shows the bytes that the hand traced, and only if it is enabled.
void tst_client::trace()
{
    static QStringList logged;
    const auto handler = [](QtMsgType, const QMessageLogContext& context, const QString& text) {
        const QString line = QLatin1String(context.category) + text.mid(text.indexOf(u' '));
        if (line.startsWith(u"vanto."))
            logged += line; // without the time stamp
    };
    const auto restore = qScopeGuard(
        [previous = qInstallMessageHandler(handler)] { qInstallMessageHandler(previous); });
    m_adapter->disconnect();
    SerialProtocolV3 other;
    for (const char* rules : {"vanto.*=true", ""}) {
        QLoggingCategory::setFilterRules(QLatin1String(rules));
        for (VantoProtocol* const adapter :
             {static_cast<VantoProtocol*>(m_adapter.get()), static_cast<VantoProtocol*>(&other)}) {
            QVERIFY(adapter->connect(m_name.c_str(), BaudRate));
            QCOMPARE(int(adapter->beep(HandNode, 500)), 0);
            adapter->disconnect();
        }
    }
    QTRY_COMPARE(m_hand->trace().size(), 8);
    QStringList expected{QStringLiteral("vanto.modbus tx %1"),
                         QStringLiteral("vanto.modbus rx %1 error 0"),
                         QStringLiteral("vanto.serialctrl tx %1"),
                         QStringLiteral("vanto.serialctrl rx %1 result 0x0")};
    for (int i = 0; i < 4; ++i)
        expected[i] = expected[i].arg(QLatin1String(m_hand->trace()[i].bytes.toHex(' ')));
    QCOMPARE(logged, expected);
}

void tst_client::lateReplies_data()
{
    QTest::addColumn<int>("ms");
    for (const int ms : {120, 180, 240, 280})
        QTest::addRow("%d ms", ms) << ms;
}

/// A late reply, also one to a repetition, does not answer another request. Here it would be cached
/// as a limit, and a finger would move to a wrong position.
void tst_client::lateReplies()
{
    QFETCH(int, ms);
    ReplyLimits::current() = ReplyLimits().scaled(2);
    for (const char* value : {"start 5 1000", "end 5 3000", "voltage 1111"})
        command(QStringLiteral("set 2 ") + QLatin1String(value));
    command(QStringLiteral("fault late ms=%1 count=0").arg(ms));
    for (int round = 0; round < 2; ++round)
        m_adapter->setFingerPosAbs(HandNode, 5, 2000, 255);
    std::uint16_t limit = 0;
    readVoltage();
    QVERIFY(m_adapter->getFingerCurrentLimit(HandNode, 1, &limit) != 0 || limit == 410);
    command(QStringLiteral("clear"));
    QCOMPARE(int(m_adapter->setFingerPosAbs(HandNode, 5, 2000, 255)), 0);
    QCOMPARE(command(QStringLiteral("get 2 target 5")), QStringLiteral("ok 32767"));
    // Nor does a reply that has been in the port for a while.
    command(QStringLiteral("fault late ms=500 count=2"));
    QCOMPARE(readVoltage(), 3);
    QThread::msleep(700);
    QVERIFY(m_adapter->getFingerCurrentLimit(HandNode, 1, &limit) != 0 || limit == 410);
}

/// The time-out of a write is longer than that of a read.
void tst_client::timeouts()
{
    ReplyLimits::current() = ReplyLimits().scaled(16);
    for (const auto& [request, count] :
         {std::pair{std::function([&] { return int(m_adapter->beep(HandNode, 1)); }), 1},
          {std::function([&] { return readVoltage(); }), 2}}) {
        m_hand->clearTrace();
        command(QStringLiteral("fault late ms=1100 count=0"));
        QCOMPARE(request(), 0);
        QCOMPARE(m_hand->requests().size(), count);
        command(QStringLiteral("clear"));
    }
}

VANTO_TEST(tst_client)

} // namespace vanto

#include "tst_client.moc"
