#include "clitest.h"
#include "testmain.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

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
}

/// A hand that still answers has not begun to reboot; stage 1 would be lost.
void TestCliUpdate::calibrationWaitsForReboot()
{
    start();
    writeFile(path("key"), "1A2B");
    CliProcess cli(*m_hand, 20);
    const auto result =
        cli.run("calibrate --yes --protocol serialctrl --json --key-file " + path("key"));
    QVERIFY2(result.status == 0, qPrintable(result.errors));
    QVERIFY(QFile::exists(json(result)["backup"].toString()));
    QCOMPARE(m_hand->command("get 2 calibrations"), "ok 1");
    QCOMPARE(m_hand->command("get 2 stage"), "ok 3");
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
