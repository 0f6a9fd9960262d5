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

// Both sides against an implementation that is not ours: the adapter against a slave made with
// libmodbus, and libmodbus as the master of the simulated hand.

namespace
{
enum Manner { Good, Refusing, Silent, BrokenCrc, TooFewRegisters };
using Context = std::unique_ptr<modbus_t, void (*)(modbus_t*)>;

/// A slave made with libmodbus, at the near end of a pseudo-terminal and on a thread of its own.
/// It has the registers 1000..1349; each holds its own address until it is written.
class Slave
{
public:
    explicit Slave(Manner manner) : m_manner(manner)
    {
        termios raw{};
        cfmakeraw(&raw);
        ::openpty(&m_near, &m_far, portName.data(), &raw, nullptr);
        m_context.reset(modbus_new_rtu(portName.data(), BaudRate, 'N', 8, 1));
        modbus_set_slave(m_context.get(), HandNode);
        modbus_set_socket(m_context.get(), m_near);
        modbus_set_response_timeout(m_context.get(), 0, 1000); // it also waits before it refuses
        modbus_set_indication_timeout(m_context.get(), 0, 20'000); // to look whether to end
        std::iota(registers, registers + m_map->nb_registers, u16{1000});
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
        std::array<u8, MODBUS_RTU_MAX_ADU_LENGTH> request{};
        while (!m_ending) {
            const int length = modbus_receive(m_context.get(), request.data());
            if (length > 0)
                answer(request.data(), length);
        }
    }
    void answer(const u8* request, int length)
    {
        ++requests;
        const std::array<u8, 7> oneRegister{request[0], request[1], 2, 0, 1, 0, 0};
        if (m_manner == Good)
            modbus_reply(m_context.get(), request, length, m_map.get());
        else if (m_manner == Refusing)
            modbus_reply_exception(m_context.get(), request, MODBUS_EXCEPTION_ACKNOWLEDGE);
        else if (m_manner == BrokenCrc)
            QCOMPARE(::write(m_near, oneRegister.data(), 7), 7);
        else if (m_manner == TooFewRegisters)
            modbus_send_raw_request(m_context.get(), oneRegister.data(), 5);
    }

    Manner m_manner;
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
    u16* const registers = m_map->tab_registers;
};

/// What an operation returns, and how many requests it takes, while the slave misbehaves.
struct SlaveRow {
    const char* name;
    QString (*call)(VantoProtocol*, const char*);
    const char* inputs;
    Manner manner;
    const char* outcome;
    int requests;
};

const SlaveRow slaveRows[] = {
    {OPERATION(getBatteryVoltage), "", Good, "0 1007", 1},
    {OPERATION(getFirmwareVersion), "", Good, "0 3 233 1002", 1},
    {OPERATION(getCaliData), "6 3", Good,
     "0 1020,1021,1022,1023,1024,1025 1030,1031,1032,1033,1034,1035 1040,1041,1042", 3},
    {OPERATION(getFingerForce), "5 3", Good, "0 1325,1326,1327", 1},
    {OPERATION(getFingerForce), "6 1", Good, "16", 1}, // no such register
    {OPERATION(setFingerPos), "1 40000 255", Good, "0", 2},
    {OPERATION(powerOff), "", Good, "16", 1}, // a write of nothing is not allowed
    {OPERATION(getBatteryVoltage), "", Refusing, "16", 1},
    {OPERATION(setFingerPos), "1 40000 255", Refusing, "16", 1},
    {OPERATION(getBatteryVoltage), "", Silent, "3", 2},
    {OPERATION(beep), "1", Silent, "3", 2},
    {OPERATION(getBatteryVoltage), "", BrokenCrc, "3", 2},
    {OPERATION(getFirmwareVersion), "", TooFewRegisters, "255", 1},
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
    const LineHold m_line; ///< adapters are called directly

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
    const bool answers = row->manner != Silent && row->manner != BrokenCrc;
    ReplyLimits::current() = answers ? PatientLimits : ReplyLimits{300, 300, 300, 300};
    Slave slave(row->manner);
    ModBusRTUProtocolV1 adapter;
    QVERIFY(adapter.connect(slave.portName.data(), BaudRate));
    QCOMPARE(row->call(&adapter, row->inputs), QString::fromLatin1(row->outcome));
    adapter.disconnect();
    QCOMPARE(slave.requests, row->requests);
}

void tst_interop::written()
{
    Slave slave(Good);
    ModBusRTUProtocolV1 adapter;
    QVERIFY(adapter.connect(slave.portName.data(), BaudRate));
    const auto written = [&slave](int address, int count) {
        const u16* const first = slave.registers + (address - 1000);
        return QList<u16>(first, first + count);
    };
    const s16 angles[] = {-1, 2, -32768, 32767};
    const u8 speeds[] = {255, 1, 0, 128};
    QCOMPARE(int(adapter.setFingerAngleAll(HandNode, angles, speeds, 4)), 0);
    QCOMPARE(int(adapter.setID(HandNode, 255)), 0);
    QCOMPARE(written(1125, 4), (QList<u16>{65535, 257, 0, 32896}));
    QCOMPARE(written(1155, 4), (QList<u16>{65535, 2, 32768, 32767}));
    QCOMPARE(written(1005, 1), QList<u16>{255});
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

VANTO_TEST(tst_interop)

} // namespace vanto

#include "tst_interop.moc"
