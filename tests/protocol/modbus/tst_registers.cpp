#include "handprocess.h"
#include "modbusrtuprotocolv1.h"
#include "operation.h"
#include "testmain.h"

#include <QRegularExpression>

namespace vanto
{

namespace
{
/// An operation and the bytes of its requests. A separate program calculated the CRCs.
struct RegisterRow {
    const char* name;
    QString (*call)(VantoProtocol*, const char*);
    const char* inputs;
    const char* requests;
    const char* outcome = "0";
    const char* state = ""; ///< properties of the hand that are set before
};

const RegisterRow registerRows[] = {
    {OPERATION(getProtocolVersion), "", "020303E800010449", "0 1 0"},
    {OPERATION(getFirmwareVersion), "", "020303E900021588", "0 1 4 7"},
    {OPERATION(getHardwareVersion), "", "020303EB0002B448", "0 27 1 258"},
    {OPERATION(getNodeError), "", "020303EE0001E448", "51", "error 51"},
    {OPERATION(getCaliData), "2 3", "020303FC0002044C 0203040600022509 020304100003050D",
     "0 3600,3583 400,413 2901,30834,60915"},
    {OPERATION(getFingerPID), "1",
     "02030416000164CD 02030420000184C3 0203042A0001A4C1 020304340001C4C7", "0 1.5 0.05 0 1",
     "pid-p 1 1.5;pid-i 1 0.05;pid-d 1 0;pid-g 1 1"},
    {OPERATION(getFingerCurrentLimit), "2", "02030449000154DF", "0 1500", "current-limit 2 1500"},
    {OPERATION(getFingerCurrent), "3", "020304540001C4D9", "0 1234", "current 3 1234"},
    {OPERATION(getFingerForceLimit), "4", "0203045F0001B51B", "0 2600", "force-limit 4 2600"},
    {OPERATION(getFingerForce), "1 3", "020304C90003D4F6", "0 15,16,17", "position 1 0"},
    {OPERATION(getFingerPosLimit), "3", "020303FF0001B44D 020304090001550B", "0 300 3800",
     "start 3 300;end 3 3800"},
    {OPERATION(getFingerPosAbs), "3",
     "020304090001550B 020303FF0001B44D 0203047200012512 0203047C000144D1", "0 2001 3000",
     "start 3 1000;end 3 3000;position 3 65535;target 3 32784"},
    {OPERATION(getFingerPosAbs), "1 -", "02030407000134C8 020303FD0001158D 0203047A0001A4D0",
     "0 413", "position 1 0"},
    {OPERATION(getFingerPosAbs), "1 - -", "02030407000134C8 020303FD0001158D"},
    {OPERATION(getFingerPosAbs), "0",
     "0203040600016508 020303FC0001444D 0203046F0001B514 02030479000154D0", "0 7 500",
     "start 0 0;position 0 500;target 0 7"},
    {OPERATION(getFingerPosAbs), "0",
     "0203040600016508 020303FC0001444D 0203046F0001B514 02030479000154D0", "0 7 500",
     "start 0 1;end 0 65535;position 0 500;target 0 7"},
    {OPERATION(getFingerPos), "1", "02030470000184D2 0203047A0001A4D0", "0 1000 500",
     "position 1 500;target 1 1000"},
    {OPERATION(getFingerAngle), "3", "02030486000164E0 0203049000018524", "0 8947 9000",
     "angle 3 9000;target 3 0"},
    {OPERATION(getThumbRootPos), "", "020304100003050D 0203047E0001E511", "0 31858 1",
     "position 5 31858"},
    {OPERATION(getThumbRootPos), "", "020304100003050D 0203047E0001E511", "0 31859 255",
     "position 5 31859"},
    {OPERATION(getFingerPosAbsAll), "2",
     "0203040600016508 020303FC0001444D 02030407000134C8 020303FD0001158D 0203046F0002F515 "
     "02030479000214D1",
     "0 400,3583 3600,413", "position 0 65535;position 1 0;target 0 0;target 1 65535"},
    {OPERATION(getFingerPosAll), "2", "0203046F0002F515 02030479000214D1", "0 1,2 1000,65535",
     "position 0 1000;position 1 65535;target 0 1;target 1 2"},
    {OPERATION(getFingerAngleAll), "2", "02030483000234E0 0203048D00025523",
     "0 -1269,18091 -500,18091", "angle 0 -500;target 0 0;position 1 65535"},
    {OPERATION(getSelfTestLevel), "", "020303F00001844E", "0 3", "selftest 3"},
    {OPERATION(getBeepSwitch), "", "020303F10001D58E", "0 0", "beepswitch 0"},
    {OPERATION(getButtonPressedCnt), "", "020303F30001744E", "0 200", "buttons 200"},
    {OPERATION(getBatteryVoltage), "", "020303EF0001B588", "0 7391", "voltage 7391"},
    {OPERATION(getUID), "", "", "255"},
    {OPERATION(getUsageStat), "6", "", "255"},
    {OPERATION(reset), "2", "020603F60002E84E"},
    {OPERATION(powerOff), "", "021003F70000004C24", "16"},
    {OPERATION(setID), "9", "020603ED0009D98E"},
    {OPERATION(calibrate), "6699", "020603F41A2B8330"},
    {OPERATION(setCaliData), "3601,3602 401,402 601,1901,3301 2 3",
     "021003FC0002040E110E12318A 02100406000204019101929E2D 021004100003060259076D0CE5BE2B"},
    {OPERATION(setFingerPID), "1 1.239 700 -0.019 1e30",
     "02060416007B292E 02060420117084B7 0206042AFFFFA8B1 02060434FFFFC8B7"},
    {OPERATION(setFingerPID), "5 nan -1e30 0.29 0",
     "0206041A0000A90E 020604240000C8C2 0206042E001D28C9 0206043800000904"},
    {OPERATION(setFingerCurrentLimit), "2 1500", "0206044905DC5BD6"},
    {OPERATION(setFingerForceLimit), "4 2600", "0206045F0A28BE65"},
    {OPERATION(setFingerPosLimit), "3 300 3800", "", "255"},
    {OPERATION(fingerStart), "42", "", "255"},
    {OPERATION(fingerStop), "21", "", "255"},
    {OPERATION(setFingerPosAbs), "3 2000 255",
     "020304090001550B 020303FF0001B44D 02060468FFFF08A5 020604727FFF48A2", "0",
     "start 3 1000;end 3 3000"},
    {OPERATION(setFingerPosAbs), "3 999 1",
     "020304090001550B 020303FF0001B44D 020604680101C945 02060472FFE068AA", "0",
     "start 3 1000;end 3 3000"},
    {OPERATION(setFingerPosAbs), "3 65535 0",
     "020304090001550B 020303FF0001B44D 0206046800000915 020604727FBF4952", "0",
     "start 3 1000;end 3 3000"},
    {OPERATION(setFingerPosAbs), "3 2000 0",
     "020304090001550B 020303FF0001B44D 0206046800000915 0206047207D02B7E", "0",
     "start 3 0;end 3 3000"},
    {OPERATION(setFingerPosAbs), "3 2000 0",
     "020304090001550B 020303FF0001B44D 0206046800000915 0206047207D02B7E", "0",
     "start 3 1000;end 3 65535"},
    {OPERATION(setFingerPosAbs), "3 2000 0",
     "020304090001550B 020303FF0001B44D 0206046800000915 0206047207D02B7E", "0",
     "start 3 1000;end 3 1000"},
    {OPERATION(setFingerPos), "1 40000 200", "02060466C8C83E80 020604709C40E1E2"},
    {OPERATION(setFingerAngle), "0 -500 128", "020604658080F8B6 02060483FE0C3944"},
    {OPERATION(setFingerPosAbsAll), "2000,3583 10,20 2",
     "0203040600016508 020303FC0001444D 02030407000134C8 020303FD0001158D "
     "021004650002040A0A141424E9 0210046F0002047FFFFFFFA017"},
    {OPERATION(setFingerPosAll), "256,512,768,1024,1280,1536 1,2,3,4,5,6 6",
     "0210046500060C010102020303040405050606B682 0210046F00060C0100020003000400050006007F7A"},
    {OPERATION(setFingerAngleAll), "-1000,9200 255,1 2",
     "02100465000204FFFF0101C848 02100483000204FC1823F02F7D"},
    {OPERATION(setSelfTestLevel), "3", "020603F00003C98F"},
    {OPERATION(setBeepSwitch), "0", "020603F10000D84E"},
    {OPERATION(beep), "500", "020603F201F42859"},
    {OPERATION(setButtonPressedCnt), "200", "020603F300C87818"},
    {OPERATION(startInit), "", "020603F50001584F"},
};

/// The result of an operation if a fault applies to one of its requests.
struct BrokenRow {
    const char* name;
    QString (*call)(VantoProtocol*, const char*);
    const char* inputs;
    const char* fault;
    int requests;
    const char* outcome; ///< with the values of the outputs that were written before
};

constexpr BrokenRow brokenRows[] = {
    {OPERATION(getFirmwareVersion), "", "fault short", 1, "255"},
    {OPERATION(getBatteryVoltage), "", "fault garble count=0", 2, "3"},
    {OPERATION(beep), "1", "fault drop count=0", 2, "3"},
    {OPERATION(getCaliData), "1 1", "fault refuse skip=1", 2, "16"},
    {OPERATION(getFingerPID), "0", "fault refuse skip=2", 3, "16 1.5 0.05"},
    {OPERATION(getFingerPosLimit), "0", "fault refuse skip=1", 2, "16"},
    {OPERATION(getFingerAngleAll), "2", "fault drop skip=1 count=0", 3, "3"},
    {OPERATION(getFingerPosAbs), "0", "fault over-long skip=1", 2, "255"},
    {OPERATION(getFingerPosAbsAll), "2", "fault refuse skip=5", 6, "16"},
    {OPERATION(getThumbRootPos), "", "fault refuse skip=1", 2, "16"},
    {OPERATION(getNodeError), "", "fault refuse error=0x33", 1, "255"},
    {OPERATION(getNodeError), "", "fault drop count=0", 2, "255"},
    {OPERATION(getNodeError), "", "fault over-long", 1, "255"},
    {OPERATION(setCaliData), "1 2 3 1 1", "fault refuse skip=1", 2, "16"},
    {OPERATION(setFingerPID), "0 1 2 3 4", "fault refuse skip=2", 3, "16"},
    {OPERATION(setFingerPos), "0 1 1", "fault refuse", 1, "16"},
    {OPERATION(setFingerPosAbsAll), "1,2 1,2 2", "fault refuse skip=3", 4, "16"},
    {OPERATION(getFingerPosAll), "7", "clear", 1, "16"}, // a register past the last finger
};
} // namespace

class tst_registers : public QObject
{
    Q_OBJECT
    const LineHold m_line{}; ///< adapters are called directly

private slots:
    void init();
    void exchanges_data() { addRows(registerRows); }
    void exchanges();
    void broken_data() { addRows(brokenRows); }
    void broken();
    void caches();
    void thumbRootTie();
    void errorCodes();

private:
    void command(const QString& line) { QCOMPARE(m_hand->command(line), QStringLiteral("ok")); }
    /// The first registers of the requests since the last call.
    QList<int> takeRequests()
    {
        QList<int> registers;
        for (const TracedFrame& frame : m_hand->requests())
            registers += frame.bytes.mid(2, 2).toHex().toInt(nullptr, 16);
        m_hand->clearTrace();
        return registers;
    }

    std::unique_ptr<HandProcess> m_hand;
    std::unique_ptr<ModBusRTUProtocolV1> m_adapter;
};

void tst_registers::init()
{
    const bool faulty = QTest::currentTestFunction() == QByteArray("broken");
    ReplyLimits::current() = faulty ? ReplyLimits{400, 400, 400, 400} : PatientLimits;
    m_hand = std::make_unique<HandProcess>();
    // So slow that a moving finger keeps its position during a test.
    const auto options = QStringLiteral("--speed 1e-9 --node 2:modbus --node 7:modbus").split(u' ');
    QVERIFY2(m_hand->start(options), qPrintable(m_hand->errorText()));
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    m_adapter = std::make_unique<ModBusRTUProtocolV1>();
    QVERIFY(m_adapter->connect(qPrintable(m_hand->portName()), BaudRate));
}

void tst_registers::exchanges()
{
    QFETCH(const RegisterRow*, row);
    for (const QString& value : QString::fromLatin1(row->state).split(u';', Qt::SkipEmptyParts))
        command(QStringLiteral("set 2 ") + value);
    QCOMPARE(row->call(m_adapter.get(), row->inputs), QString::fromLatin1(row->outcome));
    QByteArrayList requests;
    for (const TracedFrame& frame : m_hand->requests())
        requests += frame.bytes.toHex().toUpper();
    QCOMPARE(requests.join(' '), QByteArray(row->requests));
}

void tst_registers::broken()
{
    QFETCH(const BrokenRow*, row);
    command(QString::fromLatin1(row->fault));
    QCOMPARE(row->call(m_adapter.get(), row->inputs), QString::fromLatin1(row->outcome));
    QCOMPARE(m_hand->requests().size(), row->requests);
}

void tst_registers::caches()
{
    for (const char* value : {"start 3 1000", "end 3 3000", "position 3 32768", "start 1 0"})
        command(QStringLiteral("set 7 ") + QLatin1String(value));
    std::uint16_t target = 0;
    std::uint16_t current = 0;
    const auto read = [&](std::uint8_t node, std::uint8_t finger) {
        m_adapter->getFingerPosAbs(node, finger, &target, &current);
        return takeRequests();
    };
    QCOMPARE(read(7, 3), (QList<int>{1033, 1023, 1138, 1148}));
    QCOMPARE(current, std::uint16_t{2000});
    // The limits stay cached when the hand changes them itself and when the adapter reconnects.
    const std::uint16_t starts[] = {0, 0, 0, 500};
    const std::uint16_t ends[] = {0, 0, 0, 4500};
    command("set 7 end 3 3500");
    m_adapter->disconnect();
    QVERIFY(m_adapter->connect(qPrintable(m_hand->portName()), BaudRate));
    takeRequests();
    QCOMPARE(int(m_adapter->setFingerPosAbs(7, 3, 2000, 1)), 0);
    QCOMPARE(takeRequests(), (QList<int>{1128, 1138}));
    QCOMPARE(m_hand->command(QStringLiteral("get 7 target 3")), QStringLiteral("ok 32767"));
    QCOMPARE(read(2, 3).size(), 4);
    // They are read again after they have been written, also in part, but only those of that node.
    command("fault refuse register=1030");
    QVERIFY(m_adapter->setCaliData(7, ends, starts, starts, 4, 1) != 0);
    takeRequests();
    QCOMPARE(read(7, 3), (QList<int>{1033, 1023, 1138, 1148}));
    QCOMPARE(int(m_adapter->setCaliData(7, ends, starts, starts, 4, 1)), 0);
    takeRequests();
    QCOMPARE(int(m_adapter->setFingerPosAbs(7, 3, 2500, 1)), 0);
    QCOMPARE(takeRequests(), (QList<int>{1033, 1023, 1128, 1138}));
    QCOMPARE(m_hand->command(QStringLiteral("get 7 target 3")), QStringLiteral("ok 32767"));
    QCOMPARE(read(2, 3), (QList<int>{1138, 1148}));
    // Limits of 0 and of invalid fingers are not cached.
    QCOMPARE(read(7, 1), (QList<int>{1031, 1021, 1136, 1146}));
    QCOMPARE(read(7, 1), (QList<int>{1031, 1021, 1136, 1146}));
    QCOMPARE(read(7, 10), (QList<int>{1040, 1030, 1145, 1155}));
    QCOMPARE(read(7, 10), (QList<int>{1040, 1030, 1145, 1155}));
    // The same applies to the positions of the thumb root; the first of node 7 is now 0.
    for (const auto& [node, registers] : {std::pair{7, QList<int>{1040, 1150}},
                                          {7, {1040, 1150}},
                                          {2, {1040, 1150}},
                                          {2, {1150}}}) {
        std::uint8_t index = 0;
        m_adapter->getThumbRootPos(static_cast<std::uint8_t>(node), &target, &index);
        QCOMPARE(takeRequests(), registers);
    }
}

void tst_registers::thumbRootTie()
{
    std::uint16_t word = 1;
    const std::uint16_t presets[] = {1000, 3048, 2500};
    QCOMPARE(int(m_adapter->setCaliData(2, &word, &word, presets, 1, 3)), 0);
    for (const auto& [position, wanted] : {std::pair{2024, 0}, {2025, 1}, {4072, 1}, {4073, 255}}) {
        command(QStringLiteral("set 2 position 5 %1").arg(position));
        std::uint8_t index = 0;
        QCOMPARE(int(m_adapter->getThumbRootPos(2, &word, &index)), 0);
        QCOMPARE(std::pair(int(word), int(index)), std::pair(position, wanted));
    }
    const std::uint16_t moved[] = {4073, 3048, 2500};
    QCOMPARE(int(m_adapter->setCaliData(2, &word, &word, moved, 1, 3)), 0);
    std::uint8_t index = 255;
    QCOMPARE(int(m_adapter->getThumbRootPos(2, &word, &index)), 0);
    QCOMPARE(int(index), 0);
}

void tst_registers::errorCodes()
{
    const std::array results{0, 0xFF, 0xFF, 0x10, 0x10, 3, 0x10, 0x10, 0x10, 0x10};
    for (unsigned error = 0; error < results.size(); ++error)
        QCOMPARE(int(ModBusRTUProtocolV1::translateError(ModBusRTUClient::Error(error))),
                 results[error]);
}

VANTO_TEST(tst_registers)

} // namespace vanto

#include "tst_registers.moc"
