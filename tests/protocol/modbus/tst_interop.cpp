#include "handprocess.h"
#include "modbusrtuprotocolv1.h"
#include "operation.h"
#include "testmain.h"

#include <atomic>
#include <numeric>
#include <thread>

#include <modbus/modbus.h>
#include <pty.h>
#include <unistd.h>

namespace vanto
{

// Both sides against another implementation: the adapter with a slave made with libmodbus, and the
// simulated hand with libmodbus as its master.

namespace
{
using Context = std::unique_ptr<modbus_t, void (*)(modbus_t*)>;

/// A slave made with libmodbus, on its own thread at the near end of a pseudo-terminal. Each of its
/// registers 1000..1349 contains its own address until it is written.
class Slave
{
public:
    explicit Slave(bool refuses) : m_refuses(refuses)
    {
        termios raw{};
        cfmakeraw(&raw);
        ::openpty(&m_near, &m_far, portName.data(), &raw, nullptr);
        m_context.reset(modbus_new_rtu(portName.data(), BaudRate, 'N', 8, 1));
        modbus_set_slave(m_context.get(), HandNode);
        modbus_set_socket(m_context.get(), m_near);
        modbus_set_response_timeout(m_context.get(), 0, 1000);     // also a delay before a refusal
        modbus_set_indication_timeout(m_context.get(), 0, 20'000); // interval of checks for the end
        std::iota(registers, registers + m_map->nb_registers, std::uint16_t{1000});
        m_thread = std::thread([this] { serve(); });
    }
    ~Slave()
    {
        m_ending = true;
        m_thread.join();
        ::close(m_far);
        ::close(m_near);
    }

private:
    void serve()
    {
        std::array<std::uint8_t, MODBUS_RTU_MAX_ADU_LENGTH> request{};
        while (!m_ending) {
            const int length = modbus_receive(m_context.get(), request.data());
            if (length <= 0)
                continue;
            ++requests;
            if (m_refuses)
                modbus_reply_exception(m_context.get(), request.data(),
                                       MODBUS_EXCEPTION_ACKNOWLEDGE);
            else
                modbus_reply(m_context.get(), request.data(), length, m_map.get());
        }
    }

    bool m_refuses;
    int m_near = -1;
    int m_far = -1;
    Context m_context{nullptr, modbus_free};
    std::unique_ptr<modbus_mapping_t, void (*)(modbus_mapping_t*)> m_map{
        modbus_mapping_new_start_address(0, 0, 0, 0, 1000, 350, 0, 0), modbus_mapping_free};
    std::atomic<bool> m_ending = false;
    std::thread m_thread;

public:
    std::array<char, 64> portName{};
    std::atomic<int> requests = 0;
    std::uint16_t* const registers = m_map->tab_registers;
};

/// The result of an operation and the number of its requests.
struct SlaveRow {
    const char* name;
    QString (*call)(VantoProtocol*, const char*);
    const char* inputs;
    bool refuses;
    const char* outcome;
    int requests;
};

const SlaveRow slaveRows[] = {
    {OPERATION(getBatteryVoltage), "", false, "0 1007", 1},
    {OPERATION(getFirmwareVersion), "", false, "0 3 233 1002", 1},
    {OPERATION(getCaliData), "6 3", false,
     "0 1020,1021,1022,1023,1024,1025 1030,1031,1032,1033,1034,1035 1040,1041,1042", 3},
    {OPERATION(getFingerForce), "5 3", false, "0 1325,1326,1327", 1},
    {OPERATION(getFingerForce), "6 1", false, "16", 1}, // no such register
    {OPERATION(setFingerPos), "1 40000 255", false, "0", 2},
    {OPERATION(powerOff), "", false, "16", 1}, // a write of no registers is not allowed
    {OPERATION(getBatteryVoltage), "", true, "16", 1},
    {OPERATION(setFingerPos), "1 40000 255", true, "16", 1},
};

Context masterOf(const HandProcess& hand, int node)
{
    Context master(modbus_new_rtu(qPrintable(hand.portName()), BaudRate, 'N', 8, 1),
                   [](modbus_t* context) {
                       modbus_close(context);
                       modbus_free(context);
                   });
    modbus_set_slave(master.get(), node);
    modbus_set_response_timeout(master.get(), 1, 0);
    return modbus_connect(master.get()) == 0 ? std::move(master) : Context(nullptr, modbus_free);
}
} // namespace

class tst_interop : public QObject
{
    Q_OBJECT
    const LineHold m_line{}; ///< adapters are called directly

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
    Slave slave(row->refuses);
    ModBusRTUProtocolV1 adapter;
    QVERIFY(adapter.connect(slave.portName.data(), BaudRate));
    QCOMPARE(row->call(&adapter, row->inputs), QString::fromLatin1(row->outcome));
    adapter.disconnect();
    QCOMPARE(slave.requests, row->requests);
}

void tst_interop::written()
{
    Slave slave(false);
    ModBusRTUProtocolV1 adapter;
    QVERIFY(adapter.connect(slave.portName.data(), BaudRate));
    const auto written = [&slave](int address, int count) {
        const std::uint16_t* const first = slave.registers + (address - 1000);
        return QList<std::uint16_t>(first, first + count);
    };
    const std::int16_t angles[] = {-1, 2, -32768, 32767};
    const std::uint8_t speeds[] = {255, 1, 0, 128};
    QCOMPARE(int(adapter.setFingerAngleAll(HandNode, angles, speeds, 4)), 0);
    QCOMPARE(int(adapter.setID(HandNode, 255)), 0);
    QCOMPARE(written(1125, 4), (QList<std::uint16_t>{65535, 257, 0, 32896}));
    QCOMPARE(written(1155, 4), (QList<std::uint16_t>{65535, 2, 32768, 32767}));
    QCOMPARE(written(1005, 1), QList<std::uint16_t>{255});
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
    const Context master = masterOf(hand, 7);
    QVERIFY2(master, modbus_strerror(errno));

    std::array<std::uint16_t, 125> values{};
    QCOMPARE(modbus_read_registers(master.get(), 1000, 5, values.data()), 5);
    QCOMPARE(QList<std::uint16_t>(values.begin(), values.begin() + 5),
             (QList<std::uint16_t>{0x0100, 0x0104, 7, 0x1B01, 0x0102}));
    QCOMPARE(modbus_read_registers(master.get(), 1200, 125, values.data()), 125);
    QCOMPARE(values[0], std::uint16_t{10});
    QCOMPARE(values[124], std::uint16_t{54});
    const std::uint16_t presets[] = {1, 2, 65535};
    QCOMPARE(modbus_write_registers(master.get(), 1040, 3, presets), 3);
    QCOMPARE(modbus_read_registers(master.get(), 1040, 3, values.data()), 3);
    QCOMPARE(values[2], std::uint16_t{65535});
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

    QCOMPARE(refused(modbus_write_register(master.get(), 1013, 2)), EMBXSFAIL);
    QCOMPARE(modbus_write_register(master.get(), 1013, 1), 1);
    QCOMPARE(hand.command(QStringLiteral("get 7 inits")), QStringLiteral("ok 1"));

    hand.command(QStringLiteral("set 7 reboot-time 2000"));
    QCOMPARE(modbus_write_register(master.get(), 1005, 9), 1);
    modbus_set_slave(master.get(), 9);
    QCOMPARE(hand.command(QStringLiteral("get 9 listening")), QStringLiteral("ok 0"));
    QTRY_COMPARE(hand.command(QStringLiteral("get 9 listening")), QStringLiteral("ok 1"));
    QCOMPARE(modbus_read_registers(master.get(), 1010, 2, values.data()), 2);
    modbus_set_slave(master.get(), MODBUS_BROADCAST_ADDRESS);
    modbus_set_response_timeout(master.get(), 0, 50'000);
    QCOMPARE(refused(modbus_write_register(master.get(), 1008, 1)), ETIMEDOUT);
    QCOMPARE(hand.command(QStringLiteral("get 9 selftest")), QStringLiteral("ok 1"));
    QCOMPARE(hand.command(QStringLiteral("get 3 selftest")), QStringLiteral("ok 2"));
}

VANTO_TEST(tst_interop)

} // namespace vanto

#include "tst_interop.moc"
