#include "clitest.h"
#include "testmain.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <csignal>

#include <sys/stat.h>

namespace vanto
{

/// Firmware update, calibration and their backups by vantoctl.
class TestCliUpdate : public CliTest
{
    Q_OBJECT
private slots:
    void cleanup() { close(); }
    void statuses_data();
    void statuses();
    void backups();
    void calibrationWaitsForReboot();
    void lostReplyIsNoReboot();
    void keyIsMasked_data();
    void keyIsMasked();

private:
    /// The commands that were not sent to the boot loader.
    QList<int> requestsToHand() const
    {
        QList<int> commands;
        for (const TracedFrame& request : m_hand->requests())
            if (request.protocol == "serialctrl")
                commands.append(static_cast<std::uint8_t>(request.bytes[4]));
        return commands;
    }
    static QJsonObject json(const CliProcess::Result& result)
    {
        return QJsonDocument::fromJson(result.output.toUtf8()).object();
    }
};

void TestCliUpdate::statuses_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("result");
    const QString update = "update --no-backup --yes " SAMPLE;
    QTest::newRow("done") << update << "" << 0 << 0;
    QTest::newRow("wrong hardware") << update << "fault refuse stage=hardware" << 1 << 0;
    QTest::newRow("refused") << update << "fault refuse stage=record count=4" << 1 << 0;
    QTest::newRow("silent") << update << "fault drop stage=record" << 3 << 3;
    QTest::newRow("no server")
        << "update --no-backup --yes --hardware 1B01 --server http://127.0.0.1:1"
        << "" << 3 << 3;
}

void TestCliUpdate::statuses()
{
    QFETCH(QString, words);
    QFETCH(QString, fault);
    start();
    if (!fault.isEmpty())
        QVERIFY(m_hand->command(fault).startsWith("ok"));
    CliProcess cli(*m_hand);
    const auto result = cli.run(words + " --json");
    QTEST(result.status, "status");
    QTEST(json(result)["result"].toInt(-1), "result");
}

void TestCliUpdate::backups()
{
    start();
    CliProcess cli(*m_hand);
    auto result = cli.run("update --yes --json " SAMPLE);
    QVERIFY2(result.status == 0, qPrintable(result.errors));
    const QString path = json(result)["backup"].toString();
    QVERIFY2(path.contains("/VantoSetting/parameters/1B01-"), qPrintable(path));
    QVERIFY(QFile::exists(path));
    QVERIFY(std::ranges::all_of(requestsToHand(), [](int command) { return command < 0x40; }));
    m_hand->command("boot leave");
    QCOMPARE(cli.run("diff " + path).status, 0);
    // A hand that does not answer is updated without a backup, after one time-out.
    m_hand->command("fault drop count=0");
    m_hand->clearTrace();
    CliProcess impatient(*m_hand, 4);
    result = impatient.run("update --yes --json --protocol serialctrl " SAMPLE);
    QVERIFY2(result.status == 0, qPrintable(result.errors));
    QVERIFY2(result.errors.contains("The parameters were not backed up."),
             qPrintable(result.errors));
    QVERIFY(!json(result).contains("backup"));
    QCOMPARE(requestsToHand().size(), 1);
    // The cable is pulled during the backup.
    m_hand->command("clear");
    m_hand->command("boot leave");
    m_hand->command("fault late ms=60000 count=0 skip=6");
    m_hand->clearTrace();
    cli.start("update --yes --protocol serialctrl " SAMPLE);
    QTRY_VERIFY_WITH_TIMEOUT(requestsToHand().size() > 6, 20'000);
    m_hand->command("unplug");
    result = cli.finish();
    QCOMPARE(result.errors.count("The parameters were not backed up."), 1);
    QCOMPARE(result.status, 4);
}

/// A hand that still answers has not begun to reboot; stage 1 would be lost.
void TestCliUpdate::calibrationWaitsForReboot()
{
    start();
    m_hand->command("set 2 reboot-time 4000"); // several time-outs
    const QString pipe = path("pipe");
    QCOMPARE(mkfifo(qPrintable(pipe), S_IRUSR | S_IWUSR), 0);
    QProcess writer;
    writer.start("bash", {"-c", "echo 1A2B > " + pipe});
    CliProcess cli(*m_hand, 10);
    const auto result = cli.run("calibrate --yes --protocol serialctrl --json --key-file " + pipe);
    QVERIFY(writer.waitForFinished());
    QVERIFY2(result.status == 0, qPrintable(result.errors));
    QVERIFY(QFile::exists(json(result)["backup"].toString()));
    QCOMPARE(m_hand->command("get 2 calibrations"), "ok 1");
    QCOMPARE(m_hand->command("get 2 stage"), "ok 3");
}

void TestCliUpdate::lostReplyIsNoReboot()
{
    start();
    writeFile(path("key"), "1A2B");
    m_hand->command("set 2 reboot-time 0"); // as if it had not begun to reboot
    m_hand->command("fault drop command=0x22");
    CliProcess cli(*m_hand, 40);
    cli.start("calibrate --yes --no-backup --protocol serialctrl --key-file " + path("key"));
    QTRY_VERIFY_WITH_TIMEOUT(m_hand->frames({0x22}).size() > 20, 20'000);
    cli.sendSignal(SIGINT);
    QCOMPARE(cli.finish().status, 130);
    QVERIFY(m_hand->frames({0x63}).isEmpty());
}

void TestCliUpdate::keyIsMasked_data()
{
    QTest::addColumn<bool>("modbus");
    QTest::newRow("SerialCtrl") << false;
    QTest::newRow("Modbus") << true;
}

void TestCliUpdate::keyIsMasked()
{
    QFETCH(bool, modbus);
    start({"--node", modbus ? "2:modbus" : "2"});
    writeFile(path("key"), "7E6D"); // refused
    CliProcess cli(*m_hand, 20);
    const auto result = cli.run(QString("calibrate --yes --no-backup --verbose --protocol %1 "
                                        "--key-file %2")
                                    .arg(modbus ? "modbus" : "serialctrl", path("key")));
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains(" ** **"), qPrintable(result.errors));
    QVERIFY2(!result.errors.contains("7e 6d") && !result.errors.contains("6d 7e"),
             qPrintable(result.errors));
}

VANTO_TEST(TestCliUpdate)

} // namespace vanto

#include "tst_cliupdate.moc"
