#include "fakelink.h"
#include "handprocess.h"
#include "operation.h"
#include "serialprotocolv3.h"
#include "testmain.h"

namespace vanto
{

namespace
{
/// An operation of the adapter and the hand. Frames are given from the command byte on.
struct ExchangeRow {
    const char* name;
    QString (*call)(VantoProtocol*, const char*);
    const char* inputs;
    const char* request;
    const char* outcome = "0";
    const char* reply = nullptr; ///< null: a reply without payload
    const char* state = "";      ///< properties of the hand that are set before
};

/// Cases that the simulated hand cannot produce, on a link in memory.
struct CommandRow {
    const char* name;
    QString (*call)(HAND_Context*, const char*);
    const char* inputs;
    QByteArray payload; ///< of the reply
    const char* outcome;
    const char* request = nullptr; ///< null: not checked
    const char* withoutContext = "2";
};

QByteArray bytes(const char* hex)
{
    return QByteArray::fromHex(hex);
}

const ExchangeRow exchangeRows[] = {
    {OPERATION(getProtocolVersion), "", "00 00 03", "0 3 1", "00 02 01 03 03"},
    {OPERATION(getFirmwareVersion), "", "01 00 02", "0 1 4 7", "01 04 07 00 04 01 04"},
    {OPERATION(getHardwareVersion), "", "02 00 01", "0 27 1 258", "02 04 1B 01 01 02 1C"},
    {OPERATION(getCaliData), "2 3", "03 02 02 03 03", "0 3600,3583 400,413 600,1900,3300",
     "03 0E 10 0E FF 0D 90 01 9D 01 58 02 6C 07 E4 0C 36"},
    {OPERATION(getFingerPID), "1", "04 01 01 07", "0 1.5 -0.25 100 0.1",
     "04 11 01 00 00 C0 3F 00 00 80 BE 00 00 C8 42 CD CC CC 3D AC",
     "pid-p 1 1.5;pid-i 1 -0.25;pid-d 1 100;pid-g 1 0.1"},
    {OPERATION(getFingerCurrentLimit), "2", "05 01 02 05", "0 1500", "05 03 02 DC 05 DE",
     "current-limit 2 1500"},
    {OPERATION(getFingerCurrent), "3", "06 01 03 07", "0 1234", "06 03 03 D2 04 D3",
     "current 3 1234"},
    {OPERATION(getFingerForceLimit), "4", "07 01 04 01", "0 2600", "07 03 04 28 0A 21",
     "force-limit 4 2600"},
    {OPERATION(getFingerForce), "1 3", "08 02 01 03 0B", "0 15,16,17",
     "08 07 01 0F 00 10 00 11 00 03", "position 1 0"},
    {OPERATION(getFingerPosLimit), "3", "09 01 03 08", "0 300 3800", "09 05 03 2C 01 D8 0E F7",
     "start 3 300;end 3 3800"},
    {OPERATION(getFingerPosAbs), "1", "0A 01 01 09", "0 3583 1000", "0A 05 01 FF 0D E8 03 14",
     "raw 1 1000;target 1 65535"},
    {OPERATION(getFingerPos), "1", "0B 01 01 08", "0 1000 500", "0B 05 01 E8 03 F4 01 12",
     "position 1 500;target 1 1000"},
    {OPERATION(getFingerAngle), "0", "0C 01 00 0E", "0 -1269 -500", "0C 05 00 0B FB 0C FE 08",
     "angle 0 -500;target 0 0"},
    {OPERATION(getThumbRootPos), "", "0D 00 0E", "0 3000 2", "0D 03 B8 0B 02 BC", "raw 5 3000"},
    {OPERATION(getFingerPosAbsAll), "2", "0E 01 02 0E", "0 400,413 1000,2000",
     "0E 08 90 01 9D 01 E8 03 D0 07 34", "raw 0 1000;raw 1 2000;target 0 0;target 1 0"},
    {OPERATION(getFingerPosAll), "2", "0F 01 02 0F", "0 1,2 1000,65535",
     "0F 08 01 00 02 00 E8 03 FF FF EC", "position 0 1000;position 1 65535;target 0 1;target 1 2"},
    {OPERATION(getFingerAngleAll), "2", "10 01 02 10", "0 -1269,18091 -500,18091",
     "10 08 0B FB AB 46 0C FE AB 46 19", "angle 0 -500;target 0 0;position 1 65535"},
    {OPERATION(getSelfTestLevel), "", "20 00 23", "0 3", "20 01 03 21", "selftest 3"},
    {OPERATION(getBeepSwitch), "", "21 00 22", "0 0", "21 01 00 23", "beepswitch 0"},
    {OPERATION(getButtonPressedCnt), "", "22 00 21", "0 200", "22 01 C8 E8", "buttons 200"},
    {OPERATION(getUID), "", "23 00 20", "0 4390946 1213093377 540554576",
     "23 0C 22 00 43 00 01 56 4E 48 50 35 38 20 61"},
    {OPERATION(getBatteryVoltage), "", "24 00 27", "0 7391", "24 02 DF 1C E6", "voltage 7391"},
    {OPERATION(getUsageStat), "6", "25 01 06 21", "0 4200 100,111,122,133,144,155",
     "25 1C 68100000 64000000 6F000000 7A000000 85000000 90000000 9B000000 BD"},
    {OPERATION(reset), "2", "40 01 02 40"},
    {OPERATION(powerOff), "", "41 00 42"},
    {OPERATION(setID), "9", "42 01 09 49"},
    {OPERATION(calibrate), "6699", "43 02 2B 1A 73"},
    {OPERATION(setCaliData), "3601,3602 401,402 601,1901,3301 2 3",
     "44 10 02 11 0E 12 0E 91 01 92 01 03 59 02 6D 07 E5 0C 8E"},
    {OPERATION(setFingerPID), "1 1.5 -0.25 100 0.1",
     "45 11 01 00 00 C0 3F 00 00 80 BE 00 00 C8 42 CD CC CC 3D ED"},
    {OPERATION(setFingerCurrentLimit), "2 1500", "46 03 02 DC 05 9D"},
    {OPERATION(setFingerForceLimit), "4 2600", "47 03 04 28 0A 61"},
    {OPERATION(setFingerPosLimit), "3 300 3800", "48 05 03 2C 01 D8 0E B6"},
    {OPERATION(fingerStart), "42", "49 01 2A 61"},
    {OPERATION(fingerStop), "21", "4A 01 15 5D"},
    {OPERATION(setFingerPosAbs), "5 1900 255", "4B 04 05 6C 07 FF DD"},
    {OPERATION(setFingerPos), "1 40000 200", "4C 04 01 40 9C C8 5E"},
    {OPERATION(setFingerAngle), "0 -500 128", "4D 04 00 0C FE 80 38"},
    {OPERATION(setFingerPosAbsAll), "1000,2000 10,20 2", "4F 07 02 E8 03 0A D0 07 14 6B"},
    {OPERATION(setFingerPosAll), "256,512,768,1024,1280,1536 1,2,3,4,5,6 6",
     "50 13 06 00 01 01 00 02 02 00 03 03 00 04 04 00 05 05 00 06 06 46"},
    {OPERATION(setFingerPosAll), "1 1 0", "50 01 00 52"},
    {OPERATION(setFingerAngleAll), "-1000,9200 255,1 2", "51 07 02 18 FC FF F0 23 01 9E"},
    {OPERATION(setSelfTestLevel), "3", "60 01 03 61"},
    {OPERATION(setBeepSwitch), "0", "61 01 00 63"},
    {OPERATION(beep), "500", "62 02 F4 01 96"},
    {OPERATION(setButtonPressedCnt), "200", "63 01 C8 A9"},
    {OPERATION(startInit), "", "64 00 67"},
};

#define COMMAND(name) #name, Call < HAND_##name> ::with

const CommandRow commandRows[] = {
    {COMMAND(GetFirmwareVersion), "", bytes("07 01"), "0 1 7 0"},
    {COMMAND(GetFirmwareVersion), "", bytes("07 01 09"), "0 1 7 0"},
    {COMMAND(GetFirmwareVersion), "", bytes("07"), "8"},
    {COMMAND(GetFirmwareVersion), "", bytes("07 00 04 01 00"), "4"},
    {COMMAND(GetFingerPos), "1", bytes("02 E8 03 F4 01"), "8"},
    {COMMAND(GetFingerPos), "1", bytes("01 E8 03 F4"), "8"},
    {COMMAND(GetFingerForce), "1 0", bytes("01"), "0"},
    {COMMAND(GetFingerForce), "1 16", bytes("01") + QByteArray(32, 0),
     "0 0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0"},
    {COMMAND(GetFingerForce), "1 17", bytes("01") + QByteArray(34, 0), "4"},
    {COMMAND(GetFingerPosAll), "6", QByteArray(12, 0) + QByteArray(12, 1),
     "0 0,0,0,0,0,0 257,257,257,257,257,257"},
    {COMMAND(GetFingerPosAll), "7", QByteArray(24, 0), "8"},
    {COMMAND(GetFingerPosAll), "- 2", bytes("01 00 02 00 03 00 04 00"), "0 3,4"},
    {COMMAND(GetCaliData), "6 3", QByteArray(29, 0), "8"},
    {COMMAND(GetCaliData), "6 3", QByteArray(31, 0), "4"},
    {COMMAND(GetCaliData), "- 2 - 1", bytes("01 00 02 00 03 00 04 00 05 00"), "0 3,4"},
    {COMMAND(GetUsageStat), "0", QByteArray(28, 0), "0 0 0,0,0,0,0,0", "25 01 00 27"},
    {COMMAND(GetUsageStat), "7", {}, "8", "", "8"},
    {COMMAND(SetFingerPosAbsAll), "1 1 7", {}, "8", "", "8"},
    {COMMAND(SetFingerPosAll), "1 1 7", {}, "8", "", "8"},
    {COMMAND(SetCaliData), "1 2 15 3 0", {}, "0"}, // 62 bytes
    {COMMAND(SetCaliData), "1 2 15 3 1", {}, "7", ""},
    {COMMAND(SetCaliData), "1 2 256 3 0", {}, "7", ""},
    {COMMAND(SetCaliData), "1 2 16384 3 0", {}, "7", ""},
    {COMMAND(SetCaliData), "1 2 0 3 32768", {}, "7", ""},
    {COMMAND(SetCustom), "3", bytes("01 02 03 04 05"), "0 1,2,3,4,5 5", "5F 03 77 77 77 28"},
    {COMMAND(SetCustom), "64", {}, "7", ""},
};

/// A frame from the hand to this host.
QByteArray replyFrame(char command, const QByteArray& payload)
{
    QByteArray frame = bytes("55 AA 01 02") + command + char(payload.size()) + payload;
    const auto covered = QByteArrayView(frame).sliced(2);
    return frame + std::accumulate(covered.begin(), covered.end(), '\0', std::bit_xor<char>());
}
} // namespace

class tst_commands : public QObject
{
    Q_OBJECT
    const LineHold m_line{}; ///< adapters are called directly

private slots:
    void exchanges_data() { addRows(exchangeRows); }
    void exchanges();
    void commands_data() { addRows(commandRows); }
    void commands();
};

void tst_commands::exchanges()
{
    QFETCH(const ExchangeRow*, row);
    HandProcess hand;
    // So slow that a moving finger keeps its position during a test.
    QVERIFY2(hand.start({QStringLiteral("--speed"), QStringLiteral("1e-9")}),
             qPrintable(hand.errorText()));
    for (const QString& value : QString::fromLatin1(row->state).split(u';', Qt::SkipEmptyParts))
        QCOMPARE(hand.command(QStringLiteral("set 2 ") + value), QStringLiteral("ok"));
    SerialProtocolV3 adapter;
    QVERIFY(adapter.connect(qPrintable(hand.portName()), BaudRate));
    QCOMPARE(row->call(&adapter, row->inputs), QString::fromLatin1(row->outcome));
    adapter.disconnect();
    const QList<TracedFrame> trace = hand.trace();
    QCOMPARE(trace.size(), 2);
    const QByteArray request = bytes("55 AA 02 01") + bytes(row->request);
    QCOMPARE(trace[0].bytes.toHex(' '), request.toHex(' '));
    const QByteArray reply = row->reply ? bytes("55 AA 01 02") + bytes(row->reply)
                                        : replyFrame(bytes(row->request)[0], {});
    QCOMPARE(trace[1].bytes.toHex(' '), reply.toHex(' '));
}

void tst_commands::commands()
{
    QFETCH(const CommandRow*, row);
    QCOMPARE(row->call(nullptr, row->inputs), QString::fromLatin1(row->withoutContext));
    FakeLink link;
    const QString unanswered = row->call(link.context, row->inputs);
    const QByteArray sent = link.sent.mid(4);
    if (row->request)
        QCOMPARE(sent.toHex(' '), bytes(row->request).toHex(' '));
    QCOMPARE(unanswered, sent.isEmpty() ? QString::fromLatin1(row->outcome) : QStringLiteral("3"));
    link.incoming = replyFrame(sent.isEmpty() ? '\0' : sent[0], row->payload);
    QCOMPARE(row->call(link.context, row->inputs), QString::fromLatin1(row->outcome));
}

VANTO_TEST(tst_commands)

} // namespace vanto

#include "tst_commands.moc"
