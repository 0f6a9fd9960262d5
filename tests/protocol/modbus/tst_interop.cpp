#include "handprocess.h"
#include "libmodbusslave.h"
#include "modbusrtuprotocolv1.h"
#include "operation.h"

#include <QElapsedTimer>

// Both sides against an implementation that is not ours: the adapter against a slave made with
// libmodbus, and libmodbus as the master of the simulated hand.

namespace
{
/// What an operation returns, and how many requests it takes, while the slave misbehaves.
struct SlaveRow {
    const char* name;
    QString (*call)(VantoProtocol*, const char*);
    const char* inputs;
    LibModbusSlave::Manner manner;
    const char* outcome;
    int requests;
};

using enum LibModbusSlave::Manner;

const SlaveRow slaveRows[] = {
    {OPERATION(getBatteryVoltage), "", Good, "0 1007", 1},
    {OPERATION(getFirmwareVersion), "", Good, "0 3 233 1002", 1},
    {OPERATION(getCaliData), "6 3", Good,
     "0 1020,1021,1022,1023,1024,1025 1030,1031,1032,1033,1034,1035 1040,1041,1042", 3},
    {OPERATION(getFingerForce), "5 15", Good,
     "0 1325,1326,1327,1328,1329,1330,1331,1332,1333,1334,1335,1336,1337,1338,1339", 1},
    {OPERATION(getFingerForce), "6 1", Good, "16", 1}, // no such register
    {OPERATION(setFingerPos), "1 40000 255", Good, "0", 2},
    {OPERATION(setFingerAngleAll), "-1,-2,3,4,5,6 1,2,3,4,5,6 6", Good, "0", 2},
    {OPERATION(powerOff), "", Good, "16", 1}, // a write of nothing is not allowed
    {OPERATION(getBatteryVoltage), "", Refusing, "16", 1},
    {OPERATION(setFingerPos), "1 40000 255", Refusing, "16", 1},
    {OPERATION(getBatteryVoltage), "", Silent, "3", 2},
    {OPERATION(beep), "1", Silent, "3", 2},
    {OPERATION(getBatteryVoltage), "", BrokenCrc, "3", 2},
    {OPERATION(beep), "1", BrokenCrc, "3", 2},
    {OPERATION(getFirmwareVersion), "", TooFewRegisters, "255", 1},
    {OPERATION(getFingerAngleAll), "2", TooFewRegisters, "255", 1},
};

using Master = std::unique_ptr<modbus_t, void (*)(modbus_t*)>;

Master masterOf(const HandProcess& hand, int node)
{
    Master master(modbus_new_rtu(qPrintable(hand.portName()), BaudRate, 'N', 8, 1),
                  [](modbus_t* context) {
                      modbus_close(context);
                      modbus_free(context);
                  });
    modbus_set_slave(master.get(), node);
    modbus_set_response_timeout(master.get(), 1, 0);
    return modbus_connect(master.get()) == 0 ? std::move(master) : Master(nullptr, modbus_free);
}
} // namespace

class tst_interop : public QObject
{
    Q_OBJECT
private slots:
    void slave_data() { addRows(slaveRows); }
    void slave();
    void written();
    void master_data();
    void master();
};

void tst_interop::slave()
{
    QFETCH(const SlaveRow*, row);
    LibModbusSlave slave(HandNode, row->manner);
    ModBusRTUProtocolV1 adapter;
    QVERIFY(adapter.connect(slave.portName(), BaudRate));
    QCOMPARE(row->call(&adapter, row->inputs), QString::fromLatin1(row->outcome));
    adapter.disconnect();
    QCOMPARE(slave.requests(), row->requests);
}

void tst_interop::written()
{
    LibModbusSlave slave(HandNode, Good);
    ModBusRTUProtocolV1 adapter;
    QVERIFY(adapter.connect(slave.portName(), BaudRate));
    const s16 angles[] = {-1, 2, -32768, 32767};
    const u8 speeds[] = {255, 1, 0, 128};
    QCOMPARE(int(adapter.setFingerAngleAll(HandNode, angles, speeds, 4)), 0);
    QCOMPARE(int(adapter.setID(HandNode, 255)), 0);
    QCOMPARE(slave.registers(1125, 4), (QList<u16>{65535, 257, 0, 32896}));
    QCOMPARE(slave.registers(1155, 4), (QList<u16>{65535, 2, 32768, 32767}));
    QCOMPARE(slave.registers(1005, 1), QList<u16>{255});
}

void tst_interop::master_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addRow("at once") << QStringList();
    QTest::addRow("9600 baud") << QStringList{QStringLiteral("--baud"), QStringLiteral("9600")};
    QTest::addRow("115200 baud") << QStringList{QStringLiteral("--baud"), QStringLiteral("115200")};
}

void tst_interop::master()
{
    QFETCH(QStringList, options);
    HandProcess hand;
    QVERIFY2(
        hand.start(options + QStringLiteral("--node 7:modbus --node 3 --speed 1e-9").split(u' ')),
        qPrintable(hand.errorText()));
    const Master master = masterOf(hand, 7);
    QVERIFY2(master, modbus_strerror(errno));

    std::array<u16, 125> values{};
    QCOMPARE(modbus_read_registers(master.get(), 1000, 5, values.data()), 5);
    QCOMPARE(QList<u16>(values.begin(), values.begin() + 5),
             (QList<u16>{0x0100, 0x0104, 7, 0x1B01, 0x0102}));
    QCOMPARE(modbus_read_registers(master.get(), 1200, 125, values.data()), 125);
    QCOMPARE(values[0], u16{10});
    QCOMPARE(values[124], u16{54});
    const u16 presets[] = {1, 2, 65535};
    QCOMPARE(modbus_write_registers(master.get(), 1040, 3, presets), 3);
    QCOMPARE(modbus_read_registers(master.get(), 1040, 3, values.data()), 3);
    QCOMPARE(values[2], u16{65535});
    QCOMPARE(modbus_write_register(master.get(), 1010, 300), 1);
    QCOMPARE(hand.command(QStringLiteral("get 7 beep-duration")), QStringLiteral("ok 300"));

    const auto refused = [](int result) { return result == -1 ? errno : 0; };
    QCOMPARE(refused(modbus_read_registers(master.get(), 1016, 1, values.data())), EMBXILADD);
    QCOMPARE(refused(modbus_read_registers(master.get(), 1025, 2, values.data())), EMBXILADD);
    QCOMPARE(refused(modbus_write_register(master.get(), 1350, 1)), EMBXILADD);
    QCOMPARE(refused(modbus_write_register(master.get(), 1012, 1)), EMBXSFAIL);
    QCOMPARE(refused(modbus_read_input_registers(master.get(), 1000, 1, values.data())), EMBXILFUN);
    hand.command(QStringLiteral("fault garble"));
    QCOMPARE(refused(modbus_read_registers(master.get(), 1000, 1, values.data())), EMBBADCRC);

    QCOMPARE(modbus_write_register(master.get(), 1005, 9), 1);
    modbus_set_slave(master.get(), 9);
    QCOMPARE(modbus_read_registers(master.get(), 1010, 2, values.data()), 2);
    modbus_set_slave(master.get(), MODBUS_BROADCAST_ADDRESS);
    modbus_set_response_timeout(master.get(), 0, 50'000);
    QCOMPARE(refused(modbus_write_register(master.get(), 1008, 1)), ETIMEDOUT);
    QCOMPARE(hand.command(QStringLiteral("get 9 selftest")), QStringLiteral("ok 1"));
    QCOMPARE(hand.command(QStringLiteral("get 3 selftest")), QStringLiteral("ok 2"));
}

QTEST_GUILESS_MAIN(tst_interop)
#include "tst_interop.moc"
