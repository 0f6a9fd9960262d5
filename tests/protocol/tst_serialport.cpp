#include "handprocess.h"
#include "operation.h"
#include "serialport.h"
#include "serialprotocolv3.h"
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
    const LineHold m_line; ///< adapters are called directly

private slots:
    void init()
    {
        m_hand = std::make_unique<HandProcess>();
        QVERIFY2(m_hand->start(), qPrintable(m_hand->errorText()));
        m_name = m_hand->portName().toStdString();
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    }
    void factory();
    void hangUp();
    void staleClose();

private:
    void unplug() { QCOMPARE(m_hand->command(QStringLiteral("unplug")), QStringLiteral("ok")); }
    void replug() { QVERIFY(m_hand->command(QStringLiteral("replug")).startsWith(u"ok")); }

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
    QVERIFY(SerialPort::get("qtserial", "one")); // the factory is not left locked
}

void tst_serialport::hangUp()
{
    SerialProtocolV3 adapter;
    const auto beep = [&adapter](int limitMs) {
        ReplyLimits::current().serialCtrl = limitMs;
        return adapter.beep(HandNode, 1);
    };
    constexpr int Patient = PatientLimits.serialCtrl;
    constexpr int Brief = 500;
    for (const bool waiting : {false, true}) {
        QVERIFY(adapter.connect(m_name.c_str(), BaudRate));
        QCOMPARE(beep(Patient), ResultCode::Success);
        if (waiting) {
            m_hand->command(QStringLiteral("fault drop"));
            QTimer::singleShot(5, this, &tst_serialport::unplug);
            QCOMPARE(beep(Brief), ResultCode::Timeout);
        } else {
            unplug();
        }
        const std::clock_t before = std::clock();
        QTest::qWait(1000);
        const auto used = (std::clock() - before) * 1000 / CLOCKS_PER_SEC;
        // Until the port is closed it may keep a processor busy.
        QVERIFY2(used < 400, qPrintable(QStringLiteral("%1 ms of processor time").arg(used)));
        QCOMPARE(beep(Brief), ResultCode::Timeout);
        QVERIFY(!adapter.connect(m_name.c_str(), BaudRate));
        replug();
    }
    QVERIFY(adapter.connect(m_name.c_str(), BaudRate));
    QCOMPARE(beep(Patient), ResultCode::Success);
}

void tst_serialport::staleClose()
{
    const auto port = SerialPort::get("qtserial", "one");
    QVERIFY(port->open(m_name.c_str(), BaudRate));
    unplug();
    port->clear(); // notices the hang-up, so that a close is on its way
    port->close();
    replug();
    QVERIFY(port->open(m_name.c_str(), BaudRate));
    QCoreApplication::processEvents();
    QVERIFY2(port->bytesAvailable() == 0, "the close meant for the earlier opening shut this one");
    unplug();
    port->clear();
    QVERIFY2(port->bytesAvailable() == 0, "closed inside its own signal");
    QTRY_VERIFY(port->bytesAvailable() == -1); // the second hang-up closes the port
}

VANTO_TEST(tst_serialport)

} // namespace vanto

#include "tst_serialport.moc"
