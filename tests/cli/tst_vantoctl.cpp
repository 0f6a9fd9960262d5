#include "cliprocess.h"
#include "commandline.h"
#include "handprocess.h"
#include "testmain.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

namespace vanto
{

namespace
{
struct CommandRow {
    const char* words;
    const char* serialCtrl; ///< frames that write, or all if the command only reads
    const char* modbus;     ///< writes
    const char* output = "";
};

constexpr CommandRow commandRows[] = {
    {"get current 0", "06 00", "", "\\d+\n"},
    {"get current-limit little", "05 04", "", "\\d+\n"},
    {"get position", "0b 00|0b 01|0b 02|0b 03|0b 04|0b 05", "", "(\\w+ 0\n){6}"},
    {"get batteryVoltage", "24 ", "", "7400\n"},
    {"get selfTestLevel", "20 ", "", "[012]\n"},
    {"beep", "62 f401", "1010: 01f4"},
    {"beep 20", "62 1400", "1010: 0014"},
    {"reset", "40 00", "1014: 0000"},
    {"init", "64 ", "1013: 0001"},
    {"move 1 1111", "4c 015704ff", "1126: 00ff|1136: 0457"},
    {"move thumb-root 300 --speed 10", "4c 052c010a", "1130: 000a|1140: 012c"},
    {"move 1 -1.5 --angle", "4d 016affff", "1126: 00ff|1156: ff6a"},
    {"pose 1 2 3 4 5 6", "50 060100ff0200ff0300ff0400ff0500ff0600ff",
     "1125: 00ff00ff00ff00ff00ff00ff|1135: 000100020003000400050006"},
    {"pose 1 2 3 4 5 6 --speeds 1,2,3,4,5,6 --angle", "51 06640001c800022c0103900104f40105580206",
     "1125: 000100020003000400050006|1155: 006400c8012c019001f40258"},
    {"set currentLimit 2 300", "46 022c01", "1097: 012c", "300\n"},
    {"set beepSwitch 0", "61 00", "1009: 0000", "0\n"},
    {"set gains middle 1 2 3 4", "45 020000803f000000400000404000008040",
     "1047: 0064|1057: 00c8|1067: 012c|1077: 0190"},
    {"continue", "49 3f", ""},
    {"set-id 9", "42 09", "1005: 0009", "The hand answers as node 9.\n"},
};

constexpr const char* faultRows[][3] = {
    // fault, exit status of a read over SerialCtrl and over Modbus
    {"drop", "3", "3"},
    {"garble", "3", "3"},
    {"truncate", "3", "3"},
    {"wrong-node", "3", "3"},
    {"garbage", "3", "3"},
    {"wrong-command", "3", "3"},
    {"over-long", "3", "1"},
    {"short", "3", "1"},
    {"refuse error=0x21", "1", "1"},
    {"refuse-bare error=0", "1", "3"},
};

bool isWrite(const QString& frame)
{
    return frame.left(2).toInt(nullptr, 16) >= 0x40;
}
} // namespace

/// Runs vantoctl against simulated hands.
class TestVantoctl : public QObject
{
    Q_OBJECT
private slots:
    void init() { m_hand = std::make_unique<HandProcess>(); }
    void cleanup();
    void commands_data();
    void commands();
    void faults_data();
    void faults();
    void lostCable_data();
    void lostCable();
    void usage_data();
    void usage();
    void automaticProtocol();
    void ports();
    void anyNode();
    void signals_data();
    void signals();
    void overCurrent_data();
    void overCurrent();
    void parameterFiles();
    void play();
    void monitor();
    void batch();
    void batchEndings();
    void badOutput();
    void documentation();
    void examples();
    void generated();

private:
    void start(const QStringList& options = {"--node", "2"})
    {
        QVERIFY2(m_hand->start(options), qPrintable(m_hand->errorText()));
    }
    /// Each motion that has been sent, by command.
    QStringList motions() const { return m_hand->frames({0x4C, 0x4D, 0x50, 0x51}); }
    /// For programs that find vantoctl by its name.
    QProcessEnvironment environment() const;
    static void writeFile(const QString& path, const QByteArray& content);

    std::unique_ptr<HandProcess> m_hand;
    QTemporaryDir m_folder;
};

void TestVantoctl::cleanup()
{
    for (const TracedFrame& frame : m_hand->trace())
        QVERIFY2(!frame.marks.contains("overlap"), frame.bytes.toHex().constData());
    m_hand.reset();
}

QProcessEnvironment TestVantoctl::environment() const
{
    CliProcess cli(*m_hand);
    auto environment = cli.process().processEnvironment();
    environment.insert("PATH",
                       QCoreApplication::applicationDirPath() + ':' + environment.value("PATH"));
    return environment;
}

void TestVantoctl::writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

void TestVantoctl::commands_data()
{
    QTest::addColumn<const CommandRow*>("row");
    QTest::addColumn<bool>("modbus");
    for (const CommandRow& row : commandRows)
        for (const bool modbus : {false, true})
            QTest::addRow("%s %s", row.words, modbus ? "modbus" : "serialctrl") << &row << modbus;
}

void TestVantoctl::commands()
{
    QFETCH(const CommandRow*, row);
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
    QStringList frames = m_hand->frames();
    if (std::ranges::any_of(frames, isWrite))
        frames.removeIf([](const QString& frame) { return !isWrite(frame); });
    QCOMPARE(frames.join('|'), row->serialCtrl);
}

void TestVantoctl::faults_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("modbus");
    QTest::addColumn<int>("status");
    for (const auto& row : faultRows)
        for (const bool modbus : {false, true})
            for (const char* words : {"get current 2", "beep", "info", "get currentLimit 2"})
                if (QString(words) == "get current 2" || QString(row[0]).startsWith("refuse e") ||
                    QString(row[0]) == "drop")
                    QTest::addRow("%s %s %s", row[0], words, modbus ? "modbus" : "serialctrl")
                        << row[0] << words << modbus
                        << (QString(words) == "info" && QString(row[0]).startsWith("refuse")
                                ? 0
                                : QString(row[modbus ? 2 : 1]).toInt());
}

void TestVantoctl::faults()
{
    QFETCH(QString, fault);
    QFETCH(QString, words);
    QFETCH(bool, modbus);
    QFETCH(int, status);
    start({"--node", modbus ? "2:modbus" : "2"});
    m_hand->command("fault " + fault + " count=0");
    CliProcess cli(*m_hand, status == 3 ? 12 : 400);
    const auto result = cli.run(words + " --json --protocol " + (modbus ? "modbus" : "serialctrl"));
    QCOMPARE(result.status, status);
    const auto answer = QJsonDocument::fromJson(result.output.toUtf8()).object();
    QCOMPARE(answer["status"].toInt(-1), status);
    QCOMPARE(answer["schema"].toInt(), 1);
    QCOMPARE(result.errors.count('\n'), status == 0 ? 0 : 1);
    QCOMPARE(answer["result"].toInt() != 0, status != 0);
    if (fault == "refuse error=0x21" && status != 0)
        QCOMPARE(answer["subError"].toInt(), 0x21);
    if (words != "info" && !modbus)
        QCOMPARE(m_hand->requests().size(), 1);
}

void TestVantoctl::lostCable_data()
{
    QTest::addColumn<QString>("words");
    const QString file = m_folder.filePath("lost.json");
    writeFile(file, R"({"kind":"vanto-parameters","schema":1})");
    for (const char* words : {"get current", "set P 1 2", "move 1 500", "pose 1 2 3 4 5 6", "halt",
                              "play %2", "monitor", "info", "backup %1", "beep", "set-id 7",
                              "calibrate --yes --key-file %3", "scan --nodes 2"})
        QTest::addRow("%s", words) << QString(words);
}

void TestVantoctl::lostCable()
{
    QFETCH(QString, words);
    start();
    writeFile(m_folder.filePath("key"), "1A2B");
    m_hand->command("hang");
    CliProcess cli(*m_hand);
    cli.start(words.replace("%1", m_folder.filePath("lost.json"))
                  .replace("%2", EXAMPLES "/wave.json")
                  .replace("%3", m_folder.filePath("key")) +
              " --protocol serialctrl");
    QTRY_VERIFY_WITH_TIMEOUT(!m_hand->requests().isEmpty(), 20'000);
    m_hand->command("unplug");
    const auto result = cli.finish();
    QCOMPARE(result.status, 3);
    QVERIFY2(result.errors.contains("The port") || result.errors.contains("port has"),
             qPrintable(result.errors));
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
        {"pose 1 2 3", "pose"},
        {"get currnet 0", "Did you mean 'current'?"},
        {"get force 5", "The thumb root has no such value."},
        {"set current 1 5", "'current' can only be read."},
        {"set P 1 nan", "P"},
        {"set selfTestLevel 3", "selfTestLevel"},
        {"set calibration 1", "calibration"},
        {"set-id 255", "from 2 to 254"},
        {"scan --nodes 9-3", "not in order"},
        {"monitor --fields currents", "Did you mean 'current'?"},
        {"monitor --rate 0", "The rate"},
        {"play %1 --from 9", "from 1 to"},
        {"get current 0 --node 256", "from 0 to 255"},
        {"get current 0 --protocol can", "auto, serialctrl or modbus"},
        {"get current 0 --node 0 --protocol modbus", "no hand has node 0"},
        {"update", "Give either a file or --server."},
        {"batch --watchdog 0", "The watchdog time"},
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
    QCOMPARE(m_hand->frames(), QStringList{"01 "}); // a read without an answer
    m_hand->clearTrace();
    QCOMPARE(cli.run("beep --node 3").status, 0);
    QCOMPARE(m_hand->frames().join('|'), "01 |62 f401");
    m_hand->clearTrace();
    const auto result = cli.run("beep --node 77");
    QCOMPARE(result.status, 3);
    QCOMPARE(result.errors, "vantoctl: No hand answers at node '0x4d'.\n");
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
    const QString file = m_folder.filePath("any.json");
    QCOMPARE(cli.run("backup " + file).status, 0);
    QCOMPARE(cli.run("set currentLimit 0 11").status, 0);
    m_hand->clearTrace();
    QCOMPARE(cli.run("restore --node 255 --any-node --yes " + file).status, 2);
    QVERIFY(std::ranges::none_of(m_hand->frames(), isWrite));
}

void TestVantoctl::signals_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QList<int>>("signalNumbers");
    QTest::addColumn<bool>("halts");
    for (const char* words :
         {"move 1 60000 --speed 20 --wait", "play " EXAMPLES "/wave.json --repeat 9"}) {
        QTest::addRow("SIGINT %.4s", words) << QString(words) << QList<int>{SIGINT} << false;
        QTest::addRow("two %.4s", words) << QString(words) << QList<int>{SIGINT, SIGINT} << true;
        QTest::addRow("SIGTERM %.4s", words) << QString(words) << QList<int>{SIGTERM} << true;
    }
}

void TestVantoctl::signals()
{
    QFETCH(QString, words);
    QFETCH(QList<int>, signalNumbers);
    QFETCH(bool, halts);
    start();
    CliProcess cli(*m_hand);
    cli.start(words + " --protocol serialctrl");
    QTRY_VERIFY_WITH_TIMEOUT(m_hand->frames({0x06}).size() > 8, 20'000);
    for (const int number : signalNumbers) {
        cli.sendSignal(number);
        QTest::qWait(30); // a signal that is pending is not delivered twice
    }
    const auto sent = m_hand->frames({0x4C}).size();
    const auto result = cli.finish();
    QCOMPARE(result.status, 130);
    QCOMPARE(m_hand->frames({0x4C}).size(), sent);
    QCOMPARE(m_hand->frames({0x4A}).size(), halts ? 1 : 0);
    if (halts)
        QCOMPARE(m_hand->command("get 2 moving 1"), "ok 0");
}

void TestVantoctl::overCurrent_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("modbus");
    for (const char* words : {"move 1 60000 --speed 20 --wait", "pose 9 9 60000 9 9 9 --wait",
                              "play " EXAMPLES "/wave.json"})
        for (const bool modbus : {false, true})
            QTest::addRow("%.4s %d", words, modbus) << QString(words) << modbus;
}

void TestVantoctl::overCurrent()
{
    QFETCH(QString, words);
    QFETCH(bool, modbus);
    start({"--node", modbus ? "2:modbus" : "2"});
    m_hand->command("set 2 current 2 80");
    CliProcess cli(*m_hand);
    const auto result = cli.run(words + " --json");
    QCOMPARE(result.status, 6);
    QVERIFY2(result.errors.contains("Middle has too big current: 80 mA"),
             qPrintable(result.errors));
    if (!modbus)
        QCOMPARE(m_hand->frames({0x4A}), QStringList{"4a 3f"});
    for (int finger = 0; finger < 6; ++finger)
        QCOMPARE(m_hand->command(QString("get 2 moving %1").arg(finger)), "ok 0");
}

void TestVantoctl::parameterFiles()
{
    start();
    CliProcess cli(*m_hand);
    const QString file = m_folder.filePath("hand.json");
    const QString golden = m_folder.filePath("golden.json");
    QCOMPARE(cli.run("backup " + file).status, 0);
    QCOMPARE(cli.run("diff " + file).status, 0);
    m_hand->command("set 2 pid-p 1 7.5");
    m_hand->command("set 2 current-limit 3 123");
    m_hand->command("set 2 selftest 1");
    auto result = cli.run("diff " + file);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output.count('\n'), 3);
    QCOMPARE(cli.run("diff --only P.thumb,I " + file).status, 0);
    QCOMPARE(cli.run("diff --only P --tolerance P=9 " + file).status, 0);
    m_hand->clearTrace();
    QCOMPARE(cli.run("restore --dry-run " + file).status, 0);
    QVERIFY(std::ranges::none_of(m_hand->frames(), isWrite));
    QCOMPARE(cli.run("restore " + file).status, 0);
    QStringList writes = m_hand->frames();
    writes.removeIf([](const QString& frame) { return !isWrite(frame); });
    QCOMPARE(writes.size(), 2); // the self-test level is not restored unless it is named
    QCOMPARE(cli.run("diff " + file).status, 1);
    QCOMPARE(cli.run("restore --only selfTestLevel " + file).status, 0);
    QCOMPARE(cli.run("diff " + file).status, 0);
    // A partial file checks only what it says.
    QFile whole(file);
    QVERIFY(whole.open(QIODevice::ReadOnly));
    auto object = QJsonDocument::fromJson(whole.readAll()).object();
    for (const QString& key : object.keys())
        if (key != "kind" && key != "schema" && key != "selfTestLevel" && key != "format" &&
            key != "version")
            object.remove(key);
    writeFile(golden, QJsonDocument(object).toJson());
    m_hand->command("set 2 current-limit 3 124");
    m_hand->clearTrace();
    result = cli.run("diff " + golden);
    QVERIFY2(result.status == 0, qPrintable(result.errors));
    QVERIFY(m_hand->frames({0x05}).isEmpty());
    QCOMPARE(cli.run("restore /dev/null").status, 5);
    QCOMPARE(cli.run("diff " EXAMPLES "/wave.json").status, 5);
    QCOMPARE(cli.run("backup /nowhere/file").status, 5);
    QCOMPARE(cli.run("report " + m_folder.filePath("report.json")).status, 0);
    QVERIFY(QFile::exists(m_folder.filePath("report.json")));
}

void TestVantoctl::play()
{
    start({"--node", "2", "--speed", "20"});
    CliProcess cli(*m_hand);
    const auto result = cli.run("play " EXAMPLES "/wave.json --from 2 --to 3 --repeat 2 --json");
    QCOMPARE(result.status, 0);
    const auto steps = QJsonDocument::fromJson(result.output.toUtf8()).object()["steps"].toArray();
    QStringList numbers;
    for (const QJsonValue step : steps)
        numbers.append(QString::number(step.toObject()["step"].toInt()));
    QCOMPARE(numbers.join(' '), "2 3 2 3");
    QVERIFY(steps[0].toObject()["milliseconds"].toInt() > 0);
    QVERIFY(steps[0].toObject()["highestCurrent"].toArray()[0].toInt() > 0);
    QCOMPARE(motions().size(), 24);
    QCOMPARE(cli.run("play /nowhere").status, 5);
}

void TestVantoctl::monitor()
{
    start();
    CliProcess cli(*m_hand);
    auto result = cli.run("monitor --for 0.3 --rate 50 --fields current,force,position");
    QCOMPARE(result.status, 0);
    const QStringList lines = result.output.split('\n', Qt::SkipEmptyParts);
    QVERIFY(lines.size() > 1);
    for (const QString& line : lines)
        QCOMPARE(line.count(','), 2 + 6 + 5 + 6);
    result = cli.run("monitor --for 0.1 --format jsonl");
    QVERIFY(QJsonDocument::fromJson(result.output.section('\n', 0, 0).toUtf8())
                .object()
                .contains("current"));
}

void TestVantoctl::batch()
{
    start({"--node", "2", "--node", "3"});
    CliProcess cli(*m_hand);
    const QByteArray input =
        "2 get current 0\n\n# comment\n3 set currentLimit 1 44\r\n" + QByteArray(1024 * 1024, 'a') +
        "\n2 \xff\x01 bytes\n2 fly\n" +
        "2 move 1 500 --wait\n2 beep 1 2\n999 beep\n2 pose 1 2 3 4 5 6\n2 halt\n"
        "2 move 1 5\n2 continue\n2 move 1 5";
    const auto result = cli.run("batch", input);
    QCOMPARE(result.status, 0);
    QStringList statuses;
    for (const QString& line : result.output.split('\n', Qt::SkipEmptyParts))
        statuses.append(
            QString::number(QJsonDocument::fromJson(line.toUtf8()).object()["status"].toInt(-1)));
    QCOMPARE(statuses.join(' '), "0 0 2 2 2 2 2 2 0 0 1 0 0");
    QCOMPARE(m_hand->command("get 3 current-limit 1"), "ok 44");
    QCOMPARE(motions().filter("4c ").size(), 1); // the one after continue
    QCOMPARE(m_hand->frames({0x4A}).size(), 2);  // the second at the end of the input
}

void TestVantoctl::batchEndings()
{
    start({"--node", "2", "--node", "3"});
    CliProcess cli(*m_hand);
    cli.start("batch --watchdog 300");
    cli.process().write("2 move 1 60000 --speed 5\n3 get current 0\n");
    QTRY_VERIFY_WITH_TIMEOUT(
        (cli.process().waitForReadyRead(1), m_hand->frames({0x4A}).size() == 1), 20'000);
    QCOMPARE(m_hand->addressed().filter(":4a"), QStringList{"02:4a"}); // not the one that was read
    cli.process().write("2 continue\n3 move 1 60000 --speed 5\n");
    QTRY_VERIFY_WITH_TIMEOUT(m_hand->frames({0x4C}).size() == 2, 20'000);
    cli.sendSignal(SIGTERM);
    QCOMPARE(cli.finish().status, 130);
    QCOMPARE(m_hand->command("get 3 moving 1"), "ok 0");
}

void TestVantoctl::badOutput()
{
    start();
    CliProcess cli(*m_hand);
    cli.process().setStandardOutputFile("/dev/full");
    auto result = cli.run("get current 0");
    QCOMPARE(result.status, 5);
    QVERIFY(result.errors.contains("No space left on device"));
    QProcess shell;
    shell.setProcessEnvironment(cli.process().processEnvironment());
    shell.start("bash", {"-c", QCoreApplication::applicationDirPath() +
                                   "/vantoctl monitor --rate max --quiet | head -n 2"});
    QVERIFY(shell.waitForFinished(30'000));
    QCOMPARE(shell.readAllStandardOutput().count('\n'), 2);
    QCOMPARE(shell.readAllStandardError(), "");
}

/// The examples of the documentation: commands, and their output with "..." for any text.
void TestVantoctl::documentation()
{
    start();
    const QString folder = m_folder.filePath("documentation");
    QVERIFY(QDir().mkpath(folder));
    for (const char* file : {"grip.json", "sample.upd"})
        QVERIFY(QFile::copy(QString(EXAMPLES "/") + file, folder + '/' + file));
    QFile page(EXAMPLES "/../docs/vantoctl.md");
    QVERIFY(page.open(QIODevice::ReadOnly));
    QList<QStringList> commands; // each with its output
    for (const QString& line : QString::fromUtf8(page.readAll()).split('\n')) {
        if (line.startsWith("    $ "))
            commands.append(QStringList{line.mid(6)});
        else if (line.startsWith("    ") && !commands.isEmpty())
            commands.last().append(line.mid(4));
    }
    QVERIFY(commands.size() > 30);
    for (const QStringList& lines : commands.mid(2)) { // after those that start the hand
        QProcess shell;
        shell.setProcessEnvironment(environment());
        shell.setWorkingDirectory(folder);
        shell.setProcessChannelMode(QProcess::MergedChannels);
        shell.start("bash", {"-c", lines[0]});
        shell.closeWriteChannel();
        QVERIFY(shell.waitForFinished(60'000));
        QString pattern = QRegularExpression::escape(lines.mid(1).join('\n'));
        pattern.replace("\\.\\.\\.", ".*");
        const QString output = QString::fromUtf8(shell.readAll()).trimmed();
        QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                                    QRegularExpression::DotMatchesEverythingOption)
                     .match(output)
                     .hasMatch(),
                 qPrintable(lines[0] + '\n' + output));
    }
}

void TestVantoctl::examples()
{
    start({"--node", "2", "--speed", "5"});
    CliProcess cli(*m_hand);
    const QString golden = m_folder.filePath("line.json");
    QCOMPARE(cli.run("backup " + golden).status, 0);
    m_hand->command("set 2 pid-i 0 9");
    const auto run = [this](const QStringList& words) {
        QProcess program;
        program.setProcessEnvironment(environment());
        program.start(words[0], words.mid(1));
        program.waitForFinished(60'000);
        return qMakePair(program.exitCode(),
                         program.readAllStandardOutput() + program.readAllStandardError());
    };
    const QStringList line{EXAMPLES "/production-line.sh", SAMPLE, golden,
                           m_folder.filePath("line-report.json")};
    auto result = run(line);
    QVERIFY2(result.first == 0, result.second);
    QVERIFY(QFile::exists(line[3]));
    m_hand->command("fault refuse command=0x45 count=0");
    m_hand->command("set 2 pid-i 0 8");
    QCOMPARE(run(line).first, 1);
    m_hand->command("clear");
    result = run({EXAMPLES "/batch.py", "2"});
    QVERIFY2(result.first == 0, result.second);
    QCOMPARE(motions().size(), 2);
    QCOMPARE(m_hand->frames({0x4A}), QStringList{"4a 3f"}); // at the end
}

/// Completions and manual page name every command and option, and bash accepts and uses its own.
void TestVantoctl::generated()
{
    const QString generator = QCoreApplication::applicationDirPath() + "/vantoctl-generate";
    for (const QString& what : {"bash", "zsh", "fish", "man"}) {
        QProcess program;
        program.start(generator, {what, EXAMPLES "/../packaging/man/vantoctl.1.in"});
        QVERIFY(program.waitForFinished());
        const QString text = QString::fromUtf8(program.readAll()).remove('\\');
        for (const Command& command : vanto::commands()) {
            QVERIFY2(text.contains(command.name), command.name);
            for (const CommandOption& option : command.options)
                QVERIFY2(text.contains(what == "fish" ? QString(option.name).mid(2) : option.name),
                         option.name);
        }
        for (const GeneralOption& option : generalOptions())
            QVERIFY(text.contains(QString(option.name).mid(2)));
    }
    QProcess shell;
    shell.start("bash", {"-c", "source <(" + generator +
                                   " bash) && COMP_WORDS=(vantoctl monitor --fi) COMP_CWORD=2 && "
                                   "_vantoctl && echo ${COMPREPLY[@]} && "
                                   "COMP_WORDS=(vantoctl --quiet mo) && _vantoctl && "
                                   "echo ${COMPREPLY[@]}"});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.readAllStandardOutput(), "--fields\nmove monitor\n");
    for (const char* other : {"zsh", "fish"}) {
        if (QStandardPaths::findExecutable(other).isEmpty())
            continue;
        shell.start("bash", {"-c", generator + ' ' + other + " | " + other + " -n /dev/stdin"});
        QVERIFY(shell.waitForFinished());
        QCOMPARE(shell.exitCode(), 0);
    }
}

VANTO_TEST(TestVantoctl)

} // namespace vanto

#include "tst_vantoctl.moc"
