#include "clitest.h"
#include "testmain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <csignal>

namespace vanto
{

/// Motions by vantoctl: signals, too much current, sequences, batch.
class TestCliMotion : public CliTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void interruptions_data();
    void interruptions();
    void endsSoon_data();
    void endsSoon();
    void interruptedHalt();
    void overCurrent_data();
    void overCurrent();
    void standstill();
    void play();
    void monitor();
    void batch();
    void batchEndings();
    void batchSilence();
    void batchSilentHalt_data();
    void batchSilentHalt();
    void batchNodes();
    void badOutput();
};

void TestCliMotion::interruptions_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QList<int>>("signalNumbers");
    QTest::addColumn<bool>("modbus");
    for (const char* words :
         {"move 1 60000 --speed 20 --wait", "pose 9 9 60000 9 9 9 --speeds 20 --wait",
          "play " EXAMPLES "/wave.json --from 2"})
        for (const bool modbus : {false, true})
            for (const QList<int>& numbers :
                 {QList<int>{SIGINT}, {SIGINT, SIGINT}, {SIGTERM}, {SIGHUP}, {SIGQUIT}})
                if (!modbus || numbers[0] == SIGINT || numbers[0] == SIGTERM)
                    QTest::addRow("%.4s %d %d %d", words, numbers[0], int(numbers.size()), modbus)
                        << QString(words) << numbers << modbus;
}

/// Signals while fingers move.
void TestCliMotion::interruptions()
{
    QFETCH(QString, words);
    QFETCH(QList<int>, signalNumbers);
    QFETCH(bool, modbus);
    const bool halts = signalNumbers != QList<int>{SIGINT};
    start({"--node", modbus ? "2:modbus" : "2", "--speed", "0.1"});
    CliProcess cli(*m_hand);
    cli.start(words + " --protocol " + (modbus ? "modbus" : "serialctrl"));
    const auto moves = [&] {
        return modbus ? m_hand->modbusWrites().size() : m_hand->frames({0x4C, 0x50}).size();
    };
    // The end of the motion and the next step of the sequence are far away.
    QTRY_VERIFY_WITH_TIMEOUT(m_hand->requests().size() > moves() + 8, 20'000);
    const auto sent = moves();
    for (const int number : signalNumbers) {
        cli.sendSignal(number);
        QTRY_VERIFY_WITH_TIMEOUT(!cli.hasPendingSignal(), 20'000);
    }
    QCOMPARE(cli.finish().status, 130);
    // The positions at which the fingers stand are written twice, over Modbus after the speeds.
    QCOMPARE(moves(), sent + (halts ? modbus ? 4 : 2 : 0));
    if (!modbus)
        QCOMPARE(m_hand->frames({0x4A}).size(), halts ? 1 : 0);
    for (int finger = 0; halts && finger < 6; ++finger)
        QCOMPARE(m_hand->command(QString("get 2 moving %1").arg(finger)), "ok 0");
}

void TestCliMotion::endsSoon_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("setUp");
    QTest::addColumn<int>("command"); ///< after `count` of them the signal comes
    QTest::addColumn<int>("count");
    const auto add = [](const QString& words, const char* setUp, int command, int count) {
        QTest::newRow(qPrintable(words + ": " + setUp))
            << words << QString(setUp) << command << count;
    };
    // Not the other fingers of the second step.
    add("play " EXAMPLES "/wave.json", "fault late ms=60000 command=0x4c skip=7", 0x4C, 8);
    add("get current", "hang", 0x06, 1);
    add("move 1 60000 --wait", "hang", 0x4C, 1);
    add("move 1 60000 --speed 1 --wait", "clear", 0x06, 9);
    add("backup %1/hand.json", "hang", 0x01, 1);
    add("monitor --rate max", "clear", 0x06, 9);
    add("scan --nodes 7-99", "clear", 0x01, 1);
    add("set-id 9", "fault late ms=60000 node=9 count=0", 0x01, 1);
}

/// A command ends within half a second after a signal, and neither waits for a reply nor sends
/// another motion. A busy machine delays every process, so the limit grows with the time that
/// a whole process takes, and the best of some attempts counts.
void TestCliMotion::endsSoon()
{
    QFETCH(QString, words);
    QFETCH(QString, setUp);
    QFETCH(int, command);
    QFETCH(int, count);
    constexpr int Attempts = 6;
    qint64 excess = 1;
    for (int i = 0; i < Attempts && excess > 0; ++i) {
        start();
        CliProcess cli(*m_hand);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(cli.run("get current 0 --protocol serialctrl").status, 0);
        const qint64 whole = timer.elapsed();
        m_hand->command(setUp);
        m_hand->clearTrace();
        cli.start(words.replace("%1", m_folder.path()) + " --protocol serialctrl");
        QTRY_VERIFY_WITH_TIMEOUT(m_hand->frames({command}).size() >= count, 20'000);
        const auto sent = motions().size();
        timer.start();
        cli.sendSignal(SIGINT);
        QCOMPARE(cli.finish().status, 130);
        excess = timer.elapsed() - 500 - 4 * whole;
        QCOMPARE(motions().size(), sent);
        close();
    }
    QVERIFY2(excess <= 0, qPrintable(QString("%1 ms too late").arg(excess)));
    QVERIFY(!QFile::exists(path("hand.json")));
}

/// A halt under way is completed.
void TestCliMotion::interruptedHalt()
{
    start();
    CliProcess cli(*m_hand);
    QCOMPARE(cli.run("move 1 60000 --speed 9 --protocol serialctrl").status, 0);
    m_hand->command("fault late ms=300 command=0x4a");
    cli.start("halt --protocol serialctrl");
    QTRY_COMPARE_WITH_TIMEOUT(m_hand->frames({0x4A}).size(), 1, 20'000);
    cli.sendSignal(SIGINT);
    const auto result = cli.finish();
    QCOMPARE(result.status, 130);
    QCOMPARE(m_hand->frames({0x50}).size(), 2);
    QVERIFY(comesToRest());
}

void TestCliMotion::overCurrent_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("modbus");
    for (const char* words : {"move 1 60000 --speed 20 --wait", "pose 9 9 60000 9 9 9 --wait",
                              "play " EXAMPLES "/wave.json"})
        for (const bool modbus : {false, true})
            QTest::addRow("%.4s %d", words, modbus) << QString(words) << modbus;
}

void TestCliMotion::overCurrent()
{
    QFETCH(QString, words);
    QFETCH(bool, modbus);
    start({"--node", modbus ? "2:modbus" : "2"});
    m_hand->command("set 2 current 2 80");
    CliProcess cli(*m_hand);
    const auto result = cli.run(words + " --json --protocol " + (modbus ? "modbus" : "serialctrl"));
    QCOMPARE(result.status, 6);
    QVERIFY(result.output.contains("\"halted\":true"));
    QVERIFY2(result.errors.contains("Middle has too big current: 80 mA"),
             qPrintable(result.errors));
    if (!modbus)
        QCOMPARE(m_hand->frames({0x4A}), QStringList{"4a 3f"});
    for (int finger = 0; finger < 6; ++finger) {
        QCOMPARE(m_hand->command(QString("get 2 moving %1").arg(finger)), "ok 0");
        // Halted on its way, far from the target.
        const QString position = m_hand->command(QString("get 2 position %1").arg(finger));
        QVERIFY2(position.mid(3).toInt() < 50'000, qPrintable(position));
    }
}

/// A finger that does not move any more ends the wait; here because the hand has been stopped.
void TestCliMotion::standstill()
{
    start({"--node", "2", "--latch-stop"});
    CliProcess cli(*m_hand);
    QCOMPARE(cli.run("halt").status, 0);
    auto result = cli.run("move 1 60000 --wait");
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("The finger index has stopped at 0"),
             qPrintable(result.errors));
    QCOMPARE(cli.run("continue").status, 0);
    result = cli.run("move 1 1500 --speed 1 --wait"); // slow, but it moves
    QVERIFY2(result.status == 0, qPrintable(result.errors));
}

void TestCliMotion::play()
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

void TestCliMotion::monitor()
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

void TestCliMotion::batch()
{
    start({"--node", "2", "--node", "3"});
    CliProcess cli(*m_hand);
    const QByteArray input =
        "2 get current 0\n\n# comment\n3 set currentLimit 1 44\r\n" +
        QByteArray(qsizetype{1024} * 1024, 'a') +
        "\n2 \xff\x01 bytes\n2 bep\n2 pose 1 2 3 4 5 6 --sped 2\n" +
        "2 move 1 500 --wait\n2 beep 1 2\n999 beep\n2 pose --speeds 9 1 2 3 4 5 6\n2 halt\n"
        "2 move 1 5\n2 continue\n2 move 1 5";
    const auto result = cli.run("batch", input);
    QCOMPARE(result.status, 0);
    QStringList statuses;
    for (const QString& line : result.output.split('\n', Qt::SkipEmptyParts))
        statuses.append(
            QString::number(QJsonDocument::fromJson(line.toUtf8()).object()["status"].toInt(-1)));
    QCOMPARE(statuses.join(' '), "0 0 2 2 2 2 2 2 2 0 0 1 0 0");
    for (const char* meant : {"beep", "--speeds"})
        QVERIFY2(result.output.contains(QString("Did you mean '%1'?").arg(meant)),
                 qPrintable(result.output));
    QCOMPARE(m_hand->command("get 3 current-limit 1"), "ok 44");
    QCOMPARE(motions().filter("4c ").size(), 1); // the one after continue
    QCOMPARE(m_hand->frames({0x4A}).size(), 2);  // the second at the end of the input
    m_hand->clearTrace();
    QCOMPARE(cli.run("batch", "2 halt\n3 get current 0\n2 continue\n").status, 0);
    QCOMPARE(m_hand->addressed().filter(":49"), QStringList{"02:49"}); // the hand that was halted
}

void TestCliMotion::batchEndings()
{
    start({"--node", "2", "--node", "3"});
    CliProcess cli(*m_hand);
    cli.start("batch --watchdog 2000");
    cli.process().write("2 move 1 60000 --speed 5\n3 get current 0\n");
    QTRY_VERIFY_WITH_TIMEOUT(
        (cli.process().waitForReadyRead(1), m_hand->frames({0x4A}).size() == 1), 20'000);
    QCOMPARE(m_hand->addressed().filter(":4a"), QStringList{"02:4a"}); // not the one that was read
    cli.process().write("2 continue\n3 move 1 60000 --speed 5\n");
    QTRY_VERIFY_WITH_TIMEOUT(m_hand->frames({0x4C}).size() == 2, 20'000);
    cli.sendSignal(SIGINT);
    QCOMPARE(cli.finish().status, 130);
    QVERIFY(comesToRest(3));
    // To continue one hand halts that one first, and the other one still moves.
    QCOMPARE(cli.run("batch", "2 move 1 60000 --speed 3\n3 continue\n").status, 0);
    QVERIFY(comesToRest());
}

/// The watchdog also expires while a command runs, and lines that waited then move nothing.
void TestCliMotion::batchSilence()
{
    start();
    CliProcess cli(*m_hand, 60); // the time-out of an absent node is longer than the watchdog time
    cli.start("batch --watchdog 2000 --protocol serialctrl");
    cli.process().write("2 move 1 60000 --speed 3\n9 get current 0\n2 move 2 60000\n");
    QByteArray output;
    const auto hasAnswered = [&](const char* text) {
        cli.process().waitForReadyRead(1);
        output += cli.process().readAllStandardOutput();
        return output.contains(text);
    };
    QTRY_VERIFY_WITH_TIMEOUT(hasAnswered("\"line\":3"), 30'000);
    const auto halt = output.indexOf("\"event\":\"watchdog\"");
    QVERIFY2(halt > 0 && halt < output.indexOf("\"line\":2,"), output.constData());
    QCOMPARE(motions().filter("4c ").size(), 1);
    QVERIFY(comesToRest());
    cli.process().closeWriteChannel();
    QCOMPARE(cli.finish().status, 0);
    // A writer that has finished is not silent.
    m_hand->clearTrace();
    cli.run("batch --watchdog 2000 --protocol serialctrl",
            "2 continue\n9 get current 0\n2 move 2 60000\n");
    QCOMPARE(motions().filter("4c 02").size(), 1);
}

void TestCliMotion::batchSilentHalt_data()
{
    QTest::addColumn<int>("slowCommand");
    QTest::addColumn<int>("status");
    QTest::newRow("continue") << 0x4A << 1;
    QTest::newRow("halt") << 0x4A << 0;
    QTest::newRow("continue, late") << 0x49 << 1;
}

/// The watchdog expires during a halt or its end: the hand stays halted.
void TestCliMotion::batchSilentHalt()
{
    QFETCH(int, slowCommand);
    QFETCH(int, status);
    start();
    CliProcess cli(*m_hand, 60);
    m_hand->command(QString("fault late ms=2500 command=%1").arg(slowCommand));
    cli.start("batch --watchdog 2000 --protocol serialctrl");
    cli.process().write("2 " + QByteArray(QTest::currentDataTag()).split(',')[0] + '\n');
    QTRY_VERIFY_WITH_TIMEOUT(cli.process().canReadLine(), 60'000);
    cli.process().write("2 move 1 60000\n");
    cli.process().closeWriteChannel();
    const auto result = cli.finish();
    const QString first = result.output.section('\n', 0, 0);
    QVERIFY2(first.contains(QString("\"status\":%1").arg(status)), qPrintable(result.output));
    QVERIFY2(result.output.contains("until 'continue'"), qPrintable(result.output));
    QCOMPARE(m_hand->frames({0x4C}), QStringList());
    QVERIFY(m_hand->frames({0x49}).isEmpty() || slowCommand == 0x49);
}

void TestCliMotion::batchNodes()
{
    start({"--node", "2", "--node", "3:modbus"});
    CliProcess cli(*m_hand);
    // No hand may be moved by the broadcast address; and a node keeps being followed.
    QString output = cli.run("batch --protocol modbus", "3 get current 0\n0 move 1 60000\n").output;
    QVERIFY2(output.contains("no hand has node 0"), qPrintable(output));
    QCOMPARE(m_hand->command("get 3 moving 1"), "ok 0");
    const auto result =
        cli.run("batch --protocol serialctrl", "2 move 1 60000 --speed 2\n2 set-id 9\n");
    QCOMPARE(result.status, 0);
    QCOMPARE(m_hand->addressed().filter(":4a"), QStringList{"09:4a"});
}

void TestCliMotion::badOutput()
{
    start();
    CliProcess cli(*m_hand);
    cli.process().setStandardOutputFile("/dev/full");
    for (const char* words : {"get current 0", "info --json", "monitor --quiet", "batch"}) {
        const auto result = cli.run(words, words == QString("batch") ? "2 get current 0\n" : "");
        QCOMPARE(result.errors, "vantoctl: Writing to standard output failed: No space left on "
                                "device\n");
        QCOMPARE(result.status, 5);
    }
    QProcess shell;
    shell.setProcessEnvironment(environment());
    shell.start("bash", {"-c", "vantoctl monitor --rate max --quiet | head -n 2"});
    QVERIFY(shell.waitForFinished(30'000));
    QCOMPARE(shell.readAllStandardOutput().count('\n'), 2);
    QCOMPARE(shell.readAllStandardError(), "");
    // A disk that becomes full; an existing file stays as it is.
    const QString file = path("hand.json");
    writeFile(file, "earlier");
    for (const QString& words : {"backup " + file, "report " + file, "report " + file + ".txt",
                                 "monitor --rate max --quiet --for 30 > " + file + ".csv"}) {
        shell.start("bash", {"-c", "trap '' XFSZ; ulimit -f 1; vantoctl " + words});
        QVERIFY(shell.waitForFinished(60'000));
        QCOMPARE(shell.exitCode(), 5);
        const QByteArray errors = shell.readAllStandardError();
        QVERIFY2(errors.startsWith("vantoctl: ") && errors.count('\n') == 1, errors.constData());
    }
    QVERIFY(!QFile::exists(file + ".txt"));
    QCOMPARE(QFileInfo(file).size(), 7);
}

VANTO_TEST(TestCliMotion)

} // namespace vanto

#include "tst_climotion.moc"
