#include "handprocess.h"
#include "testmain.h"
#include "updatefirmware.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <ctime>

namespace vanto
{

namespace
{
constexpr UpdateLimits Short{2, 600, 600, 1200, 4};
constexpr UpdateLimits Patient{2, 60'000, 60'000, 60'000, 4};

constexpr const char* NoDevice = "Error when waiting for device.";
constexpr const char* NoFlag = "Error when waiting for hardware match flag.";
constexpr const char* NoTarget = "Failed: Target is not responding.";
constexpr const char* OtherHardware = "Hardware does not match type 0x1b, version 0x01.";
constexpr const char* BadRecord = "CRC error. File damaged.";

struct Row {
    const char* name;
    const char* setUp; ///< option or fault of the hand
    int at, length;    ///< of the replaced part of the sample file
    const char* by;
    const char* failure;
    const char* counts; ///< reported by the boot loader
};

constexpr Row Rows[] = {
    {"paced", "--baud 115200", 0, 0, "", "", "probes=1 records=16 rejected=0 stray=0"},
    {"no header", "--hardware 0000", 0, 9, "", "", "probes=1 records=16 rejected=0 stray=0"},
    {"empty record", "--no-record-check", 9, 0, "0000", "", "records=17 rejected=0 stray=0"},
    {"other hardware", "--hardware 1B02", 0, 0, "", OtherHardware, "records=0"},
    {"unknown answer", "refuse stage=hardware error=0x5A", 0, 0, "", OtherHardware, "records=0"},
    {"application runs", "--boot-window 0", 0, 0, "", NoDevice, "probes=0"},
    {"no answer", "drop stage=probe count=0", 0, 0, "", NoDevice, "probes=2 records=0"},
    {"55 55 AA", "stutter stage=probe", 0, 0, "", "", "probes=2 records=16"},
    {"noise, 55 AA", "noise stage=probe", 0, 0, "", "", "probes=1 records=16"},
    {"no flag", "drop stage=hardware", 0, 0, "", NoFlag, "probes=1 records=0"},
    {"first record", "drop stage=record", 0, 0, "", NoTarget, "records=0 rejected=1"},
    {"middle record", "drop stage=record skip=8", 0, 0, "", NoTarget, "records=8 rejected=1"},
    {"last record", "drop stage=record skip=15", 0, 0, "", NoTarget, "records=15 rejected=1"},
    {"rejected 3x", "refuse stage=record skip=5 count=3;refuse stage=record skip=9 count=3", 0, 0,
     "", "", "records=16 rejected=6"},
    {"odd times", "stutter stage=record skip=3;refuse stage=record skip=4;late stage=record ms=900",
     0, 0, "", "", "records=16 rejected=1"},
    {"rejected", "refuse stage=record skip=5 count=4", 0, 0, "", BadRecord, "records=5 rejected=4"},
    {"damaged", "", 1409, 2, "00", BadRecord, "records=2 rejected=4"},
    {"lone byte", "", 8201, 0, "00", NoTarget, "records=16 rejected=0 stray=1"},
    {"cut short", "", 8195, 6, "", NoTarget, "records=15 rejected=0 stray=253"},
};
} // namespace

class tst_transfer : public QObject
{
    Q_OBJECT
private slots:
    void update_data();
    void update();
    void callbacks();
    void unplug();
    void waitProcessesEvents();
    void constantNoise();

private:
    static QByteArray sample()
    {
        QFile file(SAMPLE);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void start(const QString& options)
    {
        m_hand = std::make_unique<HandProcess>();
        QVERIFY(m_hand->start(options.split(' ', Qt::SkipEmptyParts)));
        QTest::failOnWarning(QRegularExpression("."));
    }
    QString command(const QString& line) { return m_hand->command(line); }
    QString write(const QByteArray& content, const LogCallback& log = {},
                  const ProgressCallback& progress = {}, const UpdateLimits& limits = Patient)
    {
        QFile file(m_folder.filePath("file.upd"));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) < 0 || !file.flush())
            return file.errorString();
        return updateFirmware(m_hand->portName(), QSerialPort::Baud115200, file.fileName(), log,
                              progress, limits);
    }

    const QTemporaryDir m_folder;
    std::unique_ptr<HandProcess> m_hand;
};

void tst_transfer::update_data()
{
    QTest::addColumn<const Row*>("row");
    for (const Row& row : Rows)
        QTest::newRow(row.name) << &row;
}

void tst_transfer::update()
{
    QFETCH(const Row*, row);
    const QString setUp(row->setUp);
    const bool isOption = setUp.startsWith("--");
    start(isOption ? setUp : QString());
    for (const QString& fault : setUp.split(';', Qt::SkipEmptyParts))
        QVERIFY(isOption || command("fault " + fault) == "ok");
    QByteArray file = sample().replace(row->at, row->length, row->by);
    const bool expires = *row->failure != '\0' || setUp == "stutter stage=probe";
    QCOMPARE(write(
                 file, [](const QString&) { QCoreApplication::processEvents(); }, {},
                 expires ? Short : Patient),
             row->failure);
    QVERIFY2(command("boot").contains(QLatin1String(row->counts)), qPrintable(command("boot")));
    if (*row->failure != '\0') {
        if (isOption)
            return;
        command("clear");
        file = sample();
        QCOMPARE(write(file), "");
    }
    QFile image(m_folder.filePath("image"));
    command("image " + image.fileName());
    QVERIFY(image.open(QIODevice::ReadOnly));
    QCOMPARE(image.readAll(), QByteArray::fromHex(file.sliced(file.lastIndexOf('\n') + 1)));
    command("boot leave");
    QCOMPARE(command("get 2 revision"), "ok 8");
}

void tst_transfer::callbacks()
{
    start({});
    QStringList reported;
    const auto log = [&](const QString& text) { reported.append(text); };
    const auto progress = [&](int percent) { reported.append(QString::number(percent)); };
    QCOMPARE(write(sample(), log, progress), "");
    QStringList expected = QString("Start to update, please keep device power on.\n0\n"
                                   "Waiting for device response, loop 0...\n"
                                   "Device said: 0x55\nDevice said: 0xaa\nDevice said: 0x59\n"
                                   "Hardware type 0x1b, hardware version 0x01 matched.")
                               .split('\n');
    const QString spinner = QString("--\\\\||//").repeated(2);
    for (int record = 0; record < 16; ++record) {
        const QString done = QString::number(100 * record / 16);
        expected << "Transferring... " + spinner.mid(record, 1) + ' ' + done + "% done." << done;
    }
    QCOMPARE(reported.first(), "Hardware type: 0x1B, ver: 0x01");
    QCOMPARE(reported.sliced(1 + 4096), expected + QStringList({"100", "Transfer 100% done."}));
    QCOMPARE(updateFirmware("/dev/none", QSerialPort::Baud115200, SAMPLE, {}, {}),
             "Failed when openning port '/dev/none'.");
}

void tst_transfer::unplug()
{
    start({});
    const QMap<QString, QString> failures{{"Waiting for device response, loop 0...", NoDevice},
                                          {"Device said: 0xaa", NoFlag},
                                          {"Transferring... - 50% done.", NoTarget}};
    for (const QString& moment : failures.keys()) {
        QElapsedTimer sinceUnplug;
        const auto log = [&](const QString& text) {
            if (text == moment && command("unplug") == "ok")
                sinceUnplug.start();
        };
        QCOMPARE(write(sample(), log), failures[moment]);
        QVERIFY2(sinceUnplug.isValid() && sinceUnplug.elapsed() < 30'000, qPrintable(moment));
        QVERIFY(command("replug").startsWith("ok"));
        QCOMPARE(write(sample()), "");
    }
}

void tst_transfer::waitProcessesEvents()
{
    start("--boot-window 0");
    int ticks = 0;
    QTimer ticking;
    connect(&ticking, &QTimer::timeout, this, [&] { ++ticks; });
    ticking.start(20);
    const std::clock_t before = std::clock();
    QCOMPARE(write("0000", {}, {}, {3, 200, 0, 0, 0}), NoDevice);
    const auto used = (std::clock() - before) * 1000 / CLOCKS_PER_SEC;
    QVERIFY2(ticks > 5, "the event loop was blocked");
    QVERIFY2(used < 200, qPrintable(QString("%1 ms of processor time").arg(used)));
}

/// More than ten seconds of noise precede the answer.
void tst_transfer::constantNoise()
{
    start("--baud 300");
    QCOMPARE(command("fault noise stage=probe count=2 bytes=350"), "ok");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(write("0000", {}, {}, {2, 300, 0, 0, 0, 300}), NoDevice);
    QVERIFY2(timer.elapsed() < 6000, qPrintable(QString::number(timer.elapsed())));
}

VANTO_TEST(tst_transfer)

} // namespace vanto

#include "tst_transfer.moc"
