#include "clitest.h"
#include "testmain.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <csignal>

namespace vanto
{

namespace
{
struct OutputRow {
    const char* words;
    const char* serialCtrl; ///< frames that write, or all if the command only reads
    const char* modbus;     ///< writes; null if the hand has no such register
    const char* output = "";
};

constexpr OutputRow outputRows[] = {
    {"get current 0", "06 00", "", "\\d+\n"},
    {"get current-limit little", "05 04", "", "\\d+\n"},
    {"get position", "0f 06", "", "(\\w+ 0\n){6}"},
    {"get batteryVoltage", "24 ", "", "7400\n"},
    {"get selfTestLevel", "20 ", "", "[012]\n"},
    {"get force", "08 0001|08 0101|08 0201|08 0301|08 0401", "",
     "thumb 10\nindex 15\nmiddle 20\nthird 25\nlittle 30\n"},
    {"get thumbRootPreset", "0d ", "",
     "position (465 preset 0|0 preset 255)\n"}, // the units of the protocols differ
    {"get protocolVersion", "00 ", "", "(3\\.1|1\\.0)\n"},
    {"get uid", "23 ", nullptr, "00430022484E560120383550\n"},
    {"get usage", "25 06", nullptr, "fingers 100 111 122 133 144 155 total 4200\n"},
    {"beep", "62 f401", "1010: 01f4"},
    {"beep 20", "62 1400", "1010: 0014"},
    {"reset", "40 00", "1014: 0000"},
    {"init", "64 ", "1013: 0001"},
    {"move 1 1111", "4c 015704ff", "1126: ffff|1136: 0457"},
    {"move thumb-root 300 --speed 10", "4c 052c010a", "1130: 0a0a|1140: 012c"},
    {"move 1 -1.5 --angle", "4d 016affff", "1126: ffff|1156: ff6a"},
    {"pose 1 2 3 4 5 6", "50 060100ff0200ff0300ff0400ff0500ff0600ff",
     "1125: ffffffffffffffffffffffff|1135: 000100020003000400050006"},
    {"pose 1 2 3 4 5 6 --speeds 1,2,3,4,5,6 --angle", "51 06640001c800022c0103900104f40105580206",
     "1125: 010102020303040405050606|1155: 006400c8012c019001f40258"},
    {"pose --speeds 255 1 2 3 4 5 6", "50 060100ff0200ff0300ff0400ff0500ff0600ff",
     "1125: ffffffffffffffffffffffff|1135: 000100020003000400050006"},
    {"set currentLimit 2 300", "46 022c01", "1097: 012c", "300\n"},
    {"set beepSwitch 0", "61 00", "1009: 0000", "0\n"},
    {"set gains middle 1 2 3 4", "45 020000803f000000400000404000008040",
     "1047: 0064|1057: 00c8|1067: 012c|1077: 0190"},
    // Halted first, so that the fingers have no old target to go to.
    {"continue",
     "4a 3f|50 06000001000001000001000001000001000001|50 06000001000001000001000001000001000001|49 "
     "3f",
     ""},
    {"set-id 9", "42 09", "1005: 0009", "The hand answers as node 9.\n"},
};
} // namespace

/// Commands and wrong use of vantoctl.
class TestVantoctl : public CliTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void commands_data();
    void commands();
    void usage_data();
    void usage();
    void automaticProtocol();
    void ports();
    void anyNode();
};

void TestVantoctl::commands_data()
{
    QTest::addColumn<const OutputRow*>("row");
    QTest::addColumn<bool>("modbus");
    for (const OutputRow& row : outputRows)
        for (const bool modbus : row.modbus ? QList<bool>{false, true} : QList<bool>{false})
            QTest::addRow("%s %s", row.words, modbus ? "modbus" : "serialctrl") << &row << modbus;
}

void TestVantoctl::commands()
{
    QFETCH(const OutputRow*, row);
    QFETCH(bool, modbus);
    start({"--node", modbus ? "2:modbus" : "2"});
    CliProcess cli(*m_hand);
    const auto result =
        cli.run(row->words + QString(" --protocol ") + (modbus ? "modbus" : "serialctrl"));
    QCOMPARE(result.errors, "");
    QCOMPARE(result.status, 0);
    QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(row->output))
                 .match(result.output)
                 .hasMatch(),
             qPrintable(result.output));
    if (modbus) {
        QCOMPARE(m_hand->modbusWrites().join('|'), row->modbus);
        return;
    }
    const QStringList sent = writes();
    QCOMPARE((sent.isEmpty() ? m_hand->frames() : sent).join('|'), row->serialCtrl);
}

void TestVantoctl::usage_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("text");
    const QList<QStringList> rows{
        {"", "No command is given"},
        {"mvoe 1 2", "There is no command 'mvoe'. Did you mean 'move'?"},
        {"move 1 2 --spede 3", "There is no option '--spede'. Did you mean '--speed'?"},
        {"move 6 1", "There is no finger '6'"},
        {"move thum 1", "Did you mean 'thumb'?"},
        {"move 1 65536", "from 0 to 65535, not '65536'"},
        {"move 1 1e3", "must be an integer"},
        {"move 1 400 --angle", "from -327.68 to 327.67"},
        {"move 1 1 --speed 256", "from 0 to 255"},
        {"move", "A value is missing: finger."},
        {"pose 1 2 3", "Values are missing: 6 are required, not 3."},
        {"get currnet 0", "Did you mean 'current'?"},
        {"get force 5", "The thumb root has no such value."},
        {"set current 1 5", "'current' can only be read."},
        {"set P 1 nan", "P"},
        {"set curentLimit 1 5", "Did you mean 'currentLimit'?"},
        {"restore --only thum %1", "Did you mean 'thumb'?"},
        {"diff --tolerance curentLimit=3 %1", "Did you mean 'currentLimit'?"},
        {"calibrate --yes --key-file %1", "Invalid calibration key"}, // before the backup
        {"set selfTestLevel 3", "selfTestLevel"},
        {"set calibration 1", "calibration"},
        {"set-id 255", "from 2 to 254"},
        {"scan --nodes 9-3", "not in order"},
        {"monitor --fields currents", "Did you mean 'current'?"},
        {"monitor --rate 0", "The rate"},
        {"play %1 --from 13", "from 1 to 12"},
        {"get current 0 --node 256", "from 0 to 255"},
        {"get current 0 --protocol can", "auto, serialctrl or modbus"},
        {"get current 0 --node 0 --protocol modbus", "no hand has node 0"},
        {"update", "Give either a file or --server."},
        {"update --server ftp://localhost/ --yes", "http or https URL"},
        {"update --server httpx://localhost/ --yes", "http or https URL"},
        {"update --server= --yes", "http or https URL"},
        {"batch --watchdog 0", "The watchdog time"},
        {"calibrate --thumb-root 5 --yes", "takes two places"},
        {"calibrate --node 255 --any-node --protocol serialctrl --yes", "one by one"},
    };
    for (const QStringList& row : rows)
        QTest::newRow(qPrintable(row[0])) << row[0] << row[1];
}

void TestVantoctl::usage()
{
    QFETCH(QString, words);
    QFETCH(QString, text);
    start();
    CliProcess cli(*m_hand);
    const auto result = cli.run(words.replace("%1", EXAMPLES "/wave.json"));
    QVERIFY2(result.errors.contains(text), qPrintable(result.errors));
    QCOMPARE(result.status, 2);
    QCOMPARE(result.errors.count('\n'), 1);
    QCOMPARE(m_hand->requests().size(), 0);
}

void TestVantoctl::automaticProtocol()
{
    start({"--node", "2:modbus", "--node", "3"});
    CliProcess cli(*m_hand, 12);
    QCOMPARE(cli.run("beep").status, 0);
    QCOMPARE(m_hand->modbusWrites(), QStringList{"1010: 01f4"});
    const auto requests = m_hand->requests();
    QCOMPARE(requests[0].bytes[4], 1); // a read without an answer
    QVERIFY(std::ranges::none_of(requests.mid(1), [](const TracedFrame& request) {
        return request.protocol == "serialctrl";
    }));
    m_hand->clearTrace();
    QCOMPARE(cli.run("beep --node 3").status, 0);
    QCOMPARE(m_hand->frames().join('|'), "01 |62 f401");
    m_hand->clearTrace();
    const auto result = cli.run("beep --node 77");
    QCOMPARE(result.status, 3);
    QCOMPARE(result.errors, "vantoctl: No hand answers at node 77.\n");
    QVERIFY(m_hand->modbusWrites().isEmpty() && m_hand->frames({0x62}).isEmpty());
    const auto found = cli.run("scan --nodes 1-3 --json");
    QCOMPARE(found.status, 0);
    QCOMPARE(found.output.count("\"node\":"), 2);
}

void TestVantoctl::ports()
{
    start();
    CliProcess cli(*m_hand);
    auto result = cli.run("get current 0 --port /dev/none");
    QCOMPARE(result.status, 4);
    QVERIFY2(result.errors.contains("There is no such port."), qPrintable(result.errors));
    result = cli.run("get current 0 --port usb:NONE");
    QCOMPARE(result.status, 4);
    CliProcess holder(*m_hand);
    holder.start("monitor --rate 100");
    QVERIFY(holder.process().waitForReadyRead(20'000));
    for (const char* words : {"get current 0", "halt"}) {
        result = cli.run(words);
        QCOMPARE(result.status, 4);
        QVERIFY2(result.errors.contains(
                     QString("in use by vantoctl (process %1)").arg(holder.process().processId())),
                 qPrintable(result.errors));
    }
    cli.setVariable("VANTO_PORTS", m_hand->portName());
    result = cli.run("ports --json");
    QVERIFY2(result.output.contains("in use by vantoctl"), qPrintable(result.output));
    holder.sendSignal(SIGINT);
    QCOMPARE(holder.finish().status, 130);
    QCOMPARE(cli.run("get current 0").status, 0);
}

void TestVantoctl::anyNode()
{
    start({"--node", "2", "--node", "3"});
    CliProcess cli(*m_hand);
    QCOMPARE(cli.run("get current 0 --node 255").status, 0);
    m_hand->clearTrace();
    QCOMPARE(cli.run("beep --node 255").status, 2);
    QCOMPARE(m_hand->requests().size(), 0);
    QCOMPARE(cli.run("beep --node 255 --any-node").status, 0);
    const QString file = path("any.json");
    QCOMPARE(cli.run("backup " + file).status, 0);
    QCOMPARE(cli.run("set currentLimit 0 11").status, 0);
    m_hand->clearTrace();
    QCOMPARE(cli.run("restore --node 255 --any-node --yes " + file).status, 2);
    QVERIFY(writes().isEmpty());
}

VANTO_TEST(TestVantoctl)

} // namespace vanto

#include "tst_vantoctl.moc"
